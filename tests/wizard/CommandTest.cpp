// The document that goes with a package to its installation, to the letter.

#include "tests/wizard/WizardTest.h"

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

constexpr wchar_t printerDriver[] =
    L"<ProductName>X</ProductName><DRIVERID>X</DRIVERID><DRIVERNAME>Driver X</DRIVERNAME>";

class CommandTest : public WizardTest {
protected:
    void Configure(const std::wstring& settings) {
        tree.SetSettings(std::wstring(Settings::silent) + L"<WIN8_DRVTYPES>X;Y</WIN8_DRVTYPES>" + settings);
    }

    void AddDriver(const std::wstring& furtherProperties = {}) {
        tree.Add({.path = L"Drivers\\x64\\x.msi", .properties = printerDriver + furtherProperties});
    }

    // The elements after the printer's.
    std::wstring Rest(const std::wstring& friendlyName = {}, const std::wstring& shortcut = {},
                      const std::wstring& link = {}) const {
        return Element(L"TARGET_DIR", TargetFolder()) + Element(L"LANGUAGEID", L"1033") +
               Element(L"DEVICEFRIENDLYNAME", friendlyName) + Element(L"INFOCENTER_SHORTCUT", shortcut) +
               Element(L"INFOCENTER_LINK", link);
    }
};

TEST_F(CommandTest, TellsAnApplicationWhereToGoAndInWhichLanguage) {
    tree.Add({.path = L"Applications\\a.msi"});
    Run();
    // By design: the name's blank stands between the missing brand and the missing model.
    EXPECT_EQ(
        CommandOf(L"a.msi"),
        L"<PRINTER_INFO><DEVICE><PRINTER_NAME> </PRINTER_NAME><DRIVER_PRODUCT_NAME></DRIVER_PRODUCT_NAME>"
        L"<SET_DEFAULT>false</SET_DEFAULT></DEVICE></PRINTER_INFO>" +
            Rest());
}

TEST_F(CommandTest, EndsWithTheReinstallForAMinorUpgrade) {
    tree.Add({.path = L"Applications\\a.msi",
              .states = {{.installed = true, .upgradable = true, .minorUpgrade = true}}});
    Run();
    EXPECT_THAT(CommandOf(L"a.msi"), EndsWith(Rest() + L"<TAG_REINSTALL>true</TAG_REINSTALL>"));
}

TEST_F(CommandTest, DescribesThePrinterFromTheSettings) {
    Configure(
        L"<PRINTER_NAME>Lab</PRINTER_NAME><PO_NAME_FROM_DISCOVERY>1</PO_NAME_FROM_DISCOVERY>"
        L"<PORT_NAME>P1</PORT_NAME><HOST_NAME>h1</HOST_NAME><PORT_TYPE>Local Port</PORT_TYPE>"
        L"<NETWORK_PATH>\\\\s\\p</NETWORK_PATH><DEFAULT_PRINTER_NAME>M</DEFAULT_PRINTER_NAME>"
        L"<OEM_NAME>B</OEM_NAME><ADD_PORT>1</ADD_PORT><SET_DEFAULT>true</SET_DEFAULT>"
        L"<DRIVERCONFIG_PATH>c.xdc</DRIVERCONFIG_PATH><CONFIG_EXE_PATH>t.exe</CONFIG_EXE_PATH>"
        L"<OMBREL_DESC>d</OMBREL_DESC><CONFIG_APPLY_FUTURE>TRUE</CONFIG_APPLY_FUTURE>"
        L"<IPADDRESS>10.0.0.9</IPADDRESS>");
    AddDriver(L"<STREAMDISPLAYNAME>PS3</STREAMDISPLAYNAME>");
    Run();
    EXPECT_EQ(CommandOf(L"x.msi"),
              L"<PRINTER_INFO><DEVICE><PRINTER_NAME>Lab PS3</PRINTER_NAME>"
              L"<DRIVER_PRODUCT_NAME>Lab</DRIVER_PRODUCT_NAME><PORT_NAME>P1</PORT_NAME>"
              L"<HOST_NAME>h1</HOST_NAME><PORT_TYPE>Local Port</PORT_TYPE>"
              L"<NETWORK_PATH>\\\\s\\p</NETWORK_PATH><DEFAULT_PRINTER_NAME>M</DEFAULT_PRINTER_NAME>"
              L"<OEM_NAME>B</OEM_NAME><ADD_PORT>true</ADD_PORT><SET_DEFAULT>true</SET_DEFAULT>"
              L"<DRIVERCONFIG_PATH>c.xdc</DRIVERCONFIG_PATH><CONFIG_EXE_PATH>t.exe</CONFIG_EXE_PATH>"
              L"<OMBREL_DESC>d</OMBREL_DESC><CONFIG_APPLY_FUTURE>true</CONFIG_APPLY_FUTURE>"
              L"<IPADDRESS>10.0.0.9</IPADDRESS></DEVICE></PRINTER_INFO>" +
                  Rest(L"Lab"));
}

