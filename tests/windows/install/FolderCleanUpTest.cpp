#include <windows.h>

#include <shellapi.h>
#include <winternl.h>

#include <filesystem>

#include "framework/Handles.h"
#include "tests/windows/world/LogWorld.h"
#include "tests/windows/world/OpenedPaths.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/ScratchFolder.h"
#include "tests/wizard/FolderLink.h"
#include "wizard/FolderCleanUp.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

int pauses = 0;
FileHandle heldFile;

class FolderCleanUpTest : public LogWorld {
protected:
    ScratchFolder folder;
};

TEST_F(FolderCleanUpTest, RemovesTheFolderWithAllInIt) {
    WriteBytes(folder / L"kit\\sub\\file.txt", "text");
    WriteBytes(folder / L"kit\\sub\\deeper\\file.txt", "text");
    fs::create_directories(folder / L"kit\\empty");
    SetFileAttributesW((folder / L"kit\\sub\\file.txt").c_str(), FILE_ATTRIBUTE_READONLY);
    SetFileAttributesW((folder / L"kit\\sub").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_TRUE(RemoveFolder(folder / L"kit"));
    EXPECT_FALSE(fs::exists(folder / L"kit"));
    EXPECT_THAT(BasicLog(), IsEmpty());
}

TEST_F(FolderCleanUpTest, RemovesAFolderThatAnotherProgramLooksInto) {
    WriteBytes(folder / L"kit\\file.txt", "text");
    FileHandle view(CreateFileW((folder / L"kit").c_str(), FILE_LIST_DIRECTORY,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    ASSERT_TRUE(view);
    RemoveFolder(folder / L"kit");
    view.reset();
    EXPECT_FALSE(fs::exists(folder / L"kit"));
}

struct Opening {
    bool isBelowAFolder = false;
    ULONG options = 0;
};

std::vector<Opening> openings;

NTSTATUS NTAPI NoteOpening(PHANDLE file, ACCESS_MASK access, POBJECT_ATTRIBUTES attributes,
                           PIO_STATUS_BLOCK status, ULONG share, ULONG options) {
    openings.push_back({.isBelowAFolder = attributes->RootDirectory != nullptr, .options = options});
    const auto open = FindExport<decltype(&NtOpenFile)>(GetModuleHandleW(L"ntdll.dll"), "NtOpenFile");
    return open(file, access, attributes, status, share, options);
}

// Not every Windows can be brought to put a link in the way here, so what is asked of it is looked at.
TEST_F(FolderCleanUpTest, OpensALinkAndNotWhatItLeadsTo) {
    openings.clear();
    WriteBytes(folder / L"kit\\sub\\file.txt", "text");
    {
        const PatchedImport below("NtOpenFile", &NoteOpening);
        const OpenedPaths byPath;
        EXPECT_TRUE(RemoveFolder(folder / L"kit"));
        EXPECT_NE(OpenedPaths::FlagsOf(L"kit") & FILE_FLAG_OPEN_REPARSE_POINT, 0U);
    }
    EXPECT_THAT(openings, testing::SizeIs(2));
    for (const Opening& opening : openings) {
        EXPECT_TRUE(opening.isBelowAFolder);
        EXPECT_NE(opening.options & FILE_OPEN_REPARSE_POINT, 0U);
    }
}

TEST_F(FolderCleanUpTest, IsDoneAtOnceWithAFolderThatIsNotThere) {
    pauses = 0;
    const PatchedImport sleep(
        "Sleep", +[](DWORD) { ++pauses; });
    EXPECT_TRUE(RemoveFolder(folder / L"kit"));
    EXPECT_EQ(pauses, 0);
}

TEST_F(FolderCleanUpTest, RemovesMoreEntriesThanOneAnswerOfTheSystemHolds) {
    constexpr int count = 700;
    for (int index = 0; index < count; ++index) {
        WriteBytes(folder / (L"kit\\" + std::wstring(60, L'x') + std::to_wstring(index)));
    }
    EXPECT_TRUE(RemoveFolder(folder / L"kit"));
}

TEST_F(FolderCleanUpTest, RemovesATreeThatIsDeeperThanPathsAreLong) {
    // Each folder of the tree is made alone and then moved below the next one.
    const std::wstring name(100, L'd');
    fs::create_directories(folder / L"kit");
    WriteBytes(folder / L"inner\\file.txt", "text");
    for (int depth = 0; depth < 8; ++depth) {
        fs::create_directories(folder / L"outer");
        ASSERT_TRUE(MoveFileW((folder / L"inner").c_str(), (folder / (L"outer\\" + name)).c_str()));
        ASSERT_TRUE(MoveFileW((folder / L"outer").c_str(), (folder / L"inner").c_str()));
    }
    ASSERT_TRUE(MoveFileW((folder / L"inner").c_str(), (folder / L"kit\\inner").c_str()));
    EXPECT_TRUE(RemoveFolder(folder / L"kit"));
    EXPECT_FALSE(fs::exists(folder / L"kit"));
}

class FolderNameTest : public FolderCleanUpTest, public testing::WithParamInterface<std::wstring> {};

// The neighbours are what a command line would name that takes the path for several words.
TEST_P(FolderNameTest, MeansThatFolderAndNoOther) {
    const std::wstring& name = GetParam();
    for (const std::wstring neighbour : {L"John", L"Doe", L"kit", L"x"}) {
        WriteBytes(folder / neighbour + L"\\kept.txt", "kept");
    }
    WriteBytes(folder / name + L"\\kit\\file.txt", "text");
    EXPECT_TRUE(RemoveFolder(folder / name + L"\\kit"));
    EXPECT_FALSE(fs::exists(folder / name + L"\\kit"));
    EXPECT_TRUE(fs::exists(folder / name));
    for (const std::wstring neighbour : {L"John", L"Doe", L"kit", L"x"}) {
        EXPECT_TRUE(fs::exists(folder / neighbour + L"\\kept.txt"));
    }
}

INSTANTIATE_TEST_SUITE_P(Names, FolderNameTest,
                         testing::Values(L"John Doe", L"a & x", L"100% %TEMP% x", L"a^b^ x",
                                         L"\u00dcn\u0131 \u65e5\u672c", L"it's (1), [2]; x=y!"));

// What a link leads to stays. The link itself goes where the system lets go of one, which Wine does not.
TEST_F(FolderCleanUpTest, DoesNotFollowALinkInThePlaceOfTheFolder) {
    WriteBytes(folder / L"target\\kept.txt", "kept");
    const FolderLink link(folder / L"kit", folder / L"target");
    RemoveFolder(folder / L"kit");
    EXPECT_EQ(ReadBytes(folder / L"target\\kept.txt"), "kept");
}

TEST_F(FolderCleanUpTest, DoesNotRemoveAnEmptyFolderThatALinkLeadsTo) {
    fs::create_directories(folder / L"target");
    const FolderLink link(folder / L"kit", folder / L"target");
    RemoveFolder(folder / L"kit");
    EXPECT_TRUE(fs::is_directory(folder / L"target"));
}

TEST_F(FolderCleanUpTest, DoesNotFollowLinksInTheFolder) {
    WriteBytes(folder / L"target\\kept.txt", "kept");
    fs::create_directories(folder / L"empty");
    WriteBytes(folder / L"kit\\sub\\file.txt", "text");
    const FolderLink link(folder / L"kit\\sub\\link", folder / L"target");
    const FolderLink other(folder / L"kit\\link", folder / L"empty");
    RemoveFolder(folder / L"kit");
    EXPECT_FALSE(fs::exists(folder / L"kit\\sub\\file.txt"));
    EXPECT_EQ(ReadBytes(folder / L"target\\kept.txt"), "kept");
    EXPECT_TRUE(fs::is_directory(folder / L"empty"));
}

decltype(&GetFileInformationByHandleEx) realInformation = nullptr;

BOOL WINAPI InformationOfALink(HANDLE file, FILE_INFO_BY_HANDLE_CLASS kind, void* information, DWORD size) {
    const BOOL result = realInformation(file, kind, information, size);
    if (kind == FileBasicInfo) {
        static_cast<FILE_BASIC_INFO*>(information)->FileAttributes |= FILE_ATTRIBUTE_REPARSE_POINT;
    }
    return result;
}

// A folder that the system calls a link, as it does where it opens the link and not what that leads to.
TEST_F(FolderCleanUpTest, RemovesALinkItself) {
    fs::create_directories(folder / L"kit");
    realInformation = &GetFileInformationByHandleEx;
    const PatchedImport information("GetFileInformationByHandleEx", &InformationOfALink);
    EXPECT_TRUE(RemoveFolder(folder / L"kit"));
    EXPECT_FALSE(fs::exists(folder / L"kit"));
}

TEST_F(FolderCleanUpTest, GoesNowhereByALink) {
    WriteBytes(folder / L"kit\\kept.txt", "kept");
    realInformation = &GetFileInformationByHandleEx;
    const PatchedImport information("GetFileInformationByHandleEx", &InformationOfALink);
    const PatchedImport sleep(
        "Sleep", +[](DWORD) {});
    RemoveFolder(folder / L"kit");
    EXPECT_EQ(ReadBytes(folder / L"kit\\kept.txt"), "kept");
}

TEST_F(FolderCleanUpTest, LeavesAFileOfThatName) {
    WriteBytes(folder / L"kit", "somebody else's");
    EXPECT_TRUE(RemoveFolder(folder / L"kit"));
    EXPECT_EQ(ReadBytes(folder / L"kit"), "somebody else's");
}

TEST_F(FolderCleanUpTest, RunsNoOtherProgram) {
    static int started = 0;
    started = 0;
    const PatchedImport shell(
        "ShellExecuteW", +[](HWND, LPCWSTR, LPCWSTR, LPCWSTR, LPCWSTR, INT) {
            ++started;
            return reinterpret_cast<HINSTANCE>(INT_PTR{SE_ERR_ACCESSDENIED});
        });
    WriteBytes(folder / L"kit\\file.txt");
    EXPECT_TRUE(RemoveFolder(folder / L"kit"));
    EXPECT_EQ(started, 0);
}

FileHandle Hold(const std::wstring& path) {
    return FileHandle(
        CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
}

TEST_F(FolderCleanUpTest, GivesUpOnAFileThatStaysOpenAndRemovesTheRest) {
    WriteBytes(folder / L"kit\\a\\other.txt");
    WriteBytes(folder / L"kit\\held.txt", "text");
    WriteBytes(folder / L"kit\\z.txt");
    const FileHandle held = Hold(folder / L"kit\\held.txt");
    pauses = 0;
    const PatchedImport sleep(
        "Sleep", +[](DWORD) { ++pauses; });
    EXPECT_FALSE(RemoveFolder(folder / L"kit"));
    EXPECT_LT(pauses, 20);
    EXPECT_TRUE(fs::exists(folder / L"kit\\held.txt"));
    EXPECT_FALSE(fs::exists(folder / L"kit\\a"));
    EXPECT_FALSE(fs::exists(folder / L"kit\\z.txt"));
    EXPECT_THAT(BasicLog(),
                ElementsAre(Record(L"ERROR", L"The folder " + (folder / L"kit") + L" cannot be removed")));
}

TEST_F(FolderCleanUpTest, TriesAgainUntilTheFileIsClosed) {
    WriteBytes(folder / L"kit\\held.txt");
    heldFile = Hold(folder / L"kit\\held.txt");
    pauses = 0;
    const PatchedImport sleep(
        "Sleep", +[](DWORD) {
            if (++pauses == 2) heldFile.reset();
        });
    EXPECT_TRUE(RemoveFolder(folder / L"kit"));
    EXPECT_EQ(pauses, 2);
    EXPECT_THAT(BasicLog(), IsEmpty());
}

}  // namespace
