#include "tools/PackageCheck/CatalogueRules.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "CommonLib/TextUtilities.h"
#include "CommonLib/Utf8.h"
#include "catalogue/PackageProperties.h"
#include "catalogue/PropertyNames.h"
#include "printer/ConfigTool.h"
#include "settings/PackageWords.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"
#include "settings/TagSearch.h"
#include "settings/TextKeys.h"
#include "tools/PackageCheck/KnownTags.h"
#include "tools/PackageCheck/Quoted.h"

namespace packagecheck {

namespace {

constexpr std::wstring_view dotNetName = L"NETFRAMEWORK40";

constexpr auto propertyNames = std::to_array<std::wstring_view>(
    {Property::DEVICETYPE, Property::STARTAPP, Property::INSTALLSIZE, Property::STREAMDISPLAYNAME,
     Property::DRIVERID, Property::DRIVERNAME, Property::MSIDESCRIPTION, Property::APPTYPE,
     Property::SUPPORTEDOS, Property::DISCOVERY, Property::DEPENDENTAPPS, Property::FORCEREINSTALL,
     Property::ISOMBRELSUPPORTED});

// What the wizard hands to a package, by the names of its properties.
constexpr auto handedOver =
    std::to_array<std::wstring_view>({Tag::PRINTER_INFO, Tag::TARGET_DIR, Tag::LANGUAGEID,
                                      Tag::DEVICEFRIENDLYNAME, Tag::INFOCENTER_SHORTCUT, L"INFOCENTER_LINK"});

constexpr auto systemNames =
    std::to_array<std::wstring_view>({L"WINDOWS_VISTA", L"WINDOWS_7", L"WINDOWS_8", L"WINDOWS_BLUE"});

// The version of Windows Installer of all systems.
constexpr int newestInstaller = 500;

// More is a number of bytes.
constexpr double largestSizeInMb = 100'000;

bool IsOneOf(std::wstring_view text, std::initializer_list<std::wstring_view> words) {
    return std::ranges::find(words, text) != words.end();
}

bool IsInList(std::wstring_view list, std::wstring_view name) {
    const auto names = SplitClosed(std::wstring(list) + L';', L';');
    return std::ranges::find(names, name) != names.end();
}

bool IsTool(const PackageFile& file) {
    return file.kind == PackageKind::Tool || file.record.appType == olderConfigTool.appType ||
           file.record.appType == v4ConfigTool.appType;
}

// A name of a file of Windows, to be compared.
std::wstring FoldedName(std::wstring_view name) {
    return FromUtf8(Folded(ToUtf8(name)));
}

class CatalogueCheck {
public:
    CatalogueCheck(const Package& checkedPackage, Report& target) : package(checkedPackage), report(target) {
        for (const PackageFile& file : package.Packages()) {
            if (!file.contents) continue;
            for (const InstalledFile& installed : file.contents->files)
                fileNames.insert(FoldedName(installed.name));
        }
        for (const LanguageFile& language : package.Languages()) {
            languageIds.insert(TagDocument::ValueOf(language.file->Text(), TextKey::LANGUAGE_ID.Name()));
        }
    }

    void Run() {
        for (const PackageFile& file : package.Packages()) {
            CheckPlace(file);
            if (file.contents) CheckPackage(file);
        }
        const auto runs = [](const PackageFile& file) {
            return file.kind == PackageKind::Application || file.kind == PackageKind::Driver;
        };
        if (std::ranges::none_of(package.Packages(), runs)) {
            report.Add(rules::msiNone, {}, "There is no package in Applications and none in Drivers.");
        }
        CheckFolders();
        CheckDotNet();
    }

private:
    void Add(const Rule& rule, const PackageFile& file, const std::string& message) {
        report.Add(rule, file.Whole(), message);
    }

    void CheckPlace(const PackageFile& file) {
        if (file.kind == PackageKind::Elsewhere) {
            Add(rules::msiMisplaced, file, "No packages are looked for in this folder.");
        } else if (!file.contents) {
            Add(rules::msiUnreadable, file, "The file cannot be read as a package: " + file.error + ".");
        }
    }

    // By what lies in them, since folders have no entry of their own.
    void CheckFolders() {
        for (const TreeFile& file : package.Files().All()) {
            const std::string path = Folded(file.path);
            for (std::size_t end = path.find('/'); end != std::string::npos; end = path.find('/', end + 1)) {
                const std::string folder = path.substr(0, end);
                if (!folder.ends_with(".msi") || !IsPlaceOfPackages(folder)) continue;
                report.Add(rules::msiFolder, {.file = file.path.substr(0, end)},
                           "The folder is named as a package.");
            }
        }
    }

