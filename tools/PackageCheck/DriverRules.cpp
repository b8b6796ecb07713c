#include "tools/PackageCheck/DriverRules.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "CommonLib/TextUtilities.h"
#include "CommonLib/Utf8.h"
#include "catalogue/PackageProperties.h"
#include "catalogue/PropertyNames.h"
#include "discovery/DriverMatch.h"
#include "printer/ConfigTool.h"
#include "printer/DerivedNames.h"
#include "settings/ColourWords.h"
#include "settings/PackageWords.h"
#include "settings/TagNames.h"
#include "settings/TagSearch.h"
#include "tools/PackageCheck/KnownTags.h"
#include "tools/PackageCheck/Quoted.h"

namespace packagecheck {

namespace {

// A list of drivers that one generation of Windows accepts.
struct SystemDrivers {
    TextTag tag;
    bool isWindows8OrLater;
    std::set<std::wstring> accepted;
};

class DriversCheck {
public:
    DriversCheck(const Package& checkedPackage, Report& target)
        : package(checkedPackage),
          report(target),
          systems{SystemDrivers{Tag::WIN8_DRVTYPES, true, Accepted(Tag::WIN8_DRVTYPES)},
                  SystemDrivers{Tag::WINXP_DRVTYPES, false, Accepted(Tag::WINXP_DRVTYPES)}} {
        for (const PackageFile& file : package.Packages()) {
            if (file.kind == PackageKind::Driver && file.contents) drivers.push_back(&file);
        }
        for (const PackageFile* driver : drivers) {
            if (driver->record.isPrinterDriver) printerDrivers.emplace(driver->record.driverId, driver);
        }
    }

    void Run() {
        for (const PackageFile* driver : drivers) CheckPackage(*driver);
        for (const SystemDrivers& system : systems) {
            CheckList(system);
            CheckDefaults(system);
        }
        CheckOverrides();
    }

private:
    std::set<std::wstring> Accepted(TextTag tag) const {
        const auto types = AcceptedDriverTypes(package.Settings().GetString(tag));
        return {types.begin(), types.end()};
    }

    std::vector<std::wstring_view> Identifiers() const {
        std::vector<std::wstring_view> names;
        names.reserve(printerDrivers.size());
        for (const auto& [id, driver] : printerDrivers) names.push_back(id);
        return names;
    }

    // Whether a driver of that identifier can be selected on the system.
    bool IsOffered(const std::wstring& id, const SystemDrivers& system) const {
        return printerDrivers.contains(id) && system.accepted.contains(id);
    }

    void CheckPackage(const PackageFile& file) {
        const MSI_APP& driver = file.record;
        if (driver.driverId.empty()) {
            report.Add(rules::driverIdMissing, file.Whole(), "The package has no DRIVERID.");
        }
        if (!driver.isPrinterDriver) return;
        for (const std::wstring_view word : {DriverId::SCAN, DriverId::FAX}) {
            if (!EqualsIgnoringCase(driver.driverId, word)) continue;
            report.Add(rules::driverIdCase, file.Whole(),
                       "DRIVERID is " + Quoted(driver.driverId) + ", which is not " + ToUtf8(word) + ".");
            return;
        }
        CheckPrinterDriver(file);
    }

    void CheckPrinterDriver(const PackageFile& file) {
        const MSI_APP& driver = file.record;
        if (driver.driverName.empty()) {
            report.Add(rules::driverNameMissing, file.Whole(), "The package has no DRIVERNAME.");
        }
        const PackageFile* first = printerDrivers.at(driver.driverId);
        if (first != &file) {
            report.Add(rules::driverIdShared, file.Whole(),
                       "DRIVERID is " + Quoted(driver.driverId) + ", as in " + first->path + ".");
        }
        const auto accepts = [&](const SystemDrivers& system) {
            return system.accepted.contains(driver.driverId);
        };
        if (std::ranges::none_of(systems, accepts)) {
            report.Add(rules::driverNotAccepted, file.Whole(),
                       "DRIVERID is " + Quoted(driver.driverId) +
                           ", which neither WIN8_DRVTYPES nor WINXP_DRVTYPES lists.");
        }
        CheckConfiguration(file);
    }

    void CheckConfiguration(const PackageFile& file) {
        const std::wstring& value = file.PropertyOf(Property::ISOMBRELSUPPORTED);
        if (value != L"TRUE") {
            const bool isMeant =
                EqualsIgnoringCase(value, L"true") || EqualsIgnoringCase(value, L"yes") || value == L"1";
            if (isMeant) {
                report.Add(rules::ombrelValue, file.Whole(),
                           "ISOMBRELSUPPORTED is " + Quoted(value) + " and not \"TRUE\".");
            }
            return;
        }
        const ConfigToolKind& tool = ConfigToolFor(file.record.driverId);
        if (std::ranges::any_of(package.Packages(),
                                [&](const PackageFile& other) { return BringsTool(other, tool); }))
            return;
        report.Add(rules::ombrelWithoutTool, file.Whole(),
                   "The driver is to be configured, and no package is its tool, by APPTYPE " +
                       ToUtf8(tool.appType) + " or as a file in Install with " + ToUtf8(tool.packageName) +
                       " in its name.");
    }

