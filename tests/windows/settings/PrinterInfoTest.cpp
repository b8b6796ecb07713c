#include <windows.h>

#include "CommonLib/SystemVersion.h"
#include "catalogue/MSI_APP.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/SettingsTest.h"

namespace {

constexpr wchar_t portsKey[] = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Ports";
constexpr wchar_t existingPort[] = L"KESTRUNETEST:";

MSI_APP PrinterDriver(const std::wstring& id = L"PS") {
    MSI_APP driver;
    driver.driverId = id;
    driver.isPrinterDriver = true;
    return driver;
}

MSI_APP FaxDriver() {
    MSI_APP driver;
    driver.driverId = L"Fax";
    driver.isFaxDriver = true;
    return driver;
}

MSI_APP ScanDriver() {
    MSI_APP driver;
    driver.driverId = L"SCAN";
    driver.isScanDriver = true;
    return driver;
}

std::wstring Element(const std::wstring& name, const std::wstring& value) {
    return L"<" + name + L">" + value + L"</" + name + L">";
}

// A system that has one port more than it came with.
class PrinterInfoTest : public SettingsTest {
protected:
    PrinterInfoTest() {
        RegSetKeyValueW(HKEY_LOCAL_MACHINE, portsKey, existingPort, REG_SZ, L"", sizeof(wchar_t));
    }
    ~PrinterInfoTest() override { RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, portsKey, existingPort); }

    static void SetModels() {
        Settings().SetString(L"ALL",
                             L"<MODEL_NAME>A:X</MODEL_NAME><MODEL_NAME>A:Y</MODEL_NAME>"
                             L"<MODEL_NAME_FAX>A:F</MODEL_NAME_FAX>");
        Settings().SetString(L"OEM_NAME", L"A");
    }
};

TEST_F(PrinterInfoTest, NamesAFaxByItsOwnModelAndNeverByItsStream) {
    SetModels();
    MSI_APP driver = FaxDriver();
    driver.streamDisplayName = L"PS3";
    EXPECT_EQ(Settings().GetPrinterName(driver), L"F");
    EXPECT_EQ(Settings().GetDriverProductName(driver), L"F");
}

TEST_F(PrinterInfoTest, NamesAPrinterOfNoVendorByItsModelStreamAndVersion) {
    SetModels();
    Settings().SetStrings({{L"OEM", L"Printer"},
                           {L"DEFAULT_PRINTER_NAME", L"unused"},
                           {L"UPD", L"2"},
                           {L"WEBDRIVERVER", L"1.0"}});
    MSI_APP driver = PrinterDriver();
    driver.streamDisplayName = L"PS3";
    EXPECT_EQ(Settings().GetPrinterName(driver), L"X PS3 (1.0)");
}

TEST_F(PrinterInfoTest, NamesAPrinterByBrandAndDefault) {
    Settings().SetStrings({{L"OEM", L"Maker"}, {L"DEFAULT_PRINTER_NAME", L"Loom"}});
    EXPECT_EQ(Settings().GetPrinterName(PrinterDriver()), L" Loom");
    Settings().SetString(L"OEM_NAME", L"Brand");
    EXPECT_EQ(Settings().GetPrinterName(PrinterDriver()), L"Brand Loom");
}

TEST_F(PrinterInfoTest, KeepsTheDiscoveredNameForTheExactOneOnly) {
    Settings().SetStrings(
        {{L"OEM", L"Maker"}, {L"DEFAULT_PRINTER_NAME", L"Loom"}, {L"PRINTER_NAME", L"Found"}});
    EXPECT_EQ(Settings().GetPrinterName(PrinterDriver()), L" Loom");
    Settings().SetString(L"PO_NAME_FROM_DISCOVERY", L"true");
    EXPECT_EQ(Settings().GetPrinterName(PrinterDriver()), L" Loom");
    Settings().SetString(L"PO_NAME_FROM_DISCOVERY", L"1");
    EXPECT_EQ(Settings().GetPrinterName(PrinterDriver()), L"Found");
}

TEST_F(PrinterInfoTest, TakesTheProductNameFromThePrinterUnlessThePackageIsUniversal) {
    SetModels();
    EXPECT_EQ(Settings().GetDriverProductName(PrinterDriver()), L"X");
    Settings().SetString(L"PRINTER_NAME", L"Found");
    EXPECT_EQ(Settings().GetDriverProductName(PrinterDriver()), L"Found");
    Settings().SetString(L"UPD", L"1");
    EXPECT_EQ(Settings().GetDriverProductName(PrinterDriver()), L"X");
}

