// The pictures and letters of the pages on screens of several resolutions.

#include <windows.h>

#include <commctrl.h>

#include "install/FinishDlg.h"
#include "install/StatusListView.h"
#include "pages/ManufacturerDlg.h"
#include "resources/resource.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"
#include "tests/wizard/BitmapFile.h"
#include "wizard/KestruneDlg.h"

namespace {

constexpr COLORREF paint = RGB(255, 0, 0);

int dotsPerInch = 96;

int WINAPI TellDotsPerInch(HDC, int question) {
    return question == LOGPIXELSX || question == LOGPIXELSY ? dotsPerInch : 0;
}

// A picture is 16 pixels wide and high where there are 96 to the inch.
class ResolutionTest : public SettingsWorld, public testing::WithParamInterface<int> {
protected:
    ResolutionTest() {
        dotsPerInch = GetParam();
        for (const wchar_t* const picture :
             {L"help.png", L"check.png", L"x.png", L"installsuccess.png", L"logo.bmp"})
            tree.Add(L"Setup\\res\\images\\" + std::wstring(picture), BitmapFile(paint));
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
    }

    static SIZE SizeOfBitmap(HBITMAP bitmap) {
        BITMAP description{};
        GetObjectW(bitmap, sizeof(description), &description);
        return {description.bmWidth, description.bmHeight};
    }

    static constexpr int pictureSize = 16;
    const int wanted = pictureSize * GetParam() / 96;
    PatchedImport capabilities{"GetDeviceCaps", &TellDotsPerInch};
    TestApp app;
    CDialogEx window;
};

TEST_P(ResolutionTest, ScalesTheSignOfTheHelp) {
    ManufacturerDlg page{context};
    ASSERT_TRUE(page.Create(IDD_MANUFACTURER, &window));
    const LRESULT icon = SendMessageW(page.GetDlgItem(IDC_HELP_BUTTON), BM_GETIMAGE, IMAGE_ICON, 0);
    ICONINFO info{};
    ASSERT_TRUE(GetIconInfo(reinterpret_cast<HICON>(icon), &info));
    const Bitmap mask(info.hbmMask);
    const Bitmap colour(info.hbmColor);
    EXPECT_EQ(SizeOfBitmap(colour.get()).cx, wanted);
    EXPECT_EQ(SizeOfBitmap(colour.get()).cy, wanted);
}

TEST_P(ResolutionTest, ScalesTheLettersOfTheTitle) {
    ManufacturerDlg page{context};
    ASSERT_TRUE(page.Create(IDD_MANUFACTURER, &window));
    const LRESULT font = SendMessageW(page.GetDlgItem(IDC_MANUFACTURER_TITLE), WM_GETFONT, 0, 0);
    LOGFONTW letters{};
    ASSERT_NE(GetObjectW(reinterpret_cast<HFONT>(font), sizeof(letters), &letters), 0);
    EXPECT_EQ(letters.lfHeight, -MulDiv(10, GetParam(), 72));
}

TEST_P(ResolutionTest, ScalesTheSignsOfTheStatusList) {
    const HWND list =
        CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | LVS_REPORT, 0, 0, 200, 100, window.GetSafeHwnd(),
                        reinterpret_cast<HMENU>(IDC_STATUS_LIST), nullptr, nullptr);
    StatusListView view{Settings(), Texts()};
    ASSERT_TRUE(view.SubclassDlgItem(IDC_STATUS_LIST, window));
    view.SetUp();
    int width = 0;
    int height = 0;
    ImageList_GetIconSize(ListView_GetImageList(list, LVSIL_SMALL), &width, &height);
    EXPECT_EQ(width, wanted);
    EXPECT_EQ(height, wanted);
}

TEST_P(ResolutionTest, ScalesTheLogo) {
    KestruneDlg main(controller, Texts());
    ASSERT_TRUE(main.Create(IDD_MAIN, nullptr));
    const LRESULT logo = SendMessageW(main.GetDlgItem(IDC_MAIN_LOGO), STM_GETIMAGE, IMAGE_BITMAP, 0);
    EXPECT_EQ(SizeOfBitmap(reinterpret_cast<HBITMAP>(logo)).cx, wanted);
}

TEST_P(ResolutionTest, FillsThePlaceOfTheOutcome) {
    Settings().SetString(Tag::INSTALL_STATUS, L"SUCCESS");
    FinishDlg page{context, L"Finish Dialog"};
    ASSERT_TRUE(page.Create(IDD_FINISH, &window));
    const MemoryDc memory(CreateCompatibleDC(nullptr));
    const Bitmap sheet(CreateBitmap(400, 400, 1, 32, nullptr));
    const SelectedObject selected(memory.get(), sheet.get());
    page.SendMessage(WM_ERASEBKGND, reinterpret_cast<WPARAM>(memory.get()));
    RECT place{};
    GetWindowRect(page.GetDlgItem(IDC_FINISH_PICTURE_PLACE), &place);
    MapWindowPoints(nullptr, page.GetSafeHwnd(), reinterpret_cast<POINT*>(&place), 2);
    EXPECT_EQ(GetPixel(memory.get(), place.left + 6, place.top + 6), paint);
    EXPECT_EQ(GetPixel(memory.get(), place.right - 7, place.bottom - 7), paint);
    EXPECT_NE(GetPixel(memory.get(), place.right + 1, place.bottom + 1), paint);
}

INSTANTIATE_TEST_SUITE_P(DotsPerInch, ResolutionTest, testing::Values(96, 144, 192));

}  // namespace
