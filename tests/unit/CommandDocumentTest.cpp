#include <gtest/gtest.h>

#include "install/CommandDocument.h"
#include "settings/TagNames.h"

namespace {

CommandValues SomeValues() {
    return {.printerInfo = L"<PRINTER_INFO><DEVICE></DEVICE></PRINTER_INFO>",
            .targetDir = L"C:\\Program Files\\Zevana",
            .language = L"1033",
            .friendlyName = L"Hall",
            .infocenterShortcut = L"Help",
            .infocenterLink = L"http://help.example/?loc=en",
            .reinstall = false};
}

constexpr std::wstring_view document =
    L"<PRINTER_INFO><DEVICE></DEVICE></PRINTER_INFO><TARGET_DIR>C:\\Program Files\\Zevana</TARGET_DIR>"
    L"<LANGUAGEID>1033</LANGUAGEID><DEVICEFRIENDLYNAME>Hall</DEVICEFRIENDLYNAME>"
    L"<INFOCENTER_SHORTCUT>Help</INFOCENTER_SHORTCUT>"
    L"<INFOCENTER_LINK>http://help.example/?loc=en</INFOCENTER_LINK>";

TEST(CommandDocumentTest, HoldsItsElementsInTheirOrder) {
    EXPECT_EQ(BuildCommandDocument(SomeValues()), document);
}

TEST(CommandDocumentTest, AddsTheReinstallElementForAMinorUpgrade) {
    auto values = SomeValues();
    values.reinstall = true;
    EXPECT_EQ(BuildCommandDocument(values), std::wstring(document) + L"<TAG_REINSTALL>true</TAG_REINSTALL>");
}

TEST(CommandDocumentTest, HoldsEmptyElementsForMissingValues) {
    EXPECT_EQ(BuildCommandDocument({}),
              L"<TARGET_DIR></TARGET_DIR><LANGUAGEID></LANGUAGEID><DEVICEFRIENDLYNAME></DEVICEFRIENDLYNAME>"
              L"<INFOCENTER_SHORTCUT></INFOCENTER_SHORTCUT><INFOCENTER_LINK></INFOCENTER_LINK>");
}

TEST(CommandValuesTest, NameADriverByThePrinterThatItGetsWhereThePrintersArePredefined) {
    InstallSettings settings;
    settings.SetString(Tag::PRINTER_NAME, L"common");
    settings.SetDevices({L"<DRIVER_ID>X</DRIVER_ID><PRINTER_NAME>own</PRINTER_NAME>"});
    PrinterDescription printers(settings, [](const std::wstring&) { return false; });
    MSI_APP driver;
    driver.driverId = L"X";
    const auto nameOf = [&](const MSI_APP& record) {
        return MakeCommandValues(record, printers, settings, {}, false).friendlyName;
    };
    EXPECT_EQ(nameOf(driver), L"common");
    settings.SetBool(Tag::INSTALL_FROM_CONFIG, true);
    EXPECT_EQ(nameOf(driver), L"own");
    EXPECT_EQ(nameOf(MSI_APP()), L"common");
}

}  // namespace
