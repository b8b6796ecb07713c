// Every dialog gives back what it takes: it is opened and closed over and over, and the counts stay.

#include <functional>
#include <memory>

#include "CommonLib/Files.h"
#include "discovery/DiscoveredDevices.h"
#include "discovery/DiscoveryDlg.h"
#include "discovery/ModifySearchDlg.h"
#include "install/CDisplayAppsListDlg.h"
#include "install/FileInUseDlg.h"
#include "install/FinishDlg.h"
#include "install/ProgressDialog.h"
#include "install/RMFileInUseDlg.h"
#include "install/RebootDlg.h"
#include "pages/ConnectivityDlg.h"
#include "pages/EULADlg.h"
#include "pages/ManufacturerDlg.h"
#include "pages/OptionalSoftwareBypassDlg.h"
#include "pages/StartDlg.h"
#include "ports/AddPortDlg.h"
#include "ports/DriverConfigDlg.h"
#include "settings/TagNames.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/ObjectCounts.h"
#include "tests/windows/world/SettingsTest.h"
#include "tests/windows/world/TestApp.h"
#include "tests/windows/world/WorkingFolder.h"
#include "tests/wizard/BitmapFile.h"

namespace {

// What dialogs are made with.
struct DialogWorld {
    const PageContext& context;
    CWnd& window;
    AppCatalogue& applications;
    DriverInfo& drivers;
    DriverConfiguration& configuration;
};

struct DialogCase {
    const char* name;
    std::function<std::unique_ptr<InstallDialogEx>(const DialogWorld& world)> make;
};

void PrintTo(const DialogCase& dialog, std::ostream* stream) {
    *stream << dialog.name;
}

template <class Page>
DialogCase Of(const char* name) {
    return {.name = name,
            .make = [](const DialogWorld& world) { return std::make_unique<Page>(world.context); }};
}

// A page that works on the catalogues.
template <class Page>
DialogCase ChoiceOf(const char* name) {
    return {.name = name, .make = [](const DialogWorld& world) {
                return std::make_unique<Page>(world.context, world.applications, world.drivers);
            }};
}

// One that has drivers configured as well.
template <class Page>
DialogCase DriverChoiceOf(const char* name) {
    return {.name = name, .make = [](const DialogWorld& world) {
                return std::make_unique<Page>(world.context, world.applications, world.drivers,
                                              world.configuration);
            }};
}

template <class Dialog>
DialogCase SubDialog(const char* name) {
    return {.name = name, .make = [](const DialogWorld& world) {
                return std::make_unique<Dialog>(world.context, world.window);
            }};
}

// The page of the devices with rows, drivers and the pictures of the headings.
class FilledDiscoveryDlg : public DiscoveryDlg {
public:
    FilledDiscoveryDlg(const PageContext& context, AppCatalogue& appCatalogue, DriverInfo& driverCatalogue,
                       DriverConfiguration& driverConfiguration)
        : DiscoveryDlg(context, appCatalogue, driverCatalogue, driverConfiguration,
                       DiscoveredDevices::GetInstance()) {}
    FilledDiscoveryDlg(const FilledDiscoveryDlg&) = delete;
    FilledDiscoveryDlg& operator=(const FilledDiscoveryDlg&) = delete;
    ~FilledDiscoveryDlg() override { DiscoveredDevices::GetInstance().Assign({}); }

protected:
    bool OnInitDialog() override {
        DiscoveryDlg::OnInitDialog();
        for (int count = 0; count < 5; ++count) AddDriver({});
        SetDevices(std::list<DiscoveredDevice>(5, {.series = L"A", .address = L"10.0.0.1"}));
        return true;
    }
};

const DialogCase dialogs[] = {
    Of<StartDlg>("Start"),
    Of<EULADlg>("Licence"),
    Of<ManufacturerDlg>("Manufacturer"),
    {"Bypass",
     [](const DialogWorld& world) {
         return std::make_unique<OptionalSoftwareBypassDlg>(world.context, world.drivers);
     }},
    ChoiceOf<ConnectivityDlg>("Connectivity"),
    Of<ProgressDialog>("Progress"),
    Of<RebootDlg>("Restart"),
    Of<FileInUseDlg>("FilesInUse"),
    Of<RMFileInUseDlg>("FilesInUseOfTheRestartManager"),
    {"Finish",
     [](const DialogWorld& world) { return std::make_unique<FinishDlg>(world.context, L"Finish Dialog"); }},
    DriverChoiceOf<FilledDiscoveryDlg>("Devices"),
    DriverChoiceOf<AddPortDlg>("Port"),
    SubDialog<ModifySearchDlg>("Search"),
    {"Configuration",
     [](const DialogWorld& world) {
         return std::make_unique<DriverConfigDlg>(world.context, world.configuration, world.window);
     }},
    SubDialog<CDisplayAppsListDlg>("SoftwareList"),
};

class ReopenedDialogsTest : public SettingsTest, public testing::WithParamInterface<DialogCase> {
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

    WorkingFolder folder{GetExeDirectory()};
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

INSTANTIATE_TEST_SUITE_P(All, ReopenedDialogsTest, testing::ValuesIn(dialogs),
                         [](const testing::TestParamInfo<DialogCase>& dialog) {
                             return std::string(dialog.param.name);
                         });

}  // namespace
