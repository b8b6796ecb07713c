#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <string>

#include "framework/CDialogEx.h"
#include "framework/CListCtrl.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/TestApp.h"

namespace {

constexpr int listId = 900;

class CListCtrlTest : public testing::TestWithParam<std::size_t> {
protected:
    CListCtrlTest() {
        EXPECT_TRUE(dialog.Create(IDD_TEST, nullptr));
        CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | LVS_REPORT, 0, 0, 200, 200, dialog.GetSafeHwnd(),
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(listId)), nullptr, nullptr);
        EXPECT_TRUE(list.SubclassDlgItem(listId, dialog));
        list.InsertColumn(0, L"first");
        list.InsertColumn(1, L"second");
    }

    TestApp app;
    CDialogEx dialog;
    CListCtrl list;
};

TEST_P(CListCtrlTest, ReadsATextBackAsItWasPutIn) {
    const std::wstring text = std::wstring(GetParam() - 1, L'x') + L"y";
    list.InsertItem(0, text, 0);
    list.SetItemText(0, 1, L"z" + text);
    EXPECT_EQ(list.GetItemText(0, 0), text);
    EXPECT_EQ(list.GetItemText(0, 1), L"z" + text);
}

INSTANTIATE_TEST_SUITE_P(Lengths, CListCtrlTest,
                         testing::Values(1, 126, 127, 128, 129, 254, 255, 256, 257, 5000),
                         testing::PrintToStringParamName());

}  // namespace
