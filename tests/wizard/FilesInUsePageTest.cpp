// The questions about files in use, and what the library hears of the answer.

#include "PageTest.h"

using testing::Not;

namespace {

constexpr int names = 1093;
constexpr int cannotIgnore = 1067;
constexpr int retry = 1066;
constexpr int closableNames = 1096;
constexpr int closeAndRestart = 1063;
constexpr int doNotClose = 1064;

constexpr wchar_t question[] = L"<FILE_IN_USE>true</FILE_IN_USE><APPLICATION_NAME>Editor</APPLICATION_NAME>";
constexpr wchar_t questionOfManager[] =
    L"<RM_FILE_IN_USE>true</RM_FILE_IN_USE><APPLICATION_NAME>Viewer</APPLICATION_NAME>";

class FilesInUsePageTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        tree.SetSettings(Settings::shownFromProgress);
        tree.SetText(L"FILES_IN_USE_HEADER", L"Files in use");
    }

    void StartWith(const std::vector<std::wstring>& messages) {
        ScriptedCall install;
        for (const std::wstring& message : messages) install.steps.push_back({L"message", message});
        tree.Add({.path = L"Applications\\a.msi", .install = install});
        wizard.Start();
    }

    // Ends the run and expects the answers that the library has got.
    void ExpectAnswers(const std::vector<std::wstring>& expected) {
        CloseOnFinishPage();
        std::vector<std::wstring> answers;
        for (const LibraryCall& call : Calls(L"answer")) answers.push_back(call.Argument(L"answer"));
        EXPECT_EQ(answers, expected);
    }
};

TEST_F(FilesInUsePageTest, NamesTheApplicationsAndTriesAgain) {
    StartWith({question});
    const HWND applications = wizard.WaitForControl(names);
    EXPECT_EQ(WizardDriver::TextOf(applications), L"Editor");
    EXPECT_EQ(WizardDriver::TextOf(GetParent(applications)), L"Files in use");
    EXPECT_FALSE(IsShown(cannotIgnore));
    wizard.Press(retry);
    ExpectAnswers({L"4"});
}

TEST_F(FilesInUsePageTest, CancelsByTheButton) {
    StartWith({question});
    wizard.WaitForControl(names);
    wizard.Press(Control::cancel);
    ExpectAnswers({L"2"});
    EXPECT_THAT(AdvancedLog(), Not(HasRecord(L"SUCCESS", L"Controller::Cancel Yes on Are You Sure")));
}

TEST_F(FilesInUsePageTest, CancelsByEscape) {
    StartWith({question});
    wizard.WaitForControl(names);
    wizard.PressKey(VK_ESCAPE);
    ExpectAnswers({L"2"});
}

TEST_F(FilesInUsePageTest, CancelsByTheCloseBox) {
    StartWith({question});
    PostMessageW(GetParent(wizard.WaitForControl(names)), WM_SYSCOMMAND, SC_CLOSE, 0);
    ExpectAnswers({L"2"});
}

// The button is hidden for good, but its answer is there, as for a click that a script sends.
TEST_F(FilesInUsePageTest, IgnoresWithARestartAtTheEnd) {
    StartWith({question});
    const HWND dialog = GetParent(wizard.WaitForControl(names));
    PostMessageW(dialog, WM_COMMAND, cannotIgnore,
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, cannotIgnore)));
    wizard.Press(Control::finish);
    wizard.WaitForControl(Control::restartLater);
    EXPECT_EQ(Calls(L"answer").front().Argument(L"answer"), L"5");
}

TEST_F(FilesInUsePageTest, ShowsTheOldNamesWhereAQuestionBringsNone) {
    StartWith({question, L"<FILE_IN_USE>true</FILE_IN_USE>"});
    const HWND first = wizard.WaitForControl(names);
    wizard.Press(retry);
    EXPECT_TRUE(WaitUntil([&] { return !IsWindow(first); }));
    EXPECT_EQ(WizardDriver::TextOf(wizard.WaitForControl(names)), L"Editor");
    wizard.Press(Control::cancel);
    ExpectAnswers({L"4", L"2"});
}

TEST_F(FilesInUsePageTest, LetsTheSystemCloseTheApplications) {
    StartWith({questionOfManager});
    EXPECT_EQ(WizardDriver::TextOf(wizard.WaitForControl(closableNames)), L"Viewer");
    EXPECT_EQ(SendMessageW(wizard.FindControl(closeAndRestart), BM_GETCHECK, 0, 0), BST_CHECKED);
    wizard.Press(Control::next);
    ExpectAnswers({L"1"});
}

TEST_F(FilesInUsePageTest, ClosesNothingWhereTheUserDoesNotWantIt) {
    StartWith({questionOfManager});
    wizard.WaitForControl(closableNames);
    wizard.Press(doNotClose);
    EXPECT_TRUE(WaitUntil(
        [this] { return SendMessageW(wizard.FindControl(doNotClose), BM_GETCHECK, 0, 0) == BST_CHECKED; }));
    wizard.Press(Control::next);
    ExpectAnswers({L"2"});
}

TEST_F(FilesInUsePageTest, ClosesNothingOnEscape) {
    StartWith({questionOfManager});
    wizard.WaitForControl(closableNames);
    wizard.PressKey(VK_ESCAPE);
    ExpectAnswers({L"2"});
}

TEST_F(FilesInUsePageTest, PutsTheQuestionOfTheManagerFirst) {
    StartWith({std::wstring(question) + questionOfManager});
    wizard.WaitForControl(closableNames);
    wizard.Press(Control::next);
    ExpectAnswers({L"1"});
}

}  // namespace
