// The faces of the buttons as they stand on the screen.

#include "resources/resource.h"
#include "tests/wizard/BitmapFile.h"
#include "tests/wizard/PageTest.h"
#include "tests/wizard/RealInput.h"

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
        ParkMouse();
        UseSettings(L"<HIDE_EULA>true</HIDE_EULA>");
    }

    // Under load the window can come to the front late and take no notice of a mouse that stands already.
    static bool DarkensUnderMouse(HWND button, COLORREF colour) {
        const auto darkens = [&] {
            MoveMouse(MiddleOf(button));
            if (HasColour(button, colour, std::chrono::seconds(2))) return true;
            MoveMouse({0, 0});
            return false;
        };
        return WaitUntil(darkens);
    }

    // Where the caption begins on the button's middle line, in pixels from its left edge.
    static int CaptionStart(HWND button, COLORREF face) {
        RECT area{};
        GetClientRect(button, &area);
        int x = focusInset + 2;
        while (x < area.right && WizardDriver::PixelOf(button, x, area.bottom / 2) == face) ++x;
        return x;
    }

    // Whether anything is drawn on the grey face between these shares of its width.
    static bool HasCaptionIn(HWND button, double from, double to) {
        RECT area{};
        GetClientRect(button, &area);
        const int width = area.right - 2 * frame;
        for (int x = static_cast<int>(width * from); x < static_cast<int>(width * to); ++x) {
            for (int y = frame; y < area.bottom - frame; ++y) {
                if (WizardDriver::PixelOf(button, frame + x, y) != grey) return true;
            }
        }
        return false;
    }

    // How far the caption moves when the mouse presses the button, which shows these faces meanwhile.
    static int CaptionShift(HWND button, COLORREF hotFace, COLORREF pressedFace) {
        EXPECT_TRUE(DarkensUnderMouse(button, hotFace));
        const int before = CaptionStart(button, hotFace);
        HoldMouse(MiddleOf(button));
        EXPECT_TRUE(ShowsColour(button, pressedFace));
        const int pressed = CaptionStart(button, pressedFace);
        // Taken back, so that letting go is no click wherever the mouse stands by then.
        SendMessageW(button, WM_CANCELMODE, 0, 0);
        MoveMouse({0, 0});
        ReleaseMouse();
        return pressed - before;
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
    StartOn(IDC_START_TITLE);
    EXPECT_TRUE(ShowsColour(wizard.FindControl(IDOK), green));
    EXPECT_TRUE(ShowsColour(wizard.FindControl(IDCANCEL), grey));
}

TEST_F(ButtonPageTest, DarkensUnderTheMouseAndComesBack) {
    StartOn(IDC_START_TITLE);
    const HWND install = wizard.FindControl(IDOK);
    const HWND cancel = wizard.FindControl(IDCANCEL);
    EXPECT_TRUE(ShowsColour(install, green));
    EXPECT_TRUE(DarkensUnderMouse(install, hotGreen));
    EXPECT_TRUE(DarkensUnderMouse(cancel, hotGrey));
    EXPECT_TRUE(ShowsColour(install, green));
}

