// The wizard by its keyboard alone, with keys as the system delivers them.

#include "resources/resource.h"
#include "tests/wizard/PageTest.h"
#include "tests/wizard/RealInput.h"

using testing::Contains;

namespace {

constexpr int noControl = 0;

class KeyboardTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        ParkMouse();
        tree.SetText(L"INSTALL_BUTTON", L"&amp;Install");
        tree.SetText(L"CANCEL_BUTTON", L"Cance&amp;l");
        UseSettings(
            L"<HIDE_EULA>true</HIDE_EULA>"
            L"<INFOCENTER_LINK>http://help.test</INFOCENTER_LINK>"
            L"<PRODUCT_REGISTRATION_LINK>http://register.test</PRODUCT_REGISTRATION_LINK>");
    }

    void StartInFront(int control) {
        StartOn(control);
        wizard.BringToFront();
    }

    // The control that has the focus after these keys, which are to bring it to the expected one.
    int FocusBehind(std::initializer_list<WORD> keys, int expected) {
        PressKeys(keys);
        const auto focused = [this] {
            const HWND window = wizard.Focus();
            return window == nullptr ? noControl : GetDlgCtrlID(window);
        };
        WaitUntil([&] { return focused() == expected; }, std::chrono::seconds(5));
        return focused();
    }
};

TEST_F(KeyboardTest, GoesThroughThePageInTheOrderOfItsControls) {
    StartInFront(IDC_START_TITLE);
    for (const int control : {IDC_START_INFORMATION_LINK, IDC_START_REGISTRATION_LINK, IDOK, IDCANCEL,
                              IDC_START_INFORMATION_LINK}) {
        EXPECT_EQ(FocusBehind({VK_TAB}, control), control);
    }
    for (const int control : {IDCANCEL, IDOK, IDC_START_REGISTRATION_LINK}) {
        EXPECT_EQ(FocusBehind({VK_SHIFT, VK_TAB}, control), control);
    }
}

TEST_F(KeyboardTest, ClicksWithEnterAndWithSpaceWhatHasTheFocus) {
    StartInFront(IDC_START_TITLE);
    EXPECT_EQ(FocusBehind({VK_SHIFT, VK_TAB}, IDCANCEL), IDCANCEL);
    for (const WORD key : {WORD{VK_RETURN}, WORD{VK_SPACE}}) {
        PressKeys({key});
        AnswerCancel(IDNO);
        wizard.BringToFront();
        EXPECT_EQ(FocusBehind({}, IDCANCEL), IDCANCEL);
    }
    EXPECT_EQ(FocusBehind({VK_SHIFT, VK_TAB}, IDOK), IDOK);
    PressKeys({VK_RETURN});
    CloseOnFinishPage();
}

TEST_F(KeyboardTest, AsksOnEscapeAndTakesTheAnswerByItsKey) {
    StartInFront(IDC_START_TITLE);
    PressKeys({VK_ESCAPE});
    const HWND question = wizard.WaitForBox().window;
    EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == question; }));
    PressKeys({'N'});
    EXPECT_TRUE(WaitUntil([&] { return !IsWindow(question); }));
    EXPECT_TRUE(IsShown(IDC_START_TITLE));
}

TEST_F(KeyboardTest, ClicksByTheAccessKeys) {
    StartInFront(IDC_START_TITLE);
    PressKeys({VK_MENU, 'L'});
    AnswerCancel(IDNO);
    wizard.BringToFront();
    PressKeys({VK_MENU, 'I'});
    CloseOnFinishPage();
}

TEST_F(KeyboardTest, PicksAManufacturerWithTheArrows) {
    UseSettings(
        L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA><MANUFACTURERS>A:1|B:2</MANUFACTURERS>");
    tree.Add({.path = L"Applications\\a.msi"});
    StartInFront(IDC_MANUFACTURER_LIST);
    EXPECT_EQ(FocusBehind({}, IDC_MANUFACTURER_LIST), IDC_MANUFACTURER_LIST);
    for (int step = 0; step < 2; ++step) PressKeys({VK_DOWN});
    EXPECT_TRUE(WaitUntilEnabled(IDOK));
    PressKeys({VK_TAB});
    EXPECT_EQ(FocusBehind({VK_TAB}, IDOK), IDOK);
    PressKeys({VK_RETURN});
    CloseOnFinishPage();
    EXPECT_EQ(FinalSetting(L"OEMBYTE"), L"2");
}

TEST_F(KeyboardTest, ChoosesTheConnectionWithTheArrows) {
    UseSettings(
        L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA>"
        L"<AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED>");
    tree.Add({.path = L"Applications\\a.msi"});
    StartInFront(IDC_CONNECTIVITY_NETWORK);
    EXPECT_EQ(FocusBehind({}, IDC_CONNECTIVITY_NETWORK), IDC_CONNECTIVITY_NETWORK);
    EXPECT_EQ(FocusBehind({VK_DOWN}, IDC_CONNECTIVITY_USB), IDC_CONNECTIVITY_USB);
    EXPECT_EQ(FocusBehind({VK_TAB}, IDOK), IDOK);
    PressKeys({VK_RETURN});
    CloseOnFinishPage();
    EXPECT_EQ(FinalSetting(L"USB"), L"true");
}

}  // namespace
