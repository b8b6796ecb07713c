// Every dialog gives back what it takes: it is opened and closed over and over, and the counts stay.

#include <functional>
#include <memory>

#include "CommonLib/Files.h"
#include "settings/TagNames.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/EveryDialog.h"
#include "tests/windows/world/ObjectCounts.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"
#include "tests/wizard/BitmapFile.h"

namespace {

class ReopenedDialogsTest : public SettingsWorld, public testing::WithParamInterface<DialogCase> {
protected:
    ReopenedDialogsTest() {
        for (const wchar_t* picture : {L"help", L"high_contrast_help", L"refresh", L"high_contrast_refresh",
                                       L"check", L"x", L"network", L"usb", L"installsuccess",
                                       L"bullet_arrow_up", L"bullet_arrow_down", L"bullet_toggle_plus"}) {
            tree.Add(L"Setup\\res\\images\\" + std::wstring(picture) + L".png", BitmapFile(RGB(0, 0, 255)));
        }
        tree.Add(L"Notices\\EULA\\eula_en.txt", "Be kind.\n");
        Settings().SetString(Tag::MANUFACTURERS, L"A:1|B:2");
        Settings().SetString(Tag::INFOCENTER_LINK, L"http://help.test");
        Settings().SetString(Tag::APP_INSTALLATION_STATUS,
                             L"<App 0><NAME>a</NAME><STATUS>0</STATUS></App 0>");
        SwitchAdvancedLog(0);
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        window.ShowWindow(SW_SHOW);
    }

    void OpenAndClose(int times) {
        for (int count = 0; count < times; ++count) {
            const std::unique_ptr<InstallDialogEx> dialog =
                GetParam().make({context, window, applications, drivers, configuration});
            ASSERT_TRUE(dialog->Create(dialog->TemplateId(), &window));
            dialog->ShowWindow(SW_SHOW);
            UpdateWindow(dialog->GetSafeHwnd());
            PumpMessages();
            dialog->ShowWindow(SW_HIDE);
            dialog->DestroyWindow();
            PumpMessages();
        }
    }

    AppCatalogue applications;
    DriverInfo drivers;
    DriverConfiguration configuration{Settings(), applications, drivers};
    TestApp app;
    CDialogEx window;
};

TEST_P(ReopenedDialogsTest, LeaveNothingBehind) {
    // What the process keeps from the first ones on is not theirs.
    OpenAndClose(3);
    EXPECT_TRUE(LeavesNothingBehind([this] { OpenAndClose(10); }));
}

INSTANTIATE_TEST_SUITE_P(All, ReopenedDialogsTest, testing::ValuesIn(EveryDialog()),
                         [](const testing::TestParamInfo<DialogCase>& dialog) {
                             return std::string(dialog.param.name);
                         });

}  // namespace
