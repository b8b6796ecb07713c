// A text size that the user chooses while a dialog is open: it then stands as one that is made afterwards.

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "framework/Handles.h"
#include "framework/TextSize.h"
#include "resources/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/DialogsWorld.h"
#include "tests/windows/world/ObjectCounts.h"
#include "tests/wizard/UserTextSize.h"

namespace {

// The width of what a button or the rows of a list show beside their texts, or 0.
int WidthOfPicture(HWND control) {
    int width = 0;
    int height = 0;
    if (ClassOf(control) == WC_LISTVIEWW) {
        ImageList_GetIconSize(ListView_GetImageList(control, LVSIL_SMALL), &width, &height);
        return width;
    }
    const LRESULT icon =
        ClassOf(control) == WC_BUTTONW ? SendMessageW(control, BM_GETIMAGE, IMAGE_ICON, 0) : 0;
    ICONINFO info{};
    if (icon == 0 || GetIconInfo(reinterpret_cast<HICON>(icon), &info) == FALSE) return 0;
    const Bitmap mask(info.hbmMask);
    const Bitmap colour(info.hbmColor);
    BITMAP description{};
    GetObjectW(colour.get(), sizeof(description), &description);
    return description.bmWidth;
}

// Where a control stands, with which letters and which picture.
std::string LooksOf(HWND dialog, HWND control) {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    LOGFONTW letters{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)), sizeof(letters), &letters);
    return std::to_string(place.left) + "," + std::to_string(place.top) + " to " +
           std::to_string(place.right) + "," + std::to_string(place.bottom) + ", letters " +
           std::to_string(letters.lfHeight) + " " + std::to_string(letters.lfWeight) + ", picture " +
           std::to_string(WidthOfPicture(control));
}

std::map<int, std::string> LooksOfControls(const InstallDialogEx& dialog) {
    std::map<int, std::string> looks;
    for (HWND control = GetWindow(dialog.GetSafeHwnd(), GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT))
        looks[GetDlgCtrlID(control)] = LooksOf(dialog.GetSafeHwnd(), control);
    return looks;
}

int WidthOf(HWND control) {
    RECT area{};
    GetClientRect(control, &area);
    return area.right;
}

class NewTextSizeWorld : public DialogsWorld {
protected:
    explicit NewTextSizeWorld(const std::string& language) : DialogsWorld(language) {
        FollowTextSize(IDD_MAIN);
    }
    ~NewTextSizeWorld() override { Choose(100); }

    void Choose(DWORD percent) {
        user.Choose(percent);
        FollowTextSize();
    }

    UserTextSize user;
};

using SizedCase = std::tuple<DialogCase, const char*>;

class NewTextSizeTest : public NewTextSizeWorld, public testing::WithParamInterface<SizedCase> {
protected:
    NewTextSizeTest() : NewTextSizeWorld(std::get<const char*>(GetParam())) { AddPictures(tree); }

    std::unique_ptr<InstallDialogEx> Open() { return DialogsWorld::Open(std::get<DialogCase>(GetParam())); }
};

TEST_P(NewTextSizeTest, LeavesADialogAsOneThatIsMadeAfterwards) {
    const auto before = Open();
    Choose(150);
    before->TakeTextSize();
    // Looked at before there is another one, whose pictures may get the handles of those that are gone.
    const auto looks = LooksOfControls(*before);
    EXPECT_EQ(looks, LooksOfControls(*Open()));
}

INSTANTIATE_TEST_SUITE_P(All, NewTextSizeTest,
                         testing::Combine(testing::ValuesIn(EveryDialog()), testing::Values("en", "ar")),
                         [](const testing::TestParamInfo<SizedCase>& given) {
                             return std::get<DialogCase>(given.param).name + std::string("_") +
                                    std::get<const char*>(given.param);
                         });

// Without pictures: not every system gives back what it made for a button when the button gets another one.
class TakenBackTextSizeTest : public NewTextSizeWorld, public testing::WithParamInterface<DialogCase> {
protected:
    TakenBackTextSizeTest() : NewTextSizeWorld("en") {}

    void GoThrough(std::initializer_list<DWORD> sizes) {
        for (const DWORD percent : sizes) {
            Choose(percent);
            dialog->TakeTextSize();
            UpdateWindow(dialog->GetSafeHwnd());
            PumpMessages();
        }
    }

    std::unique_ptr<InstallDialogEx> dialog = Open(GetParam());
};

TEST_P(TakenBackTextSizeTest, LeavesADialogAsItWas) {
    const auto looks = LooksOfControls(*dialog);
    GoThrough({150, 200, 100});
    EXPECT_EQ(LooksOfControls(*dialog), looks);
}

TEST_P(TakenBackTextSizeTest, LeavesNothingBehind) {
    GoThrough({150, 100});
    EXPECT_TRUE(LeavesNothingBehind([this] { GoThrough({150, 100, 150, 100}); }));
}

INSTANTIATE_TEST_SUITE_P(All, TakenBackTextSizeTest, testing::ValuesIn(EveryDialog()),
                         [](const testing::TestParamInfo<DialogCase>& dialog) {
                             return std::string(dialog.param.name);
                         });

class NewTextSizeOfListTest : public NewTextSizeWorld {
protected:
    NewTextSizeOfListTest() : NewTextSizeWorld("en") {}
};

TEST_F(NewTextSizeOfListTest, LeavesTheColumnsTheirShares) {
    const std::vector<DialogCase> dialogs = EveryDialog();
    const auto devices = std::ranges::find(dialogs, "Devices",
                                           [](const DialogCase& dialog) { return std::string(dialog.name); });
    ASSERT_NE(devices, dialogs.end());
    const auto dialog = Open(*devices);
    const HWND list = dialog->GetDlgItem(IDC_DISCOVERY_LIST);
    const int width = WidthOf(list);
    const int column = ListView_GetColumnWidth(list, 0);
    ASSERT_GT(column, 0);
    Choose(200);
    dialog->TakeTextSize();
    EXPECT_GT(WidthOf(list), width * 3 / 2);
    EXPECT_EQ(ListView_GetColumnWidth(list, 0), MulDiv(column, WidthOf(list), width));
}

}  // namespace