TEST_F(PrinterInfoTest, ProposesTheDriverOfTheColourClass) {
    const std::wstring prefix = IsWindowsVersionOrGreater(2) ? L"WIN8_" : L"";
    Settings().SetString(prefix + L"MONO_DEFAULT", L"m");
    Settings().SetString(prefix + L"COLOR_DEFAULT", L"c");
    Settings().SetString(prefix + L"NO_COMM_DEFAULT", L"n");
    EXPECT_EQ(Settings().GetDefaultDriver(L"mono"), L"m");
    EXPECT_EQ(Settings().GetDefaultDriver(L"color"), L"c");
    EXPECT_EQ(Settings().GetDefaultDriver(L"Color"), L"n");
    EXPECT_EQ(Settings().GetDefaultDriver(L""), L"n");
}

TEST_F(PrinterInfoTest, CountsAsTheSecondVariantForTheExactWordOnly) {
    for (const wchar_t* text : {L"true", L"True", L"1", L"TRUE "}) {
        Settings().SetString(L"AMAZON_SUPPORTED", text);
        EXPECT_FALSE(Settings().IsAmazonSupported());
    }
    Settings().SetString(L"AMAZON_SUPPORTED", L"TRUE");
    EXPECT_TRUE(Settings().IsAmazonSupported());
}

TEST_F(PrinterInfoTest, AddsNoPortForUsbAndForTheBrandedType) {
    Settings().SetString(L"OEM", L"Maker");
    EXPECT_FALSE(Settings().PortNeedsAdding(L"USB", L"new"));
    EXPECT_FALSE(Settings().PortNeedsAdding(L"Maker Nimbo Jet", L"new"));
    EXPECT_TRUE(Settings().PortNeedsAdding(L"usb", L"new"));
    EXPECT_TRUE(Settings().PortNeedsAdding(L"Other Nimbo Jet", L"new"));
}

TEST_F(PrinterInfoTest, AddsAPortThatTheSystemLacks) {
    EXPECT_FALSE(Settings().PortNeedsAdding(L"Local Port", existingPort));
    EXPECT_TRUE(Settings().PortNeedsAdding(L"Local Port", L"KestruneTest:"));
    EXPECT_TRUE(Settings().PortNeedsAdding(L"Local Port", L"10.0.0.7"));
}

TEST_F(PrinterInfoTest, AddsThePortOnASystemWithoutAny) {
    const PatchedImport patch(
        "EnumPortsW", +[](LPWSTR, DWORD, LPBYTE, DWORD, LPDWORD needed, LPDWORD) -> BOOL {
            *needed = 0;
            return FALSE;
        });
    EXPECT_TRUE(Settings().PortNeedsAdding(L"Local Port", existingPort));
}

TEST_F(PrinterInfoTest, AddsThePortWhereTheSystemsListCannotBeFetched) {
    const PatchedImport patch(
        "EnumPortsW", +[](LPWSTR, DWORD, LPBYTE, DWORD, LPDWORD needed, LPDWORD) -> BOOL {
            *needed = 100;
            return FALSE;
        });
    EXPECT_TRUE(Settings().PortNeedsAdding(L"Local Port", existingPort));
}

TEST_F(PrinterInfoTest, DescribesThePrinterOfAnInteractiveRunToTheLetter) {
    Settings().SetStrings({{L"OEM", L"Maker"},
                           {L"PRINTER_NAME", L"Loom 5"},
                           {L"PORT_NAME", L"p"},
                           {L"HOST_NAME", L"h"},
                           {L"PORT_TYPE", L"t"},
                           {L"NETWORK_PATH", L"\\\\s\\q"},
                           {L"DEFAULT_PRINTER_NAME", L"Loom"},
                           {L"OEM_NAME", L"Brand"},
                           {L"ADD_PORT", L"true"},
                           {L"SET_DEFAULT", L"1"},
                           {L"DRIVERCONFIG_PATH", L"d"},
                           {L"CONFIG_EXE_PATH", L"e"},
                           {L"OMBREL_DESC", L"o"},
                           {L"CONFIG_APPLY_FUTURE", L"TRUE"},
                           {L"IPADDRESS", L"10.0.0.7"}});
    EXPECT_EQ(Settings().BuildPrinterInfo(PrinterDriver()),
              L"<PRINTER_INFO><DEVICE><PRINTER_NAME>Brand Loom</PRINTER_NAME>"
              L"<DRIVER_PRODUCT_NAME>Loom 5</DRIVER_PRODUCT_NAME><PORT_NAME>p</PORT_NAME>"
              L"<HOST_NAME>h</HOST_NAME><PORT_TYPE>t</PORT_TYPE><NETWORK_PATH>\\\\s\\q</NETWORK_PATH>"
              L"<DEFAULT_PRINTER_NAME>Loom</DEFAULT_PRINTER_NAME><OEM_NAME>Brand</OEM_NAME>"
              L"<ADD_PORT>true</ADD_PORT><SET_DEFAULT>true</SET_DEFAULT>"
              L"<DRIVERCONFIG_PATH>d</DRIVERCONFIG_PATH><CONFIG_EXE_PATH>e</CONFIG_EXE_PATH>"
              L"<OMBREL_DESC>o</OMBREL_DESC><CONFIG_APPLY_FUTURE>true</CONFIG_APPLY_FUTURE>"
              L"<IPADDRESS>10.0.0.7</IPADDRESS></DEVICE></PRINTER_INFO>");
}

