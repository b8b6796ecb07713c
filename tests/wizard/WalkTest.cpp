// The walk with pages, as far as it needs no button of a page.

#include <windows.h>

#include <commctrl.h>

#include "resources/resource.h"
#include "tests/wizard/WizardTest.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

class WalkTest : public WizardTest {
protected:
    void SetUp() override {
        WizardTest::SetUp();
        tree.SetSettings(Settings::shownFromProgress);
    }

    // A package whose installation waits for the user's cancel, and says so to the caller.
    void AddPackageThatWaitsForCancel(const std::wstring& path) {
        tree.Add({.path = path, .install = {.steps = {{L"untilCancel", {}}}, .code = 1602}});
    }
};

TEST_F(WalkTest, ComesToTheFirstPageThatIsNotHiddenInsideTheStart) {
    AddPackageThatWaitsForCancel(L"Applications\\a.msi");
    wizard.Start();
    EXPECT_NE(wizard.WaitForControl(IDC_PROGRESS_BAR), nullptr);
    EXPECT_TRUE(IsWindowVisible(wizard.MainWindow()));
    EXPECT_EQ(WizardDriver::TextOf(wizard.MainWindow()), L"Installation");
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Controller::Next, Moving from 6 to 7"));
    wizard.CloseMainWindow();
    wizard.Answer(IDYES);
    CloseOnFinishPage();
}

TEST_F(WalkTest, AsksNothingWhenItIsClosedOnTheFinishPage) {
    tree.Add({.path = L"Applications\\a.msi"});
    wizard.Start();
    CloseOnFinishPage();
    EXPECT_EQ(wizard.ExitCode(), 0U);
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Controller::Cancel called"));
    EXPECT_THAT(BasicLog(), Not(HasRecord(L"", L"User chose to cancel the installation.")));
    EXPECT_THAT(Calls(L"MsiCancel"), IsEmpty());
}

TEST_F(WalkTest, GoesOnWhenTheUserDoesNotWantToCancelAfterAll) {
    const std::wstring sign = (tree.Root() / L"go on").wstring();
    tree.Add({.path = L"Applications\\a.msi", .install = {.steps = {{L"untilFile", sign}}}});
    wizard.Start();
    wizard.WaitForControl(IDC_PROGRESS_BAR);
    wizard.CloseMainWindow();
    const MessageBoxOnScreen box = wizard.Answer(IDNO);
    EXPECT_EQ(box.title, L"Installation");
    EXPECT_EQ(box.text, L"Cancel the installation?");
    tree.WriteFile(L"go on", {});
    CloseOnFinishPage();
    EXPECT_THAT(BasicLog(), Not(HasRecord(L"", L"User chose to cancel the installation.")));
    EXPECT_THAT(Calls(L"MsiCancel"), IsEmpty());
    EXPECT_THAT(Removals(), IsEmpty());
}

TEST_F(WalkTest, CancelsTheLibraryAndRemovesWhatItHasInstalled) {
    tree.Add({.path = L"Applications\\a.msi"});
    AddPackageThatWaitsForCancel(L"Applications\\x64\\b.msi");
    tree.Add({.path = L"Applications\\x64\\c.msi"});
    wizard.Start();
    EXPECT_TRUE(WaitUntil([this] { return Installs().size() == 2; }));
    wizard.CloseMainWindow();
    wizard.Answer(IDYES);
    CloseOnFinishPage();
    EXPECT_THAT(Calls(L"MsiCancel"), testing::SizeIs(1));
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi", L"b.msi"));
    EXPECT_THAT(Removals(), ElementsAre(L"a.msi", L"b.msi"));
}

TEST_F(WalkTest, TellsOfTheCancelInBothLogs) {
    AddPackageThatWaitsForCancel(L"Applications\\a.msi");
    wizard.Start();
    wizard.WaitForControl(IDC_PROGRESS_BAR);
    EXPECT_TRUE(WaitUntil([this] { return Installs().size() == 1; }));
    wizard.CloseMainWindow();
    wizard.Answer(IDYES);
    CloseOnFinishPage();
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"User chose to cancel the installation."));
    EXPECT_THAT(BasicLog(), HasRecord(L"SUCCESS", L"MSI Installer returned user canceled."));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"SUCCESS", L"Controller::Cancel Yes on Are You Sure"));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"ProgressDialog::Cancel called"));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Updating Cancel Text"));
    EXPECT_THAT(AdvancedLog(), Not(HasRecord(L"SUCCESS", L"Controller::Cancel No on Are You Sure")));
}

