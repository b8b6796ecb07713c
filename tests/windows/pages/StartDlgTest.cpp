#include "framework/CMFCLinkCtrl.h"
#include "pages/StartDlg.h"
#include "resources/resource.h"
#include "settings/TagNames.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"

namespace {

class StartDlgTest : public SettingsWorld {
protected:
    StartDlgTest() {
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        window.ShowWindow(SW_SHOW);
        EXPECT_TRUE(page.Create(IDD_START, &window));
    }

    HWND Link() const { return page.GetDlgItem(IDC_START_INFORMATION_LINK); }
    std::wstring Address() const { return dynamic_cast<CMFCLinkCtrl&>(*CWnd::FromHandle(Link())).GetURL(); }

    TestApp app;
    CDialogEx window;
    StartDlg page{context};
};

// By design: the package's link decides whether there is one, and the printer's where it leads.
TEST_F(StartDlgTest, ShowsALinkThatLeadsNowhereWhereThePrinterHasNone) {
    Settings().SetString(Tag::INFOCENTER_LINK, L"http://help.test");
    Settings().SetBool(Tag::INSTALL_FROM_CONFIG, true);
    page.ShowWindow(SW_SHOW);
    EXPECT_TRUE(IsWindowVisible(Link()));
    EXPECT_EQ(Address(), L"");
    Settings().SetString(Tag::EXACT_INFOCENTER_LINK, L"http://help.test/loom");
    page.ShowWindow(SW_HIDE);
    page.ShowWindow(SW_SHOW);
    EXPECT_EQ(Address(), L"http://help.test/loom");
}

TEST_F(StartDlgTest, HidesTheLinkWhereThePackageHasNone) {
    page.ShowWindow(SW_SHOW);
    EXPECT_FALSE(IsWindowVisible(Link()));
}

}  // namespace
