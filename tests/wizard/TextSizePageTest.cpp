// The user chooses another text size while the wizard runs.

#include <windows.h>

#include "resources/resource.h"
#include "tests/wizard/BitmapFile.h"
#include "tests/wizard/PageTest.h"
#include "tests/wizard/UserTextSize.h"

namespace {

class TextSizePageTest : public PageTest {
protected:
    static constexpr int logoWidth = 100;

    void SetUp() override {
        PageTest::SetUp();
        tree.WriteFile(L"Setup\\res\\images\\logo.bmp", BitmapFile(RGB(0, 0, 255), logoWidth));
        UseSettings(L"");
        StartOn(IDC_START_TITLE);
        wizard.Settle();
    }

    // As the system does it for the user.
    void Choose(DWORD percent) const {
        user.Choose(percent);
        DWORD_PTR result = 0;
        EXPECT_NE(
            SendMessageTimeoutW(wizard.MainWindow(), WM_SETTINGCHANGE, 0, 0, SMTO_BLOCK, 30000, &result), 0);
    }

    static RECT PlaceOf(HWND window) {
        RECT place{};
        GetWindowRect(window, &place);
        return place;
    }
    static SIZE SizeOf(HWND window) {
        const RECT place = PlaceOf(window);
        return {place.right - place.left, place.bottom - place.top};
    }
    RECT PlaceInWindow(int control) const {
        RECT place = PlaceOf(wizard.FindControl(control));
        MapWindowPoints(nullptr, wizard.MainWindow(), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    HWND Page() const { return GetParent(wizard.FindControl(IDC_START_TITLE)); }

    // Whether the button, and so the page down to it, can be seen in the window.
    bool IsWithin(HWND window, int control) const {
        const RECT outer = PlaceOf(window);
        const RECT place = PlaceOf(wizard.FindControl(control));
        RECT common{};
        return IntersectRect(&common, &outer, &place) != FALSE && EqualRect(&common, &place) != FALSE;
    }

    UserTextSize user;
};

TEST_F(TextSizePageTest, GrowsWithTheTextsAndGoesOn) {
    const SIZE window = SizeOf(wizard.MainWindow());
    const SIZE page = SizeOf(Page());
    const SIZE button = SizeOf(wizard.FindControl(IDOK));
    Choose(150);
    EXPECT_GT(SizeOf(wizard.MainWindow()).cx, window.cx * 5 / 4);
    EXPECT_GT(SizeOf(Page()).cy, page.cy * 5 / 4);
    EXPECT_GT(SizeOf(wizard.FindControl(IDOK)).cx, button.cx * 5 / 4);
    EXPECT_TRUE(IsWithin(wizard.MainWindow(), IDCANCEL));
    wizard.Press(IDOK);
    wizard.WaitForControl(IDC_LICENCE_TEXT);
    EXPECT_TRUE(IsWithin(wizard.MainWindow(), IDCANCEL));
    EXPECT_GT(SizeOf(wizard.FindControl(IDOK)).cx, button.cx * 5 / 4);
}

TEST_F(TextSizePageTest, GrowsTheLogoToo) {
    EXPECT_EQ(SizeOf(wizard.FindControl(IDC_MAIN_LOGO)).cx, logoWidth);
    Choose(200);
    EXPECT_EQ(SizeOf(wizard.FindControl(IDC_MAIN_LOGO)).cx, 2 * logoWidth);
}

TEST_F(TextSizePageTest, KeepsTheFocusAndItsMiddle) {
    wizard.BringToFront();
    const HWND focus = wizard.Focus();
    const RECT before = PlaceOf(wizard.MainWindow());
    Choose(125);
    const RECT after = PlaceOf(wizard.MainWindow());
    EXPECT_NEAR(before.left + before.right, after.left + after.right, 1);
    EXPECT_NEAR(before.top + before.bottom, after.top + after.bottom, 1);
    EXPECT_EQ(wizard.Focus(), focus);
}

TEST_F(TextSizePageTest, IsAsBeforeWithTheOldSize) {
    const SIZE window = SizeOf(wizard.MainWindow());
    const RECT button = PlaceInWindow(IDOK);
    Choose(150);
    Choose(100);
    EXPECT_EQ(SizeOf(wizard.MainWindow()).cx, window.cx);
    EXPECT_EQ(SizeOf(wizard.MainWindow()).cy, window.cy);
    const RECT after = PlaceInWindow(IDOK);
    EXPECT_TRUE(EqualRect(&after, &button));
}

TEST_F(TextSizePageTest, ComesBackOntoTheScreen) {
    const RECT before = PlaceOf(wizard.MainWindow());
    RECT room{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &room, 0);
    SetWindowPos(wizard.MainWindow(), nullptr, room.right - (before.right - before.left),
                 room.bottom - (before.bottom - before.top), 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    Choose(150);
    const RECT after = PlaceOf(wizard.MainWindow());
    EXPECT_GT(after.right - after.left, before.right - before.left);
    EXPECT_LE(after.right, room.right);
    EXPECT_LE(after.bottom, room.bottom);
}

}  // namespace