TEST_F(CommandTest, NamesTheModelWithItsVersion) {
    Configure(
        L"<OEM_NAME>A</OEM_NAME><MODEL_NAME>A:Model</MODEL_NAME><MODEL_NAME>A:Other</MODEL_NAME>"
        L"<DEFAULT_PRINTER_NAME>D</DEFAULT_PRINTER_NAME><UPD>2</UPD><WEBDRIVERVER>1.0</WEBDRIVERVER>");
    AddDriver(L"<STREAMDISPLAYNAME>PS3</STREAMDISPLAYNAME>");
    Run();
    EXPECT_THAT(CommandOf(L"x.msi"), HasSubstr(L"<PRINTER_NAME>A D PS3 (1.0)</PRINTER_NAME>"));
    EXPECT_THAT(CommandOf(L"x.msi"), HasSubstr(L"<DRIVER_PRODUCT_NAME>Model</DRIVER_PRODUCT_NAME>"));
}

TEST_F(CommandTest, MakesOnlyAPrinterDriverTheDefault) {
    Configure(L"<SET_DEFAULT>true</SET_DEFAULT>");
    AddDriver();
    tree.Add({.path = L"Drivers\\x64\\scan.msi",
              .properties = L"<ProductName>Scan</ProductName><DRIVERID>SCAN</DRIVERID>"});
    Run();
    EXPECT_THAT(CommandOf(L"x.msi"), HasSubstr(L"<SET_DEFAULT>true</SET_DEFAULT>"));
    EXPECT_THAT(CommandOf(L"scan.msi"), HasSubstr(L"<SET_DEFAULT>false</SET_DEFAULT>"));
}

TEST_F(CommandTest, NamesAFaxDriverByTheFaxModelAndWithoutItsStream) {
    Configure(L"<OEM_NAME>A</OEM_NAME><MODEL_NAME_FAX>A:Fax model</MODEL_NAME_FAX>");
    tree.Add({.path = L"Drivers\\x64\\fax.msi",
              .properties = L"<ProductName>Fax</ProductName><DRIVERID>Fax</DRIVERID>"
                            L"<STREAMDISPLAYNAME>PS3</STREAMDISPLAYNAME>"});
    Run();
    EXPECT_THAT(CommandOf(L"fax.msi"),
                StartsWith(L"<PRINTER_INFO><DEVICE><PRINTER_NAME>Fax model</PRINTER_NAME>"
                           L"<DRIVER_PRODUCT_NAME>Fax model</DRIVER_PRODUCT_NAME>"));
}

TEST_F(CommandTest, GivesEachDriverItsPredefinedPrinters) {
    Configure({});
    tree.SetUserSettings(
        L"<DEVICE><DRIVER_ID>X</DRIVER_ID><PORT_NAME>New:</PORT_NAME><PORT_TYPE>Local "
        L"Port</PORT_TYPE></DEVICE>\r\n"
        L"<DEVICE><DRIVER_ID>Y</DRIVER_ID><PORT_NAME>Y:</PORT_NAME></DEVICE>\r\n"
        L"<DEVICE><DRIVER_ID>X</DRIVER_ID><PORT_NAME>LPT1:</PORT_NAME><ADD_PORT>true</ADD_PORT></"
        L"DEVICE>\r\n");
    AddDriver();
    Run();
    EXPECT_THAT(CommandOf(L"x.msi"),
                StartsWith(L"<PRINTER_INFO>"
                           L"<DEVICE><PORT_NAME>New:</PORT_NAME><PORT_TYPE>Local Port</PORT_TYPE>"
                           L"<ADD_PORT>true</ADD_PORT></DEVICE>"
                           L"<DEVICE><PORT_NAME>LPT1:</PORT_NAME><ADD_PORT>false</ADD_PORT></DEVICE>"
                           L"</PRINTER_INFO>"));
}

TEST_F(CommandTest, NamesEachDriverByItsOwnPrinterAndItsOwnAddress) {
    Configure({});
    tree.SetUserSettings(
        L"<DEVICE><DRIVER_ID>X</DRIVER_ID><PRINTER_NAME>Desk</PRINTER_NAME>"
        L"<IPADDRESS>10.0.0.1</IPADDRESS></DEVICE>\r\n"
        L"<DEVICE><DRIVER_ID>Y</DRIVER_ID><PRINTER_NAME>Studio</PRINTER_NAME>"
        L"<IPADDRESS>10.0.0.2</IPADDRESS></DEVICE>\r\n");
    AddDriver();
    tree.Add({.path = L"Drivers\\x64\\y.msi",
              .properties = L"<ProductName>Y</ProductName><DRIVERID>Y</DRIVERID>"});
    Run();
    EXPECT_THAT(CommandOf(L"x.msi"), HasSubstr(Element(L"DEVICEFRIENDLYNAME", L"Desk")));
    EXPECT_THAT(CommandOf(L"y.msi"), HasSubstr(Element(L"DEVICEFRIENDLYNAME", L"Studio")));
    EXPECT_THAT(CommandOf(L"x.msi"), HasSubstr(Element(L"IPADDRESS", L"10.0.0.1")));
    EXPECT_THAT(CommandOf(L"y.msi"), HasSubstr(Element(L"IPADDRESS", L"10.0.0.2")));
    EXPECT_THAT(CommandOf(L"y.msi"), testing::Not(HasSubstr(L"10.0.0.1")));
}

