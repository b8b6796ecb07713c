#include <windows.h>

#include <filesystem>
#include <thread>

#include "CommonLib/Logger.h"
#include "CommonLib/SystemText.h"
#include "framework/Handles.h"
#include "tests/windows/world/ChildProcess.h"
#include "tests/windows/world/LogWorld.h"
#include "tests/windows/world/NamedMutex.h"
#include "tests/windows/world/OpenedPaths.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/ScratchFolder.h"

namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class LoggerTest : public LogWorld {
protected:
    std::string BasicBytes() const { return ReadBytes(LogFolder() + L"Basic.log"); }
    bool HasAdvancedLog() const { return fs::exists(LogFolder() + L"Advanced.log"); }
};

TEST_F(LoggerTest, BeginsANewFileWithTheRecordAndNoMark) {
    Logger::GetInstance().WriteBasic(L"ERROR", L"Kestrune", L"Add Eula dialog failed.");
    const std::string bytes = BasicBytes();
    EXPECT_EQ(bytes.substr(0, 18), ToUtf16Bytes(L"ERROR    "));
    const std::string end = ToUtf16Bytes(L"  Add Eula dialog failed.\r\n");
    EXPECT_EQ(bytes.substr(bytes.size() - end.size()), end);
    EXPECT_EQ(bytes.size(), std::size_t{2} * (7 + 2 + 19) + end.size());
}

TEST_F(LoggerTest, PutsTheLocalTimeIntoTheRecord) {
    SYSTEMTIME before{};
    GetLocalTime(&before);
    LogBasic(L"message");
    wchar_t day[32];
    wsprintfW(day, L"%04u/%02u/%02u-", before.wYear, before.wMonth, before.wDay);
    EXPECT_THAT(BasicLog().at(0).time, testing::StartsWith(day));
}

TEST_F(LoggerTest, WritesARecordOfTheBasicLogToTheAdvancedLogToo) {
    Logger::GetInstance().WriteBasic(L"SUCCESS", L"DotNetInstall", L"done");
    ASSERT_THAT(AdvancedLog(), ElementsAre(Record(L"SUCCESS", L"done")));
    EXPECT_EQ(AdvancedLog()[0].application, L"DotNetInstall");
    wchar_t process[32];
    wchar_t thread[32];
    wsprintfW(process, L"pid=%x", GetCurrentProcessId());
    wsprintfW(thread, L"tid=%x", GetCurrentThreadId());
    EXPECT_EQ(AdvancedLog()[0].processId, process);
    EXPECT_EQ(AdvancedLog()[0].threadId, thread);
}

TEST_F(LoggerTest, KeepsAdvancedRecordsOutOfTheBasicLog) {
    LogAdvanced(L"detail");
    EXPECT_THAT(BasicLog(), IsEmpty());
    EXPECT_THAT(AdvancedMessages(), ElementsAre(L"detail"));
}

TEST_F(LoggerTest, MakesNoAdvancedLogWhileTheSwitchIsZero) {
    SwitchAdvancedLog(0);
    LogBasic(L"message");
    EXPECT_FALSE(HasAdvancedLog());
    EXPECT_THAT(BasicMessages(), ElementsAre(L"message"));
}

TEST_F(LoggerTest, MakesNoAdvancedLogWithoutTheValue) {
    RemoveSwitch();
    LogBasic(L"message");
    EXPECT_FALSE(HasAdvancedLog());
    EXPECT_THAT(BasicMessages(), ElementsAre(L"message"));
}

TEST_F(LoggerTest, MakesNoAdvancedLogWithoutTheKey) {
    RegDeleteTreeW(HKEY_CURRENT_USER, (L"SOFTWARE\\" + vendor).c_str());
    LogBasic(L"message");
    EXPECT_FALSE(HasAdvancedLog());
    EXPECT_THAT(BasicMessages(), ElementsAre(L"message"));
}

TEST_F(LoggerTest, TakesANumberOtherThanOneForOn) {
    SwitchAdvancedLog(0x80000000);
    LogAdvanced(L"message");
    EXPECT_THAT(AdvancedMessages(), ElementsAre(L"message"));
}

