// What a package builder must know of each name in the data of a package. All texts are English.
#pragma once

#include <span>
#include <string_view>

namespace packagecheck {

struct FormatEntry {
    std::wstring_view name;
    std::string_view value;    // its form
    std::string_view meaning;  // a phrase without a point at its end
    std::string_view reader;   // what reads it
    std::string_view without;  // what holds where it is missing
};

// The tags of the settings files outside of devices, those that the run sets left out.
std::span<const FormatEntry> SettingsEntries();

// The tags of a DEVICE; nothing says what holds without them but the meaning.
std::span<const FormatEntry> DeviceEntries();

// The properties of .msi files.
std::span<const FormatEntry> PropertyEntries();

// Returns the entry of that name, or null.
const FormatEntry* FindEntry(std::span<const FormatEntry> entries, std::wstring_view name);

}  // namespace packagecheck
