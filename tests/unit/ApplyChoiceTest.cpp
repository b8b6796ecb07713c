#include <gmock/gmock.h>

#include "app/Preparation.h"
#include "printer/ApplyChoice.h"
#include "printer/DetectedNames.h"
#include "settings/PackageWords.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"
#include "tests/unit/CatalogueInMemory.h"

namespace {

using testing::ElementsAre;

class ApplyChoiceTest : public CatalogueInMemory {
protected:
    ApplyChoiceTest() {
        settings.SetString(Tag::WIN8_DRVTYPES, L"A;B");
        settings.SetString(Tag::INFOCENTER_LINK, L"http://help");
        Add(L"Drivers\\x64\\a", {{L"DRIVERID", L"A"}, {L"STREAMDISPLAYNAME", L"PS3"}});
        Add(L"Drivers\\x64\\b", {{L"DRIVERID", L"B"}});
        Add(L"Drivers\\x64\\scan", {{L"DRIVERID", L"SCAN"}});
        drivers.PopulateDriverList(Source());
        for (const wchar_t* kind : {DeviceType::PRINTER, DeviceType::SCANNER, DeviceType::FAX, L"OTHER"}) {
            MSI_APP record;
            record.productName = record.deviceType = kind;
            record.isOptional = true;
            applications.Append(record);
        }
        MSI_APP fax;
        fax.productName = L"fax application";
        fax.driverId = DriverId::FAX;
        applications.Append(fax);
        TheLog() = {};
    }

    void Apply(const PrinterChoice& choice) {
        ApplyChoice(choice, {settings, applications, drivers, localizer});
    }
    std::vector<std::wstring> Optional() const { return Names(L"<ISOPTIONAL>true</ISOPTIONAL>"); }
    std::vector<std::wstring> SelectedApps() const { return Names(L"<ISSELECTED>true</ISSELECTED>"); }
    std::vector<std::wstring> SelectedDrivers() const {
        std::vector<std::wstring> names;
        for (const MSI_APP& record : drivers.GetDrivers()) {
            if (record.isSelected) names.push_back(record.productName);
        }
        return names;
    }
    std::wstring Link() const { return settings.GetString(Tag::EXACT_INFOCENTER_LINK); }

