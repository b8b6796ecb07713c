#include "settings/DeviceDocument.h"

#include "settings/TagDocument.h"

using TagDocument::SetElement;

void SetDeviceTag(std::wstring& device, std::wstring_view name, std::wstring_view value) {
    if (value == L"USB" && TagDocument::ValueOf(device, L"DRIVER_ID") == L"Fax") {
        // A fax driver cannot print through USB. The tag that was asked for is not written, and this is
        // meant.
        SetElement(device, L"PORT_NAME", L"LPT1:");
        SetElement(device, L"PORT_TYPE", L"Local Port");
        SetElement(device, L"ADD_PORT", L"false");
        return;
    }
    SetElement(device, name, value);
}

void SetNetworkPort(std::wstring& device, std::wstring_view address, std::wstring_view portName) {
    SetElement(device, L"PORT_TYPE", networkPortType);
    SetElement(device, L"HOST_NAME", address);
    SetElement(device, L"IPADDRESS", address);
    SetElement(device, L"PORT_NAME", portName.empty() ? address : portName);
}
