#include "printer/PrinterDescription.h"

#include <algorithm>
#include <vector>

#include "settings/DeviceDocument.h"
#include "settings/PackageWords.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"

std::wstring PrinterDescription::GetModelName(bool fax) const {
    const auto models = settings.GetKeyedValues(fax ? Tag::MODEL_NAME_FAX : Tag::MODEL_NAME, L":");
    const auto model = models.find(settings.GetString(Tag::OEM_NAME));
    return model == models.end() ? std::wstring() : model->second;
}

NameInputs PrinterDescription::NameInputsFor(const MSI_APP& driver) const {
    return {.isFaxDriver = driver.isFaxDriver,
            .streamDisplayName = driver.streamDisplayName,
            .printerName = settings.GetString(Tag::PRINTER_NAME),
            .isNameFromDiscovery = settings.IsSet(Tag::PO_NAME_FROM_DISCOVERY),
            .oem = settings.GetString(Tag::OEM),
            .oemName = settings.GetString(Tag::OEM_NAME),
            .defaultPrinterName = settings.GetString(Tag::DEFAULT_PRINTER_NAME),
            .upd = settings.GetString(Tag::UPD),
            .webDriverVersion = settings.GetString(Tag::WEBDRIVERVER),
            .modelName = GetModelName(false),
            .faxModelName = GetModelName(true)};
}

std::wstring PrinterDescription::GetPrinterName(const MSI_APP& driver) const {
    return PrinterNameFor(NameInputsFor(driver));
}

std::wstring PrinterDescription::GetDriverProductName(const MSI_APP& driver) const {
    return DriverProductNameFor(NameInputsFor(driver));
}

bool PrinterDescription::PortNeedsAdding(const std::wstring& portType, const std::wstring& portName) const {
    if (portType == usbPortType) return false;
    if (portType == settings.GetString(Tag::OEM) + L" Nimbo Jet") return false;
    return !portExists(portName);
}

std::wstring PrinterDescription::BuildDeviceElement(std::wstring device) const {
    // The driver's installation must not see the catalogue's identifier.
    TagDocument::RemoveElement(device, Tag::DRIVER_ID);
    const bool add = PortNeedsAdding(TagDocument::ValueOf(device, Tag::PORT_TYPE),
                                     TagDocument::ValueOf(device, Tag::PORT_NAME));
    TagDocument::SetElement(device, Tag::ADD_PORT, FlagText(add));
    return TagDocument::MakeElement(Tag::DEVICE, device);
}

std::wstring PrinterDescription::GetDevicesForDriver(const std::wstring& driverId) const {
    const std::wstring wanted = TagDocument::MakeElement(Tag::DRIVER_ID, driverId);
    std::wstring elements;
    for (const std::wstring& device : settings.GetDevices()) {
        if (device.find(wanted) != std::wstring::npos) elements += BuildDeviceElement(device);
    }
    return elements;
}

std::wstring PrinterDescription::BuildPrinterInfo(const MSI_APP& driver) {
    std::wstring info;
    if (settings.GetBool(Tag::INSTALL_FROM_CONFIG)) {
        info = GetDevicesForDriver(driver.driverId);
        info += SharedAddressElement();
    } else {
        FillCurrentDevice(driver);
        info = TagDocument::MakeElement(Tag::DEVICE, currentDevice);
    }
    return TagDocument::MakeElement(Tag::PRINTER_INFO, info);
}

// An address that the settings hold beside the devices. What is found there may also be that of a device,
// since their elements are part of the settings.
std::wstring PrinterDescription::SharedAddressElement() const {
    const std::wstring address = settings.GetString(Tag::IPADDRESS);
    const std::vector<std::wstring> own = settings.GetDeviceValues(Tag::IPADDRESS);
    if (address.empty() || std::ranges::find(own, address) != own.end()) return {};
    return TagDocument::MakeElement(Tag::IPADDRESS, address);
}

// By design: what is not set here keeps the value of the driver before.
void PrinterDescription::FillCurrentDevice(const MSI_APP& driver) {
    const NameInputs inputs = NameInputsFor(driver);
    TagDocument::SetElement(currentDevice, Tag::PRINTER_NAME, PrinterNameFor(inputs));
    TagDocument::SetElement(currentDevice, Tag::DRIVER_PRODUCT_NAME, DriverProductNameFor(inputs));
    CopyToCurrentDevice({Tag::PORT_NAME, Tag::HOST_NAME, Tag::PORT_TYPE, Tag::NETWORK_PATH,
                         Tag::DEFAULT_PRINTER_NAME, Tag::OEM_NAME});
    if (settings.GetBool(Tag::ADD_PORT)) TagDocument::SetElement(currentDevice, Tag::ADD_PORT, L"true");
    const bool makeDefault = settings.GetBool(Tag::SET_DEFAULT) && driver.isPrinterDriver;
    TagDocument::SetElement(currentDevice, Tag::SET_DEFAULT, FlagText(makeDefault));
    CopyToCurrentDevice({Tag::DRIVERCONFIG_PATH, Tag::CONFIG_EXE_PATH, Tag::OMBREL_DESC});
    if (settings.GetBool(Tag::CONFIG_APPLY_FUTURE)) {
        TagDocument::SetElement(currentDevice, Tag::CONFIG_APPLY_FUTURE, L"true");
    }
    CopyToCurrentDevice({Tag::IPADDRESS});
}

void PrinterDescription::CopyToCurrentDevice(std::initializer_list<TextTag> tags) {
    for (const TextTag tag : tags) {
        const std::wstring value = settings.GetString(tag);
        if (!value.empty()) TagDocument::SetElement(currentDevice, tag, value);
    }
}
