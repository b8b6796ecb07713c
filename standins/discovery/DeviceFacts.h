// What is known of one device, whoever told it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "standins/discovery/Bytes.h"
#include "standins/discovery/KeyedTexts.h"
#include "standins/discovery/NetworkAddress.h"

namespace discovery {

// Who names a device, from the one to believe least to the one to believe most: a line for people to read,
// the record that announces a service, the printer when it is asked, and the id that drivers are chosen by.
enum class Witness : std::uint8_t { None, Description, Announcement, Printer, DeviceId };

// Where IPP is spoken without encryption.
struct IppPlace {
    std::uint16_t port = 631;
    std::string path = "/ipp/print";

    bool operator==(const IppPlace&) const = default;
};

// Texts are as the device sent them: bytes that may be no UTF-8.
struct DeviceName {
    Witness witness = Witness::None;
    std::string maker;
    std::string model;
};

struct DeviceFacts {
    // The addresses of the device, each once.
    std::vector<NetworkAddress> addresses;
    // Its name in multicast DNS ("printer5.local"), if any.
    std::string localName;
    // Six bytes, or empty.
    Bytes hardwareAddress;
    // A universally unique id as text, or empty.
    std::string uuid;
    DeviceName name;
    // Nothing where the device does not say.
    std::optional<bool> isColour;
    std::optional<bool> hasFax;
    std::optional<bool> canScan;
    std::optional<IppPlace> ipp;
    // It is a printer, not merely something that answers.
    bool isPrinter = false;
};

// The name out of a device id, or out of a text that holds maker and model ("Halvenny Loom 310") where the
// maker is known.
DeviceName NameOf(const KeyedTexts& deviceId);
DeviceName NameOf(std::string_view makerAndModel, std::string_view maker, Witness witness);

// What a device id says of fax and scanning, filled into the facts; what it does not say is left alone.
void TakeClasses(const KeyedTexts& deviceId, DeviceFacts& facts);

// Takes from the second what the first lacks; of two names that of the better witness.
void Complete(DeviceFacts& facts, const DeviceFacts& more);

}  // namespace discovery