TEST_F(ButtonPageTest, StaysDarkWhenItIsPaintedUnderTheMouse) {
    StartOn(IDC_START_TITLE);
    const HWND install = wizard.FindControl(IDOK);
    EXPECT_TRUE(DarkensUnderMouse(install, hotGreen));
    RedrawWindow(install, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    // By its answer the wizard has painted.
    SendMessageW(install, WM_NULL, 0, 0);
    EXPECT_TRUE(ShowsColour(install, hotGreen));
}

TEST_F(ButtonPageTest, MovesTheTextOfAGreyButtonAloneWhenItIsPressed) {
    for (const wchar_t* key : {L"INSTALL_BUTTON", L"CANCEL_BUTTON"}) tree.SetText(key, L"I");
    StartOn(IDC_START_TITLE);
    // By design: a pressed button is as bright as an untouched one, and a green one keeps its text in place.
    EXPECT_EQ(CaptionShift(wizard.FindControl(IDCANCEL), hotGrey, grey), 1);
    EXPECT_EQ(CaptionShift(wizard.FindControl(IDOK), hotGreen, green), 0);
    EXPECT_TRUE(StaysQuiet());
}

TEST_F(ButtonPageTest, ShowsTheFocusInsideItsFace) {
    StartOn(IDC_START_TITLE);
    const HWND install = wizard.FindControl(IDOK);
    EXPECT_TRUE(ShowsColour(install, green));
    EXPECT_FALSE(ShowsFocus(install, green));
    wizard.PressKey(VK_TAB);
    EXPECT_TRUE(WaitUntil([&] { return ShowsFocus(install, green); }, std::chrono::seconds(3)));
    EXPECT_TRUE(ShowsColour(install, green));
}

TEST_F(ButtonPageTest, PalesWhileItIsDisabled) {
    UseSettings(L"<HIDE_START>true</HIDE_START>");
    tree.WriteFile(L"Notices\\EULA\\eula_en.txt", std::string(200, '\n'));
    const HWND licence = StartOn(IDC_LICENCE_TEXT);
    EXPECT_TRUE(ShowsColour(wizard.FindControl(IDOK), paleGreen));
    SendMessageW(licence, WM_VSCROLL, SB_BOTTOM, 0);
    EXPECT_TRUE(ShowsColour(wizard.FindControl(IDOK), green));
    EnableWindow(wizard.FindControl(IDCANCEL), FALSE);
    EXPECT_TRUE(ShowsColour(wizard.FindControl(IDCANCEL), paleGrey));
}

TEST_F(ButtonPageTest, StaysGreenWhenItWasDisabledInBetween) {
    UseSettings(
        L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA>"
        L"<TAG_DIALOG_SHOW_BYPASS>true</TAG_DIALOG_SHOW_BYPASS>");
    StartOn(IDC_BYPASS_REINSTALL);
    EXPECT_TRUE(ShowsColour(wizard.FindControl(IDOK), paleGreen));
    wizard.Press(IDC_BYPASS_SKIP);
    EXPECT_TRUE(ShowsColour(wizard.WaitForControl(IDC_FINISH), green));
    wizard.Press(IDC_BYPASS_REINSTALL);
    EXPECT_TRUE(ShowsColour(wizard.WaitForControl(IDOK), green));
}

TEST_F(ButtonPageTest, ShowsAWholeSignWhereItsPictureIsMissing) {
    tree.SetText(L"HELP_BUTTON", L"Help button");
    UseSettings(
        L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA><MANUFACTURERS>A|B</MANUFACTURERS>");
    StartOn(IDC_MANUFACTURER_LIST);
    const HWND help = wizard.FindControl(IDC_HELP_BUTTON);
    EXPECT_TRUE(ShowsColour(help, grey));
    EXPECT_TRUE(HasCaptionIn(help, 0.25, 0.75));
    EXPECT_FALSE(HasCaptionIn(help, 0, 0.25));
    EXPECT_FALSE(HasCaptionIn(help, 0.75, 1));
    EXPECT_EQ(WizardDriver::TextOf(help), L"Help button");
}

TEST_F(ButtonPageTest, ShowsItsPictureInPlaceOfItsText) {
    constexpr COLORREF pictureColour = RGB(0, 0, 255);
    AddPicture(L"help.png", pictureColour);
    UseSettings(
        L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA><MANUFACTURERS>A|B</MANUFACTURERS>");
    StartOn(IDC_MANUFACTURER_LIST);
    EXPECT_TRUE(ShowsColour(wizard.FindControl(IDC_HELP_BUTTON), pictureColour));
}

TEST_F(ButtonPageTest, ShowsItsPictureWhereverTheProgramIsStarted) {
    constexpr COLORREF pictureColour = RGB(0, 0, 255);
    AddPicture(L"help.png", pictureColour);
    tree.WriteFile(L"Setup\\res\\images\\logo.bmp", BitmapFile(RGB(255, 0, 0)));
    UseSettings(
        L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA><MANUFACTURERS>A|B</MANUFACTURERS>");
    wizard.Start({}, tree.Root());
    wizard.WaitForControl(IDC_MANUFACTURER_LIST);
    EXPECT_TRUE(ShowsColour(wizard.FindControl(IDC_HELP_BUTTON), pictureColour));
    RECT logo{};
    GetWindowRect(wizard.FindControl(IDC_MAIN_LOGO), &logo);
    EXPECT_EQ(logo.right - logo.left, 16);
}

}  // namespace