    void CheckSummary(const PackageFile& file) {
        const MsiSummary& summary = file.contents->summary;
        const auto lacks = [&](const std::string& what) {
            Add(rules::summaryIncomplete, file, "The summary information has no " + what + ".");
        };
        if (summary.platform.empty()) lacks("template");
        if (summary.installerVersion <= 0) lacks("page count");
        if (summary.packageCode.empty()) lacks("revision number");
        if (summary.installerVersion > newestInstaller) {
            Add(rules::summaryVersion, file,
                "The page count of the summary information is " + std::to_string(summary.installerVersion) +
                    ".");
        }
    }

    void CheckPackage(const PackageFile& file) {
        CheckSummary(file);
        CheckNames(file);
        CheckTags(file);
        if (IsTool(file)) CheckTool(file);
        if (!file.IsInCatalogue()) return;
        CheckProduct(file);
        if (!IsTool(file)) CheckUpgrades(file);
        CheckSecureProperties(file);
        CheckWords(file);
        CheckSize(file);
        CheckSystems(file);
        CheckStartApp(file);
    }

    void CheckNames(const PackageFile& file) {
        for (const auto& [name, value] : file.contents->properties) {
            const std::wstring_view language = LanguageOf(name);
            if (!language.empty() && !languageIds.contains(language)) {
                Add(rules::propertyLanguage, file,
                    Quoted(name) + " is for a language that no language file has.");
            }
            if (!language.empty() || std::ranges::find(propertyNames, name) != propertyNames.end()) continue;
            const std::wstring nearest = NearestName(name, propertyNames, 1);
            if (nearest.empty()) continue;
            Add(rules::propertyMisspelt, file,
                "The wizard does not read the property " + Quoted(name) + ". Perhaps " + ToUtf8(nearest) +
                    " is meant.");
        }
    }

    // The number after the last point of a name; empty for a name without one.
    static std::wstring_view LanguageOf(std::wstring_view name) {
        const std::size_t point = name.rfind(L'.');
        const std::wstring_view number = name.substr(point == nowhere ? name.size() : point + 1);
        return std::ranges::all_of(number, IsDigit) ? number : std::wstring_view();
    }

    void CheckTags(const PackageFile& file) {
        for (const auto& [name, value] : file.contents->properties) {
            bool holdsTag = value.find(L"</" + name + L">") != nowhere;
            for (const std::wstring_view known : propertyNames) {
                holdsTag = holdsTag || value.find(L"<" + std::wstring(known) + L">") != nowhere;
            }
            if (holdsTag)
                Add(rules::valueHoldsTag, file, ToUtf8(name) + " holds a tag: " + Quoted(value) + ".");
        }
    }

    void CheckTool(const PackageFile& file) {
        if (!file.contents->adminActions.contains(L"InstallFiles")) {
            Add(rules::toolNotUnpackable, file, "The AdminExecuteSequence table has no InstallFiles.");
        }
        const bool isV4 = file.kind == PackageKind::Tool
                              ? file.path.find(ToUtf8(v4ConfigTool.packageName)) != std::string::npos
                              : file.record.appType == v4ConfigTool.appType;
        const ConfigToolKind& tool = isV4 ? v4ConfigTool : olderConfigTool;
        const std::wstring vendor = package.Settings().GetString(Tag::OEM);
        // The folder text of the tool begins and ends with a backslash.
        const std::wstring below(tool.folderBehindVendor.substr(0, tool.folderBehindVendor.size() - 1));
        const auto isTool = [&](const InstalledFile& installed) {
            const bool isThere = EqualsIgnoringCase(installed.folder, vendor + below) ||
                                 EqualsIgnoringCase(installed.folder, L"Printer" + below);
            return isThere && installed.name.find(tool.program) != nowhere;
        };
        if (std::ranges::any_of(file.contents->files, isTool)) return;
        Add(rules::toolMisplaced, file,
            "The package unpacks no " + Quoted(vendor + below + L'\\' + std::wstring(tool.program)) + ".");
    }

    void CheckProduct(const PackageFile& file) {
        const MSI_APP& record = file.record;
        if (record.productName.empty())
            Add(rules::productNameMissing, file, "The package has no ProductName.");
        for (const auto& [name, value] : file.contents->properties) {
            const bool isName = name == Property::ProductName || name.starts_with(L"ProductName.");
            if (isName) AddShared(rules::productNameShared, file, ToUtf8(name), value, ownersOfNames[name]);
        }
        AddShared(rules::productCodeShared, file, "ProductCode", file.PropertyOf(L"ProductCode"),
                  ownersOfCodes);
        if (!IsComparableVersion(record.productVersion)) {
            Add(rules::productVersion, file,
                "ProductVersion is " + Quoted(record.productVersion) + ", which is not compared as a whole.");
        }
    }

