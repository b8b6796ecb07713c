#include "app/WizardChain.h"

#include <algorithm>
#include <memory>

#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "CommonLib/TextUtilities.h"
#include "app/PageRules.h"
#include "catalogue/MsiInterface.h"
#include "catalogue/PackageFilters.h"
#include "discovery/DiscoveryDlg.h"
#include "discovery/DiscoveryService.h"
#include "install/FinishDlg.h"
#include "install/FinishService.h"
#include "install/InstallService.h"
#include "install/ProgressDialog.h"
#include "install/RebootDlg.h"
#include "install/RebootService.h"
#include "pages/ConnectivityDlg.h"
#include "pages/EULADlg.h"
#include "pages/ManufacturerDlg.h"
#include "pages/OptionalSoftwareBypassDlg.h"
#include "pages/StartDlg.h"
#include "ports/AddPortDlg.h"
#include "ports/AddPortService.h"
#include "wizard/PageNames.h"

namespace {

using PagePointer = std::unique_ptr<InstallDialogEx>;
using ServicePointer = std::unique_ptr<Service>;

template <class Page>
PagePointer Make(const Collaborators& shared) {
    return std::make_unique<Page>(shared.ForPages());
}

PagePointer MakeBypass(const Collaborators& shared) {
    return std::make_unique<OptionalSoftwareBypassDlg>(shared.ForPages(), shared.drivers);
}

template <class Page>
PagePointer MakeChoice(const Collaborators& shared) {
    return std::make_unique<Page>(shared.ForPages(), shared.applications, shared.drivers);
}

PagePointer MakeDiscovery(const Collaborators& shared) {
    return std::make_unique<DiscoveryDlg>(shared.ForPages(), shared.applications, shared.drivers,
                                          shared.configuration, shared.devices);
}

PagePointer MakeAddPort(const Collaborators& shared) {
    return std::make_unique<AddPortDlg>(shared.ForPages(), shared.applications, shared.drivers,
                                        shared.configuration);
}

PagePointer MakeCoreFinish(const Collaborators& shared) {
    return std::make_unique<FinishDlg>(shared.ForPages(), PageName::coreFinish);
}

PagePointer MakeFinish(const Collaborators& shared) {
    return std::make_unique<FinishDlg>(shared.ForPages(), PageName::finish);
}

// Services reach their pages by the interfaces that the pages offer them.

ServicePointer MakeDiscoveryService(const Collaborators& shared, InstallDialogEx& page) {
    return std::make_unique<DiscoveryService>(dynamic_cast<IDiscoveryDialog*>(&page), shared.settings,
                                              shared.drivers, shared.controller);
}

ServicePointer MakeAddPortService(const Collaborators& shared, InstallDialogEx& page) {
    return std::make_unique<AddPortService>(dynamic_cast<IAddPortDialog*>(&page), shared.settings,
                                            shared.drivers);
}

ServicePointer MakeInstallService(const Collaborators& shared, InstallDialogEx& page) {
    return std::make_unique<InstallService>(dynamic_cast<IInstallProgress*>(&page),
                                            MsiInterface::GetInstance(), shared.ForPages(),
                                            shared.applications, shared.drivers);
}

struct PageEntry {
    PageRule rule;
    PagePointer (*makePage)(const Collaborators& shared);
    ServicePointer (*makeService)(const Collaborators& shared, InstallDialogEx& page);
    const wchar_t* failure;
};

constexpr PageEntry entries[] = {
    {PageRules::start, &Make<StartDlg>, nullptr, L"Add Start dialog failed."},
    {PageRules::licence, &Make<EULADlg>, nullptr, L"Add Eula dialog failed."},
    {PageRules::manufacturer, &Make<ManufacturerDlg>, nullptr, L"Add Manufacturer dialog failed."},
    {PageRules::optionalSoftware, &MakeBypass, nullptr, L"Add Optional Software Bypass dialog failed."},
    {PageRules::connectivity, &MakeChoice<ConnectivityDlg>, nullptr, L"Add Connectivity dialog failed."},
    {PageRules::discovery, &MakeDiscovery, &MakeDiscoveryService, L"Add Disocovery dialog failed."},
    {PageRules::addPort, &MakeAddPort, &MakeAddPortService, L"Add AddPort dialog failed."},
    {PageRules::progress, &Make<ProgressDialog>, &MakeInstallService, L"Add Progress dialog failed."},
    {PageRules::coreFinish, &MakeCoreFinish, nullptr, L"Add Core Finish dialog failed."},
    {PageRules::coreRestart, &Make<RebootDlg>, nullptr, L"Add Core Reboot dialog failed."},
    {PageRules::finish, &MakeFinish, nullptr, L"Add Optional software Finish dialog failed."},
    {PageRules::restart, &Make<RebootDlg>, nullptr, L"Add Reboot dialog failed."},
};

constexpr bool StandInTheirOrder() {
    return std::ranges::equal(
        entries, PageRules::inOrder, {}, [](const PageEntry& entry) { return entry.rule.title; },
        [](const PageRule* rule) { return rule->title; });
}
static_assert(StandInTheirOrder());

ChainRow RowOf(const PageEntry& entry, const Collaborators& shared) {
    ChainRow row{.role = entry.rule.role,
                 .makePage = [&entry, shared] { return entry.makePage(shared); },
                 .hiddenAtFirst = entry.rule.hiddenAtFirst.Holds(shared.settings),
                 .failure = entry.failure};
    if (entry.makeService != nullptr) {
        row.makeService = [&entry, shared](InstallDialogEx& page) { return entry.makeService(shared, page); };
    }
    if (entry.rule.hiddenLater) {
        row.isHidden = [&entry, &settings = shared.settings] {
            return entry.rule.hiddenLater->Holds(settings);
        };
    }
    return row;
}

// Copies the basic log into the folder that the command line names, or beside the program.
void CopyLogToPackage(const CmdLineHelper& commandLine) {
    const std::wstring log = Logger::GetInstance().GetBasicLogPath();
    std::wstring folder = commandLine.GetValue(CmdLineHelper::Option::PackageDirectory);
    if (folder.empty()) folder = GetExeDirectory();
    if (log.find(L'\\') == std::wstring::npos) return;
    static_cast<void>(CopyFileTo(folder + L"\\" + std::wstring(FileNameOf(log)), log));
}

bool IsCoreSoftwareSelected(const AppCatalogue& applications) {
    return !applications.Select(PackageFilter::selectedForCoreRun).empty();
}

}  // namespace

Chain MakeChain(const Collaborators& shared) {
    Chain chain;
    for (const PageEntry& entry : entries) chain.rows.push_back(RowOf(entry, shared));
    chain.ends = {.isCoreSoftwareSelected =
                      [&applications = shared.applications] { return IsCoreSoftwareSelected(applications); },
                  .copyLogToPackage = [&commandLine = shared.commandLine] { CopyLogToPackage(commandLine); },
                  .startPrograms = [&settings = shared.settings] { FinishService(settings).DoRun(); },
                  .restart = [] { RebootService().DoRun(); }};
    return chain;
}
