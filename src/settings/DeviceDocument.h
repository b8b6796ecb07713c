// Operations on one device document, a tag document. They change the text in place; a document belongs to one
// thread at a time.
#pragma once

#include <string>
#include <string_view>

// The types of ports, as the settings name them.
inline constexpr std::wstring_view networkPortType = L"Standard TCP/IP Port";
inline constexpr std::wstring_view localPortType = L"Local Port";
inline constexpr std::wstring_view usbPortType = L"USB";

// Sets a tag. The value "USB" for a device with the fax driver sets its local port instead, whatever the tag.
void SetDeviceTag(std::wstring& device, std::wstring_view name, std::wstring_view value);

// Sets the tags of a network port; an empty port name stands for the address.
void SetNetworkPort(std::wstring& device, std::wstring_view address, std::wstring_view portName);
