#include "tools/PackageCheck/DeviceRules.h"

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "CommonLib/AddressText.h"
#include "CommonLib/Utf8.h"
#include "printer/DerivedNames.h"
#include "settings/DeviceDocument.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"
#include "settings/TagSearch.h"
#include "tools/PackageCheck/KnownTags.h"
#include "tools/PackageCheck/Quoted.h"

namespace packagecheck {

namespace {

constexpr std::size_t longestPrinterName = 220;
constexpr std::size_t longestPortHost = 48;

// What the checks of devices need of the rest of the package.
struct DeviceSurroundings {
    std::set<std::wstring> drivers;    // identifiers
    std::vector<std::string> besides;  // .msi files in Setup
    std::set<std::string> names;       // of the printers so far, folded
};

class DeviceCheck {
public:
    DeviceCheck(const Package& checkedPackage, const Device& checkedDevice, Report& target)
        : package(checkedPackage),
          device(checkedDevice),
          tags(ScanTags(device.document)),
          elements(device.document, tags),
          report(target) {}

    void Run(DeviceSurroundings& surroundings) const {
        CheckTags();
        CheckDriver(surroundings);
        CheckPort();
        CheckName(surroundings);
        CheckConfiguration(surroundings);
    }

private:
    std::wstring ValueOf(std::wstring_view tag) const { return TagDocument::ValueOf(device.document, tag); }

    // At the value of a tag, or at the device where it has none.
    void Add(const Rule& rule, std::wstring_view tag, const std::string& message) const {
        const auto& named = elements.Named(tag);
        const std::size_t offset = named.empty() ? 0 : named.front().open->end;
        report.Add(rule, package.User()->PlaceOf(device.start + offset), message);
    }

    void CheckTags() const {
        std::set<std::wstring_view> seen;
        for (const Element& element : elements.All()) {
            const std::wstring_view name = element.open->name;
            const Place place = package.User()->PlaceOf(device.start + element.open->start);
            if (!IsDeviceTag(name)) {
                report.Add(rules::deviceTagUnknown, place,
                           ToUtf8(name) + " is no tag of a device." + NearestHint(name, DeviceTags()));
            } else if (!seen.insert(name).second) {
                report.Add(rules::deviceTagRepeated, place,
                           ToUtf8(name) + " stands in this device again; only the first one counts.");
            }
        }
    }

    void CheckDriver(const DeviceSurroundings& surroundings) const {
        const std::wstring driver = ValueOf(Tag::DRIVER_ID);
        if (driver.empty()) {
            Add(rules::deviceWithoutDriver, Tag::DRIVER_ID,
                "The device has no DRIVER_ID, so no driver sets it up.");
        } else if (!surroundings.drivers.contains(driver)) {
            const std::vector<std::wstring_view> known(surroundings.drivers.begin(),
                                                       surroundings.drivers.end());
            Add(rules::deviceDriverUnknown, Tag::DRIVER_ID,
                "DRIVER_ID is " + Quoted(driver) + ", which no driver package of the tree has." +
                    NearestHint(driver, known));
        }
    }

    void CheckPort() const {
        const std::wstring type = ValueOf(Tag::PORT_TYPE);
        const std::wstring branded = package.Settings().GetString(Tag::OEM) + L" Nimbo Jet";
        const bool isKnown =
            type == networkPortType || type == localPortType || type == usbPortType || type == branded;
        if (!type.empty() && !isKnown) {
            const std::vector<std::wstring_view> types = {networkPortType, localPortType, usbPortType};
            Add(rules::devicePortType, Tag::PORT_TYPE,
                "PORT_TYPE is " + Quoted(type) + ", which is no type of port." + NearestHint(type, types));
        }
        if (type == networkPortType) CheckNetworkPort();
    }

    void CheckNetworkPort() const {
        const std::wstring host = ValueOf(Tag::HOST_NAME);
        const std::wstring address = ValueOf(Tag::IPADDRESS);
        if (host.empty() && address.empty() && ValueOf(Tag::PORT_NAME).empty()) {
            Add(rules::devicePortMissing, Tag::PORT_TYPE,
                "The device has a network port without a host and without a name.");
        }
        for (const TextTag tag : {Tag::HOST_NAME, Tag::IPADDRESS}) {
            const std::wstring value = ValueOf(tag);
            const bool isHost = IsValidHostName(value) || !AddressBytes(value).empty();
            if (value.empty() || (isHost && value.size() <= longestPortHost)) continue;
            Add(rules::deviceHost, tag,
                ToUtf8(tag) + " is " + Quoted(value) + ", which is no host that a port can have.");
        }
    }

