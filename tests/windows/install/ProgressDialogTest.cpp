#include "install/InstallMessages.h"
#include "install/ProgressDialog.h"
#include "resources/resource.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"
#include "wizard/RegisteredMessages.h"

namespace {

using testing::Contains;

constexpr LRESULT invalidParameter = 87;

// The page in a window, as the wizard puts it.
class ProgressDialogTest : public SettingsWorld {
protected:
    ProgressDialogTest() {
        AddTexts(
            "<PREPARE_INSTALL_TEXT>Preparing</PREPARE_INSTALL_TEXT><INSTALLING_TEXT>Installing</"
            "INSTALLING_TEXT>"
            "<UNINSTALLING_TEXT>Removing</UNINSTALLING_TEXT><CANCELING_TEXT>Cancelling</CANCELING_TEXT>"
            "<CANCEL_BUTTON>&amp;Stop</CANCEL_BUTTON>");
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        app.SetMainWnd(&window);
        EXPECT_TRUE(page.Create(page.TemplateId(), &window));
        DeliverMessagesTo(&page);
    }
    ~ProgressDialogTest() override { DeliverMessagesTo(nullptr); }

    std::wstring Shown(int control) const { return TextOf(page.GetDlgItem(control)); }
    LRESULT Position() const { return SendMessageW(page.GetDlgItem(IDC_PROGRESS_BAR), PBM_GETPOS, 0, 0); }
    // What the library tells, up to its arrival at the page.
    static void Tell(const wchar_t* document) {
        EXPECT_EQ(OnInstallMessage(document), 1);
        PumpMessages();
    }
    LRESULT Send(int percent) const {
        auto update = std::make_unique<ProgressUpdate>();
        update->percent = percent;
        return page.SendMessage(MYUPDATEPROGRESS, 0, reinterpret_cast<LPARAM>(update.release()));
    }

