// The tags of the settings files, by what the wizard does with them.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace packagecheck {

enum class TagUse {
    Text,
    Flag,    // "true" in any case or "1"
    Strict,  // yes in one form alone
    List,    // repeated
    Run,     // the run sets it itself, whatever the file says
};

struct KnownTag {
    std::wstring_view name;
    TagUse use = TagUse::Text;
    std::wstring_view yes;  // of a strict flag
};

// The tags outside of devices.
std::span<const KnownTag> SettingsTags();

// Returns the tag outside of devices of that name, or null.
const KnownTag* FindSettingsTag(std::wstring_view name);

// True for a tag of a DEVICE: the wizard's own, and those of PrinterQueue.dll.
bool IsDeviceTag(std::wstring_view name);
std::span<const std::wstring_view> DeviceTags();

// Returns the names of the tags outside of devices.
std::vector<std::wstring_view> SettingsTagNames();

// Returns the one of the names that the text is most probably meant to be, or the empty text where none is
// near: so many characters at most may differ, or a third of them.
std::wstring NearestName(std::wstring_view text, std::span<const std::wstring_view> names,
                         std::size_t mostSlips);
std::wstring NearestName(std::wstring_view text, std::span<const std::wstring_view> names);

// Returns " Perhaps ... is meant." for the nearest name, or the empty text.
std::string NearestHint(std::wstring_view text, std::span<const std::wstring_view> names);

}  // namespace packagecheck
