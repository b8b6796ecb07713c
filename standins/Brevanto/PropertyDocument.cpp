#include "standins/Brevanto/PropertyDocument.h"

#include <algorithm>
#include <map>
#include <utility>

#include "settings/TagDocument.h"

namespace brevanto {
namespace {

// Splits NAME.1031 into NAME and 1031; a name without such an end comes back whole, with no language.
std::pair<std::wstring, std::wstring> SplitLanguage(const std::wstring& name) {
    const std::size_t point = name.rfind(L'.');
    const bool isVariant = point != std::wstring::npos && point > 0 && point + 1 < name.size() &&
                           name.find_first_not_of(L"0123456789", point + 1) == std::wstring::npos;
    if (!isVariant) return {name, {}};
    return {name.substr(0, point), name.substr(point + 1)};
}

// The properties as one language sees them, each name once.
std::vector<Property> Resolve(const std::vector<Property>& properties, const std::wstring& language) {
    std::vector<Property> resolved;
    std::map<std::wstring, std::size_t> places;
    for (const Property& property : properties) {
        auto [name, variant] = SplitLanguage(property.name);
        if (!variant.empty() && variant != language) continue;
        const auto [place, isNew] = places.try_emplace(name, resolved.size());
        if (isNew) {
            resolved.push_back({.name = std::move(name), .value = property.value});
        } else if (!variant.empty()) {
            resolved[place->second].value = property.value;
        }
    }
    return resolved;
}

}  // namespace

std::wstring PropertyValue(const std::vector<Property>& properties, const std::wstring& name) {
    const auto found = std::ranges::find(properties, name, &Property::name);
    return found == properties.end() ? std::wstring() : found->value;
}

std::wstring BuildPropertyDocument(const std::vector<Property>& properties, const std::wstring& language) {
    std::wstring document;
    for (const Property& property : Resolve(properties, language)) {
        document += TagDocument::MakeElement(property.name, property.value);
    }
    return document;
}

}  // namespace brevanto
