#include <windows.h>

#include <commctrl.h>

#include "framework/CDialogEx.h"
#include "framework/Handles.h"
#include "install/StatusListView.h"
#include "resources/resource.h"
#include "settings/TagNames.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/ArabicUser.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"

namespace {

class StatusListViewTest : public SettingsWorld {
protected:
    StatusListViewTest() {
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        list =
            CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | LVS_REPORT, 0, 0, 200, 100, window.GetSafeHwnd(),
                            reinterpret_cast<HMENU>(IDC_STATUS_LIST), nullptr, nullptr);
        Settings().SetString(Tag::APP_INSTALLATION_STATUS,
                             L"<App 0><NAME>.NET</NAME><STATUS>0</STATUS></App 0>"
                             L"<App 1><NAME>Ink 2.0</NAME><STATUS>0</STATUS></App 1>");
        EXPECT_TRUE(view.SubclassDlgItem(IDC_STATUS_LIST, window));
        view.SetUp();
    }

    std::wstring NameIn(int row) const {
        wchar_t text[80]{};
        ListView_GetItemText(list, row, 1, text, 80);
        return text;
    }

    int PictureIn(int row) const {
        LVITEMW item{.mask = LVIF_IMAGE};
        item.iItem = row;
        SendMessageW(list, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        return item.iImage;
    }

    TestApp app;
    CDialogEx window;
    HWND list = nullptr;
    StatusListView view{Settings(), Texts()};
};

TEST_F(StatusListViewTest, MarksANameThatBeginsWithAPointForAnArabicUser) {
    const ArabicUser user;
    view.Fill();
    EXPECT_EQ(NameIn(0), L"\x200E.NET");
    EXPECT_EQ(NameIn(1), L"Ink 2.0");
}

TEST_F(StatusListViewTest, LeavesNamesAloneForOtherUsers) {
    view.Fill();
    EXPECT_EQ(NameIn(0), L".NET");
}

TEST_F(StatusListViewTest, CentresItsLastColumnAlone) {
    view.Fill();
    const int count = Header_GetItemCount(ListView_GetHeader(list));
    for (int column = 0; column < count; ++column) {
        LVCOLUMNW shown{.mask = LVCF_FMT};
        ASSERT_TRUE(ListView_GetColumn(list, column, &shown));
        EXPECT_EQ((shown.fmt & LVCFMT_JUSTIFYMASK) == LVCFMT_CENTER, column == count - 1) << column;
    }
}

// The first line is that of the framework.
TEST_F(StatusListViewTest, ShowsACheckForWhatWentWellAndACrossForTheRest) {
    constexpr int check = 0;
    constexpr int cross = 1;
    for (const auto& [framework, package] : {std::pair{0, 1}, {1, 0}}) {
        Settings().SetString(Tag::APP_INSTALLATION_STATUS,
                             L"<App 0><NAME>.NET</NAME><STATUS>" + std::to_wstring(framework) +
                                 L"</STATUS></App 0><App 1><NAME>Ink</NAME><STATUS>" +
                                 std::to_wstring(package) + L"</STATUS></App 1>");
        view.Fill();
        EXPECT_EQ(PictureIn(0), framework == 0 ? check : cross);
        EXPECT_EQ(PictureIn(1), package == 0 ? check : cross);
    }
}

TEST_F(StatusListViewTest, KeepsItsPicturesWhereTheListGoesFirst) {
    const ImageList pictures(ImageList_Create(16, 16, ILC_COLOR32, 2, 0));
    ImageList_SetImageCount(pictures.get(), 2);
    view.SetImageList(pictures.get());
    window.DestroyWindow();
    EXPECT_EQ(ImageList_GetImageCount(pictures.get()), 2);
}

}  // namespace
