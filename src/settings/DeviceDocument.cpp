#include "settings/DeviceDocument.h"

#include "settings/PackageWords.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"

using TagDocument::SetElement;

void SetDeviceTag(std::wstring& device, std::wstring_view name, std::wstring_view value) {
    if (value == usbPortType && TagDocument::ValueOf(device, Tag::DRIVER_ID) == DriverId::FAX) {
        // By design: a fax driver cannot print through USB, and the tag that was asked for is not written.
        SetElement(device, Tag::PORT_NAME, L"LPT1:");
        SetElement(device, Tag::PORT_TYPE, localPortType);
        SetElement(device, Tag::ADD_PORT, L"false");
        return;
    }
    SetElement(device, name, value);
}

void SetNetworkPort(std::wstring& device, std::wstring_view address, std::wstring_view portName) {
    SetElement(device, Tag::PORT_TYPE, networkPortType);
    SetElement(device, Tag::HOST_NAME, address);
    SetElement(device, Tag::IPADDRESS, address);
    SetElement(device, Tag::PORT_NAME, portName.empty() ? address : portName);
}
