#include "tools/PackageCheck/Plan.h"

#include <cstdint>
#include <set>
#include <utility>

#include "CommonLib/TextUtilities.h"
#include "CommonLib/Utf8.h"
#include "app/PageRules.h"
#include "app/Preparation.h"
#include "catalogue/ApplicationScan.h"
#include "install/CommandDocument.h"
#include "install/InstallDecision.h"
#include "install/InstallSelection.h"
#include "pages/BypassOffer.h"
#include "pages/ManufacturerList.h"
#include "printer/InfoCenterLinks.h"
#include "printer/PrinterDescription.h"
#include "settings/Localizer.h"
#include "settings/VendorName.h"
#include "tools/PackageCheck/PlannedInstaller.h"
#include "tools/PackageCheck/Quoted.h"

namespace packagecheck {

namespace {

constexpr std::uint16_t unitedStatesEnglish = 0x409;

std::string NameOf(FlagTag tag) {
    return ToUtf8(std::wstring_view(tag));
}

// The texts of a package in the language that a run asks for, or in English.
LanguageSource TextsOf(const Package& package) {
    return {.languageId = unitedStatesEnglish, .readFile = [&package](const std::wstring& fileName) {
                for (const std::string& name : {ToUtf8(fileName), std::string("en_strings.xml")}) {
                    for (const LanguageFile& language : package.Languages()) {
                        if (Folded(FileNameOf(language.file->Path())) == Folded(name))
                            return language.file->Text();
                    }
                }
                return std::wstring();
            }};
}

std::string ReasonFor(const MSI_APP& record, Intention intention) {
    switch (intention) {
        case Intention::LeaveNewer:
            return "something newer is installed";
        case Intention::DependentsOnly:
            return "only its dependents are selected";
        case Intention::InstallAgain:
            return "it is installed, and FORCEREINSTALL asks for it";
        case Intention::MinorUpgrade:
            return "an older version of the same product is installed";
        case Intention::PassOver:
            if (!record.upToDate) return "it has been installed earlier in this run";
            return record.hasDependents ? "it is up to date, and its dependents are left with it"
                                        : "it is up to date";
        case Intention::Upgrade:
            return "an older version is installed";
        case Intention::Install:
            break;
    }
    return ReportsNewer(record) ? "something newer is installed, but it has dependents"
                                : "it is not installed";
}

class Planner {
public:
    Planner(const Package& packageTree, const PlanOptions& planOptions)
        : package(packageTree),
          options(planOptions),
          localizer(settings, TextsOf(packageTree)),
          installer(packageTree, planOptions.installed),
          printers(settings, [](const std::wstring&) { return false; }) {
        localizer.SetLanguageOption(options.language);
    }

    Plan Make() {
        Prepare();
        plan.isSilent = settings.GetBool(Tag::SILENT_INSTALL);
        SettlePages();
        PlanPages();
        std::vector<MSI_APP> records = SelectApps(settings, applications);
        const std::vector<MSI_APP> selectedDrivers = SelectDrivers(settings, drivers);
        records.insert(records.end(), selectedDrivers.begin(), selectedDrivers.end());
        FindObstacles(records);
        if (plan.endsAtOnce) return std::move(plan);
        PlanRun(records);
        FindLeftOut();
        return std::move(plan);
    }

private:
    void Prepare() {
        if (package.Defaults() != nullptr) settings.Append(package.Defaults()->Text());
        SettleVendor(settings);
        if (package.User() != nullptr) TakeUserSettings();
        settings.SetBool(Tag::OPTIONAL_INSTALL, false);
        TakePrinterOfCommandLine(options.printer, {settings, applications, drivers, localizer});
        const CatalogueSource source{
            .msi = installer,
            .settings = settings,
            .localizer = localizer,
            .system = options.system,
            .listPackages = [this](const std::wstring& folder, const std::wstring& fileNames) {
                return installer.List(folder, fileNames);
            }};
        drivers.PopulateDriverList(source);
        ScanApplications(source, applications);
        SettleChainTags(settings, drivers);
    }

    void TakeUserSettings() {
        settings.Merge(package.User()->Text());
        SettleVendor(settings);
        TakePredefinedPrinters(settings);
        DeriveInfoCenterLinks(settings, localizer);
    }

