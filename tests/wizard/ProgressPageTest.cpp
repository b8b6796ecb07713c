// The Progress page: its bar, its button and a cancel at each point of a run.

#include <windows.h>

#include <commctrl.h>

#include "resources/resource.h"
#include "tests/wizard/PageTest.h"

using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Not;

namespace {

class ProgressPageTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        tree.SetSettings(Settings::shownFromProgress);
    }

    std::wstring Sign() const { return (tree.Root() / L"go on").wstring(); }
    void GoOn() { tree.WriteFile(L"go on", {}); }
    void AddWaiting(const std::wstring& name) {
        tree.Add({.path = L"Applications\\" + name, .install = {.steps = {{L"untilFile", Sign()}}}});
    }
    LRESULT Position() const { return SendMessageW(wizard.FindControl(IDC_PROGRESS_BAR), PBM_GETPOS, 0, 0); }
    bool WaitForInstalls(std::size_t count) const {
        return WaitUntil([&] { return Installs().size() == count; });
    }
};

TEST_F(ProgressPageTest, NeverMovesItsBarBack) {
    tree.Add({.path = L"Applications\\a.msi",
              .install = {.steps = {{L"message", L"<PERCENT>80</PERCENT>"},
                                    {L"message", L"<PERCENT>40</PERCENT>"},
                                    {L"untilFile", Sign()}}}});
    StartOn(IDC_PROGRESS_BAR);
    EXPECT_TRUE(WaitUntil([this] { return Calls(L"answer").size() == 2; }));
    EXPECT_TRUE(WaitUntil([this] { return Position() == 80; }));
    EXPECT_FALSE(WaitUntil([this] { return Position() != 80; }, std::chrono::milliseconds(200)));
    GoOn();
    CloseOnFinishPage();
}

TEST_F(ProgressPageTest, ReachesItsEndWithTheLastPackage) {
    tree.Add({.path = L"Applications\\a.msi"});
    tree.Add({.path = L"Applications\\b.msi",
              .install = {.steps = {{L"message", L"<PERCENT>100</PERCENT>"}, {L"untilFile", Sign()}}}});
    StartOn(IDC_PROGRESS_BAR);
    EXPECT_TRUE(WaitUntil([this] { return Position() == 200; }));
    GoOn();
    CloseOnFinishPage();
}

TEST_F(ProgressPageTest, TakesAQuestionInOtherLettersForNoProgress) {
    tree.Add({.path = L"Applications\\a.msi",
              .install = {.steps = {{L"message", L"<PERCENT>30</PERCENT>"},
                                    {L"message", L"<FILE_IN_USE>TRUE</FILE_IN_USE>"},
                                    {L"untilFile", Sign()}}}});
    StartOn(IDC_PROGRESS_BAR);
    EXPECT_TRUE(WaitUntil([this] { return Calls(L"answer").size() == 2; }));
    EXPECT_EQ(Calls(L"answer").back().Argument(L"answer"), L"1");
    EXPECT_TRUE(WaitUntil([this] { return Position() == 30; }));
    GoOn();
    CloseOnFinishPage();
}

TEST_F(ProgressPageTest, EnablesItsButtonAgainAfterNo) {
    AddWaiting(L"a.msi");
    StartOn(IDC_PROGRESS_BAR);
    EXPECT_TRUE(WaitForInstalls(1));
    for (int question = 0; question < 2; ++question) {
        wizard.Press(IDCANCEL);
        AnswerCancel(IDNO);
        EXPECT_TRUE(WaitUntilEnabled(IDCANCEL));
        EXPECT_TRUE(WaitUntil([this] { return wizard.Focus() != nullptr; }));
    }
    GoOn();
    CloseOnFinishPage();
    EXPECT_THAT(Removals(), IsEmpty());
}

TEST_F(ProgressPageTest, IsDeafAfterYes) {
    AddWaiting(L"a.msi");
    StartOn(IDC_PROGRESS_BAR);
    EXPECT_TRUE(WaitForInstalls(1));
    wizard.Press(IDCANCEL);
    AnswerCancel(IDYES);
    EXPECT_TRUE(WaitForMessage(L"Updating Cancel Text"));
    EXPECT_EQ(TextOf(IDC_PROGRESS_STATUS_LINE), L"Cancelling");
    EXPECT_TRUE(WaitUntil([this] { return !IsEnabled(IDCANCEL); }));
    EXPECT_TRUE(WaitUntil([this] { return wizard.Focus() == wizard.FindControl(IDC_PROGRESS_STATUS_LINE); }));
    wizard.PressKey(VK_ESCAPE);
    wizard.CloseMainWindow();
    EXPECT_FALSE(WaitUntil([this] { return wizard.FindBox().has_value(); }, std::chrono::milliseconds(300)));
    GoOn();
    CloseOnFinishPage();
}