TEST_F(LoggerTest, TakesAValueOfMoreThanFourBytesForOff) {
    const wchar_t text[] = L"switched on";
    RegSetKeyValueW(HKEY_CURRENT_USER, (L"SOFTWARE\\" + vendor + L"\\Installer\\Logger").c_str(), L"StartLog",
                    REG_SZ, text, sizeof(text));
    EXPECT_FALSE(Logger::GetInstance().IsAdvancedEnabled());
}

TEST_F(LoggerTest, FollowsTheSwitchAtTheNextRecord) {
    LogAdvanced(L"first");
    SwitchAdvancedLog(0);
    LogAdvanced(L"second");
    SwitchAdvancedLog(1);
    LogAdvanced(L"third");
    EXPECT_THAT(AdvancedMessages(), ElementsAre(L"first", L"third"));
}

TEST_F(LoggerTest, KeepsTheSwitchOfTheVendorItWasAskedUnderFirst) {
    EXPECT_TRUE(Logger::GetInstance().IsAdvancedEnabled());
    Logger::GetInstance().SetVendor(L"Kestrune Other Vendor");
    EXPECT_TRUE(Logger::GetInstance().IsAdvancedEnabled());
    EXPECT_THAT(Logger::GetInstance().GetLogFolder(),
                testing::EndsWith(L"Kestrune Other Vendor Install Logs\\"));
    fs::remove_all(Logger::GetInstance().GetLogFolder());
}

TEST_F(LoggerTest, StandsForPrinterWithoutAVendor) {
    Logger::GetInstance().SetVendor(L"");
    EXPECT_EQ(Logger::GetInstance().GetBasicLogPath(),
              ExpandEnvironment(L"%ALLUSERSPROFILE%\\Printer Install Logs\\Basic.log"));
    Logger::DestroyInstance();
    EXPECT_EQ(Logger::GetInstance().GetAdvancedLogPath(),
              ExpandEnvironment(L"%ALLUSERSPROFILE%\\Printer Install Logs\\Advanced.log"));
    fs::remove_all(Logger::GetInstance().GetLogFolder());
}

TEST_F(LoggerTest, AppendsBehindTheRecordsOfEarlierRuns) {
    LogBasic(L"earlier");
    Logger::DestroyInstance();
    Logger::GetInstance().SetVendor(vendor);
    LogBasic(L"later");
    EXPECT_THAT(BasicMessages(), ElementsAre(L"earlier", L"later"));
}

// A power cut or a full disk ends a file anywhere, also between the two bytes of a sign.
TEST_F(LoggerTest, BeginsALineOfItsOwnAfterARecordThatWasCut) {
    LogBasic(L"message");
    const std::string whole = BasicBytes();
    const std::string lineEnd = ToUtf16Bytes(L"\r\n");
    for (std::size_t size = 1; size < whole.size(); ++size) {
        WriteBytes(LogFolder() + L"Basic.log", whole.substr(0, size));
        LogBasic(L"message");
        const std::string bytes = BasicBytes();
        ASSERT_GE(bytes.size(), size + lineEnd.size() + whole.size()) << size;
        const std::size_t start = bytes.size() - whole.size();
        EXPECT_EQ(start % 2, 0U) << size;
        EXPECT_EQ(bytes.substr(0, size), whole.substr(0, size)) << size;
        EXPECT_EQ(bytes.substr(start - lineEnd.size(), lineEnd.size()), lineEnd) << size;
    }
}

TEST_F(LoggerTest, LosesTheRecordWhereTheFileCannotBeOpened) {
    // A folder in the file's place refuses every user alike.
    fs::create_directories(LogFolder() + L"Basic.log");
    EXPECT_NO_THROW(LogBasic(L"message"));
    EXPECT_THAT(AdvancedMessages(), ElementsAre(L"message"));
}

