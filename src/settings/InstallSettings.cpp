#include "settings/InstallSettings.h"

#include <algorithm>
#include <cwctype>

#include "CommonLib/Singleton.h"
#include "settings/DeviceDocument.h"
#include "settings/KeyedValues.h"
#include "settings/PackageWords.h"
#include "settings/SettingsMerge.h"
#include "settings/StartMarker.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"

namespace {

Singleton<InstallSettings> sharedSettings;

}  // namespace

InstallSettings& InstallSettings::GetInstance() {
    return sharedSettings.Get();
}

void InstallSettings::DestroyInstance() {
    sharedSettings.Destroy();
}

std::wstring InstallSettings::GetString(TextTag tag) const {
    const std::lock_guard guard(lock);
    return TagDocument::ValueOf(document, tag);
}

bool InstallSettings::GetBool(FlagTag tag) const {
    std::wstring value = GetString(TextTag(tag));
    std::ranges::transform(value, value.begin(), [](wchar_t c) {
        return static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(c)));
    });
    return value == L"true" || value == L"1";
}

bool InstallSettings::IsSet(StrictFlagTag tag) const {
    return GetString(TextTag(std::wstring_view(tag))) == tag.Yes();
}

void InstallSettings::SetString(TextTag tag, std::wstring_view value) {
    const std::lock_guard guard(lock);
    TagDocument::SetElement(document, tag, value);
}

void InstallSettings::SetBool(FlagTag tag, bool flag) {
    SetString(TextTag(tag), FlagText(flag));
}

void InstallSettings::SetStrings(std::initializer_list<NamedText> values) {
    for (const auto& [tag, value] : values) SetString(tag, value);
}

void InstallSettings::SetBools(std::initializer_list<NamedFlag> flags) {
    for (const auto& [tag, flag] : flags) SetBool(tag, flag);
}

std::vector<std::wstring> InstallSettings::GetAllValues(ListTag tag) const {
    const std::lock_guard guard(lock);
    return TagDocument::ListValues(document, tag);
}

std::map<std::wstring, std::wstring> InstallSettings::GetKeyedValues(ListTag tag,
                                                                     std::wstring_view separator) const {
    return KeyedValues(GetAllValues(tag), separator);
}

std::vector<std::wstring> InstallSettings::GetDevices() const {
    const std::lock_guard guard(lock);
    return devices;
}

void InstallSettings::SetDevices(std::vector<std::wstring> documents) {
    const std::lock_guard guard(lock);
    devices = std::move(documents);
}

std::vector<std::wstring> InstallSettings::GetDeviceValues(std::wstring_view tag) const {
    std::vector<std::wstring> values;
    for (const std::wstring& device : GetDevices()) {
        std::wstring value = TagDocument::ValueOf(device, tag);
        if (!value.empty()) values.push_back(std::move(value));
    }
    return values;
}

void InstallSettings::SetDeviceValue(std::wstring_view tag, std::wstring_view value) {
    const std::lock_guard guard(lock);
    for (std::wstring& device : devices) SetDeviceTag(device, tag, value);
}

void InstallSettings::SetNetworkPort(std::wstring_view address, std::wstring_view portName) {
    const std::lock_guard guard(lock);
    for (std::wstring& device : devices) ::SetNetworkPort(device, address, portName);
}

void InstallSettings::AppendStartApp(std::wstring_view text) {
    const std::lock_guard guard(lock);
    TagDocument::SetElement(document, Tag::STARTAPP,
                            TagDocument::ValueOf(document, Tag::STARTAPP).append(text));
}

std::wstring InstallSettings::GetStartApp() const {
    return GetString(Tag::STARTAPP);
}

std::wstring InstallSettings::StripMarker() const {
    const std::lock_guard guard(lock);
    return StripStartMarker(document);
}

std::wstring InstallSettings::FileValues() const {
    const std::lock_guard guard(lock);
    return HoldsStartMarker(document) ? StripStartMarker(document) : document;
}

void InstallSettings::Append(std::wstring_view text) {
    const std::lock_guard guard(lock);
    document += text;
}

void InstallSettings::Merge(std::wstring_view incoming) {
    const std::lock_guard guard(lock);
    MergeDocument(document, mergedRecord, incoming);
}

bool InstallSettings::IsAmazonSupported() const {
    return IsSet(Tag::AMAZON_SUPPORTED);
}