    AppCatalogue applications;
    DriverInfo drivers;

private:
    std::vector<std::wstring> Names(std::wstring_view filter) const {
        std::vector<std::wstring> names;
        for (const MSI_APP& record : applications.Select(filter)) names.push_back(record.productName);
        return names;
    }
};

TEST_F(ApplyChoiceTest, ChangesThePartsThatItSpeaksOf) {
    Apply({.parts = {.faxOptional = false}});
    EXPECT_THAT(Optional(), ElementsAre(L"PRINTER", L"SCANNER", L"OTHER"));
    Apply({.parts = {.scannerOptional = false, .faxSelected = true}});
    EXPECT_THAT(Optional(), ElementsAre(L"PRINTER", L"OTHER"));
    EXPECT_THAT(SelectedApps(), ElementsAre(L"fax application"));
    Apply({.parts = {.faxOptional = true, .printerOptional = false}});
    EXPECT_THAT(Optional(), ElementsAre(L"FAX", L"OTHER"));
    EXPECT_THAT(SelectedApps(), ElementsAre(L"fax application"));
}

TEST_F(ApplyChoiceTest, ChangesTheDriversThatItSpeaksOf) {
    Apply({.drivers = {{L"SCAN", false}}});
    EXPECT_THAT(SelectedDrivers(), ElementsAre(L"a", L"b"));
    Apply({.onlyPrinterDriver = L"B", .drivers = {{L"SCAN"}}});
    EXPECT_THAT(SelectedDrivers(), ElementsAre(L"b", L"scan"));
}

TEST_F(ApplyChoiceTest, WritesTheSettingsAndTheRecords) {
    settings.SetDevices({L"<DRIVER_ID>A</DRIVER_ID>", L""});
    Apply({.tags = {{Tag::PORT_NAME, L"p"}},
           .deviceTags = {{Tag::PORT_TYPE, L"USB"}},
           .records = {L"Selected Port Type: USB"}});
    EXPECT_EQ(settings.GetString(Tag::PORT_NAME), L"p");
    EXPECT_THAT(settings.GetDeviceValues(Tag::PORT_TYPE), ElementsAre(L"USB", L"USB"));
    ASSERT_EQ(TheLog().basic.size(), 1U);
    EXPECT_EQ(TheLog().basic.front().message, L"Selected Port Type: USB");
    EXPECT_EQ(Link(), L"");
}

TEST_F(ApplyChoiceTest, LeadsToTheHelpOfTheModelThatTheSettingsName) {
    settings.SetStrings({{Tag::DRIVER_MODEL_NAME, L"Brand M2"}, {Tag::PRINTER_NAME, L"S1"}});
    settings.SetString(Tag::OEM_NAME, L"Brand");
    settings.SetString(TextTag(L"MODEL_PRODUCT_CODE"), L"S1:Brand M1|Brand M2");
    Apply({.links = LinkSource::Settings});
    EXPECT_EQ(Link(), L"http://help?productCode=Brand_M2&loc=en");
}

TEST_F(ApplyChoiceTest, LeadsToTheHelpOfTheFirstDevice) {
    settings.SetString(Tag::OEM_NAME, L"Brand");
    settings.SetString(TextTag(L"MODEL_PRODUCT_CODE"), L"S1:Brand M1|Brand M2");
    settings.SetDevices(
        {L"<PRINTER_SERIES_NAME>S1</PRINTER_SERIES_NAME>"
         L"<PRINTER_MODEL_NAME>Brand M1</PRINTER_MODEL_NAME>"});
    Apply({.links = LinkSource::FirstDevice});
    EXPECT_EQ(Link(), L"http://help?productCode=Brand_M1&loc=en");
}

TEST_F(ApplyChoiceTest, SaysInTheLogWhereACodeHasNothingBehindTheBrand) {
    settings.SetStrings({{Tag::DRIVER_MODEL_NAME, L"Brand M2"}, {Tag::PRINTER_NAME, L"S1"}});
    settings.SetString(Tag::OEM_NAME, L"Brand");
    settings.SetString(TextTag(L"MODEL_PRODUCT_CODE"), L"S1:Brand M2");
    Apply({.links = LinkSource::Settings});
    EXPECT_TRUE(TheLog().basic.empty());
    settings.SetString(TextTag(L"MODEL_PRODUCT_CODE"), L"S1:Brand");
    Apply({.links = LinkSource::Settings});
    EXPECT_EQ(TheLog().basic.size(), 1U);
}

TEST_F(ApplyChoiceTest, LeadsToTheGeneralHelpWithoutADevice) {
    Apply({.links = LinkSource::FirstDevice});
    EXPECT_EQ(Link(), L"http://help?loc=en");
}

TEST_F(ApplyChoiceTest, LeadsToTheGeneralHelpWhereTheFirstDeviceHasNoSeries) {
    settings.SetDevices({L"<PRINTER_MODEL_NAME>Brand M1</PRINTER_MODEL_NAME>"});
    Apply({.links = LinkSource::FirstDevice});
    EXPECT_EQ(Link(), L"http://help?loc=en");
}

TEST_F(ApplyChoiceTest, KnowsTheDriverAndItsPath) {
    settings.SetBool(Tag::INSTALL_PICKED_DRIVER_ONLY, true);
    const ChoiceInputs inputs = MakeChoiceInputs(settings, drivers, L"B");
    EXPECT_FALSE(inputs.fromConfig);
    EXPECT_FALSE(inputs.isAmazon);
    EXPECT_TRUE(inputs.pickedDriverOnly);
    EXPECT_EQ(inputs.driverId, L"B");
    EXPECT_EQ(inputs.driverPath, L"Drivers\\x64\\b");
}

// The devices of a predefined configuration that ask for the name of the printer that was found.
using DetectedNamesTest = ApplyChoiceTest;

TEST_F(DetectedNamesTest, AreThoseOfThePrinterAndItsStream) {
    settings.SetDevices(
        {L"<DRIVER_ID>A</DRIVER_ID><DETECT_PRINTER>true</DETECT_PRINTER>",
         L"<DRIVER_ID>B</DRIVER_ID><DETECT_PRINTER>True</DETECT_PRINTER>",
         L"<DRIVER_ID>B</DRIVER_ID><DETECT_PRINTER>TRUE</DETECT_PRINTER>",
         L"<DRIVER_ID>A</DRIVER_ID><DETECT_PRINTER>tRUE</DETECT_PRINTER><PRINTER_NAME>own</PRINTER_NAME>",
         L"<DRIVER_ID>A</DRIVER_ID><PRINTER_NAME>own</PRINTER_NAME>"});
    ApplyDetectedName(settings, drivers, L"Loom");
    EXPECT_THAT(settings.GetDevices(),
                ElementsAre(L"<DRIVER_ID>A</DRIVER_ID><PRINTER_NAME>Loom PS3</PRINTER_NAME>",
                            L"<DRIVER_ID>B</DRIVER_ID><PRINTER_NAME>Loom</PRINTER_NAME>",
                            L"<DRIVER_ID>B</DRIVER_ID><PRINTER_NAME>Loom</PRINTER_NAME>",
                            L"<DRIVER_ID>A</DRIVER_ID><PRINTER_NAME>own</PRINTER_NAME>",
                            L"<DRIVER_ID>A</DRIVER_ID><PRINTER_NAME>own</PRINTER_NAME>"));
}

TEST_F(DetectedNamesTest, ComeFromTheChoice) {
    const std::wstring device = L"<DRIVER_ID>B</DRIVER_ID><DETECT_PRINTER>true</DETECT_PRINTER>";
    settings.SetDevices({device});
    Apply({});
    EXPECT_THAT(settings.GetDevices(), ElementsAre(device));
    PrinterChoice choice;
    choice.detectedName = L"Loom";
    Apply(choice);
    EXPECT_THAT(settings.GetDevices(),
                ElementsAre(L"<DRIVER_ID>B</DRIVER_ID><PRINTER_NAME>Loom</PRINTER_NAME>"));
}

// What the wizard settles before its first page.
using PreparationTest = ApplyChoiceTest;

TEST_F(PreparationTest, TakesThePrinterOfTheCommandLineUnlessDiscoveryIsOff) {
    const auto take = [this](const NetworkAddress& printer) {
        TakePrinterOfCommandLine(printer, {settings, applications, drivers, localizer});
        return settings.GetString(Tag::IPADDRESS);
    };
    EXPECT_EQ(take({L"", L"p"}), L"");
    EXPECT_EQ(take({L"10.0.0.7", L""}), L"10.0.0.7");
    // The printer has switched the discovery off by now.
    EXPECT_EQ(take({L"10.0.0.8", L""}), L"10.0.0.7");
}

TEST_F(PreparationTest, LacksAPrinterInASilentRunThatLooksForNone) {
    const NetworkAddress none;
    EXPECT_FALSE(LacksPrinter(settings, none));
    settings.SetBool(Tag::SILENT_INSTALL, true);
    EXPECT_TRUE(LacksPrinter(settings, none));
    EXPECT_FALSE(LacksPrinter(settings, {L"10.0.0.7", L""}));
    settings.SetBool(Tag::HIDE_DISCOVERY, true);
    EXPECT_FALSE(LacksPrinter(settings, none));
}

TEST_F(PreparationTest, TakesThePredefinedPrintersFromTheSettings) {
    settings.SetString(TextTag(L"ALL"), L"<DEVICE>one</DEVICE><DEVICE>two</DEVICE>");
    TakePredefinedPrinters(settings);
    EXPECT_TRUE(settings.GetBool(Tag::INSTALL_FROM_CONFIG));
    EXPECT_THAT(settings.GetDevices(), ElementsAre(L"one", L"two"));
}

}  // namespace
