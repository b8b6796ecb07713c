// A language that reads from right to left mirrors the windows.

#include "resources/resource.h"
#include "tests/wizard/BitmapFile.h"
#include "tests/wizard/PageTest.h"

namespace {

class DirectionPageTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        UseSettings(L"<HIDE_EULA>true</HIDE_EULA>");
    }

    void StartIn(const std::wstring& direction) {
        tree.SetText(L"READING_ORDER", direction);
        StartOn(IDC_START_TITLE);
    }

    static bool IsMirrored(HWND window) {
        return (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0;
    }

    HWND Page() const { return GetParent(wizard.FindControl(IDC_START_TITLE)); }

    bool IsCancelOnTheRight() const {
        RECT next{};
        RECT cancel{};
        GetWindowRect(wizard.FindControl(IDOK), &next);
        GetWindowRect(wizard.FindControl(IDCANCEL), &cancel);
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

class LogoTest : public DirectionPageTest, public testing::WithParamInterface<const wchar_t*> {
protected:
    // How far the logo of that width lies right of and below the upper left corner of the window's ground.
    POINT LogoPlace(int width) {
        tree.WriteFile(L"Setup\\res\\images\\logo.bmp", BitmapFile(RGB(0, 0, 255), width));
        StartIn(GetParam());
        RECT place{};
        GetWindowRect(wizard.FindControl(IDC_MAIN_LOGO), &place);
        EXPECT_EQ(place.right - place.left, width);
        RECT ground{};
        GetClientRect(wizard.MainWindow(), &ground);
        MapWindowPoints(wizard.MainWindow(), nullptr, reinterpret_cast<POINT*>(&ground), 2);
        return {place.left - ground.left, place.top - ground.top};
    }
};

TEST_P(LogoTest, ShowsTheBeginningOfALogoThatIsWiderThanTheWindow) {
    const POINT place = LogoPlace(2000);
    EXPECT_EQ(place.x, 0);
    EXPECT_EQ(place.y, 0);
}

TEST_P(LogoTest, KeepsANarrowLogoOnTheSideWhereReadingBegins) {
    if (GetParam() == std::wstring(L"RTL")) {
        EXPECT_GT(LogoPlace(16).x, 100);
    } else {
        EXPECT_EQ(LogoPlace(16).x, 0);
    }
}

INSTANTIATE_TEST_SUITE_P(BothDirections, LogoTest, testing::Values(L"LTR", L"RTL"));

TEST_F(DirectionPageTest, GoesToTheEndInALanguageFromTheRight) {
    tree.Add({.path = L"Applications\\a.msi"});
    StartIn(L"RTL");
    wizard.PressKey(VK_ESCAPE);
    AnswerCancel(IDNO);
    wizard.Press(IDOK);
    CloseOnFinishPage();
    EXPECT_EQ(wizard.ExitCode(), 0U);
}

}  // namespace
