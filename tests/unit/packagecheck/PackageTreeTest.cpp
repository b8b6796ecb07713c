#include <gmock/gmock.h>

#include "tools/PackageCheck/PackageTree.h"

namespace packagecheck {
namespace {

TEST(PackageTreeTest, FoldsTheLettersOfAsciiAndNothingElse) {
    EXPECT_EQ(Folded("@AZ[`az{\xC3\x84"), "@az[`az{\xC3\x84");
}

TEST(PackageTreeTest, FindsTheFilesOfAFolderByTheirEndingInAnyCase) {
    const FileTable table(
        {{.path = "A/x.MSI"}, {.path = "a/y.txt"}, {.path = "a/b/z.msi"}, {.path = "w.msi"}});
    const auto found = table.In("a", ".msi");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found.front()->path, "A/x.MSI");
    EXPECT_EQ(table.In("A").size(), 2U);
    EXPECT_EQ(table.Find("a/X.msi"), found.front());
}

}  // namespace
}  // namespace packagecheck
