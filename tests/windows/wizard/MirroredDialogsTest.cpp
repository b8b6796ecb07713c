// Every window is laid out from the right where the texts read so.

#include "resources/resource.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/EveryDialog.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"
#include "wizard/KestruneDlg.h"

namespace {

bool IsMirrored(HWND window) {
    return (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0;
}

class MirroredDialogsTest : public SettingsWorld, public testing::WithParamInterface<DialogCase> {
protected:
    MirroredDialogsTest() { EXPECT_TRUE(window.Create(IDD_TEST, nullptr)); }

    void Read(const std::string& direction) {
        AddTexts("<READING_ORDER>" + direction + "</READING_ORDER>");
        ReadTextsAnew();
    }
    bool IsMirroredNow() {
        const std::unique_ptr<InstallDialogEx> dialog =
            GetParam().make({context, window, applications, drivers, configuration});
        EXPECT_TRUE(dialog->Create(dialog->TemplateId(), &window));
        return IsMirrored(dialog->GetSafeHwnd());
    }

    // Looks at the texts of a dialog, which must be mirrored and nothing else: the layout brings the reading
    // order, and a style that asks for it once more turns it round.
    void ExpectMirroredTexts() {
        const std::unique_ptr<InstallDialogEx> dialog =
            GetParam().make({context, window, applications, drivers, configuration});
        EXPECT_TRUE(dialog->Create(dialog->TemplateId(), &window));
        int texts = 0;
        for (HWND text = nullptr;
             (text = FindWindowExW(dialog->GetSafeHwnd(), text, L"STATIC", nullptr)) != nullptr; ++texts) {
            EXPECT_EQ(GetWindowLongPtrW(text, GWL_EXSTYLE) & (WS_EX_LAYOUTRTL | WS_EX_RTLREADING),
                      WS_EX_LAYOUTRTL);
        }
        EXPECT_GT(texts, 0);
    }

    AppCatalogue applications;
    DriverInfo drivers;
    DriverConfiguration configuration{Settings(), applications, drivers};
    TestApp app;
    CDialogEx window;
};

TEST_P(MirroredDialogsTest, FollowTheDirectionOfTheTexts) {
    Read("LTR");
    EXPECT_FALSE(IsMirroredNow());
    Read("RTL");
    EXPECT_TRUE(IsMirroredNow());
}

TEST_P(MirroredDialogsTest, LeaveTheReadingOrderOfTextsToTheLayout) {
    Read("RTL");
    ExpectMirroredTexts();
}

INSTANTIATE_TEST_SUITE_P(All, MirroredDialogsTest, testing::ValuesIn(EveryDialog()),
                         [](const testing::TestParamInfo<DialogCase>& dialog) {
                             return std::string(dialog.param.name);
                         });

}  // namespace
