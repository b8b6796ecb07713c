#include <gtest/gtest.h>

#include <string>

#include "framework/CDialogEx.h"
#include "framework/FocusRing.h"
#include "framework/Handles.h"
#include "framework/Resolution.h"
#include "framework/TextSize.h"
#include "resources/resource.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/TestApp.h"
#include "tests/wizard/UserTextSize.h"

namespace {

class TextSizeTest : public testing::Test {
protected:
    TextSizeTest() = default;
    ~TextSizeTest() override {
        user.Forget();
        FollowTextSize(IDD_TEST);
    }

    static SIZE SizeOf(UINT dialogTemplate) {
        CDialogEx dialog;
        EXPECT_TRUE(dialog.Create(dialogTemplate, nullptr));
        RECT area{};
        GetWindowRect(dialog.GetSafeHwnd(), &area);
        return {area.right - area.left, area.bottom - area.top};
    }
    // The width of its outer line, in pixels.
    static int LineOfTheFocus() {
        constexpr int side = 60;
        const MemoryDc context(CreateCompatibleDC(nullptr));
        const Bitmap ground(CreateBitmap(side, side, 1, 32, nullptr));
        const SelectedObject selected(context.get(), ground.get());
        PatBlt(context.get(), 0, 0, side, side, WHITENESS);
        DrawFocusRing(context.get(), {0, 0, side, side});
        int line = 0;
        while (line < side && GetPixel(context.get(), line, side / 2) == RGB(0, 0, 0)) ++line;
        return line;
    }

    UserTextSize user;
    TestApp app;
};

TEST_F(TextSizeTest, LeavesDialogsAloneWhereNoneIsChosen) {
    FollowTextSize(IDD_TEST);
    EXPECT_EQ(GrownPoints(), templatePoints);
    EXPECT_EQ(ResolutionOf(nullptr), GetDeviceCaps(WindowDc(nullptr).get(), LOGPIXELSY));
}

TEST_F(TextSizeTest, MakesLettersAndMeasuresLarger) {
    const SIZE plain = SizeOf(IDD_TEST);
    const int resolution = ResolutionOf(nullptr);
    user.Choose(200);
    FollowTextSize(IDD_TEST);
    CDialogEx dialog;
    ASSERT_TRUE(dialog.Create(IDD_TEST, nullptr));
    LOGFONTW letters{};
    GetObjectW(reinterpret_cast<HFONT>(dialog.SendMessage(WM_GETFONT)), sizeof(letters), &letters);
    EXPECT_EQ(letters.lfHeight, -MulDiv(2 * templatePoints, resolution, 72));
    EXPECT_EQ(ResolutionOf(nullptr), 2 * resolution);
    EXPECT_GT(SizeOf(IDD_TEST).cx, plain.cx * 3 / 2);
    EXPECT_GT(SizeOf(IDD_TEST).cy, plain.cy * 3 / 2);
}

TEST_F(TextSizeTest, MakesTheSignOfTheFocusThicker) {
    const int line = LineOfTheFocus();
    user.Choose(200);
    FollowTextSize(IDD_TEST);
    EXPECT_EQ(LineOfTheFocus(), 2 * line);
}

TEST_F(TextSizeTest, GrowsByWholePoints) {
    user.Choose(150);
    FollowTextSize(IDD_TEST);
    EXPECT_EQ(GrownPoints(), 13);
}

TEST_F(TextSizeTest, StaysWithinTheScreen) {
    const SIZE plain = SizeOf(IDD_MAIN);
    static RECT room;
    room = {10, 20, 10 + plain.cx * 3 / 2, 20 + plain.cy * 2};
    const PatchedImport screen(
        "SystemParametersInfoW", +[](UINT question, UINT, void* answer, UINT) -> BOOL {
            if (question != SPI_GETWORKAREA) return FALSE;
            *static_cast<RECT*>(answer) = room;
            return TRUE;
        });
    user.Choose(225);
    FollowTextSize(IDD_MAIN);
    EXPECT_GT(GrownPoints(), templatePoints);
    EXPECT_LT(GrownPoints(), 2 * templatePoints);
    EXPECT_LE(SizeOf(IDD_MAIN).cx, plain.cx * 3 / 2);
    EXPECT_GT(SizeOf(IDD_MAIN).cx, plain.cx * 5 / 4);
}

class NonsenseSizeTest : public TextSizeTest, public testing::WithParamInterface<DWORD> {};

TEST_P(NonsenseSizeTest, CountsAsNone) {
    user.Choose(GetParam());
    FollowTextSize(IDD_TEST);
    EXPECT_EQ(GrownPoints(), templatePoints);
}

INSTANTIATE_TEST_SUITE_P(Percent, NonsenseSizeTest, testing::Values(0U, 1U, 99U, 226U, 100000U, 0xFFFFFFFFU));

TEST_F(TextSizeTest, TakesNoTextForANumber) {
    const std::wstring text = L"200";
    user.Write(REG_SZ, text.c_str(), static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    FollowTextSize(IDD_TEST);
    EXPECT_EQ(GrownPoints(), templatePoints);
}

}  // namespace
