#include "tools/PackageCheck/SettingsRules.h"

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <vector>

#include "CommonLib/AddressText.h"
#include "CommonLib/TextUtilities.h"
#include "CommonLib/Utf8.h"
#include "pages/ManufacturerList.h"
#include "printer/DerivedNames.h"
#include "settings/TagNames.h"
#include "settings/TagSearch.h"
#include "tools/PackageCheck/KnownTags.h"
#include "tools/PackageCheck/Quoted.h"

namespace packagecheck {

namespace {

// What the checks of one package's settings share.
struct SettingsCheck {
    const Package& package;
    const InstallSettings& settings;
    Report& report;

    std::wstring ValueOf(std::wstring_view tag) const { return settings.GetString(TextTag(tag)); }

    void Add(const Rule& rule, std::wstring_view tag, const std::string& message) const {
        report.Add(rule, package.PlaceOf(tag), message);
    }
};

void CheckVendor(const SettingsCheck& check) {
    const std::wstring vendor = check.ValueOf(Tag::OEM);
    if (vendor.empty()) {
        check.Add(rules::vendorMissing, Tag::OEM, "OEM has no value, so the vendor is called \"Printer\".");
    }
    const bool endsBadly = vendor.ends_with(L'.') || vendor.ends_with(L' ');
    if (vendor.find_first_of(L"\\/:*?\"<>|\n") != nowhere || endsBadly) {
        check.Add(rules::vendorCharacters, Tag::OEM,
                  "OEM is " + Quoted(vendor) + ", which no folder can be called.");
    }
    const std::wstring product = check.ValueOf(Tag::PRODUCT_NAME);
    if (product.find(L'"') != nowhere) {
        check.Add(
            rules::vendorCharacters, Tag::PRODUCT_NAME,
            "PRODUCT_NAME is " + Quoted(product) + ": its quote ends the value on the tool's command line.");
    }
}

bool IsNo(std::wstring_view value) {
    return value.empty() || value == L"0" || EqualsIgnoringCase(value, L"false");
}

void CheckFlags(const SettingsCheck& check) {
    for (const KnownTag& tag : SettingsTags()) {
        const std::wstring value = check.ValueOf(tag.name);
        if (IsNo(value)) continue;
        if (tag.use == TagUse::Flag && !check.settings.GetBool(FlagTag(tag.name))) {
            check.Add(rules::flagValue, tag.name,
                      ToUtf8(tag.name) + " is " + Quoted(value) +
                          ", which counts as false: true or 1 would set it.");
        }
        if (tag.use == TagUse::Strict && !check.settings.IsSet(StrictFlagTag(tag.name, tag.yes))) {
            check.Add(rules::strictFlagValue, tag.name,
                      ToUtf8(tag.name) + " is " + Quoted(value) + " and so not set: only " + Quoted(tag.yes) +
                          " sets it.");
        }
    }
}

// A tag that does nothing under a condition.
struct TagCondition {
    std::wstring_view tag;
    bool (*takesEffectAway)(const InstallSettings& settings);
    const char* why;
};

bool IsSilent(const InstallSettings& settings) {
    return settings.GetBool(Tag::SILENT_INSTALL);
}

bool HasNoSearch(const InstallSettings& settings) {
    return IsSilent(settings) || settings.GetBool(Tag::HIDE_DISCOVERY);
}

bool HasFewManufacturers(const InstallSettings& settings) {
    return ParseManufacturers(settings.GetString(Tag::MANUFACTURERS)).size() < 2;
}

constexpr std::array<TagCondition, 17> conditions = {{
    {Tag::HIDE_START, IsSilent, "SILENT_INSTALL hides every page"},
    {Tag::HIDE_EULA, IsSilent, "SILENT_INSTALL hides every page"},
    {Tag::HIDE_PROGRESS, IsSilent, "SILENT_INSTALL hides every page"},
    {Tag::HIDE_FINAL, IsSilent, "SILENT_INSTALL hides every page"},
    {Tag::SHOW_MANUFACTURERS, IsSilent, "SILENT_INSTALL hides every page"},
    {Tag::HIDE_CONNECTIVITY, [](const InstallSettings& settings) { return !settings.IsAmazonSupported(); },
     "the page shows only where AMAZON_SUPPORTED is TRUE"},
    {Tag::SHOW_MANUFACTURERS,
     [](const InstallSettings& settings) { return !IsSilent(settings) && HasFewManufacturers(settings); },
     "MANUFACTURERS names fewer than two"},
    {Tag::DEFAULT_MANUFACTURER, HasFewManufacturers, "MANUFACTURERS names fewer than two"},
    {Tag::USB_SUPPORTED, HasNoSearch, "the page of the printers is not shown"},
    {Tag::MODEL_DEFAULT_OVERRIDE, HasNoSearch, "no printer is searched for"},
    {Tag::SUBNETADDRESS, HasNoSearch, "no printer is searched for"},
    {Tag::SUBNETADDRESS,
     [](const InstallSettings& settings) { return !settings.GetString(Tag::IPADDRESS).empty(); },
     "IPADDRESS is set, so the search asks that one device"},
    {Tag::INSTALL_PICKED_DRIVER_ONLY, HasNoSearch, "nobody picks a driver"},
    {Tag::INSTALL_PICKED_DRIVER_ONLY,
     [](const InstallSettings& settings) {
         return !HasNoSearch(settings) && settings.GetBool(Tag::INSTALL_FROM_CONFIG);
     },
     "the drivers follow from the predefined printers"},
    {Tag::WEBDRIVERVER, [](const InstallSettings& settings) { return settings.GetString(Tag::UPD) != L"2"; },
     "it is read where UPD is 2"},
    {Tag::REGISTRATION_LINK, IsSilent, "SILENT_INSTALL hides every page"},
    {Tag::PRODUCT_REGISTRATION_LINK, IsSilent, "SILENT_INSTALL hides every page"},
}};

// What the user's file overlays was written for other runs; only what one file says in vain is worth a word.
void CheckConditions(const SettingsCheck& check) {
    for (const TagCondition& condition : conditions) {
        if (check.ValueOf(condition.tag).empty() || !condition.takesEffectAway(check.settings)) continue;
        const bool isInherited = check.package.User() != nullptr &&
                                 check.package.PlaceOf(condition.tag).file != check.package.User()->Path();
        if (isInherited) continue;
        check.Add(rules::tagWithoutEffect, condition.tag,
                  ToUtf8(condition.tag) + " has no effect here: " + condition.why + ".");
    }
}

bool NeedsDotNet(const PackageFile& package) {
    const bool runs = package.kind == PackageKind::Application || package.kind == PackageKind::Driver;
    return runs && package.record.secureCustomProperties.find(L"NETFRAMEWORK40") != nowhere;
}

void CheckSilentRun(const SettingsCheck& check) {
    if (!check.settings.GetBool(Tag::HIDE_DISCOVERY)) {
        check.Add(rules::silentCannotBegin, Tag::SILENT_INSTALL,
                  "SILENT_INSTALL is set and HIDE_DISCOVERY is not: without -ip the run ends at once.");
    }
    const auto needing = std::ranges::find_if(check.package.Packages(), NeedsDotNet);
    if (needing == check.package.Packages().end()) return;
    check.Add(rules::silentNeedsDotNet, Tag::SILENT_INSTALL,
              Quoted(needing->path) + " needs .NET Framework 4, which a silent run does not install.");
}

void CheckShownRun(const SettingsCheck& check) {
    const auto isSet = [&](FlagTag tag) { return check.settings.GetBool(tag); };
    if (isSet(Tag::HIDE_START) && isSet(Tag::HIDE_EULA) && isSet(Tag::HIDE_DISCOVERY)) {
        check.Add(rules::runWithoutQuestion, Tag::HIDE_START,
                  "HIDE_START, HIDE_EULA and HIDE_DISCOVERY leave no page in front of the installation.");
    }
    if (isSet(Tag::HIDE_PROGRESS)) {
        check.Add(rules::runWithoutProgress, Tag::HIDE_PROGRESS,
                  "HIDE_PROGRESS takes the progress and the way to cancel away.");
    }
    if (isSet(Tag::HIDE_FINAL)) {
        check.Add(rules::runWithoutEnd, Tag::HIDE_FINAL, "HIDE_FINAL closes the window without an outcome.");
    }
}

// Calls the action for each element of that name that the wizard reads, with its value and place.
template <class Action>
void ForEachOf(const Package& package, std::wstring_view name, const Action& action) {
    if (package.Defaults() != nullptr) {
        const TagFile& file = *package.Defaults();
        for (const Element& element : file.Elements().Named(name)) {
            action(file.Elements().ValueOf(element), file.PlaceOfValue(element));
        }
    }
    for (const TakenElement& element : package.UserElements()) {
        if (element.name == name) action(element.value, package.User()->PlaceOf(element.valueStart));
    }
}

void CheckKeyedList(const SettingsCheck& check, std::wstring_view tag) {
    std::set<std::wstring_view> keys;
    ForEachOf(check.package, tag, [&](std::wstring_view value, const Place& place) {
        const std::size_t colon = value.find(L':');
        if (colon == nowhere) {
            check.report.Add(
                rules::modelForm, place,
                ToUtf8(tag) + " holds " + Quoted(value) + ", which has no \":\" and is passed over.");
        } else if (!keys.insert(value.substr(0, colon)).second) {
            check.report.Add(
                rules::modelRepeated, place,
                ToUtf8(tag) + " has an entry for " + Quoted(value.substr(0, colon)) + " already.");
        }
    });
}

void CheckBrand(const SettingsCheck& check, ListTag tag) {
    const auto models = check.settings.GetKeyedValues(tag, L":");
    const std::wstring brand = check.ValueOf(Tag::OEM_NAME);
    // Where the user picks the brand, each entry is for one of them.
    if (models.empty() || models.contains(brand) || !check.ValueOf(Tag::MANUFACTURERS).empty()) return;
    check.Add(rules::modelBrand, tag,
              ToUtf8(tag) + " has no entry for " + Quoted(brand) + ", the value of OEM_NAME.");
}

void CheckProductCodes(const SettingsCheck& check) {
    const std::wstring brand = check.ValueOf(Tag::OEM_NAME);
    if (brand.empty()) return;
    ForEachOf(check.package, Tag::MODEL_PRODUCT_CODE, [&](std::wstring_view value, const Place& place) {
        const std::size_t colon = value.find(L':');
        if (colon == nowhere) return;
        for (const std::wstring& code : SplitClosed(std::wstring(value.substr(colon + 1)) + L'|', L'|')) {
            const auto formatted = FormatProductCode(code, brand);
            if (formatted && !formatted->empty()) continue;
            check.report.Add(
                rules::productCodeForm, place,
                "The code " + Quoted(code) + " has nothing after " + Quoted(brand) + " for the link.");
        }
    });
}

void CheckModels(const SettingsCheck& check) {
    for (const ListTag tag : {Tag::MODEL_NAME, Tag::MODEL_NAME_FAX, Tag::MODEL_PRODUCT_CODE}) {
        CheckKeyedList(check, tag);
    }
    CheckBrand(check, Tag::MODEL_NAME);
    CheckBrand(check, Tag::MODEL_NAME_FAX);
    CheckProductCodes(check);
    const std::wstring kind = check.ValueOf(Tag::UPD);
    if (!kind.empty() && kind != L"0" && kind != L"1" && kind != L"2") {
        check.Add(rules::kindOfPackage, Tag::UPD, "UPD is " + Quoted(kind) + "; 0, 1 and 2 have a meaning.");
    }
}

void CheckSubnet(const SettingsCheck& check) {
    const std::wstring subnet = check.ValueOf(Tag::SUBNETADDRESS);
    if (subnet.empty()) return;
    const std::size_t colon = std::min(subnet.find(L':'), subnet.size());
    const std::wstring_view view = subnet;
    if (IsValidIpV4Text(view.substr(0, colon)) &&
        IsValidIpV4Text(view.substr(std::min(colon + 1, view.size()))))
        return;
    check.Add(rules::subnetForm, Tag::SUBNETADDRESS,
              "SUBNETADDRESS is " + Quoted(subnet) + ", which is not address, \":\" and mask.");
}

void CheckManufacturers(const SettingsCheck& check) {
    const auto manufacturers = ParseManufacturers(check.ValueOf(Tag::MANUFACTURERS));
    for (const Manufacturer& manufacturer : manufacturers) {
        if (!manufacturer.name.empty() && !manufacturer.oemByte.empty()) continue;
        check.Add(
            rules::manufacturerForm, Tag::MANUFACTURERS,
            "MANUFACTURERS has an entry without " +
                (manufacturer.name.empty() ? "a name." : "a number: " + Quoted(manufacturer.name) + "."));
    }
    const std::wstring preset = check.ValueOf(Tag::DEFAULT_MANUFACTURER);
    const bool isListed =
        std::ranges::find(manufacturers, preset, &Manufacturer::name) != manufacturers.end();
    if (preset.empty() || manufacturers.size() < 2 || isListed) return;
    check.Add(rules::manufacturerDefault, Tag::DEFAULT_MANUFACTURER,
              "DEFAULT_MANUFACTURER is " + Quoted(preset) + ", which MANUFACTURERS does not name.");
}

bool IsWebAddress(std::wstring_view link) {
    for (const std::wstring_view scheme : {L"https://", L"http://"}) {
        if (link.size() > scheme.size() && EqualsIgnoringCase(link.substr(0, scheme.size()), scheme))
            return true;
    }
    return false;
}

void CheckLinks(const SettingsCheck& check) {
    for (const TextTag tag : {Tag::INFOCENTER_LINK, Tag::PRODUCT_REGISTRATION_LINK, Tag::REGISTRATION_LINK}) {
        const std::wstring link = check.settings.GetString(tag);
        if (!link.empty() && !IsWebAddress(link)) {
            check.Add(rules::linkScheme, tag,
                      ToUtf8(tag) + " is " + Quoted(link) + ", which is no address of the web.");
        }
    }
    if (check.ValueOf(Tag::INFOCENTER_LINK).find(L'?') == nowhere) return;
    check.Add(rules::linkQuery, Tag::INFOCENTER_LINK,
              "INFOCENTER_LINK holds a \"?\", and the wizard adds another one.");
}

}  // namespace

void CheckSettings(const Package& package, Report& report) {
    if (package.Defaults() == nullptr) {
        if (package.Files().Find(TreePath::defaults) == nullptr) {
            report.Add(rules::settingsMissing, {.file = std::string(TreePath::defaults)},
                       "The file is missing, and the program ends without a message.");
        }
        return;
    }
    const SettingsCheck check{.package = package, .settings = package.Settings(), .report = report};
    CheckVendor(check);
    CheckFlags(check);
    CheckConditions(check);
    if (IsSilent(package.Settings())) {
        CheckSilentRun(check);
    } else {
        CheckShownRun(check);
    }
    CheckModels(check);
    CheckSubnet(check);
    CheckManufacturers(check);
    CheckLinks(check);
}

}  // namespace packagecheck
