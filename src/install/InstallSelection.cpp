#include "install/InstallSelection.h"

#include <list>

#include "catalogue/PackageFilters.h"
#include "settings/TagNames.h"

std::vector<MSI_APP> SelectApps(const InstallSettings& settings, const AppCatalogue& applications) {
    std::wstring_view filter = PackageFilter::selectedForCoreRun;
    if (settings.GetBool(Tag::OPTIONAL_INSTALL)) filter = PackageFilter::selectedForOptionalRun;
    if (settings.IsAmazonSupported()) filter = PackageFilter::selected;
    const std::list<MSI_APP> selected = applications.Select(filter);
    return {selected.begin(), selected.end()};
}

std::vector<MSI_APP> SelectDrivers(const InstallSettings& settings, const DriverInfo& drivers) {
    if (settings.GetBool(Tag::OPTIONAL_INSTALL)) return {};
    std::vector<MSI_APP> selected = drivers.GetDrivers();
    std::erase_if(selected, [](const MSI_APP& driver) { return !driver.isSelected; });
    return selected;
}
