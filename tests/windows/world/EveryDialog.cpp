#include "tests/windows/world/EveryDialog.h"

#include <windows.h>

#include <list>

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
#include "resources/resource.h"

namespace {

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

}  // namespace

void PrintTo(const DialogCase& dialog, std::ostream* stream) {
    *stream << dialog.name;
}

std::vector<DialogCase> EveryDialog() {
    return {
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
         [](const DialogWorld& world) {
             return std::make_unique<FinishDlg>(world.context, L"Finish Dialog");
         }},
        DriverChoiceOf<FilledDiscoveryDlg>("Devices"),
        DriverChoiceOf<AddPortDlg>("Port"),
        SubDialog<ModifySearchDlg>("Search"),
        {"Configuration",
         [](const DialogWorld& world) {
             return std::make_unique<DriverConfigDlg>(world.context, world.configuration, world.window);
         }},
        SubDialog<CDisplayAppsListDlg>("SoftwareList"),
    };
}

void InEachView(const InstallDialogEx& dialog, const std::function<void()>& deed) {
    deed();
    const HWND kinds = dialog.GetDlgItem(IDC_ADD_PORT_KIND);
    for (WPARAM kind = 1; kinds != nullptr && kind < 3; ++kind) {
        SendMessageW(kinds, CB_SETCURSEL, kind, 0);
        dialog.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_ADD_PORT_KIND, CBN_SELCHANGE),
                           reinterpret_cast<LPARAM>(kinds));
        deed();
    }
}
