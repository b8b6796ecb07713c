#include "catalogue/DriverInfo.h"

#include <algorithm>
#include <utility>

#include "CommonLib/Log.h"
#include "CommonLib/MsiCodes.h"
#include "CommonLib/Singleton.h"
#include "CommonLib/TextUtilities.h"
#include "catalogue/PackageProperties.h"
#include "catalogue/PackageReader.h"
#include "catalogue/PropertyNames.h"
#include "settings/TagNames.h"
#include "settings/TextKeys.h"

namespace {

Singleton<DriverInfo> theDrivers;

std::vector<std::wstring> FindDriverFiles(const CatalogueSource& source) {
    std::vector<std::wstring> paths = source.listPackages(L"Drivers\\x64\\", {});
    const std::vector<std::wstring> more = source.listPackages(L"Drivers\\x86_x64\\", {});
    paths.insert(paths.end(), more.begin(), more.end());
    return paths;
}

// The properties that printer drivers and the others have alike; a failed read keeps the field.
void ReadCommonProperties(IMsiInterface& msi, const std::wstring& language, MSI_APP& record) {
    const auto read = [&](const wchar_t* name, std::wstring& field) {
        return ReadProperty(msi, record.msiPath, language, name, field) == MsiCode::Success;
    };
    read(Property::ProductName, record.productName);
    if (!read(Property::DEVICETYPE, record.deviceType)) LogAdvanced(L"Failed to get DEVICETYPE property.");
    read(Property::STARTAPP, record.startApp);
    read(Property::SecureCustomProperties, record.secureCustomProperties);
    std::wstring size;
    if (read(Property::INSTALLSIZE, size)) record.installSizeMb = InstallSizeInMb(size);
    read(Property::ProductVersion, record.productVersion);
}

}  // namespace

DriverInfo& DriverInfo::GetInstance() {
    return theDrivers.Get();
}

void DriverInfo::PopulateDriverList(const CatalogueSource& source) {
    LogAdvanced(L"DriverInfo::PopulateDriverList()");
    const std::vector<std::wstring> paths = FindDriverFiles(source);
    LoadAcceptedDriverTypes(source);
    const std::wstring language = source.localizer.GetString(TextKey::LANGUAGE_ID);
    for (const std::wstring& path : paths) {
        MSI_APP record;
        record.isSelected = true;
        record.isSupportedDriver = true;
        record.msiPath = path;
        LogAdvanced(L"Getting Properties for: " + path);
        if (!ReadDriverProperties(source.msi, language, record)) continue;
        ReadInstalledState(source.msi, record);
        ReadCommonProperties(source.msi, language, record);
        Append(std::move(record));
    }
}

void DriverInfo::Append(MSI_APP record) {
    const std::lock_guard guard(lock);
    driverInfoList.push_back(std::move(record));
    MSI_APP& stored = driverInfoList.back();
    byId[stored.driverId].push_back(&stored);
    byPath.emplace(stored.msiPath, &stored);
}

void DriverInfo::LoadAcceptedDriverTypes(const CatalogueSource& source) {
    const bool newer = source.system.isWindows8OrLater;
    const std::wstring types = source.settings.GetString(newer ? Tag::WIN8_DRVTYPES : Tag::WINXP_DRVTYPES);
    LogAdvanced((newer ? L"Using WIN8_DRVTYPES: " : L"Using WINXP_DRVTYPES: ") + types);
    const std::vector<std::wstring> accepted = AcceptedDriverTypes(types);
    acceptedDriverTypes.insert(acceptedDriverTypes.end(), accepted.begin(), accepted.end());
}

// False for a printer driver of a type that this system does not accept.
bool DriverInfo::ReadDriverProperties(IMsiInterface& msi, const std::wstring& language,
                                      MSI_APP& record) const {
    const auto read = [&](const wchar_t* name, std::wstring& field) {
        return ReadProperty(msi, record.msiPath, language, name, field);
    };
    const std::uint32_t nameCode = read(Property::DRIVERNAME, record.driverName);
    if (nameCode != MsiCode::Success) {
        LogAdvanced(L"Failed to get DRIVERNAME property. Return Code: " + ToDecimalString(nameCode));
    }
    if (read(Property::DRIVERID, record.driverId) != MsiCode::Success) {
        // By design: the code is that of reading the name.
        LogAdvanced(L"Failed to get DRIVERID property. Return Code: " + ToDecimalString(nameCode));
    }
    ClassifyDriver(record);
    if (!record.isPrinterDriver) return true;

    // A driver that a predefined configuration names is selected, as every accepted driver is from the start.
    if (std::ranges::find(acceptedDriverTypes, record.driverId) == acceptedDriverTypes.end()) {
        LogAdvanced(L"DRIVERID " + record.driverId +
                    L" is NOT supported. Not added to driver driverInfoList.");
        return false;
    }
    record.isSupportedDriver = true;
    LogAdvanced(L"DRIVERID " + record.driverId + L" is supported.");
    if (read(Property::STREAMDISPLAYNAME, record.streamDisplayName) != MsiCode::Success) {
        LogAdvanced(L"Failed to get STREAMDISPLAYNAME property.");
    }
    std::wstring ombrel;
    if (read(Property::ISOMBRELSUPPORTED, ombrel) == MsiCode::Success && ombrel == L"TRUE") {
        record.ombrelSupported = true;
        LogAdvanced(record.driverName + L" Supports Ombrel.");
    }
    return true;
}

void DriverInfo::Clear() {
    const std::lock_guard guard(lock);
    byId.clear();
    byPath.clear();
    driverInfoList.clear();
}

std::wstring DriverInfo::GetDriverPath(const std::wstring& driverId) const {
    const std::lock_guard guard(lock);
    const auto named = byId.find(driverId);
    return named == byId.end() ? std::wstring() : named->second.back()->msiPath;
}

bool DriverInfo::IsOmbrelSupported(const std::wstring& driverId) const {
    const std::lock_guard guard(lock);
    const auto named = byId.find(driverId);
    return named != byId.end() && named->second.back()->ombrelSupported;
}

std::vector<MSI_APP> DriverInfo::GetDrivers() const {
    const std::lock_guard guard(lock);
    return {driverInfoList.begin(), driverInfoList.end()};
}

MSI_APP DriverInfo::GetDriver(const std::wstring& driverId) const {
    const std::lock_guard guard(lock);
    const auto named = byId.find(driverId);
    return named == byId.end() ? MSI_APP() : *named->second.front();
}

void DriverInfo::SelectDriver(const std::wstring& driverId, bool selected) {
    const std::lock_guard guard(lock);
    const auto named = byId.find(driverId);
    if (named == byId.end()) return;
    for (MSI_APP* record : named->second) record->isSelected = selected;
}

void DriverInfo::SelectOnlyPrinterDriver(const std::wstring& driverId) {
    const std::lock_guard guard(lock);
    const auto isPicked = [&](const MSI_APP& record) {
        return record.isPrinterDriver && record.driverId == driverId;
    };
    if (std::ranges::none_of(driverInfoList, isPicked)) return;
    for (MSI_APP& record : driverInfoList) {
        if (record.isPrinterDriver) record.isSelected = isPicked(record);
    }
}

void DriverInfo::RecordOutcome(const MSI_APP& outcome) {
    const std::lock_guard guard(lock);
    const auto known = byPath.find(outcome.msiPath);
    if (known == byPath.end()) return;
    known->second->isInstalled = outcome.isInstalled;
    known->second->status = outcome.status;
}
