// The licence can be agreed to when its end has been reached, by whatever way of scrolling.

#include "resources/resource.h"
#include "tests/wizard/PageTest.h"
#include "tests/wizard/RealInput.h"

namespace {

std::string LongLicence() {
    std::string text;
    for (int line = 1; line <= 200; ++line) text += "Clause " + std::to_string(line) + "\n";
    return text;
}

class LicenceScrollTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        ParkMouse();
        UseSettings(L"<HIDE_START>true</HIDE_START>");
        tree.WriteFile(L"Notices\\EULA\\eula_en.txt", LongLicence());
    }

    // The control can be asked while the wizard waits for messages only, so a sent message comes after it.
    void Scroll(WPARAM how) const { SendMessageW(wizard.FindControl(IDC_LICENCE_TEXT), WM_VSCROLL, how, 0); }

    // Whether the deed enables the button. A window that is activated late takes the mouse and the keys away,
    // and a user then tries again from the beginning of the text.
    template <class Deed>
    bool TakesEffect(Deed deed) const {
        const auto takes = [&] {
            ReleaseMouse();
            Scroll(SB_TOP);
            deed();
            return IsEnabledWhenTheTextStands();
        };
        return WaitUntil(takes);
    }

    // A busy program scrolls long after the mouse or the keys have asked for it.
    bool IsEnabledWhenTheTextStands() const {
        const HWND licence = wizard.FindControl(IDC_LICENCE_TEXT);
        int position = -1;
        while (position != wizard.ScrollPositionOf(licence)) {
            position = wizard.ScrollPositionOf(licence);
            if (WaitUntil([this] { return IsEnabled(IDOK); }, std::chrono::seconds(1))) return true;
        }
        return false;
    }

    bool StaysDisabled() const {
        return !WaitUntil([this] { return IsEnabled(IDOK); }, std::chrono::milliseconds(300));
    }
};

TEST_F(LicenceScrollTest, WaitsForTheEndOfALongText) {
    StartOn(IDC_LICENCE_TEXT);
    EXPECT_FALSE(IsEnabled(IDOK));
    Scroll(SB_PAGEDOWN);
    EXPECT_TRUE(StaysDisabled());
    Scroll(SB_BOTTOM);
    EXPECT_TRUE(WaitUntilEnabled(IDOK));
}

TEST_F(LicenceScrollTest, TakesOneUnitAboveTheEndForTheEnd) {
    const HWND first = StartOn(IDC_LICENCE_TEXT);
    Scroll(SB_BOTTOM);
    EXPECT_TRUE(WaitUntilEnabled(IDOK));
    const int end = wizard.ScrollPositionOf(first);
    wizard.Kill();
    const HWND licence = StartOn(IDC_LICENCE_TEXT);
    Scroll(MAKEWPARAM(SB_THUMBPOSITION, end - 2));
    EXPECT_EQ(wizard.ScrollPositionOf(licence), end - 2);
    EXPECT_TRUE(StaysDisabled());
    Scroll(MAKEWPARAM(SB_THUMBPOSITION, end - 1));
    EXPECT_TRUE(WaitUntilEnabled(IDOK));
    EXPECT_EQ(wizard.ScrollPositionOf(licence), end - 1);
}

TEST_F(LicenceScrollTest, StaysAgreeableWhenTheUserScrollsBack) {
    StartOn(IDC_LICENCE_TEXT);
    Scroll(SB_BOTTOM);
    EXPECT_TRUE(WaitUntilEnabled(IDOK));
    Scroll(SB_TOP);
    EXPECT_EQ(SendMessageW(wizard.FindControl(IDC_LICENCE_TEXT), EM_GETFIRSTVISIBLELINE, 0, 0), 0);
    EXPECT_TRUE(IsEnabled(IDOK));
}

// Where the thumb of the text's scroll bar can be taken while the text stands at its beginning, and where it
// can be taken to.
struct ThumbWay {
    POINT top;
    POINT bottom;
};

ThumbWay ThumbWayOf(HWND licence) {
    constexpr int grip = 4;
    RECT area{};
    GetWindowRect(licence, &area);
    const LONG x = area.right - GetSystemMetrics(SM_CXVSCROLL) / 2 - 1;
    const LONG arrow = GetSystemMetrics(SM_CYVSCROLL);
    return {{x, area.top + arrow + grip}, {x, area.bottom - arrow}};
}

// Takes the thumb and pulls it to the end, where it is still held. The mouse runs ahead of a busy program, so
// it waits until the thumb is taken.
void PullTheThumb(HWND licence) {
    const ThumbWay way = ThumbWayOf(licence);
    HoldMouse(way.top);
    WaitUntil(
        [licence] {
            GUITHREADINFO information{.cbSize = sizeof(GUITHREADINFO)};
            GetGUIThreadInfo(GetWindowThreadProcessId(licence, nullptr), &information);
            return information.hwndCapture == licence;
        },
        std::chrono::seconds(1));
    MoveMouse(way.bottom);
}

TEST_F(LicenceScrollTest, CountsTheEndWhileTheThumbIsStillHeld) {
    const HWND licence = StartOn(IDC_LICENCE_TEXT);
    wizard.BringToFront();
    EXPECT_TRUE(TakesEffect([&] { PullTheThumb(licence); }));
    ReleaseMouse();
}

// A way to the end that a user can take.
struct ScrollWay {
    const char* name;
    void (*toTheEnd)(HWND licence);
};

void PrintTo(const ScrollWay& way, std::ostream* stream) {
    *stream << way.name;
}

// Lets the thumb go when the text has followed it to its last page.
void DragTheThumb(HWND licence) {
    constexpr LRESULT lastLines = 30;
    PullTheThumb(licence);
    WaitUntil(
        [licence] {
            const LRESULT lines = SendMessageW(licence, EM_GETLINECOUNT, 0, 0);
            return lines - SendMessageW(licence, EM_GETFIRSTVISIBLELINE, 0, 0) < lastLines;
        },
        std::chrono::seconds(1));
    ReleaseMouse();
}

void PressOften(WORD key, int times) {
    for (int count = 0; count < times; ++count) PressKeys({key});
}

class LicenceWayTest : public LicenceScrollTest, public testing::WithParamInterface<ScrollWay> {};

TEST_P(LicenceWayTest, LeadsToTheAgreement) {
    const HWND licence = StartOn(IDC_LICENCE_TEXT);
    wizard.BringToFront();
    EXPECT_FALSE(IsEnabled(IDOK));
    EXPECT_TRUE(TakesEffect([&] { GetParam().toTheEnd(licence); }));
}

INSTANTIATE_TEST_SUITE_P(
    EveryWay, LicenceWayTest,
    testing::Values(ScrollWay{"Thumb", &DragTheThumb},
                    ScrollWay{"Wheel", [](HWND licence) { TurnWheel(MiddleOf(licence), 100); }},
                    ScrollWay{"PageKeys", [](HWND) { PressOften(VK_NEXT, 40); }},
                    ScrollWay{"ArrowKeys", [](HWND) { PressOften(VK_DOWN, 220); }},
                    ScrollWay{"CtrlAndEnd",
                              [](HWND) {
                                  PressKeys({VK_CONTROL, VK_END});
                              }}),
    [](const testing::TestParamInfo<ScrollWay>& way) { return std::string(way.param.name); });

}  // namespace
