// The questions about files in use, and what the library hears of the answer.

#include "resources/resource.h"
#include "tests/wizard/PageTest.h"

using testing::Not;

namespace {

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
    const HWND applications = wizard.WaitForControl(IDC_FILES_IN_USE_APPLICATIONS);
    EXPECT_EQ(WizardDriver::TextOf(applications), L"Editor");
    EXPECT_EQ(WizardDriver::TextOf(GetParent(applications)), L"Files in use");
    EXPECT_FALSE(IsShown(IDC_FILES_IN_USE_IGNORE));
    wizard.Press(IDC_FILES_IN_USE_RETRY);
    ExpectAnswers({L"4"});
}

TEST_F(FilesInUsePageTest, CancelsByTheButton) {
    StartWith({question});
    wizard.WaitForControl(IDC_FILES_IN_USE_APPLICATIONS);
    wizard.Press(IDCANCEL);
    ExpectAnswers({L"2"});
    EXPECT_THAT(AdvancedLog(), Not(HasRecord(L"SUCCESS", L"Controller::Cancel Yes on Are You Sure")));
}

TEST_F(FilesInUsePageTest, CancelsByEscape) {
    StartWith({question});
    wizard.WaitForControl(IDC_FILES_IN_USE_APPLICATIONS);
    wizard.PressKey(VK_ESCAPE);
    ExpectAnswers({L"2"});
}

TEST_F(FilesInUsePageTest, CancelsByTheCloseBox) {
    StartWith({question});
    PostMessageW(GetParent(wizard.WaitForControl(IDC_FILES_IN_USE_APPLICATIONS)), WM_SYSCOMMAND, SC_CLOSE, 0);
    ExpectAnswers({L"2"});
}

// The button is hidden for good, but its answer is there, as for a click that a script sends.
TEST_F(FilesInUsePageTest, IgnoresWithARestartAtTheEnd) {
    StartWith({question});
    const HWND dialog = GetParent(wizard.WaitForControl(IDC_FILES_IN_USE_APPLICATIONS));
    PostMessageW(dialog, WM_COMMAND, IDC_FILES_IN_USE_IGNORE,
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDC_FILES_IN_USE_IGNORE)));
    wizard.Press(IDC_FINISH);
    wizard.WaitForControl(IDC_REBOOT_LATER);
    EXPECT_EQ(Calls(L"answer").front().Argument(L"answer"), L"5");
}

TEST_F(FilesInUsePageTest, ShowsTheOldNamesWhereAQuestionBringsNone) {
    StartWith({question, L"<FILE_IN_USE>true</FILE_IN_USE>"});
    const HWND first = wizard.WaitForControl(IDC_FILES_IN_USE_APPLICATIONS);
    wizard.Press(IDC_FILES_IN_USE_RETRY);
    EXPECT_TRUE(WaitUntil([&] { return !IsWindow(first); }));
    EXPECT_EQ(WizardDriver::TextOf(wizard.WaitForControl(IDC_FILES_IN_USE_APPLICATIONS)), L"Editor");
    wizard.Press(IDCANCEL);
    ExpectAnswers({L"4", L"2"});
}

TEST_F(FilesInUsePageTest, LetsTheSystemCloseTheApplications) {
    StartWith({questionOfManager});
    EXPECT_EQ(WizardDriver::TextOf(wizard.WaitForControl(IDC_CLOSABLE_FILES_APPLICATIONS)), L"Viewer");
    EXPECT_EQ(SendMessageW(wizard.FindControl(IDC_CLOSABLE_FILES_RESTART), BM_GETCHECK, 0, 0), BST_CHECKED);
    wizard.Press(IDOK);
    ExpectAnswers({L"1"});
}

TEST_F(FilesInUsePageTest, ClosesNothingWhereTheUserDoesNotWantIt) {
    StartWith({questionOfManager});
    wizard.WaitForControl(IDC_CLOSABLE_FILES_APPLICATIONS);
    wizard.Press(IDC_CLOSABLE_FILES_DO_NOT_CLOSE);
    EXPECT_TRUE(WaitUntil([this] {
        return SendMessageW(wizard.FindControl(IDC_CLOSABLE_FILES_DO_NOT_CLOSE), BM_GETCHECK, 0, 0) ==
               BST_CHECKED;
    }));
    wizard.Press(IDOK);
    ExpectAnswers({L"2"});
}

TEST_F(FilesInUsePageTest, ClosesNothingOnEscape) {
    StartWith({questionOfManager});
    wizard.WaitForControl(IDC_CLOSABLE_FILES_APPLICATIONS);
    wizard.PressKey(VK_ESCAPE);
    ExpectAnswers({L"2"});
}

TEST_F(FilesInUsePageTest, PutsTheQuestionOfTheManagerFirst) {
    StartWith({std::wstring(question) + questionOfManager});
    wizard.WaitForControl(IDC_CLOSABLE_FILES_APPLICATIONS);
    wizard.Press(IDOK);
    ExpectAnswers({L"1"});
}

}  // namespace
