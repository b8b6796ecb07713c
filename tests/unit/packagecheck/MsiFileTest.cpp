#include <gmock/gmock.h>

#include "tests/unit/packagecheck/MsiWriter.h"
#include "tests/unit/packagecheck/TemporaryFolder.h"
#include "tools/PackageCheck/MsiFile.h"

using packagecheck::MsiContents;
using packagecheck::OpenMsi;

namespace {

MsiContents Written(const std::vector<std::string>& statements) {
    const TemporaryFolder folder;
    const std::filesystem::path path = folder.Path() + "/Some.msi";
    WriteMsi(path, statements);
    std::string error;
    const auto database = OpenMsi(path, error);
    EXPECT_TRUE(database) << error;
    return database ? ReadContents(*database) : MsiContents();
}

const std::string createProperty =
    "CREATE TABLE `Property` (`Property` CHAR(72) NOT NULL, `Value` LONGCHAR NOT NULL LOCALIZABLE PRIMARY "
    "KEY `Property`)";

TEST(MsiFileTest, ReadsProperties) {
    const MsiContents contents = Written(
        {createProperty, "INSERT INTO `Property` (`Property`, `Value`) VALUES ('DRIVERID', 'HVMONO')",
         "INSERT INTO `Property` (`Property`, `Value`) VALUES ('LONG', '" + std::string(3000, 'x') + "')"});
    EXPECT_EQ(contents.PropertyOf(L"DRIVERID"), L"HVMONO");
    EXPECT_EQ(contents.PropertyOf(L"LONG"), std::wstring(3000, L'x'));
    EXPECT_EQ(contents.PropertyOf(L"driverid"), L"");
}

TEST(MsiFileTest, ReadsTheSummary) {
    const packagecheck::MsiSummary summary = Written({createProperty}).summary;
    EXPECT_EQ(summary.platform, L"x64;1033");
    EXPECT_EQ(summary.installerVersion, 200);
    EXPECT_EQ(summary.packageCode, L"{00000000-0000-0000-0000-000000000001}");
}

TEST(MsiFileTest, ReadsFilesWithTheirFolders) {
    const MsiContents contents = Written(
        {createProperty,
         "CREATE TABLE `Directory` (`Directory` CHAR(72) NOT NULL, `Directory_Parent` CHAR(72), `DefaultDir` "
         "CHAR(255) "
         "NOT NULL PRIMARY KEY `Directory`)",
         "INSERT INTO `Directory` (`Directory`, `Directory_Parent`, `DefaultDir`) VALUES ('TARGETDIR', '', "
         "'SourceDir')",
         "INSERT INTO `Directory` (`Directory`, `Directory_Parent`, `DefaultDir`) VALUES ('V', 'TARGETDIR', "
         "'HAL|Halvenny')",
         "INSERT INTO `Directory` (`Directory`, `Directory_Parent`, `DefaultDir`) VALUES ('K', 'V', "
         "'Kit:Src')",
         "CREATE TABLE `Component` (`Component` CHAR(72) NOT NULL, `Directory_` CHAR(72) NOT NULL PRIMARY "
         "KEY `Component`)",
         "INSERT INTO `Component` (`Component`, `Directory_`) VALUES ('C', 'K')",
         "CREATE TABLE `File` (`File` CHAR(72) NOT NULL, `Component_` CHAR(72) NOT NULL, `FileName` "
         "CHAR(255) NOT NULL "
         "PRIMARY KEY `File`)",
         "INSERT INTO `File` (`File`, `Component_`, `FileName`) VALUES ('F', 'C', 'TOO~1.EXE|Tool.exe')"});
    ASSERT_EQ(contents.files.size(), 1U);
    EXPECT_EQ(contents.files.front().name, L"Tool.exe");
    EXPECT_EQ(contents.files.front().folder, L"Halvenny\\Kit");
    EXPECT_TRUE(contents.usedProperties.contains(L"V"));
}

TEST(MsiFileTest, ReadsUpgradesAndSequences) {
    const MsiContents contents = Written(
        {createProperty,
         "CREATE TABLE `Upgrade` (`UpgradeCode` CHAR(38) NOT NULL, `Attributes` LONG NOT NULL, "
         "`ActionProperty` CHAR(72) "
         "NOT NULL PRIMARY KEY `UpgradeCode`)",
         "INSERT INTO `Upgrade` (`UpgradeCode`, `Attributes`, `ActionProperty`) VALUES ('{A}', 1, 'OLDER')",
         "INSERT INTO `Upgrade` (`UpgradeCode`, `Attributes`, `ActionProperty`) VALUES ('{B}', 258, 'NEWER')",
         "CREATE TABLE `AdminExecuteSequence` (`Action` CHAR(72) NOT NULL, `Sequence` SHORT PRIMARY KEY "
         "`Action`)",
         "INSERT INTO `AdminExecuteSequence` (`Action`, `Sequence`) VALUES ('InstallFiles', 4000)"});
    ASSERT_EQ(contents.upgrades.size(), 2U);
    EXPECT_TRUE(contents.upgrades[0].Removes());
    EXPECT_FALSE(contents.upgrades[1].Removes());
    EXPECT_EQ(contents.upgrades[1].actionProperty, L"NEWER");
    EXPECT_TRUE(contents.adminActions.contains(L"InstallFiles"));
}

TEST(MsiFileTest, SaysWhyAFileCannotBeOpened) {
    const TemporaryFolder folder;
    folder.Write("Bad.msi", "This is no package.");
    std::string error;
    EXPECT_EQ(OpenMsi(folder.Path() + "/Bad.msi", error), nullptr);
    EXPECT_FALSE(error.empty());
}

// A database of rows, to read what no writer writes.
class ScriptedDatabase : public packagecheck::MsiDatabase {
public:
    std::vector<Row> Rows(const std::string& table, const std::vector<std::string>&) override {
        return rows[table];
    }

