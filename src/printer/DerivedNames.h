// Names, tags and codes that are computed from settings. Everything here is a function of its arguments and
// may run on any thread; a setting that is missing is handed in as the empty text.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct NameInputs {
    bool isFaxDriver = false;
    std::wstring streamDisplayName;  // of the driver's record
    std::wstring printerName;
    bool isNameFromDiscovery = false;
    std::wstring oem;
    std::wstring oemName;
    std::wstring defaultPrinterName;
    std::wstring upd;
    std::wstring webDriverVersion;
    std::wstring modelName;     // of the brand
    std::wstring faxModelName;  // of the brand
};

// Returns the name that is proposed for the printer of a driver.
std::wstring PrinterNameFor(const NameInputs& inputs);

// Returns the product name by which the driver's own installation knows its printer.
std::wstring DriverProductNameFor(const NameInputs& inputs);

// Returns brand, one blank, model; the blank stands in front of the model where there is no brand.
std::wstring OemDefaultName(std::wstring_view oemName, std::wstring_view defaultPrinterName);

// Returns the tag that holds the default driver of a colour class, "mono", "color" or anything else.
std::wstring DefaultDriverTag(std::wstring_view colourClass, bool windows8OrLater);

// Returns the last of the series' codes, separated by "|", that occurs in the model; empty where none does or
// the series is not in the map.
std::wstring ProductCodeFor(const std::map<std::wstring, std::wstring>& codesBySeries,
                            std::wstring_view model, const std::wstring& series);

// Returns the brand, "_" and the part of the code that begins one character after the brand; empty where the
// brand does not occur. Returns nothing for a code that ends with the first occurrence of the brand: such a
// code is a mistake of the package, which the caller logs as an error and treats as empty.
std::optional<std::wstring> FormatProductCode(std::wstring_view code, std::wstring_view oemName);

struct SeriesAndModel {
    std::wstring series;
    std::wstring model;
};

// Returns the series that all devices share and the model of the last device, or two empty texts where the
// devices differ, one has no series, or there is none.
SeriesAndModel CommonSeries(const std::vector<SeriesAndModel>& devices);

// Returns the file name with "_" and the count in front of its last "."; nothing where it has no ".", so that
// no free name can be found.
std::optional<std::wstring> CountedName(const std::wstring& value, unsigned count);
