#include <gmock/gmock.h>

#include <filesystem>
#include <string>

#include "tests/unit/packagecheck/MsiWriter.h"
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

TEST_F(FolderTreeTest, ReadsAPackageOrSaysWhyNot) {
    const std::filesystem::path path = folder.Path() + "/Some.msi";
    WriteMsi(path,
             {"CREATE TABLE `Property` (`Property` CHAR(72) NOT NULL, `Value` LONGCHAR NOT NULL LOCALIZABLE "
              "PRIMARY KEY `Property`)",
              "INSERT INTO `Property` (`Property`, `Value`) VALUES ('DRIVERID', 'HVMONO')"});
    folder.Write("Bad.msi", "This is no package.");
    const packagecheck::MsiReading some = tree.ReadMsi("Some.msi");
    ASSERT_TRUE(some.contents) << some.error;
    EXPECT_EQ(some.contents->PropertyOf(L"DRIVERID"), L"HVMONO");
    EXPECT_EQ(some.error, "");
    const packagecheck::MsiReading bad = tree.ReadMsi("Bad.msi");
    EXPECT_FALSE(bad.contents);
    EXPECT_NE(bad.error, "");
}

#ifndef _WIN32
TEST_F(FolderTreeTest, LeavesTheRightsOfAFileAsTheyWere) {
    using std::filesystem::perms;
    folder.Write("a.txt", "old");
    const auto rights = perms::owner_read | perms::owner_write | perms::others_read;
    std::filesystem::permissions(folder.Path() + "/a.txt", rights);
    EXPECT_TRUE(tree.Write("a.txt", "new"));
    EXPECT_EQ(folder.Read("a.txt"), "new");
    EXPECT_EQ(std::filesystem::status(folder.Path() + "/a.txt").permissions(), rights);
}
#endif

// What is in the way of the file is a folder.
TEST_F(FolderTreeTest, LeavesNothingBesideAFileThatItCannotReplace) {
    folder.Write("a/inside.txt", "mine");
    EXPECT_FALSE(tree.Write("a", "new"));
    EXPECT_EQ(folder.Read("a/inside.txt"), "mine");
    EXPECT_FALSE(std::filesystem::exists(folder.Path() + "/a.unfinished"));
}

}  // namespace
