#include "catalogue/PackageReader.h"

#include <algorithm>
#include <vector>

#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "CommonLib/MsiCodes.h"
#include "CommonLib/TextUtilities.h"
#include "catalogue/PackageProperties.h"
#include "catalogue/PropertyNames.h"
#include "settings/TextKeys.h"

namespace {

// Reads one package after the other, a package's dependents inside it.
class Reader {
public:
    Reader(IMsiInterface& gateway, const Localizer& texts)
        : msi(gateway), localizer(texts), language(texts.GetString(TextKey::LANGUAGE_ID)) {}

    MSI_APP Read(const std::wstring& path) {
        MSI_APP record;
        record.msiPath = path;
        ReadTexts(record);
        ClassifyDriver(record);
        record.installSizeMb = InstallSizeInMb(TextOf(path, Property::INSTALLSIZE));
        ReadInstalledState(msi, record);
        // An application is no printer driver, even where it names one.
        record.isPrinterDriver = false;
        record.supportedOs = TextOf(path, Property::SUPPORTEDOS);
        record.streamDisplayName = TextOf(path, Property::STREAMDISPLAYNAME);
        record.usesDiscovery = EqualsIgnoringCase(TextOf(path, Property::DISCOVERY), L"YES");
        const std::wstring dependentFiles = TextOf(path, Property::DEPENDENTAPPS);
        if (!dependentFiles.empty()) ReadDependents(dependentFiles, record);
        record.forceReinstall = EqualsIgnoringCase(TextOf(path, Property::FORCEREINSTALL), L"TRUE");
        return record;
    }

private:
    std::wstring TextOf(const std::wstring& path, const wchar_t* name) {
        std::wstring value;
        ReadProperty(msi, path, language, name, value);
        return value;
    }

    void ReadTexts(MSI_APP& record) {
        const std::wstring& path = record.msiPath;
        record.productName = TextOf(path, Property::ProductName);
        record.description = TextOf(path, Property::MSIDESCRIPTION);
        record.productVersion = TextOf(path, Property::ProductVersion);
        record.deviceType = TextOf(path, Property::DEVICETYPE);
        record.appType = TextOf(path, Property::APPTYPE);
        record.startApp = TextOf(path, Property::STARTAPP);
        record.secureCustomProperties = TextOf(path, Property::SecureCustomProperties);
        record.driverId = TextOf(path, Property::DRIVERID);
        record.driverName = TextOf(path, Property::DRIVERNAME);
    }

    void ReadDependents(const std::wstring& fileNames, MSI_APP& record) {
        std::vector<std::wstring> paths;
        const std::wstring root = GetExeDirectory() + L"\\..\\..\\Dependents\\";
        FindFiles(root + L"x86_x64\\", paths, L"msi", fileNames);
        FindFiles(root + L"x64\\", paths, L"msi", fileNames);

        std::vector<std::wstring> names;
        parents.push_back(record.msiPath);
        for (const std::wstring& path : paths) {
            if (IsOwnParent(path)) continue;
            record.dependents.push_back(Read(path));
            names.push_back(record.dependents.back().productName);
        }
        parents.pop_back();
        record.dependentNames = JoinDependentNames(names, localizer.GetString(TextKey::LBL_LOCALIZED_AND));
    }

    // A package that depends on itself, over whatever way, would be read for ever.
    bool IsOwnParent(const std::wstring& path) const {
        if (std::ranges::find(parents, path) == parents.end()) return false;
        LogBasic(L"A package depends on itself and is left out as its own dependent: " + path,
                 LogLevel::Error);
        return true;
    }

    IMsiInterface& msi;
    const Localizer& localizer;
    std::wstring language;
    std::vector<std::wstring> parents;
};

}  // namespace

std::uint32_t ReadProperty(IMsiInterface& msi, const std::wstring& path, const std::wstring& language,
                           const wchar_t* name, std::wstring& field) {
    std::wstring value;
    const std::uint32_t code = msi.GetPropertyValue(path, name, language, value);
    if (code == MsiCode::Success) field = value;
    return code;
}

void ReadInstalledState(IMsiInterface& msi, MSI_APP& record) {
    record.installed =
        msi.IsAppInstalled(record.msiPath, record.upToDate, record.upgradable, record.minorUpgrade);
    record.newerInstalled = record.installed && !record.upgradable && !record.upToDate;
}

MSI_APP ReadProperties(IMsiInterface& msi, const Localizer& localizer, const std::wstring& path) {
    return Reader(msi, localizer).Read(path);
}
