// The form of the logs, their switch, and a folder that cannot be written.

#include <windows.h>

#include <fstream>
#include <iterator>

#include "tests/wizard/WizardTest.h"

using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::Not;

namespace {

class LogTest : public WizardTest {
protected:
    void SetUp() override {
        WizardTest::SetUp();
        tree.Add({.path = L"Applications\\a.msi"});
    }

    std::string BytesOf(const std::wstring& file) const {
        std::ifstream stream(std::filesystem::path(LogFolder() + file), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
};

TEST_F(LogTest, BeginsANewFileWithTheFirstRecordAndNoMark) {
    Run();
    const std::string basic = BytesOf(L"Basic.log");
    // Seven blanks for the empty level, two more, and the year, in UTF-16.
    ASSERT_GT(basic.size(), 20U);
    for (std::size_t place = 0; place < 18; place += 2)
        EXPECT_EQ(basic.substr(place, 2), std::string(" \0", 2));
    EXPECT_EQ(basic.substr(18, 2), std::string("2\0", 2));
    EXPECT_EQ(BytesOf(L"Advanced.log").substr(0, 2), std::string(" \0", 2));
}

TEST_F(LogTest, WritesNoAdvancedLogWithoutItsSwitch) {
    SwitchAdvancedLog(false);
    Run();
    EXPECT_FALSE(std::filesystem::exists(LogFolder() + L"Advanced.log"));
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"Starting Installer"));
    RegDeleteTreeW(HKEY_CURRENT_USER, (L"SOFTWARE\\" + tree.Vendor()).c_str());
    Run();
    EXPECT_FALSE(std::filesystem::exists(LogFolder() + L"Advanced.log"));
}

TEST_F(LogTest, PutsEveryBasicRecordIntoTheAdvancedLogToo) {
    Run();
    const std::vector<LogRecord> advanced = AdvancedLog();
    for (const LogRecord& record : BasicLog()) EXPECT_THAT(advanced, HasRecord(record.level, record.message));
    EXPECT_THAT(advanced, Each(Field(&LogRecord::application, L"Kestrune")));
    EXPECT_THAT(advanced, Each(Field(&LogRecord::processId, testing::StartsWith(L"pid="))));
}

TEST_F(LogTest, TellsTheThreadsApart) {
    Run();
    const std::vector<LogRecord> advanced = AdvancedLog();
    const auto threadOf = [&](const std::wstring& message) {
        for (const LogRecord& record : advanced) {
            if (record.message == message) return record.threadId;
        }
        return std::wstring();
    };
    EXPECT_EQ(threadOf(L"Starting Installer"), threadOf(L"Installation is Finished"));
    EXPECT_NE(threadOf(L"Starting Installer"), threadOf(L"Installing Applications"));
    EXPECT_EQ(threadOf(L"Installing Applications"), L"tid=" + Calls(L"MsiInstallApp").front().thread);
}

TEST_F(LogTest, KeepsTheRecordsOfEarlierRunsAbove) {
    Run();
    const std::vector<std::wstring> first = BasicMessages(L"");
    Run();
    const std::vector<std::wstring> both = BasicMessages(L"");
    ASSERT_EQ(both.size(), first.size() * 2);
    EXPECT_EQ(std::vector<std::wstring>(both.begin(), both.begin() + static_cast<int>(first.size())), first);
}

TEST_F(LogTest, FollowsItsSwitchFromOneRecordToTheNext) {
    const std::wstring sign = (tree.Root() / L"go on").wstring();
    tree.Add({.path = L"Applications\\b.msi", .install = {.steps = {{L"untilFile", sign}}}});
    wizard.Start();
    EXPECT_TRUE(WaitForMessage(L"Installation is Finished"));
    SwitchAdvancedLog(false);
    tree.WriteFile(L"go on", {});
    wizard.WaitForEnd();
    EXPECT_THAT(AdvancedLog(), Not(HasRecord(L"", L"Controller::Close")));
    EXPECT_THAT(AdvancedLog(), Not(HasRecord(L"", L"Thread Count decremented 0")));
}

TEST_F(LogTest, IsNoReasonToStopWhenItsFolderCannotBeMade) {
    std::ofstream(std::filesystem::path(LogFolder()).parent_path()) << "a file in the folder's place";
    Run();
    EXPECT_EQ(wizard.ExitCode(), 0U);
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi"));
    std::filesystem::remove(std::filesystem::path(LogFolder()).parent_path());
}

TEST_F(LogTest, IsNoReasonToStopWhenItsFilesCannotBeOpened) {
    std::filesystem::create_directories(LogFolder() + L"Basic.log");
    Run();
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi"));
    // The other log has what the one has lost.
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Starting Installer"));
}

}  // namespace