    static bool BringsTool(const PackageFile& file, const ConfigToolKind& tool) {
        if (file.kind == PackageKind::Tool)
            return file.path.find(ToUtf8(tool.packageName)) != std::string::npos;
        const bool isScanned = file.kind == PackageKind::Application || file.kind == PackageKind::Common ||
                               file.kind == PackageKind::Optional;
        return isScanned && file.record.appType == tool.appType;
    }

    void CheckList(const SystemDrivers& system) {
        for (const std::wstring& id : system.accepted) {
            const bool isTooNew =
                !system.isWindows8OrLater && IsOffered(id, system) && &ConfigToolFor(id) == &v4ConfigTool;
            if (isTooNew) {
                report.Add(
                    rules::driverTooNew, package.PlaceOf(system.tag),
                    ToUtf8(system.tag) + " lists " + Quoted(id) + ", a driver of the newer generation.");
            }
            if (id.empty() || printerDrivers.contains(id)) continue;
            report.Add(rules::driverTypeUnused, package.PlaceOf(system.tag),
                       ToUtf8(system.tag) + " lists " + Quoted(id) +
                           ", which no printer driver of the tree is called." +
                           NearestHint(id, Identifiers()));
        }
    }

    void CheckDefaults(const SystemDrivers& system) {
        const auto isOffered = [&](const auto& driver) { return IsOffered(driver.first, system); };
        const bool offersAny = std::ranges::any_of(printerDrivers, isOffered);
        for (const std::wstring_view colour : {ColourClass::mono, ColourClass::color, std::wstring_view()}) {
            const std::wstring tag = DefaultDriverTag(colour, system.isWindows8OrLater);
            const std::wstring id = package.Settings().GetString(TextTag(tag));
            if (id.empty() && offersAny && !package.Settings().GetBool(Tag::INSTALL_FROM_CONFIG)) {
                report.Add(rules::defaultDriverMissing, package.PlaceOf(tag),
                           ToUtf8(tag) + " names no driver.");
            } else if (!id.empty() && !IsOffered(id, system)) {
                report.Add(rules::defaultDriverUnknown, package.PlaceOf(tag),
                           ToUtf8(tag) + " is " + Quoted(id) +
                               ", which is no printer driver of the tree that " + ToUtf8(system.tag) +
                               " accepts." + NearestHint(id, Identifiers()));
            }
        }
    }

    void CheckOverrides() {
        constexpr std::size_t mostEntries = 500;
        constexpr std::size_t longestTable = 100'000;
        const std::wstring table = package.Settings().GetString(Tag::MODEL_DEFAULT_OVERRIDE);
        if (table.size() > longestTable) return AddLongTable();
        const auto entries = SplitClosed(table + L';', L';');
        for (std::size_t index = 0; index < entries.size(); ++index) {
            if (index == mostEntries) return AddLongTable();
            if (!entries[index].empty()) CheckOverride(table, entries[index]);
        }
    }

    void AddLongTable() {
        AddOverride(rules::overrideLong, "MODEL_DEFAULT_OVERRIDE is too long to be checked to its end.");
    }

    void AddOverride(const Rule& rule, const std::string& message) {
        report.Add(rule, package.PlaceOf(Tag::MODEL_DEFAULT_OVERRIDE), message);
    }

    void CheckOverride(const std::wstring& table, const std::wstring& entry) {
        const std::size_t colon = entry.find(L':');
        const std::wstring device = entry.substr(0, colon);
        if (colon == nowhere || device.empty() || entry.find(L':', colon + 1) != nowhere) {
            AddOverride(rules::overrideForm,
                        "The entry " + Quoted(entry) + " is not device, \":\" and driver.");
            return;
        }
        const std::wstring driver = entry.substr(colon + 1);
        if (!printerDrivers.contains(driver)) {
            AddOverride(rules::overrideDriverUnknown, "The entry " + Quoted(entry) +
                                                          " names no printer driver of the tree." +
                                                          NearestHint(driver, Identifiers()));
        }
        const auto taken = OverridingDriver(table, device);
        if (taken && *taken != driver) {
            AddOverride(rules::overrideShadowed, "The device " + Quoted(device) + " gets " + Quoted(*taken) +
                                                     " from an entry in front of its own.");
        }
    }

    const Package& package;
    Report& report;
    std::array<SystemDrivers, 2> systems;
    std::vector<const PackageFile*> drivers;
    std::map<std::wstring, const PackageFile*> printerDrivers;
};

}  // namespace

void CheckDrivers(const Package& package, Report& report) {
    if (package.Defaults() != nullptr) DriversCheck(package, report).Run();
}

}  // namespace packagecheck
