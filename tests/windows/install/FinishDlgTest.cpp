#include "install/FinishDlg.h"
#include "resources/resource.h"
#include "settings/TagNames.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"

namespace {

// A cancelled run for which the .NET prerequisite was missing.
class FinishDlgTest : public SettingsWorld {
protected:
    FinishDlgTest() {
        AddTexts(
            "<INSTALL_CANCELED_TEXT>Cancelled.</INSTALL_CANCELED_TEXT><REQUIRED_DEPENDENCY>Missing.</"
            "REQUIRED_DEPENDENCY><INSTALLATION_FAILED_TEXT>Failed.</INSTALLATION_FAILED_TEXT>");
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

TEST_F(FinishDlgTest, NamesItWhereItsLineMakesTheRunAFailedOne) {
    Settings().SetString(Tag::APP_INSTALLATION_STATUS,
                         L"<App 0><NAME>Framework</NAME><STATUS>1</STATUS></App 0>");
    EXPECT_EQ(Header(), L"Failed.  Missing.");
    EXPECT_EQ(Settings().GetString(Tag::INSTALL_STATUS), L"FAILED");
}

}  // namespace
