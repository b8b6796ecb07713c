// The choice between the way past the installation and the installation.

#include "pages/OptionalSoftwareBypassDlg.h"
#include "resources/resource.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"

namespace {

using testing::Contains;
using testing::Not;

constexpr wchar_t skipped[] = L"User selected to Skip the Installation of Software";
constexpr wchar_t reinstalled[] = L"User selected to reinstall/add driver";

class OptionalSoftwareBypassDlgTest : public SettingsWorld {
protected:
    OptionalSoftwareBypassDlgTest() {
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        app.SetMainWnd(&window);
        EXPECT_TRUE(page.Create(page.TemplateId(), &window));
    }
    // The message that ends the program must not reach the next test.
    ~OptionalSoftwareBypassDlgTest() override { PumpMessages(); }

    void Press(int control) {
        page.SendMessage(WM_COMMAND, static_cast<WPARAM>(control),
                         reinterpret_cast<LPARAM>(page.GetDlgItem(control)));
    }
    void Choose(int radio) {
        CheckRadioButton(page.GetSafeHwnd(), IDC_BYPASS_REINSTALL, IDC_BYPASS_SKIP, radio);
        Press(radio);
    }
    bool IsOffered(int button) const {
        const LONG_PTR style = GetWindowLongPtrW(page.GetDlgItem(button), GWL_STYLE);
        return (style & WS_VISIBLE) != 0 && (style & WS_DISABLED) == 0;
    }

    TestApp app;
    CDialogEx window;
    DriverInfo drivers;
    OptionalSoftwareBypassDlg page{context, drivers};
};

TEST_F(OptionalSoftwareBypassDlgTest, OffersTheEndToWhoSkips) {
    Choose(IDC_BYPASS_SKIP);
    EXPECT_TRUE(IsOffered(IDC_FINISH));
    EXPECT_FALSE(IsOffered(IDOK) || IsOffered(IDCANCEL));
    Choose(IDC_BYPASS_REINSTALL);
    EXPECT_FALSE(IsOffered(IDC_FINISH));
    EXPECT_TRUE(IsOffered(IDOK) && IsOffered(IDCANCEL));
}

TEST_F(OptionalSoftwareBypassDlgTest, GoesOnForWhoInstallsAgainAlone) {
    Choose(IDC_BYPASS_SKIP);
    Press(IDOK);
    EXPECT_THAT(BasicMessages(), Contains(skipped));
    EXPECT_THAT(BasicMessages(), Not(Contains(reinstalled)));
    Choose(IDC_BYPASS_REINSTALL);
    Press(IDOK);
    EXPECT_THAT(BasicMessages(), Contains(reinstalled));
}

}  // namespace