TEST_F(WalkTest, ShowsThePackageAndHowFarItIs) {
    const std::wstring sign = (tree.Root() / L"go on").wstring();
    tree.Add({.path = L"Applications\\a.msi",
              .properties = L"<ProductName>Reader</ProductName>",
              .install = {.steps = {{L"message", L"<PERCENT>80</PERCENT>"}, {L"untilFile", sign}}}});
    tree.Add({.path = L"Applications\\b.msi"});
    wizard.Start();
    const HWND bar = wizard.WaitForControl(IDC_PROGRESS_BAR);
    EXPECT_TRUE(WaitUntil([&] { return SendMessageW(bar, PBM_GETPOS, 0, 0) == 80; }));
    EXPECT_EQ(SendMessageW(bar, PBM_GETRANGE, FALSE, 0), 200);
    EXPECT_EQ(WizardDriver::TextOf(wizard.FindControl(IDC_PROGRESS_STATUS_LINE)), L"Installing Reader");
    tree.WriteFile(L"go on", {});
    CloseOnFinishPage();
}

TEST_F(WalkTest, HoldsTheLibraryWhileItAsksWhetherToCancel) {
    const std::wstring sign = (tree.Root() / L"go on").wstring();
    tree.Add({.path = L"Applications\\a.msi",
              .install = {.steps = {{L"untilFile", sign}, {L"message", L"<PERCENT>10</PERCENT>"}}}});
    wizard.Start();
    EXPECT_TRUE(WaitUntil([this] { return Installs().size() == 1; }));
    wizard.CloseMainWindow();
    wizard.WaitForBox();
    tree.WriteFile(L"go on", {});
    EXPECT_FALSE(WaitUntil([this] { return !Calls(L"answer").empty(); }, std::chrono::milliseconds(300)));
    wizard.Answer(IDNO);
    CloseOnFinishPage();
    EXPECT_THAT(Calls(L"answer"), testing::SizeIs(1));
}

TEST_F(WalkTest, TakesBackTheLastPackageIfTheUserSaysSoAfterItsEnd) {
    const std::wstring sign = (tree.Root() / L"go on").wstring();
    tree.Add({.path = L"Applications\\a.msi", .install = {.steps = {{L"untilFile", sign}}}});
    wizard.Start();
    EXPECT_TRUE(WaitUntil([this] { return Installs().size() == 1; }));
    wizard.CloseMainWindow();
    wizard.WaitForBox();
    tree.WriteFile(L"go on", {});
    EXPECT_FALSE(WaitUntil(
        [this] {
            return testing::Value(AdvancedLog(), HasRecord(L"", L"Controller::Next, Moving from 7 to 8"));
        },
        std::chrono::milliseconds(500)));
    wizard.Answer(IDYES);
    CloseOnFinishPage();
    EXPECT_THAT(Removals(), ElementsAre(L"a.msi"));
}

TEST_F(WalkTest, EndsWhereTheFinishPagesAreHidden) {
    tree.SetSettings(std::wstring(Settings::shownFromProgress) + L"<HIDE_FINAL>true</HIDE_FINAL>");
    tree.Add({.path = L"Applications\\a.msi"});
    wizard.Start();
    wizard.WaitForEnd();
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi"));
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"Installation is Finished"));
}

TEST_F(WalkTest, EndsWhereAllPagesAreHidden) {
    tree.SetSettings(std::wstring(Settings::shownFromProgress) +
                     L"<HIDE_PROGRESS>true</HIDE_PROGRESS><HIDE_FINAL>true</HIDE_FINAL>");
    tree.Add({.path = L"Applications\\a.msi"});
    wizard.Start();
    wizard.WaitForEnd();
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi"));
    const std::vector<LogRecord> log = BasicLog();
    EXPECT_EQ(std::ranges::count(log, L"Installation is Finished", &LogRecord::message), 1);
}

TEST_F(WalkTest, TakesBackWhatFailsBehindAHiddenProgressPage) {
    tree.SetSettings(std::wstring(Settings::shownFromProgress) + L"<HIDE_PROGRESS>true</HIDE_PROGRESS>");
    tree.Add({.path = L"Applications\\a.msi"});
    tree.Add({.path = L"Applications\\b.msi", .install = {.steps = {}, .code = 1603}});
    wizard.Start();
    wizard.Answer(IDOK);
    EXPECT_TRUE(WaitForMessage(L"Thread Count decremented 0"));
    EXPECT_THAT(Removals(), ElementsAre(L"a.msi", L"b.msi"));
    // The user is left with the page that says so.
    EXPECT_FALSE(
        WaitUntil([this] { return testing::Value(BasicLog(), HasRecord(L"", L"Installation is Finished")); },
                  std::chrono::milliseconds(500)));
    CloseOnFinishPage();
}

}  // namespace
