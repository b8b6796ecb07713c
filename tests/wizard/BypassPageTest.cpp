// The way out for who has the printer software already.

#include "resources/resource.h"
#include "tests/wizard/PageTest.h"

using testing::IsEmpty;
using testing::Not;

namespace {

constexpr ScriptedState upToDate{.installed = true, .upToDate = true};

class BypassPageTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        Use({});
    }

    void Use(const std::wstring& further) {
        UseSettings(
            L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA>"
            L"<WIN8_DRVTYPES>A;B;SCAN</WIN8_DRVTYPES>" +
            further);
    }

    void AddDriver(const std::wstring& identifier, const ScriptedState& state) {
        tree.Add({.path = L"Drivers\\x64\\" + identifier + L".msi",
                  .properties = Element(L"ProductName", identifier) + Element(L"DRIVERID", identifier),
                  .states = {state}});
    }

    void ExpectNotShown() {
        wizard.Start();
        CloseOnFinishPage();
        EXPECT_THAT(AdvancedLog(),
                    HasRecord(L"",
                              L"OptionalSoftwareBypassDlg::UpdateDialogStatus: No Optional Software "
                              L"Bypass"));
        EXPECT_THAT(BasicLog(), Not(HasRecord(L"", L"User selected to reinstall/add driver")));
    }

    void ExpectState(bool next, bool cancel, bool finish) {
        EXPECT_TRUE(WaitUntil([&] { return IsEnabled(IDC_FINISH) == finish; }));
        EXPECT_EQ(IsEnabled(IDOK), next);
        EXPECT_EQ(IsEnabled(IDCANCEL), cancel);
        EXPECT_EQ(IsShown(IDOK), !finish);
        EXPECT_EQ(IsShown(IDCANCEL), !finish);
        EXPECT_EQ(IsShown(IDC_FINISH), finish);
    }
};

TEST_F(BypassPageTest, IsNotShownWhereOneDriverIsUpgradedBehindAnotherThatIsUpToDate) {
    AddDriver(L"A", upToDate);
    AddDriver(L"B", older);
    ExpectNotShown();
}

TEST_F(BypassPageTest, IsNotShownWhereOneDriverIsUpgradedBeforeAnotherThatIsUpToDate) {
    AddDriver(L"A", older);
    AddDriver(L"B", upToDate);
    ExpectNotShown();
}

TEST_F(BypassPageTest, IsNotShownForADriverThatPrintsNothing) {
    AddDriver(L"SCAN", upToDate);
    ExpectNotShown();
}

TEST_F(BypassPageTest, IsShownWhereANewerDriverIsInstalled) {
    AddDriver(L"A", newer);
    StartOn(IDC_BYPASS_REINSTALL);
    EXPECT_THAT(AdvancedLog(),
                HasRecord(L"",
                          L"OptionalSoftwareBypassDlg::UpdateDialogStatus: Showing Optional Software "
                          L"Bypass"));
}

TEST_F(BypassPageTest, IsShownWhereTheSettingsSaySo) {
    Use(L"<TAG_DIALOG_SHOW_BYPASS>true</TAG_DIALOG_SHOW_BYPASS>");
    StartOn(IDC_BYPASS_REINSTALL);
    EXPECT_THAT(
        AdvancedLog(),
        HasRecord(L"", L"OptionalSoftwareBypassDlg::UpdateDialogStatus: No Optional Software Bypass"));
}

TEST_F(BypassPageTest, OffersTheButtonsOfTheChoice) {
    AddDriver(L"A", upToDate);
    StartOn(IDC_BYPASS_REINSTALL);
    EXPECT_TRUE(IsShown(IDOK));
    ExpectState(false, true, false);
    wizard.Press(IDC_BYPASS_SKIP);
    ExpectState(false, false, true);
    wizard.Press(IDC_BYPASS_REINSTALL);
    ExpectState(true, true, false);
}

TEST_F(BypassPageTest, GoesOnWithTheReinstallation) {
    AddDriver(L"A", upToDate);
    StartOn(IDC_BYPASS_REINSTALL);
    wizard.Press(IDC_BYPASS_REINSTALL);
    wizard.Press(IDOK);
    CloseOnFinishPage();
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"User selected to reinstall/add driver"));
}

TEST_F(BypassPageTest, EndsTheRunAtOnceOnSkip) {
    AddDriver(L"A", upToDate);
    StartOn(IDC_BYPASS_REINSTALL);
    wizard.Press(IDC_BYPASS_SKIP);
    wizard.Press(IDC_FINISH);
    wizard.WaitForEnd();
    EXPECT_EQ(wizard.ExitCode(), 0U);
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"Installation is Finished"));
    EXPECT_THAT(BasicLog(), Not(HasRecord(L"", L"User selected to reinstall/add driver")));
    EXPECT_THAT(Installs(), IsEmpty());
}

TEST_F(BypassPageTest, InstallsNothingOnSkipThoughTheSettingsAskForARestart) {
    Use(L"<REBOOT>true</REBOOT>");
    AddDriver(L"A", upToDate);
    tree.Add({.path = L"Applications\\a.msi"});
    StartOn(IDC_BYPASS_REINSTALL);
    wizard.Press(IDC_BYPASS_SKIP);
    wizard.Press(IDC_FINISH);
    wizard.WaitForEnd();
    EXPECT_THAT(Installs(), IsEmpty());
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"Installation is Finished"));
}

TEST_F(BypassPageTest, IsDeafToEscapeAndTheCloseBoxWhileSkipIsChosen) {
    AddDriver(L"A", upToDate);
    StartOn(IDC_BYPASS_REINSTALL);
    wizard.Press(IDC_BYPASS_SKIP);
    EXPECT_TRUE(WaitUntilEnabled(IDC_FINISH));
    wizard.PressKey(VK_ESCAPE);
    wizard.CloseMainWindow();
    EXPECT_TRUE(StaysQuiet());
    wizard.Press(IDC_BYPASS_REINSTALL);
    EXPECT_TRUE(WaitUntilEnabled(IDCANCEL));
    wizard.PressKey(VK_ESCAPE);
    AnswerCancel(IDNO);
}

}  // namespace
