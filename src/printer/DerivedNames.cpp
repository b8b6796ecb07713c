#include "printer/DerivedNames.h"

#include <algorithm>

#include "CommonLib/Vendor.h"
#include "settings/ColourWords.h"
#include "settings/TagNames.h"

namespace {

std::wstring BaseNameFor(const NameInputs& inputs) {
    if (inputs.isFaxDriver) return inputs.faxModelName;
    if (!inputs.printerName.empty() && inputs.isNameFromDiscovery) return inputs.printerName;
    if (inputs.oem == unnamedVendor) return inputs.modelName;
    return OemDefaultName(inputs.oemName, inputs.defaultPrinterName);
}

}  // namespace

std::wstring PrinterNameFor(const NameInputs& inputs) {
    std::wstring name = BaseNameFor(inputs);
    if (!inputs.isFaxDriver && !inputs.streamDisplayName.empty()) name += L' ' + inputs.streamDisplayName;
    if (inputs.upd == L"2") name += L" (" + inputs.webDriverVersion + L')';
    return name;
}

std::wstring DriverProductNameFor(const NameInputs& inputs) {
    if (inputs.isFaxDriver) return inputs.faxModelName;
    if (inputs.upd == L"1" || inputs.printerName.empty()) return inputs.modelName;
    return inputs.printerName;
}

// By design: the blank stands there without a brand as well.
std::wstring OemDefaultName(std::wstring_view oemName, std::wstring_view defaultPrinterName) {
    return std::wstring(oemName).append(L" ").append(defaultPrinterName);
}

std::wstring DefaultDriverTag(std::wstring_view colourClass, bool windows8OrLater) {
    std::wstring_view tag = Tag::NO_COMM_DEFAULT;
    if (colourClass == ColourClass::mono) tag = Tag::MONO_DEFAULT;
    if (colourClass == ColourClass::color) tag = Tag::COLOR_DEFAULT;
    return std::wstring(windows8OrLater ? L"WIN8_" : L"").append(tag);
}

std::wstring ProductCodeFor(const std::map<std::wstring, std::wstring>& codesBySeries,
                            std::wstring_view model, const std::wstring& series) {
    const auto entry = codesBySeries.find(series);
    if (entry == codesBySeries.end()) return {};
    std::wstring_view rest = entry->second;
    std::wstring_view code;
    for (bool more = true; more;) {
        const std::size_t end = rest.find(L'|');
        const std::wstring_view piece = rest.substr(0, end);
        if (model.find(piece) != std::wstring_view::npos) code = piece;
        more = end != std::wstring_view::npos;
        if (more) rest.remove_prefix(end + 1);
    }
    return std::wstring(code);
}

// The first match counts, and the character after it is dropped, whatever it is: it is a blank as a rule. An
// empty brand is found at the start.
std::optional<std::wstring> FormatProductCode(std::wstring_view code, std::wstring_view oemName) {
    const std::size_t brand = code.find(oemName);
    if (brand == std::wstring_view::npos) return std::wstring();
    const std::size_t after = brand + oemName.size() + 1;
    if (after > code.size()) return std::nullopt;
    return std::wstring(oemName).append(L"_").append(code.substr(after));
}

// A series that comes back after another one counts as different, since only neighbours are compared.
SeriesAndModel CommonSeries(const std::vector<SeriesAndModel>& devices) {
    if (devices.empty()) return {};
    const bool shared = std::ranges::all_of(devices, [&](const SeriesAndModel& device) {
        return !device.series.empty() && device.series == devices.front().series;
    });
    return shared ? devices.back() : SeriesAndModel{};
}

std::optional<std::wstring> CountedName(const std::wstring& value, unsigned count) {
    const std::size_t dot = value.rfind(L'.');
    if (dot == std::wstring::npos) return std::nullopt;
    return value.substr(0, dot) + L'_' + std::to_wstring(count) + value.substr(dot);
}