    void AddShared(const Rule& rule, const PackageFile& file, const std::string& property,
                   const std::wstring& value, std::map<std::wstring, std::string>& owners) {
        if (value.empty()) return;
        const auto [owner, isNew] = owners.emplace(value, file.path);
        if (!isNew) Add(rule, file, property + " is " + Quoted(value) + ", as in " + owner->second + ".");
    }

    static bool IsComparableVersion(std::wstring_view version) {
        constexpr std::array<std::int32_t, 3> most = {255, 255, 65535};
        const auto fields = SplitClosed(std::wstring(version) + L'.', L'.');
        if (fields.size() > most.size()) return false;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            const bool isNumber = !fields[i].empty() && std::ranges::all_of(fields[i], IsDigit);
            if (!isNumber || LeadingInteger(fields[i]) > most[i]) return false;
        }
        return true;
    }

    void CheckUpgrades(const PackageFile& file) {
        const std::wstring& code = file.PropertyOf(L"UpgradeCode");
        if (code.empty()) {
            Add(rules::upgradeCodeMissing, file, "The package has no UpgradeCode.");
            return;
        }
        const auto replaces = [&](const UpgradeRow& row) {
            return row.Removes() && EqualsIgnoringCase(row.upgradeCode, code);
        };
        if (std::ranges::none_of(file.contents->upgrades, replaces)) {
            Add(rules::upgradeRowMissing, file,
                "No row of the Upgrade table removes older products of " + Quoted(code) + ".");
        }
        const auto [first, isNew] = families.emplace(FoldedName(code), &file);
        // One product in two folders is another mistake.
        const PackageFile& other = *first->second;
        if (!isNew && other.PropertyOf(L"ProductCode") != file.PropertyOf(L"ProductCode")) {
            Add(rules::upgradeCodeShared, file,
                "UpgradeCode is " + Quoted(code) + ", as in " + other.path + ".");
        }
        for (const UpgradeRow& row : file.contents->upgrades) {
            if (IsInList(file.record.secureCustomProperties, row.actionProperty)) continue;
            Add(rules::upgradePropertyNotSecure, file,
                "SecureCustomProperties does not list " + Quoted(row.actionProperty) +
                    " of the Upgrade table.");
        }
    }

    void CheckSecureProperties(const PackageFile& file) {
        for (const std::wstring_view name : handedOver) {
            const bool isUsed = file.contents->usedProperties.contains(std::wstring(name));
            if (!isUsed || IsInList(file.record.secureCustomProperties, name)) continue;
            Add(rules::securePropertyMissing, file,
                "The package uses " + ToUtf8(name) + ", which SecureCustomProperties does not list.");
        }
    }

    void CheckWords(const PackageFile& file) {
        const MSI_APP& record = file.record;
        if (!record.deviceType.empty() &&
            !IsOneOf(record.deviceType, {DeviceType::PRINTER, DeviceType::SCANNER, DeviceType::FAX})) {
            Add(rules::deviceType, file,
                "DEVICETYPE is " + Quoted(record.deviceType) + ", which is no type of device.");
        }
        if (!record.appType.empty() && record.appType != L"NIMBOJET" && !IsTool(file)) {
            Add(rules::appType, file, "APPTYPE is " + Quoted(record.appType) + ", which has no meaning.");
        }
        CheckFlag(file, Property::DISCOVERY, L"YES");
        CheckFlag(file, Property::FORCEREINSTALL, L"TRUE");
    }

    void CheckFlag(const PackageFile& file, std::wstring_view name, std::wstring_view yes) {
        const std::wstring& value = file.PropertyOf(name);
        const bool isNo = value.empty() || value == L"0" || EqualsIgnoringCase(value, L"no") ||
                          EqualsIgnoringCase(value, L"false");
        if (isNo || EqualsIgnoringCase(value, yes)) return;
        Add(rules::flagProperty, file,
            ToUtf8(name) + " is " + Quoted(value) + " and not " + Quoted(yes) + ".");
    }

    void CheckSize(const PackageFile& file) {
        const std::wstring& size = file.PropertyOf(Property::INSTALLSIZE);
        if (size.empty()) {
            Add(rules::installSizeMissing, file, "The package has no INSTALLSIZE.");
            return;
        }
        const std::size_t unit = size.find_first_not_of(L"0123456789. \t");
        const bool isPlain = unit == nowhere || size.compare(unit, std::wstring::npos, L"MB") == 0;
        const double megabytes = file.record.installSizeMb;
        if (isPlain && megabytes > 0 && megabytes <= largestSizeInMb) return;
        Add(rules::installSize, file,
            "INSTALLSIZE is " + Quoted(size) + ", which counts as " +
                std::to_string(static_cast<long long>(std::min(megabytes, 1e15))) + " MB.");
    }

