// The documents by which the program asks for devices and is told of them: elements as the settings have
// them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "standins/discovery/DeviceFacts.h"
#include "standins/discovery/OemTable.h"

namespace discovery {

// What a search document asks for: the networks that this machine is in, one host by name or address, or
// subnets.
struct LocalNetworks {};
struct OneHost {
    std::wstring name;
};
struct RemoteSubnets {
    std::vector<Subnet> subnets;
};
using SearchScope = std::variant<LocalNetworks, OneHost, RemoteSubnets>;

// Reads a search document. Subnets that cannot be read are left out; where none is left, nothing is searched.
SearchScope ReadSearchDocument(std::wstring_view document);

// Which devices an enumeration document wants.
struct DeviceFilter {
    // Makers by their names, any of which a device may bear; none where all are wanted.
    std::vector<std::wstring> makers;
    // Models or series, any of which a device may be; none where all are wanted.
    std::vector<std::wstring> series;

    bool Wants(const DeviceFacts& device) const;
};
DeviceFilter ReadEnumerationDocument(std::wstring_view document, const OemTable& table);

// The document of a device. Names are those that this system can reach it by: the one of multicast DNS where
// the system resolves such names, else the address. An IPv6 address stands in the form without colons, since
// a colon ends the address in the answer about colours.
// The series is what tells the device from others, see MakeListing.
std::wstring MakeDeviceDocument(const DeviceFacts& device, std::wstring_view series, bool resolvesLocalNames);

// The address by which a device goes: its first of IPv4, else of IPv6, one that is not link-local before
// others.
const NetworkAddress& MainAddress(const DeviceFacts& device);

// The documents one after the other, each ended by a NUL character. A series is the model without the maker.
// Of devices of one model each has its name or address after it, since the program finds the port of the
// picked one by its series.
std::wstring MakeListing(const std::vector<DeviceFacts>& devices, const DeviceFilter& filter,
                         bool resolvesLocalNames);

// What the library that asks devices gets to know of one that was found already.
std::wstring MakeRecallDocument(const DeviceFacts& device);
DeviceFacts ReadRecallDocument(std::wstring_view document);

// The words for a colour that is known.
std::wstring_view ColourWord(bool isColour);

}  // namespace discovery
