// The faces of the buttons as they stand on the screen.

#include "PageTest.h"

namespace {

constexpr COLORREF green = RGB(0x00, 0xAD, 0x21);
constexpr COLORREF hotGreen = RGB(0x12, 0x86, 0x22);
constexpr COLORREF paleGreen = RGB(0xA6, 0xE3, 0xB2);
constexpr COLORREF grey = RGB(0x5A, 0x5A, 0x64);
constexpr COLORREF hotGrey = RGB(0x4E, 0x4E, 0x57);
constexpr COLORREF paleGrey = RGB(0xC5, 0xC5, 0xC9);
constexpr int frame = 3;
constexpr int focusInset = 5;

class ButtonPageTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        SetCursorPos(0, 0);
        UseSettings(L"<HIDE_EULA>true</HIDE_EULA>");
    }

    // Moves the mouse in from outside until the button answers: a paint that is still to come covers the
    // first answer.
    static bool DarkensUnderMouse(HWND button, COLORREF colour) {
        RECT area{};
        GetWindowRect(button, &area);
        const auto darkens = [&] {
            SetCursorPos(0, 0);
            SetCursorPos((area.left + area.right) / 2, (area.top + area.bottom) / 2);
            return WaitUntil([&] { return WizardDriver::PixelOf(button, frame, frame) == colour; },
                             std::chrono::milliseconds(300));
        };
        return WaitUntil(darkens, std::chrono::seconds(5));
    }

    // Whether dots of another colour run along the upper edge of the frame that shows the focus.
    static bool ShowsFocus(HWND button, COLORREF face) {
        RECT area{};
        GetWindowRect(button, &area);
        int dots = 0;
        for (int x = focusInset; x < area.right - area.left - focusInset; ++x) {
            if (WizardDriver::PixelOf(button, x, focusInset) != face) ++dots;
        }
        return dots >= (area.right - area.left) / 4;
    }
};

TEST_F(ButtonPageTest, IsGreenForThePagesMainButtonAndGreyForTheOther) {
    StartOn(Control::welcomeHeader);
    EXPECT_TRUE(ShowsColour(wizard.FindControl(Control::next), green));
    EXPECT_TRUE(ShowsColour(wizard.FindControl(Control::cancel), grey));
}

TEST_F(ButtonPageTest, DarkensUnderTheMouseAndComesBack) {
    StartOn(Control::welcomeHeader);
    const HWND install = wizard.FindControl(Control::next);
    const HWND cancel = wizard.FindControl(Control::cancel);
    EXPECT_TRUE(ShowsColour(install, green));
    EXPECT_TRUE(DarkensUnderMouse(install, hotGreen));
    EXPECT_TRUE(DarkensUnderMouse(cancel, hotGrey));
    EXPECT_TRUE(ShowsColour(install, green));
}

TEST_F(ButtonPageTest, ShowsTheFocusInsideItsFace) {
    StartOn(Control::welcomeHeader);
    const HWND install = wizard.FindControl(Control::next);
    EXPECT_TRUE(ShowsColour(install, green));
    EXPECT_FALSE(ShowsFocus(install, green));
    wizard.PressKey(VK_TAB);
    EXPECT_TRUE(WaitUntil([&] { return ShowsFocus(install, green); }, std::chrono::seconds(3)));
    EXPECT_TRUE(ShowsColour(install, green));
}

TEST_F(ButtonPageTest, PalesWhileItIsDisabled) {
    UseSettings(L"<HIDE_START>true</HIDE_START>");
    tree.WriteFile(L"Notices\\EULA\\eula_en.txt", std::string(200, '\n'));
    const HWND licence = StartOn(Control::licence);
    EXPECT_TRUE(ShowsColour(wizard.FindControl(Control::next), paleGreen));
    SendMessageW(licence, WM_VSCROLL, SB_BOTTOM, 0);
    EXPECT_TRUE(ShowsColour(wizard.FindControl(Control::next), green));
    EnableWindow(wizard.FindControl(Control::cancel), FALSE);
    EXPECT_TRUE(ShowsColour(wizard.FindControl(Control::cancel), paleGrey));
}

TEST_F(ButtonPageTest, StaysGreenWhenItWasDisabledInBetween) {
    UseSettings(
        L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA>"
        L"<TAG_DIALOG_SHOW_BYPASS>true</TAG_DIALOG_SHOW_BYPASS>");
    StartOn(Control::reinstall);
    EXPECT_TRUE(ShowsColour(wizard.FindControl(Control::next), paleGreen));
    wizard.Press(Control::skip);
    EXPECT_TRUE(ShowsColour(wizard.WaitForControl(Control::finish), green));
    wizard.Press(Control::reinstall);
    EXPECT_TRUE(ShowsColour(wizard.WaitForControl(Control::next), green));
}

TEST_F(ButtonPageTest, ShowsItsPictureInPlaceOfItsText) {
    constexpr COLORREF pictureColour = RGB(0, 0, 255);
    AddPicture(L"help.png", pictureColour);
    UseSettings(
        L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA><MANUFACTURERS>A|B</MANUFACTURERS>");
    StartOn(Control::manufacturers);
    EXPECT_TRUE(ShowsColour(wizard.FindControl(Control::help), pictureColour));
}

}  // namespace