TEST_F(PrinterInfoTest, DescribesAPrinterWithoutAnySettings) {
    EXPECT_EQ(Settings().BuildPrinterInfo(PrinterDriver()),
              L"<PRINTER_INFO><DEVICE><PRINTER_NAME> </PRINTER_NAME>"
              L"<DRIVER_PRODUCT_NAME></DRIVER_PRODUCT_NAME><SET_DEFAULT>false</SET_DEFAULT>"
              L"</DEVICE></PRINTER_INFO>");
}

TEST_F(PrinterInfoTest, CarriesOverWhatTheNextDriverDoesNotSet) {
    Settings().SetStrings({{L"PORT_NAME", L"p"}, {L"ADD_PORT", L"true"}, {L"CONFIG_APPLY_FUTURE", L"true"}});
    Settings().BuildPrinterInfo(PrinterDriver());
    Settings().SetStrings({{L"PORT_NAME", L""}, {L"ADD_PORT", L"false"}, {L"CONFIG_APPLY_FUTURE", L"false"}});
    const std::wstring info = Settings().BuildPrinterInfo(PrinterDriver());
    EXPECT_THAT(info, testing::HasSubstr(L"<PORT_NAME>p</PORT_NAME>"));
    EXPECT_THAT(info, testing::HasSubstr(L"<ADD_PORT>true</ADD_PORT>"));
    EXPECT_THAT(info, testing::HasSubstr(L"<CONFIG_APPLY_FUTURE>true</CONFIG_APPLY_FUTURE>"));
}

TEST_F(PrinterInfoTest, NeverMakesAScannerTheDefault) {
    Settings().SetBool(L"SET_DEFAULT", true);
    EXPECT_THAT(Settings().BuildPrinterInfo(ScanDriver()),
                testing::HasSubstr(L"<SET_DEFAULT>false</SET_DEFAULT>"));
    EXPECT_THAT(Settings().BuildPrinterInfo(FaxDriver()),
                testing::HasSubstr(L"<SET_DEFAULT>false</SET_DEFAULT>"));
    EXPECT_THAT(Settings().BuildPrinterInfo(PrinterDriver()),
                testing::HasSubstr(L"<SET_DEFAULT>true</SET_DEFAULT>"));
}

TEST_F(PrinterInfoTest, DescribesTheDevicesOfAPredefinedRunToTheLetter) {
    Settings().SetBool(L"INSTALL_FROM_CONFIG", true);
    const std::wstring existing = Element(L"PORT_NAME", existingPort);
    Settings().SetDevices(
        {L"<PRINTER_NAME>one</PRINTER_NAME><DRIVER_ID>PS</DRIVER_ID><ADD_PORT>true</ADD_PORT>" + existing,
         L"<DRIVER_ID>PCL</DRIVER_ID><PRINTER_NAME>other</PRINTER_NAME>",
         L"<DRIVER_ID>PS</DRIVER_ID><PORT_NAME>new</PORT_NAME>"});
    EXPECT_EQ(Settings().BuildPrinterInfo(PrinterDriver()),
              L"<PRINTER_INFO><DEVICE><PRINTER_NAME>one</PRINTER_NAME>" + existing +
                  L"<ADD_PORT>false</ADD_PORT></DEVICE>"
                  L"<DEVICE><PORT_NAME>new</PORT_NAME><ADD_PORT>true</ADD_PORT></DEVICE></PRINTER_INFO>");
    EXPECT_THAT(Settings().GetDeviceValues(L"DRIVER_ID"), testing::ElementsAre(L"PS", L"PCL", L"PS"));
}

TEST_F(PrinterInfoTest, PutsTheAddressBesideTheDevices) {
    Settings().SetBool(L"INSTALL_FROM_CONFIG", true);
    Settings().SetString(L"IPADDRESS", L"10.0.0.7");
    Settings().SetDevices({L"<DRIVER_ID>PS</DRIVER_ID><PORT_TYPE>USB</PORT_TYPE>"});
    EXPECT_EQ(Settings().BuildPrinterInfo(PrinterDriver()),
              L"<PRINTER_INFO><DEVICE><PORT_TYPE>USB</PORT_TYPE><ADD_PORT>false</ADD_PORT></DEVICE>"
              L"<IPADDRESS>10.0.0.7</IPADDRESS></PRINTER_INFO>");
}

TEST_F(PrinterInfoTest, DescribesNothingForADriverWithoutADevice) {
    Settings().SetBool(L"INSTALL_FROM_CONFIG", true);
    Settings().SetDevices({L"<DRIVER_ID>PCL</DRIVER_ID>"});
    EXPECT_EQ(Settings().BuildPrinterInfo(PrinterDriver()), L"<PRINTER_INFO></PRINTER_INFO>");
}

}  // namespace
