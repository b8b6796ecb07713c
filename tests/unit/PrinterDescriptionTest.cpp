#include <gmock/gmock.h>

#include "printer/PrinterDescription.h"
#include "settings/TagNames.h"

namespace {

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

// A system that has one port.
class PrinterDescriptionTest : public testing::Test {
protected:
    void SetModels() {
        settings.Append(
            L"<MODEL_NAME>A:X</MODEL_NAME><MODEL_NAME>A:Y</MODEL_NAME><MODEL_NAME_FAX>A:F</MODEL_NAME_FAX>");
        settings.SetString(Tag::OEM_NAME, L"A");
    }

    InstallSettings settings;
    PrinterDescription printers{settings, [](const std::wstring& port) { return port == existingPort; }};
};

TEST_F(PrinterDescriptionTest, NamesAFaxByItsOwnModelAndNeverByItsStream) {
    SetModels();
    MSI_APP driver = FaxDriver();
    driver.streamDisplayName = L"PS3";
    EXPECT_EQ(printers.GetPrinterName(driver), L"F");
    EXPECT_EQ(printers.GetDriverProductName(driver), L"F");
}

TEST_F(PrinterDescriptionTest, NamesAPrinterOfNoVendorByItsModelStreamAndVersion) {
    SetModels();
    settings.SetStrings({{Tag::OEM, L"Printer"},
                         {Tag::DEFAULT_PRINTER_NAME, L"unused"},
                         {Tag::UPD, L"2"},
                         {Tag::WEBDRIVERVER, L"1.0"}});
    MSI_APP driver = PrinterDriver();
    driver.streamDisplayName = L"PS3";
    EXPECT_EQ(printers.GetPrinterName(driver), L"X PS3 (1.0)");
}

TEST_F(PrinterDescriptionTest, NamesAPrinterByBrandAndDefault) {
    settings.SetStrings({{Tag::OEM, L"Maker"}, {Tag::DEFAULT_PRINTER_NAME, L"Loom"}});
    EXPECT_EQ(printers.GetPrinterName(PrinterDriver()), L" Loom");
    settings.SetString(Tag::OEM_NAME, L"Brand");
    EXPECT_EQ(printers.GetPrinterName(PrinterDriver()), L"Brand Loom");
}

TEST_F(PrinterDescriptionTest, KeepsTheDiscoveredNameForTheExactOneOnly) {
    settings.SetStrings(
        {{Tag::OEM, L"Maker"}, {Tag::DEFAULT_PRINTER_NAME, L"Loom"}, {Tag::PRINTER_NAME, L"Found"}});
    EXPECT_EQ(printers.GetPrinterName(PrinterDriver()), L" Loom");
    settings.SetString(Tag::PO_NAME_FROM_DISCOVERY, L"true");
    EXPECT_EQ(printers.GetPrinterName(PrinterDriver()), L" Loom");
    settings.SetString(Tag::PO_NAME_FROM_DISCOVERY, L"1");
    EXPECT_EQ(printers.GetPrinterName(PrinterDriver()), L"Found");
}

TEST_F(PrinterDescriptionTest, TakesTheProductNameFromThePrinterUnlessThePackageIsUniversal) {
    SetModels();
    EXPECT_EQ(printers.GetDriverProductName(PrinterDriver()), L"X");
    settings.SetString(Tag::PRINTER_NAME, L"Found");
    EXPECT_EQ(printers.GetDriverProductName(PrinterDriver()), L"Found");
    settings.SetString(Tag::UPD, L"1");
    EXPECT_EQ(printers.GetDriverProductName(PrinterDriver()), L"X");
}

TEST_F(PrinterDescriptionTest, AddsNoPortForUsbAndForTheBrandedType) {
    settings.SetString(Tag::OEM, L"Maker");
    EXPECT_FALSE(printers.PortNeedsAdding(L"USB", L"new"));
    EXPECT_FALSE(printers.PortNeedsAdding(L"Maker Nimbo Jet", L"new"));
    EXPECT_TRUE(printers.PortNeedsAdding(L"usb", L"new"));
    EXPECT_TRUE(printers.PortNeedsAdding(L"Other Nimbo Jet", L"new"));
}

TEST_F(PrinterDescriptionTest, AddsAPortThatTheSystemLacks) {
    EXPECT_FALSE(printers.PortNeedsAdding(L"Local Port", existingPort));
    EXPECT_TRUE(printers.PortNeedsAdding(L"Local Port", L"KestruneTest:"));
    EXPECT_TRUE(printers.PortNeedsAdding(L"Local Port", L"10.0.0.7"));
}

TEST_F(PrinterDescriptionTest, DescribesThePrinterOfAnInteractiveRunToTheLetter) {
    settings.SetStrings({{Tag::OEM, L"Maker"},
                         {Tag::PRINTER_NAME, L"Loom 5"},
                         {Tag::PORT_NAME, L"p"},
                         {Tag::HOST_NAME, L"h"},
                         {Tag::PORT_TYPE, L"t"},
                         {Tag::NETWORK_PATH, L"\\\\s\\q"},
                         {Tag::DEFAULT_PRINTER_NAME, L"Loom"},
                         {Tag::OEM_NAME, L"Brand"},
                         {TextTag(L"ADD_PORT"), L"true"},
                         {TextTag(L"SET_DEFAULT"), L"1"},
                         {Tag::DRIVERCONFIG_PATH, L"d"},
                         {Tag::CONFIG_EXE_PATH, L"e"},
                         {Tag::OMBREL_DESC, L"o"},
                         {TextTag(L"CONFIG_APPLY_FUTURE"), L"TRUE"},
                         {Tag::IPADDRESS, L"10.0.0.7"}});
    EXPECT_EQ(printers.BuildPrinterInfo(PrinterDriver()),
              L"<PRINTER_INFO><DEVICE><PRINTER_NAME>Brand Loom</PRINTER_NAME>"
              L"<DRIVER_PRODUCT_NAME>Loom 5</DRIVER_PRODUCT_NAME><PORT_NAME>p</PORT_NAME>"
              L"<HOST_NAME>h</HOST_NAME><PORT_TYPE>t</PORT_TYPE><NETWORK_PATH>\\\\s\\q</NETWORK_PATH>"
              L"<DEFAULT_PRINTER_NAME>Loom</DEFAULT_PRINTER_NAME><OEM_NAME>Brand</OEM_NAME>"
              L"<ADD_PORT>true</ADD_PORT><SET_DEFAULT>true</SET_DEFAULT>"
              L"<DRIVERCONFIG_PATH>d</DRIVERCONFIG_PATH><CONFIG_EXE_PATH>e</CONFIG_EXE_PATH>"
              L"<OMBREL_DESC>o</OMBREL_DESC><CONFIG_APPLY_FUTURE>true</CONFIG_APPLY_FUTURE>"
              L"<IPADDRESS>10.0.0.7</IPADDRESS></DEVICE></PRINTER_INFO>");
}

TEST_F(PrinterDescriptionTest, DescribesAPrinterWithoutAnySettings) {
    EXPECT_EQ(printers.BuildPrinterInfo(PrinterDriver()),
              L"<PRINTER_INFO><DEVICE><PRINTER_NAME> </PRINTER_NAME>"
              L"<DRIVER_PRODUCT_NAME></DRIVER_PRODUCT_NAME><SET_DEFAULT>false</SET_DEFAULT>"
              L"</DEVICE></PRINTER_INFO>");
}

TEST_F(PrinterDescriptionTest, CarriesOverWhatTheNextDriverDoesNotSet) {
    settings.SetStrings({{Tag::PORT_NAME, L"p"},
                         {TextTag(L"ADD_PORT"), L"true"},
                         {TextTag(L"CONFIG_APPLY_FUTURE"), L"true"}});
    printers.BuildPrinterInfo(PrinterDriver());
    settings.SetStrings({{Tag::PORT_NAME, L""},
                         {TextTag(L"ADD_PORT"), L"false"},
                         {TextTag(L"CONFIG_APPLY_FUTURE"), L"false"}});
    const std::wstring info = printers.BuildPrinterInfo(PrinterDriver());
    EXPECT_THAT(info, testing::HasSubstr(L"<PORT_NAME>p</PORT_NAME>"));
    EXPECT_THAT(info, testing::HasSubstr(L"<ADD_PORT>true</ADD_PORT>"));
    EXPECT_THAT(info, testing::HasSubstr(L"<CONFIG_APPLY_FUTURE>true</CONFIG_APPLY_FUTURE>"));
}

TEST_F(PrinterDescriptionTest, NeverMakesAScannerTheDefault) {
    settings.SetBool(Tag::SET_DEFAULT, true);
    EXPECT_THAT(printers.BuildPrinterInfo(ScanDriver()),
                testing::HasSubstr(L"<SET_DEFAULT>false</SET_DEFAULT>"));
    EXPECT_THAT(printers.BuildPrinterInfo(FaxDriver()),
                testing::HasSubstr(L"<SET_DEFAULT>false</SET_DEFAULT>"));
    EXPECT_THAT(printers.BuildPrinterInfo(PrinterDriver()),
                testing::HasSubstr(L"<SET_DEFAULT>true</SET_DEFAULT>"));
}

TEST_F(PrinterDescriptionTest, DescribesTheDevicesOfAPredefinedRunToTheLetter) {
    settings.SetBool(Tag::INSTALL_FROM_CONFIG, true);
    const std::wstring existing = Element(L"PORT_NAME", existingPort);
    settings.SetDevices(
        {L"<PRINTER_NAME>one</PRINTER_NAME><DRIVER_ID>PS</DRIVER_ID><ADD_PORT>true</ADD_PORT>" + existing,
         L"<DRIVER_ID>PCL</DRIVER_ID><PRINTER_NAME>other</PRINTER_NAME>",
         L"<DRIVER_ID>PS</DRIVER_ID><PORT_NAME>new</PORT_NAME>"});
    EXPECT_EQ(printers.BuildPrinterInfo(PrinterDriver()),
              L"<PRINTER_INFO><DEVICE><PRINTER_NAME>one</PRINTER_NAME>" + existing +
                  L"<ADD_PORT>false</ADD_PORT></DEVICE>"
                  L"<DEVICE><PORT_NAME>new</PORT_NAME><ADD_PORT>true</ADD_PORT></DEVICE></PRINTER_INFO>");
    EXPECT_THAT(settings.GetDeviceValues(L"DRIVER_ID"), testing::ElementsAre(L"PS", L"PCL", L"PS"));
}

TEST_F(PrinterDescriptionTest, PutsTheAddressBesideTheDevices) {
    settings.SetBool(Tag::INSTALL_FROM_CONFIG, true);
    settings.SetString(Tag::IPADDRESS, L"10.0.0.7");
    settings.SetDevices({L"<DRIVER_ID>PS</DRIVER_ID><PORT_TYPE>USB</PORT_TYPE>"});
    EXPECT_EQ(printers.BuildPrinterInfo(PrinterDriver()),
              L"<PRINTER_INFO><DEVICE><PORT_TYPE>USB</PORT_TYPE><ADD_PORT>false</ADD_PORT></DEVICE>"
              L"<IPADDRESS>10.0.0.7</IPADDRESS></PRINTER_INFO>");
}

TEST_F(PrinterDescriptionTest, KeepsTheAddressOfEachDevice) {
    settings.SetBool(Tag::INSTALL_FROM_CONFIG, true);
    settings.SetString(Tag::IPADDRESS, L"10.0.0.1");
    settings.SetDevices(
        {L"<DRIVER_ID>PCL</DRIVER_ID><IPADDRESS>10.0.0.1</IPADDRESS>",
         L"<DRIVER_ID>PS</DRIVER_ID><PORT_TYPE>USB</PORT_TYPE><IPADDRESS>10.0.0.2</IPADDRESS>",
         L"<DRIVER_ID>PS</DRIVER_ID><PORT_TYPE>USB</PORT_TYPE>"});
    EXPECT_EQ(printers.BuildPrinterInfo(PrinterDriver()),
              L"<PRINTER_INFO><DEVICE><PORT_TYPE>USB</PORT_TYPE><IPADDRESS>10.0.0.2</IPADDRESS>"
              L"<ADD_PORT>false</ADD_PORT></DEVICE>"
              L"<DEVICE><PORT_TYPE>USB</PORT_TYPE><ADD_PORT>false</ADD_PORT></DEVICE></PRINTER_INFO>");
}

TEST_F(PrinterDescriptionTest, DescribesNothingForADriverWithoutADevice) {
    settings.SetBool(Tag::INSTALL_FROM_CONFIG, true);
    settings.SetDevices({L"<DRIVER_ID>PCL</DRIVER_ID>"});
    EXPECT_EQ(printers.BuildPrinterInfo(PrinterDriver()), L"<PRINTER_INFO></PRINTER_INFO>");
}

}  // namespace