    TestApp app;
    CDialogEx window;
    ProgressDialog page{context};
};

TEST_F(ProgressDialogTest, BeginsWithItsTexts) {
    EXPECT_EQ(Shown(IDC_PROGRESS_STATUS_LINE), L"Preparing");
    EXPECT_EQ(Shown(IDCANCEL), L"&Stop");
    EXPECT_EQ(page.dialogName, L"Progress Dialog");
    EXPECT_EQ(Position(), 0);
}

TEST_F(ProgressDialogTest, NeverGoesBackWithinAnInstallation) {
    page.BeginRun(2);
    Tell(L"<PERCENT>1</PERCENT>");
    EXPECT_EQ(Position(), 1);
    Tell(L"<PERCENT>80</PERCENT>");
    EXPECT_EQ(Position(), 80);
    Tell(L"<PERCENT>40</PERCENT>");
    EXPECT_EQ(Position(), 80);
}

TEST_F(ProgressDialogTest, AddsAHundredForEveryPackageThatIsDone) {
    page.BeginRun(3);
    page.MakeStep();
    Tell(L"<PERCENT>10</PERCENT>");
    EXPECT_EQ(Position(), 110);
}

TEST_F(ProgressDialogTest, ReachesItsEndWithTheLastPackage) {
    page.BeginRun(2);
    page.MakeStep();
    Tell(L"<PERCENT>100</PERCENT>");
    EXPECT_EQ(Position(), 200);
}

TEST_F(ProgressDialogTest, TakesADocumentOfUnknownFormForNoProgress) {
    page.BeginRun(2);
    page.MakeStep();
    Tell(L"<FILE_IN_USE>TRUE</FILE_IN_USE><APPLICATION_NAME>x</APPLICATION_NAME>");
    EXPECT_EQ(Position(), 100);
    Tell(L"");
    EXPECT_EQ(Position(), 100);
}

TEST_F(ProgressDialogTest, RefusesAPositionOutsideTheRange) {
    page.BeginRun(1);
    EXPECT_EQ(Send(50), 0);
    EXPECT_EQ(Send(101), invalidParameter);
    EXPECT_EQ(Send(-1), invalidParameter);
    EXPECT_EQ(Position(), 50);
}

TEST_F(ProgressDialogTest, RefusesAMessageWithoutARecord) {
    EXPECT_EQ(page.SendMessage(MYUPDATEPROGRESS), invalidParameter);
}

TEST_F(ProgressDialogTest, GoesBackDuringARollBack) {
    page.BeginRun(3);
    page.MakeStep();
    page.MakeStep();
    EXPECT_EQ(Send(50), 0);
    EXPECT_EQ(Position(), 250);
    page.BeginUninstalling();
    EXPECT_EQ(Send(10), 0);
    EXPECT_EQ(Position(), 190);
    EXPECT_EQ(Send(5), 0);
    EXPECT_EQ(Position(), 190);
    page.MakeStep();
    EXPECT_EQ(Send(20), 0);
    EXPECT_EQ(Position(), 80);
}

TEST_F(ProgressDialogTest, NamesThePackageWithTheNextProgress) {
    page.BeginRun(2);
    page.SetApplication(L"Ink & Co");
    EXPECT_EQ(Shown(IDC_PROGRESS_STATUS_LINE), L"Preparing");
    Send(1);
    EXPECT_EQ(Shown(IDC_PROGRESS_STATUS_LINE), L"Installing Ink & Co");
    page.BeginUninstalling();
    page.SetApplication(L"Loom");
    Send(1);
    EXPECT_EQ(Shown(IDC_PROGRESS_STATUS_LINE), L"Removing Loom");
}

TEST_F(ProgressDialogTest, BeginsANewRunAtTheStart) {
    page.BeginRun(2);
    page.MakeStep();
    Send(50);
    page.BeginRun(2);
    Send(10);
    EXPECT_EQ(Position(), 10);
}

TEST_F(ProgressDialogTest, BeginsAtTheStartWhereItIsShown) {
    page.BeginRun(2);
    Send(50);
    ASSERT_EQ(Position(), 50);
    page.SendMessage(WM_SHOWWINDOW, TRUE);
    EXPECT_EQ(Position(), 0);
}

TEST_F(ProgressDialogTest, CutsTheRangeOfVeryManyPackages) {
    page.BeginRun(700);
    PBRANGE range{};
    SendMessageW(page.GetDlgItem(IDC_PROGRESS_BAR), PBM_GETRANGE, TRUE, reinterpret_cast<LPARAM>(&range));
    EXPECT_EQ(range.iHigh, 70000 & 0xFFFF);
}

TEST_F(ProgressDialogTest, DropsProgressWithoutAMainWindow) {
    page.BeginRun(2);
    app.SetMainWnd(nullptr);
    Tell(L"<PERCENT>80</PERCENT>");
    EXPECT_EQ(Position(), 0);
}

TEST_F(ProgressDialogTest, SaysThatItIsCancelledAndDisablesItsButton) {
    EXPECT_TRUE(IsWindowEnabled(page.GetDlgItem(IDCANCEL)));
    page.Cancel();
    PumpMessages();
    EXPECT_EQ(Shown(IDC_PROGRESS_STATUS_LINE), L"Cancelling");
    EXPECT_THAT(AdvancedMessages(),
                testing::IsSupersetOf({L"ProgressDialog::Cancel called", L"Updating Cancel Text"}));
    page.SendMessage(WM_PAINT);
    EXPECT_FALSE(IsWindowEnabled(page.GetDlgItem(IDCANCEL)));
}

// Without a main window there is no question, and nothing to cancel.
class ReturnToProgressTest : public ProgressDialogTest {
protected:
    ReturnToProgressTest() {
        app.SetMainWnd(nullptr);
        window.ShowWindow(SW_SHOW);
        page.ShowWindow(SW_SHOW);
    }

    HWND FocusAfterCancel(HWND before) const {
        SetFocus(before);
        page.SendMessage(WM_COMMAND, IDCANCEL);
        return GetFocus();
    }
};

TEST_F(ReturnToProgressTest, LeavesTheFocusOnTheButtonThatHasIt) {
    const HWND button = page.GetDlgItem(IDCANCEL);
    EXPECT_EQ(FocusAfterCancel(button), button);
}

// Every step of the bar is followed by a paint.
TEST_F(ReturnToProgressTest, LeavesTheFocusOnTheButtonWhileItCanBePressed) {
    const HWND button = page.GetDlgItem(IDCANCEL);
    SetFocus(button);
    page.SendMessage(WM_PAINT);
    EXPECT_EQ(GetFocus(), button);
}

TEST_F(ReturnToProgressTest, GivesTheFocusBackWhereNothingHasIt) {
    EXPECT_EQ(FocusAfterCancel(nullptr), page.GetDlgItem(IDC_PROGRESS_STATUS_LINE));
}

TEST_F(ReturnToProgressTest, LeavesTheFocusAloneOnAPageThatIsNotShown) {
    page.ShowWindow(SW_HIDE);
    EXPECT_EQ(FocusAfterCancel(nullptr), nullptr);
}

}  // namespace