    packagecheck::MsiSummary Summary() override { return {}; }

    std::map<std::string, std::vector<Row>> rows;
};

TEST(MsiContentsTest, SurvivesFoldersThatAreTheirOwnParents) {
    ScriptedDatabase database;
    database.rows["Directory"] = {{L"A", L"B", L"a"}, {L"B", L"A", L"b"}, {L"C", L"C", L"c"}};
    database.rows["Component"] = {{L"X", L"A"}, {L"Y", L"C"}};
    database.rows["File"] = {{L"X", L"x.exe"}, {L"Y", L"y.exe"}, {L"Z", L"z.exe"}};
    const MsiContents contents = ReadContents(database);
    ASSERT_EQ(contents.files.size(), 3U);
    EXPECT_EQ(contents.files[0].folder, L"b\\a");
    EXPECT_EQ(contents.files[1].folder, L"");
    EXPECT_EQ(contents.files[2].folder, L"");
}

// The folder of the one file that the database then has.
std::wstring FolderBelow(int count) {
    ScriptedDatabase database;
    database.rows["Directory"].push_back({L"0", L"", L"root"});
    for (int i = 1; i <= count; ++i) {
        database.rows["Directory"].push_back({std::to_wstring(i), std::to_wstring(i - 1), L"d"});
    }
    database.rows["Component"] = {{L"X", std::to_wstring(count)}};
    database.rows["File"] = {{L"X", L"x.exe"}};
    return ReadContents(database).files.at(0).folder;
}

TEST(MsiContentsTest, JoinsAThousandFoldersAndNoMore) {
    EXPECT_EQ(FolderBelow(3), L"d\\d\\d");
    for (const int count : {1'000, 1'001}) EXPECT_EQ(FolderBelow(count).size(), 2 * 1'000 - 1U);
}

TEST(MsiContentsTest, SurvivesAnyDepthOfFolders) {
    EXPECT_FALSE(FolderBelow(20'000).empty());
}

TEST(MsiContentsTest, FindsPropertiesInBrackets) {
    ScriptedDatabase database;
    database.rows["Registry"] = {{L"a [PRINTER_INFO] [b"}, {L"[[TARGET_DIR]]"}};
    database.rows["CustomAction"] = {{L"[LANGUAGEID]"}};
    EXPECT_THAT(ReadContents(database).usedProperties,
                testing::ElementsAre(L"LANGUAGEID", L"PRINTER_INFO", L"TARGET_DIR"));
}

}  // namespace
