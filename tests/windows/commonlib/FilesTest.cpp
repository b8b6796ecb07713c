#include <windows.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>

#include "CommonLib/Files.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/ScratchFolder.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

std::wstring modulePath;

// As documented: a path that does not fit is cut off and closed.
DWORD WINAPI TellModulePath(HMODULE, LPWSTR buffer, DWORD size) {
    const auto length = static_cast<DWORD>(std::min<std::size_t>(modulePath.size(), size - 1));
    buffer[modulePath.copy(buffer, length)] = L'\0';
    if (modulePath.size() < size) return length;
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return size;
}

TEST(ExePathTest, IsWholeHoweverLongItIs) {
    const PatchedImport naming("GetModuleFileNameW", &TellModulePath);
    for (const std::size_t length : {100U, 259U, 260U, 261U, 519U, 520U, 521U, 30000U}) {
        modulePath = L"C:\\" + std::wstring(length - 16, L'f') + L"\\Kestrune.exe";
        EXPECT_EQ(GetExePath(), modulePath);
    }
}

class FindFilesTest : public testing::Test {
protected:
    std::vector<std::wstring> Find(const std::wstring& extension, const std::wstring& filter = {}) {
        std::vector<std::wstring> paths;
        count = FindFiles(folder.Path(), paths, extension, filter);
        EXPECT_EQ(count, paths.size());
        for (std::wstring& path : paths) {
            EXPECT_EQ(path.substr(0, folder.Path().size()), folder.Path());
            path.erase(0, folder.Path().size());
        }
        return paths;
    }

    ScratchFolder folder;
    std::size_t count = 0;
};

TEST_F(FindFilesTest, TakesEveryMatchUpToTheLast) {
    for (const wchar_t* name : {L"a.msi", L"b.msi", L"c.msi", L"d.txt"}) WriteBytes(folder / name);
    EXPECT_THAT(Find(L"msi"), UnorderedElementsAre(L"a.msi", L"b.msi", L"c.msi"));
}

TEST_F(FindFilesTest, TakesTheOnlyMatch) {
    WriteBytes(folder / L"a.msi");
    EXPECT_THAT(Find(L"msi"), ElementsAre(L"a.msi"));
}

TEST_F(FindFilesTest, FindsNothingInAnEmptyFolder) {
    EXPECT_THAT(Find(L""), IsEmpty());
}

TEST_F(FindFilesTest, TakesEveryEntryWithoutAnExtension) {
    WriteBytes(folder / L"setup.exe");
    WriteBytes(folder / L"readme");
    fs::create_directory(folder / L"sub");
    EXPECT_THAT(Find(L""), UnorderedElementsAre(L"setup.exe", L"readme", L"sub"));
}

TEST_F(FindFilesTest, CountsAFolderWithTheExtensionAndNeverDescends) {
    WriteBytes(folder / L"tree.msi\\inside.msi");
    EXPECT_THAT(Find(L"msi"), ElementsAre(L"tree.msi"));
}

TEST_F(FindFilesTest, LooksForTheNameInTheFilterAndNotTheOtherWayRound) {
    for (const wchar_t* name : {L"abc.msi", L"c.msi", L"abcd.msi"}) WriteBytes(folder / name);
    EXPECT_THAT(Find(L"msi", L"abc.msi"), UnorderedElementsAre(L"abc.msi", L"c.msi"));
}

TEST_F(FindFilesTest, TakesEveryNameThatTheFilterLists) {
    for (const wchar_t* name : {L"one.msi", L"two.msi", L"three.msi"}) WriteBytes(folder / name);
    EXPECT_THAT(Find(L"msi", L"one.msi;two.msi"), UnorderedElementsAre(L"one.msi", L"two.msi"));
}

TEST_F(FindFilesTest, GivesTheCountOfTheListForAnUnknownFolder) {
    std::vector<std::wstring> paths = {L"earlier", L"more"};
    EXPECT_EQ(FindFiles(folder / L"missing\\", paths, L"msi"), 2U);
    EXPECT_THAT(paths, ElementsAre(L"earlier", L"more"));
}

TEST_F(FindFilesTest, AppendsToTheList) {
    WriteBytes(folder / L"a.msi");
    std::vector<std::wstring> paths = {L"earlier"};
    EXPECT_EQ(FindFiles(folder.Path(), paths, L"msi"), 2U);
    EXPECT_THAT(paths, ElementsAre(L"earlier", folder / L"a.msi"));
}

TEST(ExeDirectoryTest, IsTheProgramsFolderWithoutABackslash) {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    EXPECT_EQ(GetExeDirectory(), fs::path(path).parent_path().wstring());
}

TEST(CreateFolderPathTest, MakesAllFoldersOfThePath) {
    const ScratchFolder folder;
    EXPECT_TRUE(CreateFolderPath(folder / L"a\\b\\c"));
    EXPECT_TRUE(fs::is_directory(folder / L"a\\b\\c"));
    EXPECT_TRUE(CreateFolderPath(folder / L"a\\b\\c"));
}

TEST(CreateFolderPathTest, FailsForNoPathAndForOneBelowAFile) {
    const ScratchFolder folder;
    WriteBytes(folder / L"file");
    EXPECT_FALSE(CreateFolderPath(L""));
    EXPECT_FALSE(CreateFolderPath(folder / L"file\\below"));
    EXPECT_FALSE(CreateFolderPath(L"relative"));
}

TEST(CopyFileToTest, OverwritesTheTarget) {
    const ScratchFolder folder;
    WriteBytes(folder / L"source", "new");
    WriteBytes(folder / L"target", "old and longer");
    EXPECT_TRUE(CopyFileTo(folder / L"target", folder / L"source"));
    EXPECT_EQ(ReadBytes(folder / L"target"), "new");
}

TEST(CopyFileToTest, FailsWithoutASource) {
    const ScratchFolder folder;
    EXPECT_FALSE(CopyFileTo(folder / L"target", folder / L"source"));
    EXPECT_FALSE(fs::exists(folder / L"target"));
}

TEST(SystemFolderTest, EndsInABackslashOnlyForTemporaryFiles) {
    EXPECT_EQ(GetTemporaryFolder().back(), L'\\');
    EXPECT_TRUE(fs::is_directory(GetTemporaryFolder()));
    EXPECT_NE(GetCommonDataFolder().back(), L'\\');
    EXPECT_TRUE(fs::is_directory(GetCommonDataFolder()));
}

}  // namespace
