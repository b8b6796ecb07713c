// A language that reads from right to left mirrors the windows.

#include "PageTest.h"

namespace {

class DirectionPageTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        UseSettings(L"<HIDE_EULA>true</HIDE_EULA>");
    }

    void StartIn(const std::wstring& direction) {
        tree.SetText(L"READING_ORDER", direction);
        StartOn(Control::welcomeHeader);
    }

    static bool IsMirrored(HWND window) {
        return (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0;
    }

    HWND Page() const { return GetParent(wizard.FindControl(Control::welcomeHeader)); }

    bool IsCancelOnTheRight() const {
        RECT next{};
        RECT cancel{};
        GetWindowRect(wizard.FindControl(Control::next), &next);
        GetWindowRect(wizard.FindControl(Control::cancel), &cancel);
        return next.left < cancel.left;
    }
};

TEST_F(DirectionPageTest, StandsAsDrawnForALanguageFromTheLeft) {
    StartIn(L"LTR");
    EXPECT_FALSE(IsMirrored(wizard.MainWindow()));
    EXPECT_FALSE(IsMirrored(Page()));
    EXPECT_TRUE(IsCancelOnTheRight());
}

TEST_F(DirectionPageTest, IsMirroredForALanguageFromTheRight) {
    StartIn(L"RTL");
    EXPECT_TRUE(IsMirrored(wizard.MainWindow()));
    EXPECT_TRUE(IsMirrored(Page()));
    EXPECT_FALSE(IsCancelOnTheRight());
}

TEST_F(DirectionPageTest, GoesToTheEndInALanguageFromTheRight) {
    tree.Add({.path = L"Applications\\a.msi"});
    StartIn(L"RTL");
    wizard.PressKey(VK_ESCAPE);
    AnswerCancel(IDNO);
    wizard.Press(Control::next);
    CloseOnFinishPage();
    EXPECT_EQ(wizard.ExitCode(), 0U);
}

}  // namespace
