#include "printer/PrinterChoice.h"

#include "settings/DeviceDocument.h"
#include "settings/PackageWords.h"
#include "settings/TagNames.h"

namespace {

void AddTags(std::vector<TagValue>& tags, std::vector<TagValue> more) {
    tags.insert(tags.end(), more.begin(), more.end());
}

// The port goes by the name of the host.
void TakeDevice(PrinterChoice& choice, const ChosenDevice& device) {
    AddTags(choice.tags, {{Tag::PRINTER_NAME, device.rowName},
                          {Tag::PORT_NAME, device.hostName},
                          {Tag::IPADDRESS, device.address},
                          {Tag::HOST_NAME, device.hostName},
                          {Tag::DRIVER_MODEL_NAME, device.model},
                          {Tag::SET_DEFAULT, FlagText(true)},
                          {Tag::ADD_PORT, FlagText(true)},
                          {Tag::PORT_TYPE, std::wstring(networkPortType)},
                          {Tag::PRINT_DEVICE, FlagText(true)}});
    choice.records = {L"Selected Port Type: Standard TCP/IP Port", L"Selected Host Name: " + device.hostName,
                      L"Selected Port Name: " + device.hostName, L"Selected Printer Name: " + device.rowName};
}

void TakeDeviceForDevices(PrinterChoice& choice, const ChosenDevice& device) {
    choice.detectedName = device.rowName;
    choice.deviceTags = {{Tag::PORT_NAME, device.hostName},
                         {Tag::IPADDRESS, device.address},
                         {Tag::HOST_NAME, device.hostName},
                         {Tag::ADD_PORT, FlagText(true)},
                         {Tag::PORT_TYPE, std::wstring(networkPortType)},
                         {Tag::PRINTER_SERIES_NAME, device.rowName},
                         {Tag::PRINTER_MODEL_NAME, device.model}};
}

// Without a pick there is nothing to hold the others against, and a predefined configuration has its own.
void PickDriver(PrinterChoice& choice, const ChoiceInputs& inputs) {
    choice.drivers.push_back({inputs.driverId});
    if (inputs.pickedDriverOnly && !inputs.fromConfig && !inputs.driverId.empty()) {
        choice.onlyPrinterDriver = inputs.driverId;
    }
}

// A multi-function device brings the scan driver with it, and the offer of the fax and scan applications or,
// in the second variant, the fax applications themselves.
void TakePartsOfDevice(PrinterChoice& choice, const ChosenDevice& device, bool isAmazon) {
    choice.drivers.push_back({DriverId::SCAN, device.isMultiFunction});
    if (isAmazon) {
        choice.parts.faxSelected = device.hasFax;
    } else {
        choice.parts.faxOptional = device.isMultiFunction;
        choice.parts.scannerOptional = device.isMultiFunction;
    }
}

}  // namespace

PrinterChoice ChooseDevice(const std::optional<ChosenDevice>& device, const ChoiceInputs& inputs) {
    PrinterChoice choice;
    choice.tags = {{Tag::USB, FlagText(false)},
                   {Tag::NIMBOJET, FlagText(false)},
                   {Tag::DISCOVERED_DEVICE, FlagText(true)}};
    if (device) TakeDevice(choice, *device);
    if (device && inputs.fromConfig) TakeDeviceForDevices(choice, *device);
    if (device && !inputs.fromConfig) TakePartsOfDevice(choice, *device, inputs.isAmazon);
    if (!inputs.fromConfig) {
        PickDriver(choice, inputs);
        choice.records.push_back(L"Selected driver: " + inputs.driverPath);
        choice.tags.push_back({Tag::SELECTED_DRIVER, inputs.driverPath});
    }
    choice.tags.push_back({Tag::DIALOG_ADD_PORT, FlagText(false)});
    choice.links = inputs.fromConfig ? LinkSource::FirstDevice : LinkSource::Settings;
    return choice;
}

// By design: unlike a device, a port takes its type before the flag that adds it in the settings, and after
// it in the devices; and it makes the fax applications optional whatever the device is.
PrinterChoice ChoosePort(const ChosenPort& port, const ChoiceInputs& inputs) {
    PrinterChoice choice;
    choice.tags.push_back({Tag::PORT_NAME, port.name});
    if (port.host) choice.tags.push_back({Tag::HOST_NAME, *port.host});
    AddTags(choice.tags, {{Tag::PORT_TYPE, port.type}, {Tag::ADD_PORT, FlagText(port.add)}});
    if (inputs.fromConfig) {
        choice.deviceTags.push_back({Tag::PORT_NAME, port.name});
        if (port.host) choice.deviceTags.push_back({Tag::HOST_NAME, *port.host});
        AddTags(choice.deviceTags, {{Tag::ADD_PORT, FlagText(port.add)}, {Tag::PORT_TYPE, port.type}});
    } else {
        PickDriver(choice, inputs);
        AddTags(choice.tags, {{Tag::SELECTED_DRIVER, inputs.driverPath}, {Tag::SET_DEFAULT, FlagText(true)}});
        choice.parts.faxOptional = true;
    }
    choice.drivers.push_back({DriverId::SCAN});
    if (inputs.isAmazon) choice.parts = {.faxOptional = false, .scannerOptional = false, .faxSelected = true};
    choice.links = LinkSource::Settings;
    return choice;
}

PrinterChoice ChooseNetwork() {
    return {.parts = {.faxOptional = false, .scannerOptional = false}};
}

// No discovery and no port: the package's default driver, with its scan and fax parts.
PrinterChoice ChooseUsb(const ChoiceInputs& inputs) {
    PrinterChoice choice = ChooseNetwork();
    const std::wstring usb(usbPortType);
    choice.tags = {{Tag::NIMBOJET, FlagText(false)},
                   {Tag::USB, FlagText(true)},
                   {Tag::DISCOVERED_DEVICE, FlagText(false)},
                   {Tag::PORT_TYPE, usb}};
    if (inputs.fromConfig) {
        choice.deviceTags = {{Tag::PORT_TYPE, usb}};
        choice.parts.printerOptional = false;
    }
    choice.parts.faxSelected = true;
    choice.drivers = {{DriverId::SCAN}};
    PickDriver(choice, inputs);
    choice.records = {L"Selected Port Type: USB"};
    return choice;
}

// A package without predefined devices has its port in the settings.
PrinterChoice ChooseAddress(const NetworkAddress& address) {
    const std::wstring& portName = address.portName.empty() ? address.address : address.portName;
    return {.tags = {{Tag::HIDE_DISCOVERY, FlagText(true)},
                     {Tag::PORT_TYPE, std::wstring(networkPortType)},
                     {Tag::HOST_NAME, address.address},
                     {Tag::IPADDRESS, address.address},
                     {Tag::PORT_NAME, portName},
                     {Tag::ADD_PORT, FlagText(true)}},
            .devicePort = address};
}
