#include <windows.h>

#include <filesystem>

#include "install/FinishService.h"
#include "tests/windows/world/ChildProcess.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/ScratchFolder.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/wizard/Waiting.h"

namespace {

// A target folder that holds one program, which leaves a trace in a file that it is told.
class FinishServiceTest : public SettingsWorld {
protected:
    FinishServiceTest() {
        std::filesystem::copy_file(CompanionPath(), folder / L"program.exe");
        Settings().SetString(Tag::TARGET_DIR, folder.Path());
    }

    std::wstring Starting(const std::wstring& trace) const {
        return L"program.exe leave-trace " + (folder / trace);
    }
    bool HasStarted(const std::wstring& trace) const {
        return WaitUntil([&] { return ReadBytes(folder / trace) == "started"; });
    }
    bool Exists(const std::wstring& trace) const { return std::filesystem::exists(folder / trace); }

    ScratchFolder folder;
};

TEST_F(FinishServiceTest, StartsEveryProgramThatASemicolonCloses) {
    Settings().AppendStartApp(Starting(L"one") + L";");
    Settings().AppendStartApp(Starting(L"two") + L";" + Starting(L"three"));
    EXPECT_EQ(FinishService(Settings()).DoRun(), 0U);
    EXPECT_TRUE(HasStarted(L"one"));
    EXPECT_TRUE(HasStarted(L"two"));
    EXPECT_FALSE(Exists(L"three"));
}

int starts = 0;

BOOL WINAPI CountStart(LPCWSTR, LPWSTR, LPSECURITY_ATTRIBUTES, LPSECURITY_ATTRIBUTES, BOOL, DWORD, LPVOID,
                       LPCWSTR, LPSTARTUPINFOW, LPPROCESS_INFORMATION) {
    ++starts;
    return TRUE;
}

TEST_F(FinishServiceTest, StartsNothingWithoutASemicolon) {
    starts = 0;
    const PatchedImport start("CreateProcessW", &CountStart);
    Settings().AppendStartApp(Starting(L"one"));
    Settings().AppendStartApp(Starting(L"two"));
    EXPECT_EQ(FinishService(Settings()).DoRun(), 0U);
    EXPECT_EQ(starts, 0);
}

TEST_F(FinishServiceTest, DoesNothingWithoutPrograms) {
    EXPECT_EQ(FinishService(Settings()).DoRun(), 0U);
}

TEST_F(FinishServiceTest, LeavesOutWhatFollowsAProgramThatCannotStart) {
    Settings().AppendStartApp(Starting(L"one") + L";missing.exe;" + Starting(L"two") + L";");
    EXPECT_EQ(FinishService(Settings()).DoRun(), DWORD{ERROR_FILE_NOT_FOUND});
    EXPECT_TRUE(HasStarted(L"one"));
    EXPECT_FALSE(Exists(L"two"));
}

TEST_F(FinishServiceTest, TakesTheLongestNameThatIsAFile) {
    std::filesystem::copy_file(CompanionPath(), folder / L"my program.exe");
    std::filesystem::copy_file(CompanionPath(), folder / L"my.exe");
    std::filesystem::create_directories(folder / L"my program.exe leave-trace");
    Settings().AppendStartApp(L"my program.exe leave-trace " + (folder / L"one") +
                              L";my program leave-trace " + (folder / L"two") + L";");
    EXPECT_EQ(FinishService(Settings()).DoRun(), 0U);
    EXPECT_TRUE(HasStarted(L"one"));
    EXPECT_TRUE(HasStarted(L"two"));
}

std::wstring startedProgram;
std::wstring startedLine;

BOOL WINAPI NoteStart(LPCWSTR program, LPWSTR line, LPSECURITY_ATTRIBUTES, LPSECURITY_ATTRIBUTES, BOOL, DWORD,
                      LPVOID, LPCWSTR, LPSTARTUPINFOW, LPPROCESS_INFORMATION process) {
    startedProgram = program;
    startedLine = line;
    process->hProcess = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    return TRUE;
}

// The system finds a file by its name with a blank after it too.
TEST_F(FinishServiceTest, TakesNoBlankForThePartOfAName) {
    const PatchedImport start("CreateProcessW", &NoteStart);
    Settings().AppendStartApp(L"program.exe  /quiet;");
    EXPECT_EQ(FinishService(Settings()).DoRun(), 0U);
    const std::wstring program = folder.Path() + L"\\program.exe";
    EXPECT_EQ(startedProgram, program);
    EXPECT_EQ(startedLine, L"\"" + program + L"\"  /quiet");
}

// The program's own argument is what fails if its path came in pieces.
TEST_F(FinishServiceTest, StartsAProgramInAFolderWithBlanks) {
    std::filesystem::create_directories(folder / L"John Doe");
    std::filesystem::copy_file(CompanionPath(), folder / L"John Doe\\program.exe");
    std::filesystem::copy_file(CompanionPath(), folder / L"John.exe");
    Settings().SetString(Tag::TARGET_DIR, folder / L"John Doe");
    Settings().AppendStartApp(Starting(L"trace") + L";");
    EXPECT_EQ(FinishService(Settings()).DoRun(), 0U);
    EXPECT_TRUE(HasStarted(L"trace"));
}

}  // namespace
