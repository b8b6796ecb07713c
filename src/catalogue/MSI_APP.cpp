#include "catalogue/MSI_APP.h"

#include <functional>
#include <map>

#include "catalogue/PackageFilters.h"
#include "catalogue/PackageProperties.h"
#include "settings/FilterDocument.h"

namespace {

using Predicate = std::function<bool(const MSI_APP&, std::wstring_view)>;

// Only the exact word "true" asks for the flag; any other value, "TRUE" among them, asks for its absence.
Predicate FlagIs(bool MSI_APP::*flag) {
    return [flag](const MSI_APP& app, std::wstring_view value) { return app.*flag == (value == L"true"); };
}

const std::map<std::wstring, Predicate, std::less<>>& Predicates() {
    static const std::map<std::wstring, Predicate, std::less<>> predicates = {
        {FilterName::ISOPTIONAL, FlagIs(&MSI_APP::isOptional)},
        {FilterName::ISINSTALLED, FlagIs(&MSI_APP::isInstalled)},
        {FilterName::ISSELECTED, FlagIs(&MSI_APP::isSelected)},
        {FilterName::DEVICETYPE,
         [](const MSI_APP& app, std::wstring_view value) {
             return MatchesDeviceType(app.deviceType, value);
         }},
    };
    return predicates;
}

}  // namespace

bool MSI_APP::Matches(std::wstring_view filter) const {
    return MatchesFilter(filter, [this](std::wstring_view name, std::wstring_view value) {
        const auto entry = Predicates().find(name);
        return entry != Predicates().end() && entry->second(*this, value);
    });
}
