#include "discovery/DeviceChoice.h"

#include "CommonLib/Logger.h"
#include "catalogue/AppCatalogue.h"
#include "catalogue/DriverInfo.h"
#include "discovery/DiscoveredDevices.h"
#include "settings/DeviceDocument.h"
#include "settings/InstallSettings.h"
#include "settings/TagNames.h"

namespace {

void WriteDeviceValues(const std::wstring& rowName, const DiscoveredDevice& device) {
    InstallSettings& settings = InstallSettings::GetInstance();
    settings.ApplyDetectedName(rowName);
    settings.SetDeviceValue(Tag::PORT_NAME, device.hostName);
    settings.SetDeviceValue(Tag::IPADDRESS, device.address);
    settings.SetDeviceValue(Tag::HOST_NAME, device.hostName);
    settings.SetDeviceValue(Tag::ADD_PORT, L"true");
    settings.SetDeviceValue(Tag::PORT_TYPE, networkPortType);
    settings.SetDeviceValue(Tag::PRINTER_SERIES_NAME, rowName);
    settings.SetDeviceValue(Tag::PRINTER_MODEL_NAME, device.model);
}

// A multi-function device brings the scan driver with it, and the offer of the fax and scan applications or,
// in the second variant, the fax applications themselves.
void SelectCatalogue(bool isMultiFunction, bool hasFax) {
    DriverInfo::GetInstance().SelectDriver(L"SCAN", isMultiFunction);
    const bool isAmazon = InstallSettings::GetInstance().IsAmazonSupported();
    AppCatalogue::GetInstance().Update([=](MSI_APP& record) {
        if (isAmazon) {
            if (record.driverId.find(L"Fax") != std::wstring::npos) record.isSelected = hasFax;
        } else if (record.deviceType == L"FAX" || record.deviceType == L"SCANNER") {
            record.isOptional = isMultiFunction;
        }
    });
}

}  // namespace

void TakeDevice(const std::wstring& rowName, bool selectedHasFax) {
    InstallSettings& settings = InstallSettings::GetInstance();
    const DiscoveredDevices& devices = DiscoveredDevices::GetInstance();
    const bool fromConfig = settings.GetBool(Tag::INSTALL_FROM_CONFIG);
    const DiscoveredDevice device = devices.LastOfSeries(rowName);
    // The port goes by the name of the host.
    settings.SetStrings({{Tag::PRINTER_NAME, rowName},
                         {Tag::PORT_NAME, device.hostName},
                         {Tag::IPADDRESS, device.address},
                         {Tag::HOST_NAME, device.hostName},
                         {Tag::DRIVER_MODEL_NAME, device.model}});
    settings.SetBools({{Tag::SET_DEFAULT, true}, {Tag::ADD_PORT, true}});
    settings.SetString(Tag::PORT_TYPE, networkPortType);
    if (fromConfig) WriteDeviceValues(rowName, device);
    LogBasic(L"Selected Port Type: Standard TCP/IP Port");
    LogBasic(L"Selected Host Name: " + device.hostName);
    LogBasic(L"Selected Port Name: " + device.hostName);
    LogBasic(L"Selected Printer Name: " + rowName);
    if (!fromConfig) SelectCatalogue(devices.IsMultiFunction(device.macAddress), selectedHasFax);
    settings.SetBool(Tag::PRINT_DEVICE, true);
}