    void CheckSystems(const PackageFile& file) {
        const std::wstring& systems = file.record.supportedOs;
        if (systems.empty()) return;
        if (file.kind != PackageKind::Optional) {
            CheckIgnoredSystems(file);
            return;
        }
        constexpr std::wstring_view noSystem = L"no system";
        if (SupportsSystem(systems, noSystem)) {
            Add(rules::supportedOsSingle, file,
                "SUPPORTEDOS is " + Quoted(systems) + ", and without \";\" it restricts nothing.");
            return;
        }
        for (const std::wstring& name : SplitClosed(systems + L';', L';')) {
            const bool isKnown = name.empty() || std::ranges::find(systemNames, name) != systemNames.end();
            if (!isKnown) {
                Add(rules::supportedOsUnknown, file,
                    "SUPPORTEDOS lists " + Quoted(name) + ", which no system is called." +
                        NearestHint(name, systemNames));
            }
        }
    }

    // A list of everything that is in use restricts nothing, and may stay.
    void CheckIgnoredSystems(const PackageFile& file) {
        const std::wstring& systems = file.record.supportedOs;
        const auto names = SplitClosed(systems + L';', L';');
        for (const std::wstring_view system : {L"WINDOWS_7", L"WINDOWS_8", L"WINDOWS_BLUE"}) {
            if (std::ranges::find(names, system) != names.end()) continue;
            Add(rules::supportedOsIgnored, file,
                "SUPPORTEDOS is " + Quoted(systems) + ", which does not keep the package from " +
                    ToUtf8(system) + ".");
            return;
        }
    }

    void CheckStartApp(const PackageFile& file) {
        const std::wstring& startApp = file.record.startApp;
        if (startApp.empty()) return;
        const std::wstring rest = startApp.substr(startApp.rfind(L';') + 1);
        if (!rest.empty()) {
            Add(rules::startAppUnclosed, file,
                "STARTAPP ends in " + Quoted(rest) + ", which no \";\" closes.");
        }
        for (const std::wstring& entry : SplitClosed(startApp, L';')) {
            if (entry.empty() || NamesProgram(entry)) continue;
            Add(rules::startAppNoFile, file, "No package installs the program of " + Quoted(entry) + ".");
        }
    }

    // Whether a part of the entry, up to a blank or to its end, ends in the name of a file of some package.
    bool NamesProgram(const std::wstring& entry) const {
        constexpr std::size_t longestEntry = 2'000;
        for (std::size_t end = entry.size(); end != 0 && end != nowhere && end <= longestEntry;
             end = entry.rfind(L' ', end - 1)) {
            const std::wstring name = FoldedName(::FileNameOf(std::wstring_view(entry).substr(0, end)));
            const bool hasExtension = name.find(L'.') != nowhere;
            if (fileNames.contains(name) || (!hasExtension && fileNames.contains(name + L".exe")))
                return true;
        }
        return false;
    }

    void CheckDotNet() {
        std::size_t programs = 0;
        for (const TreeFile* file : package.Files().In(TreePath::dotNet)) {
            const std::string name = Folded(file->path);
            if (name.ends_with(".exe") || name.ends_with(".msi")) ++programs;
        }
        if (programs > 1) {
            report.Add(rules::dotNetSeveral, {.file = std::string(TreePath::dotNet)},
                       "The folder holds more than one program.");
        }
        for (const PackageFile& file : package.Packages()) {
            const bool isNeeded =
                file.IsInCatalogue() && file.record.secureCustomProperties.find(dotNetName) != nowhere;
            if (isNeeded && programs == 0) {
                Add(rules::dotNetMissing, file,
                    "The package needs .NET Framework 4, and the folder DotNet holds no program.");
            }
        }
    }

    const Package& package;
    Report& report;
    std::set<std::wstring> fileNames;
    std::set<std::wstring, std::less<>> languageIds;
    std::map<std::wstring, std::map<std::wstring, std::string>> ownersOfNames;  // by the property
    std::map<std::wstring, const PackageFile*> families;                        // by the upgrade code
    std::map<std::wstring, std::string> ownersOfCodes;
};

}  // namespace

void CheckCatalogue(const Package& package, Report& report) {
    CatalogueCheck(package, report).Run();
}

}  // namespace packagecheck