    void CheckName(DeviceSurroundings& surroundings) const {
        const std::wstring name = ValueOf(Tag::PRINTER_NAME);
        const std::wstring detect = ValueOf(Tag::DETECT_PRINTER);
        const bool isDetected = detect == L"true" || detect == L"True" || detect == L"TRUE";
        if (!detect.empty() && !isDetected) {
            Add(rules::deviceDetect, Tag::DETECT_PRINTER,
                "DETECT_PRINTER is " + Quoted(detect) + ", which asks for nothing.");
        }
        if (name.empty() && !isDetected) {
            Add(rules::deviceNameMissing, Tag::PRINTER_NAME, "The device has no PRINTER_NAME.");
        }
        if (name.size() > longestPrinterName || name.find_first_of(L"\\,!") != nowhere) {
            Add(rules::deviceName, Tag::PRINTER_NAME, "No printer can be called " + Quoted(name) + ".");
        }
        if (!name.empty() && !surroundings.names.insert(Folded(ToUtf8(name))).second) {
            Add(rules::deviceNameRepeated, Tag::PRINTER_NAME,
                "Another device is called " + Quoted(name) + " already.");
        }
    }

    void CheckConfiguration(const DeviceSurroundings& surroundings) const {
        const std::wstring configuration = ValueOf(Tag::DRIVERCONFIG_PATH);
        std::string path = "Setup/" + ToUtf8(configuration);
        std::ranges::replace(path, '\\', '/');
        if (!configuration.empty() && package.Files().Find(path) == nullptr) {
            Add(rules::deviceConfigMissing, Tag::DRIVERCONFIG_PATH,
                "There is no file " + Quoted(configuration) + " in the folder Setup.");
        }
        if (!configuration.empty() && !CountedName(configuration, 1)) {
            Add(rules::deviceConfigExtension, Tag::DRIVERCONFIG_PATH,
                "The file " + Quoted(configuration) + " has no extension.");
        }
        const std::string tool = ToUtf8(ValueOf(Tag::CONFIG_EXE_PATH));
        const auto holdsTool = [&](const std::string& file) { return file.find(tool) != std::string::npos; };
        if (tool.empty() || std::ranges::any_of(surroundings.besides, holdsTool)) return;
        Add(rules::deviceToolMissing, Tag::CONFIG_EXE_PATH,
            "No .msi file in the folder Setup has " + Quoted(tool) + " in its name.");
    }

    const Package& package;
    const Device& device;
    std::vector<FoundTag> tags;
    ElementIndex elements;
    Report& report;
};

// The search takes the first address of the whole text for its preset.
void CheckAddressPreset(const Package& package, Report& report) {
    const InstallSettings& settings = package.Settings();
    const std::wstring address = settings.GetString(Tag::IPADDRESS);
    if (address.empty() || settings.GetBool(Tag::HIDE_DISCOVERY)) return;
    for (const Device& device : package.Devices()) {
        const TagPositions found = FindTags(device.document, Tag::IPADDRESS);
        if (!found.BothFound()) continue;
        // The first one counts, and the settings may have an address of their own in front.
        if (TagDocument::ValueOf(device.document, Tag::IPADDRESS) != address) return;
        report.Add(rules::deviceAddressPreset, package.User()->PlaceOf(device.start + found.open),
                   "IPADDRESS of this device is the preset of the search as well, which asks " +
                       Quoted(address) + " alone.");
        return;
    }
}

}  // namespace

void CheckDevices(const Package& package, Report& report) {
    if (package.User() == nullptr) return;
    if (package.Devices().empty()) {
        report.Add(rules::deviceNone, {.file = package.User()->Path()},
                   "No DEVICE takes effect, so that no printer is set up.");
    }
    DeviceSurroundings surroundings;
    for (const PackageFile& file : package.Packages()) {
        if (file.kind == PackageKind::Driver) surroundings.drivers.insert(file.record.driverId);
        if (file.kind == PackageKind::Beside) surroundings.besides.emplace_back(FileNameOf(file.path));
    }
    for (const Device& device : package.Devices()) DeviceCheck(package, device, report).Run(surroundings);
    CheckAddressPreset(package, report);
}

}  // namespace packagecheck