TEST_F(LoggerTest, LosesTheRecordWhileAnotherProgramKeepsTheFile) {
    LogBasic(L"before");
    {
        const FileHandle kept(CreateFileW((LogFolder() + L"Basic.log").c_str(), GENERIC_READ, 0, nullptr,
                                          OPEN_EXISTING, 0, nullptr));
        ASSERT_TRUE(kept);
        LogBasic(L"lost");
    }
    LogBasic(L"after");
    EXPECT_THAT(BasicMessages(), ElementsAre(L"before", L"after"));
}

TEST_F(LoggerTest, WritesNothingToAFileThatHasASecondName) {
    const ScratchFolder target;
    WriteBytes(target / L"victim.txt", "kept");
    fs::create_directories(LogFolder());
    ASSERT_TRUE(
        CreateHardLinkW((LogFolder() + L"Basic.log").c_str(), (target / L"victim.txt").c_str(), nullptr));
    LogBasic(L"message");
    EXPECT_EQ(ReadBytes(target / L"victim.txt"), "kept");
}

decltype(&GetFileInformationByHandleEx) realFileInformation = nullptr;

template <bool forFolders>
BOOL WINAPI FileInformationOfALink(HANDLE file, FILE_INFO_BY_HANDLE_CLASS kind, void* information,
                                   DWORD size) {
    const BOOL result = realFileInformation(file, kind, information, size);
    if (kind != FileBasicInfo) return result;
    auto& attributes = static_cast<FILE_BASIC_INFO*>(information)->FileAttributes;
    const bool isFolder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (isFolder == forFolders) attributes |= FILE_ATTRIBUTE_REPARSE_POINT;
    return result;
}

// Every user may write beside the logs, so a link there would lead a record of an elevated program anywhere.
TEST_F(LoggerTest, WritesNothingThroughALinkInThePlaceOfItsFolder) {
    realFileInformation = &GetFileInformationByHandleEx;
    {
        const PatchedImport information("GetFileInformationByHandleEx", &FileInformationOfALink<true>);
        LogBasic(L"message");
    }
    EXPECT_FALSE(fs::exists(LogFolder() + L"Basic.log"));
}

TEST_F(LoggerTest, WritesNothingToALinkInThePlaceOfItsFile) {
    realFileInformation = &GetFileInformationByHandleEx;
    {
        const PatchedImport information("GetFileInformationByHandleEx", &FileInformationOfALink<false>);
        LogBasic(L"message");
    }
    EXPECT_THAT(BasicBytes(), IsEmpty());
}

// A link that is opened by what it leads to does not look like one any more.
TEST_F(LoggerTest, OpensALinkAndNotWhatItLeadsTo) {
    const OpenedPaths opened;
    LogBasic(L"message");
    EXPECT_NE(OpenedPaths::FlagsOf(L" Install Logs") & FILE_FLAG_OPEN_REPARSE_POINT, 0U);
    EXPECT_NE(OpenedPaths::FlagsOf(L"\\Basic.log") & FILE_FLAG_OPEN_REPARSE_POINT, 0U);
}

TEST_F(LoggerTest, LetsNobodyExchangeTheFolderWhileARecordIsWritten) {
    static std::wstring folder;
    static bool isExchanged = false;
    folder = LogFolder().substr(0, LogFolder().size() - 1);
    isExchanged = false;
    {
        const PatchedImport write(
            "WriteFile", +[](HANDLE, const void*, DWORD, DWORD*, OVERLAPPED*) {
                isExchanged = isExchanged || MoveFileW(folder.c_str(), (folder + L" moved").c_str()) != FALSE;
                return FALSE;
            });
        LogBasic(L"message");
    }
    EXPECT_FALSE(isExchanged);
    fs::remove_all(folder + L" moved");
}

TEST_F(LoggerTest, LosesTheRecordWhereTheFolderCannotBeMade) {
    WriteBytes(LogFolder().substr(0, LogFolder().size() - 1), "a file with the folder's name");
    EXPECT_NO_THROW(LogBasic(L"message"));
    EXPECT_THAT(BasicLog(), IsEmpty());
    fs::remove(LogFolder().substr(0, LogFolder().size() - 1));
}