TEST_F(CommandTest, GivesAPackageWithoutPredefinedPrintersNone) {
    tree.SetUserSettings(L"<DEVICE><DRIVER_ID>Z</DRIVER_ID></DEVICE>");
    tree.Add({.path = L"Applications\\a.msi"});
    Run();
    EXPECT_THAT(CommandOf(L"a.msi"), StartsWith(L"<PRINTER_INFO></PRINTER_INFO>"));
}

TEST_F(CommandTest, NeedsNoPortForAUsbPrinter) {
    Configure({});
    tree.SetUserSettings(
        L"<DEVICE><DRIVER_ID>X</DRIVER_ID><PORT_TYPE>USB</PORT_TYPE><PORT_NAME>U</PORT_NAME></DEVICE>");
    AddDriver();
    Run();
    EXPECT_THAT(CommandOf(L"x.msi"), HasSubstr(L"<ADD_PORT>false</ADD_PORT>"));
}

// The series of the predefined printers, and the help link that follows.
struct SeriesCase {
    const char* name;
    std::vector<std::wstring> series;
    const wchar_t* link;
    const wchar_t* shortcut;
};

void PrintTo(const SeriesCase& given, std::ostream* stream) {
    *stream << given.name;
}

class HelpLinkTest : public CommandTest, public testing::WithParamInterface<SeriesCase> {};

TEST_P(HelpLinkTest, NamesTheProductOnlyIfAllPrintersAreOfOneSeries) {
    Configure(
        L"<INFOCENTER_LINK>http://help</INFOCENTER_LINK><OEM_NAME>Brand</OEM_NAME>"
        L"<MODEL_PRODUCT_CODE>S1:Brand M1|Brand M2</MODEL_PRODUCT_CODE>");
    std::wstring devices;
    for (const std::wstring& series : GetParam().series) {
        devices +=
            L"<DEVICE><DRIVER_ID>X</DRIVER_ID><PRINTER_SERIES_NAME>" + series +
            L"</PRINTER_SERIES_NAME><PRINTER_MODEL_NAME>the Brand M2</PRINTER_MODEL_NAME></DEVICE>\r\n";
    }
    tree.SetUserSettings(devices);
    tree.Add({.path = L"Applications\\a.msi"});
    Run();
    EXPECT_THAT(CommandOf(L"a.msi"), EndsWith(Rest({}, GetParam().shortcut, GetParam().link)));
}

INSTANTIATE_TEST_SUITE_P(
    Series, HelpLinkTest,
    testing::Values(
        SeriesCase{"One", {L"S1", L"S1"}, L"http://help?productCode=Brand_M2&loc=en", L"Help for Brand M2"},
        SeriesCase{"Two", {L"S1", L"S1", L"S2"}, L"http://help?loc=en", L"Help centre"},
        SeriesCase{"NotAdjacent", {L"S1", L"S2", L"S1"}, L"http://help?loc=en", L"Help centre"},
        SeriesCase{"Incomplete", {L"S1", L""}, L"http://help?loc=en", L"Help centre"}),
    [](const testing::TestParamInfo<SeriesCase>& given) { return std::string(given.param.name); });

TEST_F(CommandTest, BringsConfigurationFilesIntoThePlaceOfTheMachine) {
    Configure({});
    const std::wstring name = tree.Vendor() + L".xdc";
    tree.WriteFile(L"Setup\\" + name, "settings of the driver");
    tree.SetUserSettings(L"<DEVICE><DRIVER_ID>X</DRIVER_ID>" + Element(L"DRIVERCONFIG_PATH", name) +
                         L"</DEVICE>");
    AddDriver();
    Run();
    const std::filesystem::path target =
        std::filesystem::path(LogFolder()).parent_path().parent_path() / L"DriverConfigurations" / name;
    EXPECT_TRUE(std::filesystem::exists(target));
    EXPECT_THAT(CommandOf(L"x.msi"), HasSubstr(Element(L"DRIVERCONFIG_PATH", target.wstring())));
    std::filesystem::remove(target);
}

}  // namespace
