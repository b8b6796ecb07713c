// The list of brands that a package serves. All may run on any thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "settings/InstallSettings.h"

struct Manufacturer {
    std::wstring oemByte;
    std::wstring name;
};

// The entries of a list "name:code|name:code" in order. An entry without ":" has no code; empty ones are left
// out.
std::vector<Manufacturer> ParseManufacturers(std::wstring_view list);

// The brand that the wizard uses, for the package's own brand and the chosen name: a package that names its
// brand keeps it.
std::wstring BrandFor(std::wstring_view oem, std::wstring_view chosen);

// The name with a left-to-right mark after a final point.
std::wstring MarkFinalPoint(std::wstring name);

// Makes a brand count that is chosen, or that is the only one. Reads OEM; writes OEM_NAME.
void ApplyBrand(InstallSettings& settings, std::wstring_view chosen);

// Makes the choice of an entry count, by its name. Reads OEM; writes OEM_NAME and OEMBYTE.
void ChooseManufacturer(InstallSettings& settings, const std::vector<Manufacturer>& manufacturers,
                        const std::wstring& name);

// The name that the page begins with, for the one that the settings want; nothing where the user has to
// choose. By design: the place counts the entries, also those without a name, which the page's box does not
// hold.
std::optional<std::wstring> PreselectedManufacturer(const std::vector<Manufacturer>& manufacturers,
                                                    std::wstring_view wanted);

// Settles whether there is anything to choose, and the brand where there is not. Writes OEMBYTE and
// SHOW_MANUFACTURERS.
void SettleManufacturers(InstallSettings& settings, const std::vector<Manufacturer>& manufacturers);
