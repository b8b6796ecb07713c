#include "pages/ManufacturerList.h"

#include <algorithm>

#include "CommonLib/TextUtilities.h"
#include "CommonLib/Vendor.h"
#include "settings/TagNames.h"

std::vector<Manufacturer> ParseManufacturers(std::wstring_view list) {
    std::vector<Manufacturer> manufacturers;
    while (!list.empty()) {
        const std::size_t end = list.find(L'|');
        const std::wstring_view entry = list.substr(0, end);
        list.remove_prefix(end == std::wstring_view::npos ? list.size() : end + 1);
        if (entry.empty()) continue;
        const std::size_t colon = entry.find(L':');
        const bool hasCode = colon != std::wstring_view::npos;
        manufacturers.push_back(
            {.oemByte = std::wstring(hasCode ? entry.substr(colon + 1) : std::wstring_view()),
             .name = std::wstring(entry.substr(0, colon))});
    }
    return manufacturers;
}

std::wstring BrandFor(std::wstring_view oem, std::wstring_view chosen) {
    if (!oem.empty() && oem != unnamedVendor) return std::wstring(oem);
    return std::wstring(chosen.empty() ? std::wstring_view(unnamedVendor) : chosen);
}

std::wstring MarkFinalPoint(std::wstring name) {
    if (name.ends_with(L'.')) name += leftToRightMark;
    return name;
}

void ApplyBrand(InstallSettings& settings, std::wstring_view chosen) {
    const std::wstring oem = settings.GetString(Tag::OEM);
    settings.SetString(Tag::OEM_NAME, BrandFor(oem, chosen));
}

void ChooseManufacturer(InstallSettings& settings, const std::vector<Manufacturer>& manufacturers,
                        const std::wstring& name) {
    ApplyBrand(settings, name);
    const auto match = std::ranges::find(manufacturers, name, &Manufacturer::name);
    if (match != manufacturers.end()) settings.SetString(Tag::OEMBYTE, match->oemByte);
}

std::optional<std::wstring> PreselectedManufacturer(const std::vector<Manufacturer>& manufacturers,
                                                    std::wstring_view wanted) {
    const auto match = std::ranges::find(manufacturers, wanted, &Manufacturer::name);
    if (match == manufacturers.end()) return std::nullopt;
    auto place = match - manufacturers.begin();
    for (const Manufacturer& entry : manufacturers) {
        if (!entry.name.empty() && place-- == 0) return entry.name;
    }
    return std::nullopt;
}

void SettleManufacturers(InstallSettings& settings, const std::vector<Manufacturer>& manufacturers) {
    settings.SetBool(Tag::SHOW_MANUFACTURERS, manufacturers.size() > 1);
    if (manufacturers.size() > 1) return;
    ApplyBrand(settings, manufacturers.empty() ? std::wstring() : manufacturers.front().name);
    if (!manufacturers.empty()) settings.SetString(Tag::OEMBYTE, manufacturers.front().oemByte);
}
