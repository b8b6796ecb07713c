// What follows from the choice of a printer: which settings, which driver, which parts of the package.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Everything here is a function of its arguments and may run on any thread. ApplyChoice makes a choice count.

struct TagValue {
    std::wstring_view tag;
    std::wstring value;

    bool operator==(const TagValue&) const = default;
};

// Flags of the applications, by the kind of device or driver that they are for. What holds nothing leaves
// them as they are.
struct PartsChange {
    std::optional<bool> faxOptional;
    std::optional<bool> scannerOptional;
    std::optional<bool> printerOptional;
    std::optional<bool> faxSelected;

    bool operator==(const PartsChange&) const = default;
};

// Selects every driver with that identifier, or takes the selection back.
struct DriverChange {
    std::wstring id;
    bool selected = true;

    bool operator==(const DriverChange&) const = default;
};

// Where the help link takes its model and its series from.
enum class LinkSource { None, Settings, FirstDevice };

struct NetworkAddress {
    std::wstring address;
    std::wstring portName;  // empty for the address itself

    bool operator==(const NetworkAddress&) const = default;
};

// All parts count in the order in which they stand here, and each list in its own.
struct PrinterChoice {
    std::vector<TagValue> tags;
    // Of the device documents of a predefined configuration.
    std::optional<NetworkAddress> devicePort;
    std::optional<std::wstring> detectedName;
    std::vector<TagValue> deviceTags;
    PartsChange parts;
    // Identifier of the one printer driver that is to be selected; scan and fax drivers stay as they are.
    std::optional<std::wstring> onlyPrinterDriver;
    std::vector<DriverChange> drivers;
    std::vector<std::wstring> records;  // for the basic log
    LinkSource links = LinkSource::None;

    bool operator==(const PrinterChoice&) const = default;
};

// What the package and the page say beside the printer.
struct ChoiceInputs {
    bool fromConfig = false;  // a predefined configuration names the printers
    bool isAmazon = false;
    bool pickedDriverOnly = false;  // the other printer drivers stay away
    std::wstring driverId;          // picked on the page
    std::wstring driverPath;        // of its package
};

// A device of the network as its row and its record describe it.
struct ChosenDevice {
    std::wstring rowName;
    std::wstring hostName;
    std::wstring address;
    std::wstring model;
    bool isMultiFunction = false;
    bool hasFax = false;
};

// A port described by hand; a host is set for a new network port only.
struct ChosenPort {
    std::wstring name;
    std::optional<std::wstring> host;
    std::wstring type;
    bool add = false;
};

// Returns what follows from a device of the list, or from none where no row is selected.
PrinterChoice ChooseDevice(const std::optional<ChosenDevice>& device, const ChoiceInputs& inputs);

PrinterChoice ChoosePort(const ChosenPort& port, const ChoiceInputs& inputs);

// Returns what follows from the answer that the printer is on the network, before any is found.
PrinterChoice ChooseNetwork();

// Returns the choice of USB with the package's default driver, which stands in the inputs.
PrinterChoice ChooseUsb(const ChoiceInputs& inputs);

// Returns what follows from an address on the command line.
PrinterChoice ChooseAddress(const NetworkAddress& address);
