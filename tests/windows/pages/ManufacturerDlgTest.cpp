#include "pages/ManufacturerDlg.h"
#include "resources/resource.h"
#include "settings/TagNames.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/ArabicUser.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"

namespace {

using testing::ElementsAre;

class ManufacturerDlgTest : public SettingsWorld {
protected:
    ManufacturerDlgTest() {
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        Settings().SetString(Tag::MANUFACTURERS, L"Velt Co.:1|B. Co:2");
    }

    std::vector<std::wstring> Listed() const {
        std::vector<std::wstring> names;
        const auto count = page.GetDlgItem(IDC_MANUFACTURER_LIST) == nullptr ? 0 : Ask(CB_GETCOUNT, 0);
        for (WPARAM index = 0; index < static_cast<WPARAM>(count); ++index) {
            std::wstring name(static_cast<std::size_t>(Ask(CB_GETLBTEXTLEN, index)), L'\0');
            Ask(CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(name.data()));
            names.push_back(name);
        }
        return names;
    }

    LRESULT Ask(UINT message, WPARAM wParam, LPARAM lParam = 0) const {
        return SendMessageW(page.GetDlgItem(IDC_MANUFACTURER_LIST), message, wParam, lParam);
    }

    TestApp app;
    CDialogEx window;
    ManufacturerDlg page{context};
};

TEST_F(ManufacturerDlgTest, MarksAFinalPointForAnArabicUser) {
    const ArabicUser user;
    EXPECT_TRUE(page.Create(IDD_MANUFACTURER, &window));
    EXPECT_THAT(Listed(), ElementsAre(L"Velt Co.\x200E", L"B. Co"));
}

TEST_F(ManufacturerDlgTest, LeavesNamesAloneForOtherUsers) {
    EXPECT_TRUE(page.Create(IDD_MANUFACTURER, &window));
    EXPECT_THAT(Listed(), ElementsAre(L"Velt Co.", L"B. Co"));
}

TEST_F(ManufacturerDlgTest, ProposesTheDefaultWithItsCode) {
    Settings().SetString(Tag::DEFAULT_MANUFACTURER, L"B. Co");
    EXPECT_TRUE(page.Create(IDD_MANUFACTURER, &window));
    page.SendMessage(WM_SHOWWINDOW, TRUE);
    EXPECT_EQ(Ask(CB_GETCURSEL, 0), 1);
    EXPECT_TRUE(IsWindowEnabled(page.GetDlgItem(IDOK)));
    EXPECT_EQ(Settings().GetString(Tag::OEMBYTE), L"2");
}

TEST_F(ManufacturerDlgTest, WaitsForAChoiceWithoutADefault) {
    EXPECT_TRUE(page.Create(IDD_MANUFACTURER, &window));
    page.SendMessage(WM_SHOWWINDOW, TRUE);
    EXPECT_EQ(Ask(CB_GETCURSEL, 0), CB_ERR);
    EXPECT_FALSE(IsWindowEnabled(page.GetDlgItem(IDOK)));
    Ask(CB_SETCURSEL, 0);
    page.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_MANUFACTURER_LIST, CBN_SELCHANGE));
    EXPECT_TRUE(IsWindowEnabled(page.GetDlgItem(IDOK)));
    EXPECT_EQ(Settings().GetString(Tag::OEMBYTE), L"1");
}

TEST_F(ManufacturerDlgTest, LeavesTheSettingsAloneInASilentRun) {
    Settings().SetBool(Tag::SILENT_INSTALL, true);
    Settings().SetStrings({{Tag::MANUFACTURERS, L"Velt:1"}, {Tag::OEM_NAME, L"Given"}, {Tag::OEMBYTE, L"9"}});
    EXPECT_TRUE(page.Create(IDD_MANUFACTURER, &window));
    EXPECT_EQ(Settings().GetString(Tag::OEM_NAME), L"Given");
    EXPECT_EQ(Settings().GetString(Tag::OEMBYTE), L"9");
}

TEST_F(ManufacturerDlgTest, TakesTheNameWithoutItsMark) {
    Settings().SetString(Tag::DEFAULT_MANUFACTURER, L"Velt Co.");
    const ArabicUser user;
    EXPECT_TRUE(page.Create(IDD_MANUFACTURER, &window));
    page.SendMessage(WM_SHOWWINDOW, TRUE);
    EXPECT_TRUE(IsWindowEnabled(page.GetDlgItem(IDOK)));
    EXPECT_EQ(Settings().GetString(Tag::OEM_NAME), L"Velt Co.");
    EXPECT_EQ(Settings().GetString(Tag::OEMBYTE), L"1");
}

}  // namespace
