#include <gmock/gmock.h>

#include <filesystem>
#include <string>

#include "tests/unit/packagecheck/TemporaryFolder.h"
#include "tools/PackageCheck/FolderTree.h"

using packagecheck::FolderTree;

namespace {

class FolderTreeTest : public testing::Test {
protected:
    TemporaryFolder folder;
    const FolderTree tree{std::filesystem::path(folder.Path())};
};

TEST_F(FolderTreeTest, ReadsAsMuchOfAFileAsItIsAskedFor) {
    folder.Write("a/long.txt", std::string(200'000, 'x'));
    EXPECT_EQ(tree.Read("a/long.txt", 1'000'000)->size(), 200'000U);
    EXPECT_EQ(tree.Read("a/long.txt", 70'000)->size(), 70'000U);
}

TEST_F(FolderTreeTest, TellsAnEmptyFileFromOneThatCannotBeOpened) {
    folder.Write("empty.txt", "");
    EXPECT_EQ(tree.Read("empty.txt", 10), "");
    EXPECT_EQ(tree.Read("missing.txt", 10), std::nullopt);
}

// What is in the way of the file is a folder.
TEST_F(FolderTreeTest, LeavesNothingBesideAFileThatItCannotReplace) {
    folder.Write("a/inside.txt", "mine");
    EXPECT_FALSE(tree.Write("a", "new"));
    EXPECT_EQ(folder.Read("a/inside.txt"), "mine");
    EXPECT_FALSE(std::filesystem::exists(folder.Path() + "/a.unfinished"));
}

}  // namespace
