#include "printer/ApplyChoice.h"

#include "CommonLib/Log.h"
#include "catalogue/PackageProperties.h"
#include "printer/DetectedNames.h"
#include "printer/InfoCenterLinks.h"
#include "settings/PackageWords.h"
#include "settings/TagNames.h"

namespace {

void ApplyToDevices(const PrinterChoice& choice, const ChoiceTargets& targets) {
    InstallSettings& settings = targets.settings;
    if (choice.devicePort) settings.SetNetworkPort(choice.devicePort->address, choice.devicePort->portName);
    if (choice.detectedName) ApplyDetectedName(settings, targets.drivers, *choice.detectedName);
    for (const auto& [tag, value] : choice.deviceTags) settings.SetDeviceValue(tag, value);
}

void ChangeParts(MSI_APP& record, const PartsChange& parts) {
    const auto change = [](bool& flag, const std::optional<bool>& value) { flag = value.value_or(flag); };
    if (record.deviceType == DeviceType::FAX) change(record.isOptional, parts.faxOptional);
    if (record.deviceType == DeviceType::SCANNER) change(record.isOptional, parts.scannerOptional);
    if (record.deviceType == DeviceType::PRINTER) change(record.isOptional, parts.printerOptional);
    if (NamesFaxDriver(record.driverId)) change(record.isSelected, parts.faxSelected);
}

std::wstring FirstOf(const std::vector<std::wstring>& values) {
    return values.empty() ? std::wstring() : values.front();
}

void BuildLinks(LinkSource source, const ChoiceTargets& targets) {
    InstallSettings& settings = targets.settings;
    std::wstring model;
    std::wstring printer;
    if (source == LinkSource::Settings) {
        model = settings.GetString(Tag::DRIVER_MODEL_NAME);
        printer = settings.GetString(Tag::PRINTER_NAME);
    } else {
        printer = FirstOf(settings.GetDeviceValues(Tag::PRINTER_SERIES_NAME));
        if (!printer.empty()) model = FirstOf(settings.GetDeviceValues(Tag::PRINTER_MODEL_NAME));
    }
    BuildInfoCenterLinks(settings, targets.localizer, model, printer);
}

}  // namespace

void ApplyChoice(const PrinterChoice& choice, const ChoiceTargets& targets) {
    for (const auto& [tag, value] : choice.tags) targets.settings.SetString(TextTag(tag), value);
    ApplyToDevices(choice, targets);
    targets.applications.Update([&](MSI_APP& record) { ChangeParts(record, choice.parts); });
    if (choice.onlyPrinterDriver) targets.drivers.SelectOnlyPrinterDriver(*choice.onlyPrinterDriver);
    for (const auto& [id, selected] : choice.drivers) targets.drivers.SelectDriver(id, selected);
    for (const std::wstring& record : choice.records) LogBasic(record);
    if (choice.links != LinkSource::None) BuildLinks(choice.links, targets);
}

ChoiceInputs MakeChoiceInputs(const InstallSettings& settings, const DriverInfo& drivers,
                              const std::wstring& driverId) {
    return {.fromConfig = settings.GetBool(Tag::INSTALL_FROM_CONFIG),
            .isAmazon = settings.IsAmazonSupported(),
            .pickedDriverOnly = settings.GetBool(Tag::INSTALL_PICKED_DRIVER_ONLY),
            .driverId = driverId,
            .driverPath = drivers.GetDriverPath(driverId)};
}
