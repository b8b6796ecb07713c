#include "printer/DetectedNames.h"
#include "tests/windows/world/CatalogueWorld.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAre;

// The accepted types outlive a test, so each test has identifiers of its own.
class DriverInfoTest : public CatalogueWorld {};

TEST_F(DriverInfoTest, ScansTheFoldersTheOtherWayRound) {
    AddDriver(L"second.msi", L"ORDER");
    tree.Add(L"Drivers\\x86_x64\\third.msi");
    msi.packages[L"third.msi"].properties = {{L"ProductName", L"third"}, {L"DRIVERID", L"ORDER"}};
    BuildCatalogues();
    EXPECT_THAT(DriverNames(), ElementsAre(L"second", L"third"));
}

TEST_F(DriverInfoTest, SelectsWhatItAccepts) {
    AddDriver(L"d.msi", L"SELECTED").properties[L"STREAMDISPLAYNAME"] = L"PS3";
    BuildCatalogues();
    const MSI_APP driver = DriverRecords().GetDriver(L"SELECTED");
    EXPECT_TRUE(driver.isSelected && driver.isSupportedDriver && driver.isPrinterDriver);
    EXPECT_EQ(driver.streamDisplayName, L"PS3");
    EXPECT_EQ(driver.msiPath, ProgramTree::AsWritten(L"Drivers\\x64\\d.msi"));
    EXPECT_THAT(AdvancedMessages(), Contains(L"DRIVERID SELECTED is supported."));
}

TEST_F(DriverInfoTest, DropsEveryPrinterDriverWhereNoTypeIsAccepted) {
    AddPackage(L"Drivers\\x64", L"p.msi").properties[L"DRIVERID"] = L"NOBODY";
    AddPackage(L"Drivers\\x64", L"s.msi").properties[L"DRIVERID"] = L"SCAN";
    AddPackage(L"Drivers\\x64", L"f.msi").properties[L"DRIVERID"] = L"Fax";
    BuildCatalogues();
    EXPECT_THAT(DriverNames(), testing::UnorderedElementsAre(L"s", L"f"));
    EXPECT_THAT(AdvancedMessages(),
                Contains(L"DRIVERID NOBODY is NOT supported. Not added to driver driverInfoList."));
    EXPECT_THAT(AdvancedMessages(), Contains(L"Using WIN8_DRVTYPES: "));
}

TEST_F(DriverInfoTest, ComparesTypesWithTheirCase) {
    Settings().SetString(Tag::WIN8_DRVTYPES, L"caseSensitive");
    AddPackage(L"Drivers\\x64", L"d.msi").properties[L"DRIVERID"] = L"CaseSensitive";
    BuildCatalogues();
    EXPECT_THAT(DriverNames(), IsEmpty());
}

TEST_F(DriverInfoTest, TakesEachTypeOfTheListAndNoBlankAway) {
    Settings().SetString(Tag::WIN8_DRVTYPES, L"LISTA; LISTB;;LISTC;");
    for (const wchar_t* id : {L"LISTA", L"LISTB", L"LISTC"}) {
        AddPackage(L"Drivers\\x64", std::wstring(id) + L".msi").properties[L"DRIVERID"] = id;
    }
    BuildCatalogues();
    EXPECT_THAT(DriverNames(), testing::UnorderedElementsAre(L"LISTA", L"LISTC"));
}

TEST_F(DriverInfoTest, KeepsAPackageWithoutAnIdentifierUnderTheEmptyOne) {
    AddPackage(L"Drivers\\x64", L"d.msi");
    BuildCatalogues();
    const MSI_APP driver = DriverRecords().GetDriver(L"");
    EXPECT_EQ(driver.productName, L"d");
    EXPECT_FALSE(driver.isPrinterDriver || driver.isScanDriver || driver.isFaxDriver);
}

TEST_F(DriverInfoTest, TellsTheCodeOfTheNamesReadingForTheIdentifierToo) {
    AddPackage(L"Drivers\\x64", L"d.msi").properties[L"DRIVERNAME"] = L"name";
    BuildCatalogues();
    EXPECT_THAT(AdvancedMessages(), Contains(L"Failed to get DRIVERID property. Return Code: 0"));
    EXPECT_THAT(AdvancedMessages(), Not(Contains(testing::StartsWith(L"Failed to get DRIVERNAME"))));
}

TEST_F(DriverInfoTest, TellsOfEveryPropertyThatIsMissing) {
    AddDriver(L"d.msi", L"MISSING");
    BuildCatalogues();
    EXPECT_THAT(AdvancedMessages(), Contains(L"Failed to get DRIVERNAME property. Return Code: 1168"));
    EXPECT_THAT(AdvancedMessages(), Contains(L"Failed to get STREAMDISPLAYNAME property."));
    EXPECT_THAT(AdvancedMessages(), Contains(L"Failed to get DEVICETYPE property."));
    EXPECT_THAT(AdvancedMessages(),
                Contains(L"Getting Properties for: " + ProgramTree::AsWritten(L"Drivers\\x64\\d.msi")));
}

