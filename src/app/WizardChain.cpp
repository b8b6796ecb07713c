#include "app/WizardChain.h"

#include <memory>
#include <optional>
#include <string_view>

#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "CommonLib/TextUtilities.h"
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
#include "settings/TagNames.h"
#include "wizard/PageNames.h"

namespace {

using PagePointer = std::unique_ptr<InstallDialogEx>;
using ServicePointer = std::unique_ptr<Service>;

// When a page is hidden: by a flag of the settings, or always where there is no flag.
struct Condition {
    std::optional<FlagTag> flag;
    bool hidingValue = true;
};

constexpr Condition When(FlagTag flag) {
    return {.flag = flag, .hidingValue = true};
}

constexpr Condition Unless(FlagTag flag) {
    return {.flag = flag, .hidingValue = false};
}

constexpr Condition always{};

bool Holds(const Condition& condition, const InstallSettings& settings) {
    return !condition.flag || settings.GetBool(*condition.flag) == condition.hidingValue;
}

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
    PageRole role;
    PagePointer (*makePage)(const Collaborators& shared);
    ServicePointer (*makeService)(const Collaborators& shared, InstallDialogEx& page);
    Condition hiddenAtFirst;
    std::optional<Condition> hiddenLater;  // nothing where the page stays as it was at first
    const wchar_t* failure;
};

constexpr std::nullopt_t asAtFirst = std::nullopt;

constexpr PageEntry entries[] = {
    {PageRole::Ordinary, &Make<StartDlg>, nullptr, When(Tag::HIDE_START), asAtFirst,
     L"Add Start dialog failed."},
    {PageRole::Ordinary, &Make<EULADlg>, nullptr, When(Tag::HIDE_EULA), asAtFirst,
     L"Add Eula dialog failed."},
    {PageRole::Ordinary, &Make<ManufacturerDlg>, nullptr, always, Unless(Tag::SHOW_MANUFACTURERS),
     L"Add Manufacturer dialog failed."},
    {PageRole::Ordinary, &MakeBypass, nullptr, always, Unless(Tag::TAG_DIALOG_SHOW_BYPASS),
     L"Add Optional Software Bypass dialog failed."},
    {PageRole::Ordinary, &MakeChoice<ConnectivityDlg>, nullptr, When(Tag::HIDE_CONNECTIVITY),
     When(Tag::HIDE_CONNECTIVITY), L"Add Connectivity dialog failed."},
    {PageRole::Discovery, &MakeDiscovery, &MakeDiscoveryService, always, When(Tag::HIDE_DISCOVERY),
     L"Add Disocovery dialog failed."},
    {PageRole::Ordinary, &MakeAddPort, &MakeAddPortService, always, Unless(Tag::DIALOG_ADD_PORT),
     L"Add AddPort dialog failed."},
    {PageRole::Progress, &Make<ProgressDialog>, &MakeInstallService, When(Tag::HIDE_PROGRESS), asAtFirst,
     L"Add Progress dialog failed."},
    {PageRole::CoreFinish, &MakeCoreFinish, nullptr, When(Tag::HIDE_FINAL), asAtFirst,
     L"Add Core Finish dialog failed."},
    {PageRole::CoreReboot, &Make<RebootDlg>, nullptr, always, Unless(Tag::REBOOT),
     L"Add Core Reboot dialog failed."},
    {PageRole::Finish, &MakeFinish, nullptr, When(Tag::HIDE_FINAL), asAtFirst,
     L"Add Optional software Finish dialog failed."},
    {PageRole::Reboot, &Make<RebootDlg>, nullptr, always, Unless(Tag::REBOOT), L"Add Reboot dialog failed."},
};

ChainRow RowOf(const PageEntry& entry, const Collaborators& shared) {
    ChainRow row{.role = entry.role,
                 .makePage = [&entry, shared] { return entry.makePage(shared); },
                 .hiddenAtFirst = Holds(entry.hiddenAtFirst, shared.settings),
                 .failure = entry.failure};
    if (entry.makeService != nullptr) {
        row.makeService = [&entry, shared](InstallDialogEx& page) { return entry.makeService(shared, page); };
    }
    if (entry.hiddenLater) {
        row.isHidden = [&entry, &settings = shared.settings] { return Holds(*entry.hiddenLater, settings); };
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
