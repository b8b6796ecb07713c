#include "catalogue/PackageReader.h"

#include <list>
#include <set>
#include <vector>

#include "CommonLib/Log.h"
#include "CommonLib/MsiCodes.h"
#include "CommonLib/TextUtilities.h"
#include "catalogue/PackageProperties.h"
#include "catalogue/PropertyNames.h"
#include "settings/TextKeys.h"

namespace {

// Reads one package with all that it takes along.
class PropertyReader {
public:
    explicit PropertyReader(const CatalogueSource& catalogueSource)
        : source(catalogueSource), language(source.localizer.GetString(TextKey::LANGUAGE_ID)) {}

    MSI_APP Read(const std::wstring& path) {
        MSI_APP root = ReadPackage(path);
        lines.push_back({.record = &root, .parent = nullptr});
        // A list keeps its elements in place while it grows.
        for (const Line& line : lines) ReadDependents(line);
        return root;
    }

private:
    // A record whose dependents are to be read, and the one that takes it along.
    struct Line {
        MSI_APP* record;
        const Line* parent;
    };

    MSI_APP ReadPackage(const std::wstring& path) {
        MSI_APP record;
        record.msiPath = path;
        ReadTexts(record);
        ClassifyDriver(record);
        record.installSizeMb = InstallSizeInMb(TextOf(path, Property::INSTALLSIZE));
        ReadInstalledState(source.msi, record);
        // An application is no printer driver, even where it names one.
        record.isPrinterDriver = false;
        record.supportedOs = TextOf(path, Property::SUPPORTEDOS);
        record.streamDisplayName = TextOf(path, Property::STREAMDISPLAYNAME);
        record.usesDiscovery = EqualsIgnoringCase(TextOf(path, Property::DISCOVERY), L"YES");
        record.forceReinstall = EqualsIgnoringCase(TextOf(path, Property::FORCEREINSTALL), L"TRUE");
        return record;
    }

    std::wstring TextOf(const std::wstring& path, const wchar_t* name) {
        std::wstring value;
        ReadProperty(source.msi, path, language, name, value);
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

    // Of packages that name each other, each is read for every one that names it, and its own dependents the
    // first time only. A longer way to them changes nothing: only the dependents of the root run.
    void ReadDependents(const Line& line) {
        MSI_APP& record = *line.record;
        if (!expanded.insert(record.msiPath).second) return;
        const std::wstring fileNames = TextOf(record.msiPath, Property::DEPENDENTAPPS);
        if (fileNames.empty()) return;
        std::vector<std::wstring> names;
        for (const std::wstring& path : FindDependents(fileNames)) {
            if (IsOwnParent(path, &line)) continue;
            record.dependents.push_back(ReadPackage(path));
            names.push_back(record.dependents.back().productName);
        }
        record.dependentNames =
            JoinDependentNames(names, source.localizer.GetString(TextKey::LBL_LOCALIZED_AND));
        for (MSI_APP& dependent : record.dependents) lines.push_back({.record = &dependent, .parent = &line});
    }

    std::vector<std::wstring> FindDependents(const std::wstring& fileNames) const {
        std::vector<std::wstring> paths = source.listPackages(L"Dependents\\x86_x64\\", fileNames);
        const std::vector<std::wstring> more = source.listPackages(L"Dependents\\x64\\", fileNames);
        paths.insert(paths.end(), more.begin(), more.end());
        return paths;
    }

    // A package that depends on itself, over whatever way, would be read for ever.
    static bool IsOwnParent(const std::wstring& path, const Line* line) {
        while (line != nullptr && line->record->msiPath != path) line = line->parent;
        if (line == nullptr) return false;
        LogBasic(L"A package depends on itself and is left out as its own dependent: " + path,
                 LogLevel::Error);
        return true;
    }

    const CatalogueSource& source;
    std::wstring language;
    // The nearest to the root first.
    std::list<Line> lines;
    std::set<std::wstring> expanded;
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

MSI_APP ReadProperties(const CatalogueSource& source, const std::wstring& path) {
    return PropertyReader(source).Read(path);
}
