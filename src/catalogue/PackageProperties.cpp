#include "catalogue/PackageProperties.h"

#include <algorithm>

#include "CommonLib/TextUtilities.h"
#include "settings/PackageWords.h"

// What LeadingNumber reads ends in front of the unit and of blanks, so nothing has to be cut off before.
double InstallSizeInMb(std::wstring_view text) {
    return LeadingNumber(text.substr(0, text.find(L"MB")));
}

std::wstring JoinDependentNames(const std::vector<std::wstring>& names, std::wstring_view andWord) {
    std::wstring joined;
    for (const auto& name : names) joined.append(name).append(L",");
    if (!joined.empty()) joined.pop_back();
    const std::size_t comma = joined.rfind(L',');
    if (comma == std::wstring::npos) return joined;
    return joined.replace(comma, 1, std::wstring(L" ").append(andWord).append(L" "));
}

bool SupportsSystem(std::wstring_view supportedOs, std::wstring_view systemName) {
    // By design: a single entry is not compared, so such a package is offered on every system.
    if (supportedOs.find(L';') == std::wstring_view::npos) return true;
    const auto names = SplitClosed(std::wstring(supportedOs) + L';', L';');
    return std::ranges::find(names, systemName) != names.end();
}

bool MatchesDeviceType(std::wstring_view recordType, std::wstring_view wanted) {
    if (recordType.empty() || recordType == wanted) return true;
    // By design: what follows the last ";" is not compared.
    const auto types = SplitClosed(wanted, L';');
    return std::ranges::find(types, recordType) != types.end();
}

bool NamesFaxDriver(std::wstring_view driverId) {
    return driverId.find(DriverId::FAX) != std::wstring_view::npos;
}

void ClassifyDriver(MSI_APP& app) {
    if (app.driverId.empty()) return;
    if (app.driverId == DriverId::SCAN) {
        app.isScanDriver = true;
    } else if (app.driverId == DriverId::FAX) {
        app.isFaxDriver = true;
    } else {
        app.isPrinterDriver = true;
    }
}

std::vector<std::wstring> AcceptedDriverTypes(std::wstring_view setting) {
    if (setting.empty()) return {};
    return SplitClosed(std::wstring(setting) + L';', L';');
}
