#include <windows.h>

#include <gtest/gtest.h>
#include <shellapi.h>

#include <filesystem>

#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/ScratchFolder.h"
#include "wizard/FolderCleanUp.h"

namespace {

std::wstring command;
int attempts = 0;

TEST(FolderCleanUpTest, RemovesTheFolderWithAllInIt) {
    const ScratchFolder folder;
    WriteBytes(folder / L"kit\\sub\\file.txt", "text");
    SetFileAttributesW((folder / L"kit\\sub\\file.txt").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_TRUE(RemoveFolder(folder / L"kit"));
    EXPECT_FALSE(std::filesystem::exists(folder / L"kit"));
}

TEST(FolderCleanUpTest, IsDoneWithAFolderThatIsNotThere) {
    const ScratchFolder folder;
    EXPECT_TRUE(RemoveFolder(folder / L"kit"));
}

TEST(FolderCleanUpTest, GivesUpWhereTheInterpreterCannotBeStarted) {
    const ScratchFolder folder;
    WriteBytes(folder / L"kit\\file.txt");
    const PatchedImport patch(
        "ShellExecuteW", +[](HWND, LPCWSTR verb, LPCWSTR program, LPCWSTR parameters, LPCWSTR, INT) {
            command = std::wstring(verb) + L" " + program + L" " + parameters;
            return reinterpret_cast<HINSTANCE>(INT_PTR{SE_ERR_ACCESSDENIED});
        });
    EXPECT_FALSE(RemoveFolder(folder / L"kit"));
    EXPECT_EQ(command, L"runas cmd.exe CMD /c rmdir " + (folder / L"kit") + L" /s /q");
}

TEST(FolderCleanUpTest, TriesAgainUntilTheFolderIsGone) {
    attempts = 0;
    const PatchedImport shell(
        "ShellExecuteW", +[](HWND, LPCWSTR, LPCWSTR, LPCWSTR, LPCWSTR, INT) {
            ++attempts;
            return reinterpret_cast<HINSTANCE>(INT_PTR{42});
        });
    const PatchedImport exists(
        "PathFileExistsW", +[](LPCWSTR) -> BOOL { return attempts < 3; });
    const PatchedImport sleep(
        "Sleep", +[](DWORD) {});
    EXPECT_TRUE(RemoveFolder(L"C:\\any"));
    EXPECT_EQ(attempts, 3);
}

}  // namespace
