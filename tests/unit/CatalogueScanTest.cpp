// The catalogues of a package tree that exists in memory alone.

#include <gmock/gmock.h>

#include <map>

#include "CommonLib/MsiCodes.h"
#include "catalogue/ApplicationScan.h"
#include "catalogue/DriverInfo.h"
#include "settings/TagNames.h"
#include "tests/unit/RecordedLog.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;

using Properties = std::map<std::wstring, std::wstring>;

// Packages by their paths.
class PackagesInMemory : public IMsiInterface {
public:
    std::map<std::wstring, Properties> packages;

    std::uint32_t InstallApp(std::wstring, InstallProgressCallback, std::wstring) override { return 0; }
    std::uint32_t UninstallApp(std::wstring, InstallProgressCallback) override { return 0; }
    void Cancel() override {}
    std::uint32_t GetPropertyValue(std::wstring path, std::wstring property, std::wstring,
                                   std::wstring& value) override {
        const Properties& properties = packages.at(path);
        const auto found = properties.find(property);
        if (found == properties.end()) return MsiCode::PropertyNotFound;
        value = found->second;
        return MsiCode::Success;
    }
    bool IsAppInstalled(std::wstring, bool&, bool&, bool&) override { return false; }
};

class CatalogueScanTest : public testing::Test {
protected:
    CatalogueScanTest() { TheLog() = {}; }

    void Add(const std::wstring& path, Properties properties) {
        properties.emplace(L"ProductName", path.substr(path.rfind(L'\\') + 1));
        msi.packages[path] = std::move(properties);
    }

    CatalogueSource Source() {
        return {.msi = msi,
                .settings = settings,
                .localizer = localizer,
                .system = system,
                .listPackages = [this](const std::wstring& folder, const std::wstring& fileNames) {
                    return List(folder, fileNames);
                }};
    }

    std::vector<std::wstring> Applications() {
        AppCatalogue applications;
        ScanApplications(Source(), applications);
        std::vector<std::wstring> names;
        for (const MSI_APP& record : applications.Select({})) names.push_back(record.productName);
        return names;
    }

    std::vector<std::wstring> Drivers() {
        DriverInfo drivers;
        drivers.PopulateDriverList(Source());
        std::vector<std::wstring> names;
        for (const MSI_APP& record : drivers.GetDrivers()) names.push_back(record.productName);
        return names;
    }

    PackagesInMemory msi;
    InstallSettings settings;
    Localizer localizer{settings, {.languageId = 0x409, .readFile = [](const std::wstring&) {
                                       return std::wstring(L"<LANGUAGE_ID>1033</LANGUAGE_ID>");
                                   }}};
    TargetSystem system{.name = L"WINDOWS_8", .isWindows8OrLater = true};

private:
    std::vector<std::wstring> List(const std::wstring& folder, const std::wstring& fileNames) const {
        std::vector<std::wstring> paths;
        for (const auto& [path, properties] : msi.packages) {
            const std::size_t end = path.rfind(L'\\') + 1;
            if (path.substr(0, end) != folder) continue;
            if (fileNames.empty() || fileNames.find(path.substr(end)) != std::wstring::npos)
                paths.push_back(path);
        }
        return paths;
    }
};

TEST_F(CatalogueScanTest, ScansTheFoldersInTheirOrder) {
    for (const wchar_t* path :
         {L"Optional\\x64\\g", L"Optional\\x86_x64\\f", L"Common\\x64\\e", L"Common\\x86_x64\\d",
          L"Applications\\x64\\c", L"Applications\\x86_x64\\b", L"Applications\\a", L"Elsewhere\\h"}) {
        Add(path, {});
    }
    EXPECT_THAT(Applications(), ElementsAre(L"a", L"b", L"c", L"d", L"e", L"f", L"g"));
}

TEST_F(CatalogueScanTest, OffersOptionalPackagesOnTheirSystemsAlone) {
    Add(L"Optional\\x64\\here", {{L"SUPPORTEDOS", L"WINDOWS_7;WINDOWS_8"}});
    Add(L"Optional\\x64\\there", {{L"SUPPORTEDOS", L"WINDOWS_7;WINDOWS_BLUE"}});
    EXPECT_THAT(Applications(), ElementsAre(L"here"));
    system.name = L"WINDOWS_BLUE";
    EXPECT_THAT(Applications(), ElementsAre(L"there"));
}

TEST_F(CatalogueScanTest, TakesTheDriversThatThisSystemAccepts) {
    settings.SetString(Tag::WIN8_DRVTYPES, L"NEW");
    settings.SetString(Tag::WINXP_DRVTYPES, L"OLD");
    Add(L"Drivers\\x86_x64\\old", {{L"DRIVERID", L"OLD"}});
    Add(L"Drivers\\x64\\new", {{L"DRIVERID", L"NEW"}});
    Add(L"Drivers\\x64\\scan", {{L"DRIVERID", L"SCAN"}});
    EXPECT_THAT(Drivers(), ElementsAre(L"new", L"scan"));
    EXPECT_THAT(TheLog().advanced,
                Contains(Field(&RecordedLine::message,
                               L"DRIVERID OLD is NOT supported. Not added to driver driverInfoList.")));
    system.isWindows8OrLater = false;
    EXPECT_THAT(Drivers(), ElementsAre(L"scan", L"old"));
}

TEST_F(CatalogueScanTest, LeavesAPackageOutThatDependsOnItself) {
    Add(L"Applications\\x64\\parent", {{L"DEPENDENTAPPS", L"child"}});
    Add(L"Dependents\\x64\\child", {{L"DEPENDENTAPPS", L"child"}});
    AppCatalogue applications;
    ScanApplications(Source(), applications);
    const MSI_APP parent = applications.Select({}).front();
    ASSERT_EQ(parent.dependents.size(), 1U);
    EXPECT_THAT(parent.dependents.front().dependents, IsEmpty());
    ASSERT_EQ(TheLog().basic.size(), 1U);
    EXPECT_EQ(TheLog().basic.front().level, L"ERROR");
    EXPECT_THAT(TheLog().basic.front().message, HasSubstr(L"depends on itself"));
}

}  // namespace
