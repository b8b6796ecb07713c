#include <windows.h>

#include "CommonLib/Logger.h"
#include "install/FinishDlg.h"
#include "resources/resource.h"
#include "settings/TagNames.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"

namespace {

// A cancelled run for which the .NET prerequisite was missing.
class FinishDlgTest : public SettingsWorld {
protected:
    FinishDlgTest() {
        AddTexts(
            "<INSTALL_CANCELED_TEXT>Cancelled.</INSTALL_CANCELED_TEXT><REQUIRED_DEPENDENCY>Missing.</"
            "REQUIRED_DEPENDENCY><INSTALLATION_FAILED_TEXT>Failed.</INSTALLATION_FAILED_TEXT>"
            "<DRIVER_INSTALL_COMPLETE_TEXT>Installed.</DRIVER_INSTALL_COMPLETE_TEXT>");
        Settings().SetString(Tag::INSTALL_STATUS, L"CANCELED");
        Settings().SetBool(Tag::DOTNET_FAILED, true);
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        EXPECT_TRUE(page.Create(page.TemplateId(), &window));
    }

    std::wstring Header() {
        page.SendMessage(WM_SHOWWINDOW, TRUE);
        return TextOf(page.GetDlgItem(IDC_OUTCOME_TITLE));
    }

    TestApp app;
    CDialogEx window;
    FinishDlg page{context, L"Finish Dialog"};
};

TEST_F(FinishDlgTest, NamesTheMissingDependencyOfACancelledRun) {
    EXPECT_EQ(Header(), L"Cancelled.  Missing.");
}

TEST_F(FinishDlgTest, NamesItOnlyWhereItIsMissing) {
    Settings().SetBool(Tag::DOTNET_FAILED, false);
    EXPECT_EQ(Header(), L"Cancelled.");
}

// The page's window is hidden here, so that the style says what would be seen.
TEST_F(FinishDlgTest, OffersTheLogsWhereALineHasFailedBeforeOneThatIsNotSupported) {
    Settings().SetBool(Tag::DOTNET_FAILED, false);
    Settings().SetString(Tag::APP_INSTALLATION_STATUS,
                         L"<App 0><NAME>Ink</NAME><STATUS>1</STATUS></App 0>"
                         L"<App 1><NAME>Scan</NAME><STATUS>4</STATUS></App 1>");
    EXPECT_EQ(Header(), L"Installed.");
    EXPECT_EQ(Settings().GetString(Tag::INSTALL_STATUS), L"NOT_SUPPORTED");
    EXPECT_NE(GetWindowLongPtrW(page.GetDlgItem(IDC_FINISH_ERROR_LINK), GWL_STYLE) & WS_VISIBLE, 0);
}

TEST_F(FinishDlgTest, StillOffersTheLogsOnceTheyHaveBeenOpened) {
    static std::wstring opened;
    const PatchedImport shell(
        "ShellExecuteW", +[](HWND, LPCWSTR, LPCWSTR target, LPCWSTR, LPCWSTR, INT) {
            opened = target;
            return reinterpret_cast<HINSTANCE>(INT_PTR{33});
        });
    Settings().SetString(Tag::APP_INSTALLATION_STATUS, L"<App 0><NAME>Ink</NAME><STATUS>1</STATUS></App 0>");
    Header();
    const HWND link = page.GetDlgItem(IDC_FINISH_ERROR_LINK);
    page.SendMessage(WM_COMMAND, IDC_FINISH_ERROR_LINK, reinterpret_cast<LPARAM>(link));
    EXPECT_EQ(opened, Logger::GetInstance().GetLogFolder());
    EXPECT_NE(GetWindowLongPtrW(link, GWL_STYLE) & WS_VISIBLE, 0);
}

TEST_F(FinishDlgTest, HasNothingThatEnterCouldClickUnseen) {
    Header();
    for (const int id : {IDOK, IDC_FINISH_HIDDEN_TEXT}) {
        EXPECT_FALSE(IsWindowEnabled(page.GetDlgItem(id)));
        EXPECT_EQ(GetWindowLongPtrW(page.GetDlgItem(id), GWL_STYLE) & WS_VISIBLE, 0);
    }
}

TEST_F(FinishDlgTest, LeavesTheStatusOfACancelledRun) {
    Settings().SetString(Tag::APP_INSTALLATION_STATUS, L"<App 0><NAME>Ink</NAME><STATUS>2</STATUS></App 0>");
    Header();
    EXPECT_EQ(Settings().GetString(Tag::INSTALL_STATUS), L"CANCELED");
    EXPECT_EQ(GetWindowLongPtrW(page.GetDlgItem(IDC_FINISH_ERROR_LINK), GWL_STYLE) & WS_VISIBLE, 0);
}

TEST_F(FinishDlgTest, CannotBeLeftWhileTheListOfSoftwareIsOpen) {
    for (const BOOL before : {TRUE, FALSE}) {
        EnableWindow(page.GetDlgItem(IDC_FINISH), before);
        const DialogUser user(window.GetSafeHwnd(), [this](HWND list) {
            EXPECT_FALSE(IsWindowEnabled(page.GetDlgItem(IDC_FINISH)));
            ClickOn(list, IDOK);
        });
        page.SendMessage(WM_COMMAND, IDC_FINISH_SOFTWARE_LIST_LINK,
                         reinterpret_cast<LPARAM>(page.GetDlgItem(IDC_FINISH_SOFTWARE_LIST_LINK)));
        EXPECT_EQ(IsWindowEnabled(page.GetDlgItem(IDC_FINISH)), before);
    }
}

TEST_F(FinishDlgTest, AsksForTheOptionalSoftwareOrForNothingMore) {
    app.SetMainWnd(&window);
    page.SendMessage(WM_COMMAND, IDOK);
    EXPECT_TRUE(Settings().GetBool(Tag::OPTIONAL_INSTALL));
    page.SendMessage(WM_COMMAND, IDC_FINISH);
    EXPECT_FALSE(Settings().GetBool(Tag::OPTIONAL_INSTALL));
    // The message that ends the program must not reach the next test.
    PumpMessages();
}

TEST_F(FinishDlgTest, NamesItWhereItsLineMakesTheRunAFailedOne) {
    Settings().SetString(Tag::APP_INSTALLATION_STATUS,
                         L"<App 0><NAME>Framework</NAME><STATUS>1</STATUS></App 0>");
    EXPECT_EQ(Header(), L"Failed.  Missing.");
    EXPECT_EQ(Settings().GetString(Tag::INSTALL_STATUS), L"FAILED");
}

}  // namespace