    // What the pages settle as they are made; in a silent run they settle nothing.
    void SettlePages() {
        if (plan.isSilent) return;
        const std::vector<Manufacturer> manufacturers =
            ParseManufacturers(settings.GetString(Tag::MANUFACTURERS));
        SettleManufacturers(settings, manufacturers);
        if (settings.GetBool(Tag::SHOW_MANUFACTURERS)) {
            const auto name =
                PreselectedManufacturer(manufacturers, settings.GetString(Tag::DEFAULT_MANUFACTURER));
            if (name) ChooseManufacturer(settings, manufacturers, *name);
        }
        if (IsPrinterSoftwareUpToDate(drivers)) settings.SetBool(Tag::TAG_DIALOG_SHOW_BYPASS, true);
    }

    void PlanPages() {
        for (const PageRule* rule : PageRules::inOrder) plan.pages.push_back(PlanPage(*rule));
    }

    static bool IsHidden(const PageRule& rule, const InstallSettings& store) {
        return rule.hiddenLater.value_or(rule.hiddenAtFirst).Holds(store);
    }

    // By design: the end of the installations moves the walk on from the page that it is on. Where the
    // Progress page is hidden, that is already the page after it.
    bool IsReachedByItself(const PageRule& rule) const {
        if (!IsHidden(PageRules::progress, settings) || IsHidden(rule, settings)) return false;
        const bool isFinishShown = !IsHidden(PageRules::coreFinish, settings);
        const bool isRestartShown = !IsHidden(PageRules::coreRestart, settings);
        return (rule.role == PageRole::Finish && isFinishShown && !isRestartShown) ||
               (rule.role == PageRole::Reboot && !isFinishShown && isRestartShown);
    }

    PlannedPage PlanPage(const PageRule& rule) const {
        const auto page = [&](PageState state, std::string reason) {
            return PlannedPage{.title = rule.title, .state = state, .reason = std::move(reason)};
        };
        if (plan.isSilent) return page(PageState::Hidden, NameOf(Tag::SILENT_INSTALL) + " is true");
        const bool followsOptionalRun = rule.role == PageRole::Finish || rule.role == PageRole::Reboot;
        if (IsReachedByItself(rule)) return page(PageState::Shown, {});
        if (followsOptionalRun && applications.Select(L"<ISOPTIONAL>true</ISOPTIONAL>").empty())
            return page(PageState::Hidden, "the package offers no optional software");
        const Condition& condition = rule.hiddenLater ? *rule.hiddenLater : rule.hiddenAtFirst;
        if (!IsHidden(rule, settings)) {
            if (!followsOptionalRun) return page(PageState::Shown, {});
            return page(PageState::OnDemand, "where the user has installed optional software");
        }
        if (rule.role == PageRole::CoreReboot || rule.role == PageRole::Reboot)
            return page(PageState::OnDemand, "where an installation asks for a restart");
        if (&rule == &PageRules::addPort && !IsHidden(PageRules::discovery, settings))
            return page(PageState::OnDemand, "where the user describes a port by hand");
        return page(PageState::Hidden,
                    NameOf(*condition.flag) + (condition.hidingValue ? " is true" : " is not true"));
    }

    void FindObstacles(const std::vector<MSI_APP>& records) {
        const auto add = [&](std::string text) { plan.obstacles.push_back(std::move(text)); };
        if (package.Defaults() == nullptr) {
            plan.endsAtOnce = true;
            add("Setup/defaultInstallSettings.xml cannot be read: the program ends at once.");
            return;
        }
        if (!plan.isSilent)
            add("SILENT_INSTALL is not true: the run shows its pages and waits for the user.");
        if (LacksPrinter(settings, options.printer)) {
            plan.endsAtOnce = true;
            add("HIDE_DISCOVERY is not true and no printer is named by -ip: the program ends at once.");
        }
        for (const MSI_APP& record : records) {
            if (record.secureCustomProperties.find(L"NETFRAMEWORK40") == std::wstring::npos) continue;
            add(FileOf(record) +
                " wants .NET Framework 4: where that is missing, the run ends before its first package.");
        }
        if (records.empty()) add("No package is selected: there is nothing to install.");
    }

