// A button and the mouse that passes over it.

#include <gtest/gtest.h>

#include "framework/CDialogEx.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/Sheet.h"
#include "tests/windows/world/TestApp.h"
#include "wizard/CQorFlatButton.h"

namespace {

class FlatButtonTest : public testing::Test {
protected:
    FlatButtonTest() {
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        const HWND control = window.GetDlgItem(IDC_TEST_BUTTON);
        SetWindowLongPtrW(control, GWL_STYLE, WS_CHILD | WS_VISIBLE | BS_FLAT);
        SetWindowPos(control, HWND_TOP, 0, 0, 60, 20, SWP_NOACTIVATE);
        window.ShowWindow(SW_SHOW);
        button.SubclassDlgItem(IDC_TEST_BUTTON, window);
    }

    bool LetsGoAfterTheMouse() const {
        SendMessageW(button.GetSafeHwnd(), WM_MOUSEMOVE, 0, MAKELPARAM(4, 4));
        MSG leave{};
        return PeekMessageW(&leave, button.GetSafeHwnd(), WM_MOUSELEAVE, WM_MOUSELEAVE, PM_REMOVE) != FALSE;
    }

    TestApp app;
    CDialogEx window;
    CQorFlatButton button;
};

// The mouse has left before the button asks to be told so, and not every system says it then.
TEST_F(FlatButtonTest, LetsGoWhereNobodySaysThatTheMouseHasLeft) {
    const PatchedImport tracking(
        "TrackMouseEvent", +[](TRACKMOUSEEVENT*) -> BOOL { return TRUE; });
    EXPECT_TRUE(LetsGoAfterTheMouse());
}

TEST_F(FlatButtonTest, TakesNoNoticeOfTheMouseWhereItIsNotFlat) {
    const PatchedImport tracking(
        "TrackMouseEvent", +[](TRACKMOUSEEVENT*) -> BOOL { return TRUE; });
    const LONG_PTR style = GetWindowLongPtrW(button.GetSafeHwnd(), GWL_STYLE);
    SetWindowLongPtrW(button.GetSafeHwnd(), GWL_STYLE, style & ~LONG_PTR{BS_FLAT});
    EXPECT_FALSE(LetsGoAfterTheMouse());
}

TEST_F(FlatButtonTest, LetsGoWhereTheSystemWaitsForSomethingElse) {
    static HWND asked;
    const PatchedImport tracking(
        "TrackMouseEvent", +[](TRACKMOUSEEVENT* given) -> BOOL {
            if (given->dwFlags != TME_QUERY) asked = given->hwndTrack;
            *given = {.cbSize = sizeof(TRACKMOUSEEVENT), .dwFlags = TME_HOVER, .hwndTrack = asked};
            return TRUE;
        });
    EXPECT_TRUE(LetsGoAfterTheMouse());
}

TEST_F(FlatButtonTest, WaitsForTheSystemToSayThatTheMouseHasLeft) {
    static TRACKMOUSEEVENT kept;
    kept = {};
    const PatchedImport tracking(
        "TrackMouseEvent", +[](TRACKMOUSEEVENT* given) -> BOOL {
            if (given->dwFlags == TME_QUERY) {
                *given = kept;
            } else {
                kept = *given;
            }
            return TRUE;
        });
    EXPECT_FALSE(LetsGoAfterTheMouse());
}

// Somebody has pressed it, left it with the mouse, and comes back.
TEST_F(FlatButtonTest, IsPressedAgainWhereTheMouseComesBackWithItsFirstButton) {
    const HWND control = button.GetSafeHwnd();
    RECT place{};
    GetWindowRect(control, &place);
    SetCursorPos(place.left + 4, place.top + 4);
    const auto isPressedBy = [&](WPARAM keys) {
        SendMessageW(control, BM_SETSTATE, FALSE, 0);
        SendMessageW(control, WM_MOUSEMOVE, keys, MAKELPARAM(4, 4));
        return (SendMessageW(control, BM_GETSTATE, 0, 0) & BST_PUSHED) != 0;
    };
    EXPECT_TRUE(isPressedBy(MK_LBUTTON));
    EXPECT_FALSE(isPressedBy(0));
    EXPECT_FALSE(isPressedBy(MK_RBUTTON));
    EXPECT_FALSE(isPressedBy(MK_LBUTTON | MK_MBUTTON));
}

// A button as it is drawn on paper.
class DrawnButtonTest : public FlatButtonTest {
protected:
    // The first column of the text, on a face that the edge of the drawing shows.
    int BeginningOfText(UINT state) {
        button.SetWindowText(L"WW");
        button.DrawItem(
            {.CtlType = ODT_BUTTON, .itemState = state, .hDC = sheet.Context(), .rcItem = Sheet::area});
        const COLORREF face = sheet.At(3, 3);
        for (int x = 3; x < Sheet::area.right - 3; ++x) {
            for (int y = 3; y < Sheet::area.bottom - 3; ++y) {
                if (sheet.At(x, y) != face) return x;
            }
        }
        return 0;
    }

    Sheet sheet;
};

TEST_F(DrawnButtonTest, MovesItsTextWhereItIsPressed) {
    const int released = BeginningOfText(0);
    EXPECT_GT(released, 3);
    EXPECT_EQ(BeginningOfText(ODS_SELECTED), released + 1);
}

TEST_F(DrawnButtonTest, KeepsItsTextInPlaceWhereItIsThePagesMainButton) {
    button.SetPrimary();
    const int released = BeginningOfText(0);
    EXPECT_GT(released, 3);
    EXPECT_EQ(BeginningOfText(ODS_SELECTED), released);
}

}  // namespace
