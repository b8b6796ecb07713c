// The catalogues of a package tree that exists in memory alone.

#include <gmock/gmock.h>

#include "catalogue/ApplicationScan.h"
#include "catalogue/DriverInfo.h"
#include "settings/TagNames.h"
#include "tests/unit/CatalogueInMemory.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;

class CatalogueScanTest : public CatalogueInMemory {
protected:
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

TEST_F(CatalogueScanTest, LeavesTheChoiceOfAllButTheAlwaysInstalled) {
    for (const wchar_t* path : {L"Applications\\x64\\a", L"Common\\x64\\b", L"Optional\\x64\\c"})
        Add(path, {});
    AppCatalogue applications;
    ScanApplications(Source(), applications);
    EXPECT_THAT(applications.Select({}),
                ElementsAre(Field(&MSI_APP::isOptional, false), Field(&MSI_APP::isOptional, true),
                            Field(&MSI_APP::isOptional, true)));
}

TEST_F(CatalogueScanTest, TakesNoApplicationForAPrinterDriver) {
    Add(L"Applications\\x64\\a", {{L"DRIVERID", L"NEW"}});
    AppCatalogue applications;
    ScanApplications(Source(), applications);
    EXPECT_THAT(applications.Select({}), ElementsAre(Field(&MSI_APP::isPrinterDriver, false)));
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
