// The operations of InstallSettings that describe a driver's printer to the driver's installation.

#include <windows.h>

#include <winspool.h>

#include <algorithm>
#include <span>

#include "CommonLib/SystemVersion.h"
#include "catalogue/MSI_APP.h"
#include "settings/DerivedNames.h"
#include "settings/InstallSettings.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"

namespace {

constexpr std::uint16_t windows8 = 2;

NameInputs InputsFor(const MSI_APP& driver, const InstallSettings& settings, const std::wstring& modelName,
                     const std::wstring& faxModelName) {
    return {.isFaxDriver = driver.isFaxDriver,
            .streamDisplayName = driver.streamDisplayName,
            .printerName = settings.GetString(Tag::PRINTER_NAME),
            .nameFromDiscovery = settings.GetString(Tag::PO_NAME_FROM_DISCOVERY),
            .oem = settings.GetString(Tag::OEM),
            .oemName = settings.GetString(Tag::OEM_NAME),
            .defaultPrinterName = settings.GetString(Tag::DEFAULT_PRINTER_NAME),
            .upd = settings.GetString(Tag::UPD),
            .webDriverVersion = settings.GetString(Tag::WEBDRIVERVER),
            .modelName = modelName,
            .faxModelName = faxModelName};
}

bool IsExistingPort(const std::wstring& portName) {
    DWORD size = 0;
    DWORD count = 0;
    EnumPortsW(nullptr, 2, nullptr, 0, &size, &count);
    if (size == 0) return false;
    std::vector<BYTE> buffer(size);
    if (EnumPortsW(nullptr, 2, buffer.data(), size, &size, &count) == FALSE) return false;
    const std::span ports(reinterpret_cast<const PORT_INFO_2W*>(buffer.data()), count);
    return std::any_of(ports.begin(), ports.end(),
                       [&](const PORT_INFO_2W& port) { return portName == port.pPortName; });
}

}  // namespace

std::wstring InstallSettings::GetModelName(bool fax) const {
    const auto models = GetKeyedValues(fax ? Tag::MODEL_NAME_FAX : Tag::MODEL_NAME, L":");
    const auto model = models.find(GetString(Tag::OEM_NAME));
    return model == models.end() ? std::wstring() : model->second;
}

std::wstring InstallSettings::GetPrinterName(const MSI_APP& driver) const {
    return PrinterNameFor(InputsFor(driver, *this, GetModelName(false), GetModelName(true)));
}

std::wstring InstallSettings::GetDriverProductName(const MSI_APP& driver) const {
    return DriverProductNameFor(InputsFor(driver, *this, GetModelName(false), GetModelName(true)));
}

std::wstring InstallSettings::GetDefaultDriver(const std::wstring& colourClass) const {
    return GetString(DefaultDriverTag(colourClass, IsWindowsVersionOrGreater(windows8)));
}

bool InstallSettings::IsAmazonSupported() const {
    return GetString(Tag::AMAZON_SUPPORTED) == L"TRUE";
}

bool InstallSettings::PortNeedsAdding(const std::wstring& portType, const std::wstring& portName) const {
    if (portType == L"USB") return false;
    if (portType == GetString(Tag::OEM) + L" Nimbo Jet") return false;
    return !IsExistingPort(portName);
}

std::wstring InstallSettings::BuildDeviceElement(std::wstring device) const {
    // The driver's installation must not see the catalogue's identifier.
    TagDocument::RemoveElement(device, Tag::DRIVER_ID);
    const bool add = PortNeedsAdding(TagDocument::ValueOf(device, Tag::PORT_TYPE),
                                     TagDocument::ValueOf(device, Tag::PORT_NAME));
    TagDocument::SetElement(device, Tag::ADD_PORT, add ? L"true" : L"false");
    return TagDocument::MakeElement(Tag::DEVICE, device);
}

std::wstring InstallSettings::GetDevicesForDriver(const std::wstring& driverId) const {
    const std::wstring wanted = TagDocument::MakeElement(Tag::DRIVER_ID, driverId);
    std::wstring elements;
    for (const std::wstring& device : GetDevices()) {
        if (device.find(wanted) != std::wstring::npos) elements += BuildDeviceElement(device);
    }
    return elements;
}

std::wstring InstallSettings::BuildPrinterInfo(const MSI_APP& driver) {
    std::wstring info;
    if (GetBool(Tag::INSTALL_FROM_CONFIG)) {
        info = GetDevicesForDriver(driver.driverId);
        const std::wstring address = GetString(Tag::IPADDRESS);
        if (!address.empty()) TagDocument::SetElement(info, Tag::IPADDRESS, address);
    } else {
        FillCurrentDevice(driver);
        info = TagDocument::MakeElement(Tag::DEVICE, currentDevice);
    }
    return TagDocument::MakeElement(Tag::PRINTER_INFO, info);
}

// What is not set here keeps the value of the driver before, and this is meant.
void InstallSettings::FillCurrentDevice(const MSI_APP& driver) {
    TagDocument::SetElement(currentDevice, Tag::PRINTER_NAME, GetPrinterName(driver));
    TagDocument::SetElement(currentDevice, Tag::DRIVER_PRODUCT_NAME, GetDriverProductName(driver));
    CopyToCurrentDevice({Tag::PORT_NAME, Tag::HOST_NAME, Tag::PORT_TYPE, Tag::NETWORK_PATH,
                         Tag::DEFAULT_PRINTER_NAME, Tag::OEM_NAME});
    if (GetBool(Tag::ADD_PORT)) TagDocument::SetElement(currentDevice, Tag::ADD_PORT, L"true");
    const bool makeDefault = GetBool(Tag::SET_DEFAULT) && driver.isPrinterDriver;
    TagDocument::SetElement(currentDevice, Tag::SET_DEFAULT, makeDefault ? L"true" : L"false");
    CopyToCurrentDevice({Tag::DRIVERCONFIG_PATH, Tag::CONFIG_EXE_PATH, Tag::OMBREL_DESC});
    if (GetBool(Tag::CONFIG_APPLY_FUTURE)) {
        TagDocument::SetElement(currentDevice, Tag::CONFIG_APPLY_FUTURE, L"true");
    }
    CopyToCurrentDevice({Tag::IPADDRESS});
}

void InstallSettings::CopyToCurrentDevice(std::initializer_list<std::wstring_view> tags) {
    for (const std::wstring_view tag : tags) {
        const std::wstring value = GetString(tag);
        if (!value.empty()) TagDocument::SetElement(currentDevice, tag, value);
    }
}