TEST_F(LoggerTest, WritesWithoutALockThatCannotBeMadeNothing) {
    Logger::DestroyInstance();
    // Another kind of object has the lock's name; it lives as long as anything holds it.
    const KernelHandle event(CreateEventW(nullptr, TRUE, FALSE, L"ZVINSTALLLOG"));
    ASSERT_TRUE(event);
    Logger::GetInstance().SetVendor(vendor);
    EXPECT_NO_THROW(LogBasic(L"message"));
    EXPECT_THAT(BasicLog(), IsEmpty());
    Logger::DestroyInstance();
}

TEST_F(LoggerTest, WritesUnderTheLockThatAllProcessesShare) {
    static int writes = 0;
    static int lockedWrites = 0;
    writes = lockedWrites = 0;
    const PatchedImport write(
        "WriteFile", +[](HANDLE, const void*, DWORD, DWORD*, OVERLAPPED*) {
            ++writes;
            if (IsTaken(L"ZVINSTALLLOG")) ++lockedWrites;
            return FALSE;
        });
    LogBasic(L"message");
    EXPECT_EQ(writes, 2);
    EXPECT_EQ(lockedWrites, 2);
}

TEST_F(LoggerTest, KeepsTheRecordsOfTwoProcessesWhole) {
    constexpr std::size_t count = 100;
    const std::wstring head = L"write-log \"" + vendor + L"\" " + std::to_wstring(count);
    ChildProcess first(CompanionPath(), head + L" a");
    ChildProcess second(CompanionPath(), head + L" b");
    EXPECT_EQ(first.WaitForEnd(), 0U);
    EXPECT_EQ(second.WaitForEnd(), 0U);
    const std::wstring as(300, L'a');
    const std::wstring bs(300, L'b');
    for (const auto& log : {BasicLog(), AdvancedLog()}) {
        EXPECT_THAT(log, SizeIs(2 * count));
        EXPECT_EQ(std::count_if(log.begin(), log.end(), [&](const LogRecord& r) { return r.message == as; }),
                  static_cast<std::ptrdiff_t>(count));
        EXPECT_EQ(std::count_if(log.begin(), log.end(), [&](const LogRecord& r) { return r.message == bs; }),
                  static_cast<std::ptrdiff_t>(count));
    }
}

TEST_F(LoggerTest, KeepsTheRecordsOfTwoThreadsWhole) {
    const auto write = [](wchar_t sign) {
        for (int index = 0; index < 100; ++index) LogBasic(std::wstring(300, sign));
    };
    std::thread other(write, L'a');
    write(L'b');
    other.join();
    EXPECT_THAT(BasicMessages(), SizeIs(200));
    EXPECT_THAT(BasicMessages(), Each(testing::AnyOf(std::wstring(300, L'a'), std::wstring(300, L'b'))));
}

TEST_F(LoggerTest, GoesOnWhenAProcessWasKilledWhileItHeldTheLock) {
    ChildProcess holder(CompanionPath(), L"hold-lock ZVINSTALLLOG");
    ASSERT_EQ(holder.ReadLine(), "held");
    holder.Kill();
    LogBasic(L"message");
    EXPECT_THAT(BasicMessages(), ElementsAre(L"message"));
}

TEST_F(LoggerTest, IsOpenToAProcessWithoutAdministratorRights) {
    LogBasic(L"own");
    EXPECT_EQ(RunCompanion(L"write-log \"" + vendor + L"\" 1 x", ChildProcess::Rights::WithoutAdministrators),
              0U);
    EXPECT_THAT(BasicMessages(), ElementsAre(L"own", std::wstring(300, L'x')));
}

TEST_F(LoggerTest, KeepsAMessageWithLineEndsAndEveryCharacterAsItIs) {
    LogBasic(L"one\r\ntwo \u20AC \xD83D\xDDA8 three");
    EXPECT_THAT(BasicMessages(), ElementsAre(L"one\r\ntwo \u20AC \xD83D\xDDA8 three"));
}

}  // namespace