TEST_F(DriverInfoTest, SupportsTheToolForTheExactWordOnly) {
    AddDriver(L"a.msi", L"OMBRELYES").properties[L"ISOMBRELSUPPORTED"] = L"TRUE";
    AddDriver(L"b.msi", L"OMBRELNO").properties[L"ISOMBRELSUPPORTED"] = L"true";
    msi.packages[L"a.msi"].properties[L"DRIVERNAME"] = L"Loom";
    BuildCatalogues();
    EXPECT_TRUE(DriverRecords().IsOmbrelSupported(L"OMBRELYES"));
    EXPECT_FALSE(DriverRecords().IsOmbrelSupported(L"OMBRELNO"));
    EXPECT_FALSE(DriverRecords().IsOmbrelSupported(L"unknown"));
    EXPECT_THAT(AdvancedMessages(), Contains(L"Loom Supports Ombrel."));
}

TEST_F(DriverInfoTest, GivesTheFirstRecordAndTheLastPathOfAnIdentifier) {
    AddDriver(L"a.msi", L"TWICE");
    tree.Add(L"Drivers\\x86_x64\\b.msi");
    msi.packages[L"b.msi"].properties = {{L"ProductName", L"b"}, {L"DRIVERID", L"TWICE"}};
    BuildCatalogues();
    EXPECT_EQ(DriverRecords().GetDrivers().size(), 2U);
    EXPECT_EQ(DriverRecords().GetDriver(L"TWICE").productName, L"a");
    EXPECT_EQ(DriverRecords().GetDriverPath(L"TWICE"), ProgramTree::AsWritten(L"Drivers\\x86_x64\\b.msi"));
}

TEST_F(DriverInfoTest, KnowsNothingOfAnUnknownIdentifier) {
    EXPECT_EQ(DriverRecords().GetDriverPath(L"unknown"), L"");
    EXPECT_EQ(DriverRecords().GetDriver(L"unknown").status, PackageStatus::NotRun);
    EXPECT_EQ(DriverRecords().GetDriver(L"unknown").msiPath, L"");
}

TEST_F(DriverInfoTest, SelectsOnePrinterDriverBesideScanAndFax) {
    AddDriver(L"mono.msi", L"MONO");
    AddDriver(L"color.msi", L"COLOR");
    AddDriver(L"scan.msi", L"SCAN");
    AddDriver(L"fax.msi", L"Fax");
    BuildCatalogues();
    const auto selected = [] {
        std::vector<std::wstring> names;
        for (const MSI_APP& driver : DriverRecords().GetDrivers()) {
            if (driver.isSelected) names.push_back(driver.productName);
        }
        return names;
    };
    DriverRecords().SelectOnlyPrinterDriver(L"COLOR");
    EXPECT_THAT(selected(), UnorderedElementsAre(L"color", L"scan", L"fax"));
    DriverRecords().SelectOnlyPrinterDriver(L"MONO");
    EXPECT_THAT(selected(), UnorderedElementsAre(L"mono", L"scan", L"fax"));
    DriverRecords().SelectOnlyPrinterDriver(L"unknown");
    EXPECT_THAT(selected(), UnorderedElementsAre(L"mono", L"scan", L"fax"));
}

TEST_F(DriverInfoTest, ReadsTheStateAndTheCommonProperties) {
    FakePackage& package = AddDriver(L"d.msi", L"COMMON");
    package.installed = true;
    package.upgradable = true;
    package.properties[L"DEVICETYPE"] = L"PRINTER";
    package.properties[L"STARTAPP"] = L"d.exe;";
    package.properties[L"SecureCustomProperties"] = L"NETFRAMEWORK40";
    package.properties[L"INSTALLSIZE"] = L"7 MB";
    package.properties[L"ProductVersion"] = L"2.0";
    BuildCatalogues();
    const MSI_APP driver = DriverRecords().GetDriver(L"COMMON");
    EXPECT_TRUE(driver.installed && driver.upgradable && !driver.newerInstalled);
    EXPECT_EQ(driver.deviceType + driver.startApp, L"PRINTERd.exe;");
    EXPECT_EQ(driver.secureCustomProperties, L"NETFRAMEWORK40");
    EXPECT_EQ(driver.installSizeMb, 7);
    EXPECT_EQ(driver.productVersion, L"2.0");
}

TEST_F(DriverInfoTest, NamesADeviceWithTheStreamOfItsDriver) {
    AddDriver(L"d.msi", L"NAMED").properties[L"STREAMDISPLAYNAME"] = L"PS3";
    BuildCatalogues();
    Settings().SetDevices({L"<DRIVER_ID>NAMED</DRIVER_ID><DETECT_PRINTER>True</DETECT_PRINTER>",
                           L"<DRIVER_ID>NAMED</DRIVER_ID><DETECT_PRINTER>tRUE</DETECT_PRINTER>",
                           L"<DRIVER_ID>none</DRIVER_ID><DETECT_PRINTER>TRUE</DETECT_PRINTER>",
                           L"<DRIVER_ID>NAMED</DRIVER_ID>"});
    ApplyDetectedName(Settings(), DriverRecords(), L"Loom");
    EXPECT_THAT(Settings().GetDevices(),
                ElementsAre(L"<DRIVER_ID>NAMED</DRIVER_ID><PRINTER_NAME>Loom PS3</PRINTER_NAME>",
                            L"<DRIVER_ID>NAMED</DRIVER_ID>",
                            L"<DRIVER_ID>none</DRIVER_ID><PRINTER_NAME>Loom</PRINTER_NAME>",
                            L"<DRIVER_ID>NAMED</DRIVER_ID>"));
    const auto named = Settings().GetDevices();
    ApplyDetectedName(Settings(), DriverRecords(), L"Other");
    EXPECT_EQ(Settings().GetDevices(), named);
}

}  // namespace