TEST_F(ProgressPageTest, AnswersWhileAPackageIsAtWork) {
    AddWaiting(L"a.msi");
    StartOn(IDC_PROGRESS_BAR);
    EXPECT_TRUE(WaitForInstalls(1));
    DWORD_PTR result = 0;
    EXPECT_NE(SendMessageTimeoutW(wizard.MainWindow(), WM_NULL, 0, 0, SMTO_ABORTIFHUNG, 5000, &result), 0);
    wizard.PressKey(VK_ESCAPE);
    AnswerCancel(IDNO);
    EXPECT_THAT(Calls(L"answer"), IsEmpty());
    GoOn();
    CloseOnFinishPage();
}

// The paint shows itself by the button: it greys out while the question is open.
TEST_F(ProgressPageTest, PaintsAndAnswersWhileTheLibraryIsStillAtWork) {
    constexpr COLORREF paleGrey = RGB(0xC5, 0xC5, 0xC9);
    constexpr COLORREF grey = RGB(0x5A, 0x5A, 0x64);
    AddWaiting(L"a.msi");
    StartOn(IDC_PROGRESS_BAR);
    EXPECT_TRUE(WaitForInstalls(1));
    const HWND cancel = wizard.FindControl(IDCANCEL);
    EXPECT_TRUE(ShowsColour(cancel, grey));
    wizard.Press(IDCANCEL);
    const HWND question = wizard.WaitForBox().window;
    RedrawWindow(GetParent(cancel), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    EXPECT_TRUE(ShowsColour(cancel, paleGrey));
    EXPECT_TRUE(IsWindow(question));
    AnswerCancel(IDNO);
    RedrawWindow(GetParent(cancel), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    EXPECT_TRUE(ShowsColour(cancel, grey));
    EXPECT_THAT(AdvancedLog(), Not(HasRecord(L"", L"Controller::Next, Moving from 7 to 8")));
    GoOn();
    CloseOnFinishPage();
}

TEST_F(ProgressPageTest, MovesItsBarBackDuringTheRollBack) {
    const std::wstring secondSign = (tree.Root() / L"removed").wstring();
    tree.Add({.path = L"Applications\\a.msi",
              .uninstall = {.steps = {{L"message", L"<PERCENT>60</PERCENT>"}, {L"untilFile", secondSign}}}});
    tree.Add(
        {.path = L"Applications\\b.msi",
         .install = {.steps = {{L"message", L"<PERCENT>50</PERCENT>"}, {L"untilCancel", {}}}, .code = 1602}});
    StartOn(IDC_PROGRESS_BAR);
    EXPECT_TRUE(WaitUntil([this] { return Position() == 150; }));
    wizard.Press(IDCANCEL);
    AnswerCancel(IDYES);
    EXPECT_TRUE(WaitUntil([this] { return Position() < 150; }));
    EXPECT_TRUE(WaitUntil([this] { return TextOf(IDC_PROGRESS_STATUS_LINE) == L"Removing a"; }));
    tree.WriteFile(L"removed", {});
    CloseOnFinishPage();
}

// A cancel while the package at that position is at work.
class CancelPointTest : public ProgressPageTest, public testing::WithParamInterface<std::size_t> {
protected:
    void AddThree(bool waitsForCancel) {
        for (std::size_t index = 0; index < names.size(); ++index) {
            ScriptedCall install;
            if (index == GetParam() && waitsForCancel)
                install = {.steps = {{L"untilCancel", {}}}, .code = 1602};
            if (index == GetParam() && !waitsForCancel)
                install = {.steps = {{L"untilFile", Sign()}}, .code = 0};
            tree.Add({.path = L"Applications\\" + names[index], .install = install});
        }
    }

    const std::vector<std::wstring> names = {L"a.msi", L"b.msi", L"c.msi"};
};

TEST_P(CancelPointTest, TakesBackOnYesWhatTheRunHasReached) {
    AddThree(true);
    StartOn(IDC_PROGRESS_BAR);
    EXPECT_TRUE(WaitForInstalls(GetParam() + 1));
    wizard.Press(IDCANCEL);
    AnswerCancel(IDYES);
    CloseOnFinishPage();
    const std::vector<std::wstring> reached(names.begin(), names.begin() + static_cast<int>(GetParam()) + 1);
    EXPECT_THAT(Installs(), ElementsAreArray(reached));
    EXPECT_THAT(Removals(), ElementsAreArray(reached));
}

TEST_P(CancelPointTest, GoesOnToTheEndOnNo) {
    AddThree(false);
    StartOn(IDC_PROGRESS_BAR);
    EXPECT_TRUE(WaitForInstalls(GetParam() + 1));
    wizard.Press(IDCANCEL);
    AnswerCancel(IDNO);
    GoOn();
    CloseOnFinishPage();
    EXPECT_THAT(Installs(), ElementsAreArray(names));
    EXPECT_THAT(Removals(), IsEmpty());
    EXPECT_THAT(BasicLog(), Not(HasRecord(L"", L"User chose to cancel the installation.")));
}

INSTANTIATE_TEST_SUITE_P(EveryPosition, CancelPointTest, testing::Values(0, 1, 2));

}  // namespace