    void PlanRun(const std::vector<MSI_APP>& records) {
        place.language = localizer.GetString(TextKey::LANGUAGE_ID);
        if (!records.empty()) {
            place.targetDir = L"C:\\Program Files\\" + settings.GetString(Tag::OEM) + L"\\";
            settings.SetString(Tag::TARGET_DIR, place.targetDir);
        }
        plan.packages = PlanList(records);
        plan.programFolder = settings.GetString(Tag::TARGET_DIR);
        plan.programs = SplitClosed(settings.GetStartApp(), L';');
    }

    // Dependents run within their parent's turn, after it.
    std::vector<PlannedPackage> PlanList(const std::vector<MSI_APP>& records) {
        std::vector<PlannedPackage> planned;
        for (const MSI_APP& record : records) {
            settings.AppendStartApp(record.startApp);
            planned.push_back(PlanRecord(record));
        }
        return planned;
    }

    PlannedPackage PlanRecord(const MSI_APP& record) {
        reached.insert(record.msiPath);
        PlannedPackage planned{.file = FileOf(record),
                               .name = record.productName,
                               .version = record.productVersion,
                               .isDriver = record.isSupportedDriver,
                               .intention = IntentionByNow(record)};
        planned.reason = ReasonFor(record, planned.intention);
        // Made also for a record that is not installed: what one driver sets stays for the next.
        const std::wstring document = BuildCommandDocument(MakeCommandValues(
            record, printers, settings, place, planned.intention == Intention::MinorUpgrade));
        if (IsInstalled(planned)) {
            installer.InstallApp(record.msiPath, nullptr, document);
            planned.document = document;
        }
        const bool runsDependents = IsInstalled(planned) && record.hasDependents;
        if (runsDependents || planned.intention == Intention::DependentsOnly)
            planned.dependents = PlanList(record.dependents);
        return planned;
    }

    // A package may have been installed since the catalogue was built, as the dependent of another one.
    Intention IntentionByNow(const MSI_APP& record) {
        bool upToDate = false;
        bool upgradable = false;
        bool minorUpgrade = false;
        const bool isPassedOver =
            DecideInstall(record) == InstallAction::AskAgain &&
            installer.IsAppInstalled(record.msiPath, upToDate, upgradable, minorUpgrade) && upToDate;
        return isPassedOver ? Intention::PassOver : IntentionFor(record);
    }

    std::string FileOf(const MSI_APP& record) const {
        const PackageFile* const file = installer.Find(record.msiPath);
        return file == nullptr ? std::string() : file->path;
    }

    void FindLeftOut() {
        std::set<std::wstring> known;
        for (const MSI_APP& record : applications.Select({})) known.insert(record.msiPath);
        for (const MSI_APP& record : drivers.GetDrivers()) known.insert(record.msiPath);
        for (const PackageFile& file : package.Packages()) {
            const std::wstring path = PlannedInstaller::PathOf(file);
            if (!file.IsInCatalogue() || reached.contains(path)) continue;
            plan.leftOut.push_back({.file = file.path,
                                    .name = file.record.productName,
                                    .reason = WhyLeftOut(file, known.contains(path))});
        }
    }

    std::string WhyLeftOut(const PackageFile& file, bool isKnown) const {
        if (file.kind == PackageKind::Dependent) return "no package that is installed takes it along";
        if (file.kind == PackageKind::Driver && !isKnown) {
            const bool newer = options.system.isWindows8OrLater;
            return "its DRIVERID " + Quoted(file.record.driverId) + " is not among " +
                   (newer ? "WIN8_DRVTYPES" : "WINXP_DRVTYPES");
        }
        if (!isKnown) return "its SUPPORTEDOS does not name " + ToUtf8(options.system.name);
        return file.kind == PackageKind::Driver ? "it is not selected"
                                                : "it is optional, and a user has to ask for it";
    }

    const Package& package;
    const PlanOptions& options;
    InstallSettings settings;
    Localizer localizer;
    PlannedInstaller installer;
    AppCatalogue applications;
    DriverInfo drivers;
    PrinterDescription printers;
    RunPlace place;
    std::set<std::wstring> reached;
    Plan plan;
};

}  // namespace

bool IsInstalled(const PlannedPackage& package) {
    return package.intention == Intention::Install || package.intention == Intention::Upgrade ||
           package.intention == Intention::MinorUpgrade || package.intention == Intention::InstallAgain;
}

Plan MakePlan(const Package& package, const PlanOptions& options) {
    return Planner(package, options).Make();
}

}  // namespace packagecheck
