#include <gmock/gmock.h>

#include "printer/DerivedNames.h"
#include "settings/KeyedValues.h"

namespace {

NameInputs PackageOfABrand() {
    NameInputs inputs;
    inputs.oem = L"Zevana";
    inputs.oemName = L"Zevana";
    inputs.defaultPrinterName = L"Universal";
    inputs.modelName = L"Model";
    inputs.faxModelName = L"Fax Model";
    return inputs;
}

TEST(PrinterNameTest, IsBrandAndDefaultName) {
    EXPECT_EQ(PrinterNameFor(PackageOfABrand()), L"Zevana Universal");
}

TEST(PrinterNameTest, OfAFaxDriverNeverTakesTheStreamName) {
    auto inputs = PackageOfABrand();
    inputs.isFaxDriver = true;
    inputs.streamDisplayName = L"PS3";
    inputs.printerName = L"Hall";
    inputs.isNameFromDiscovery = true;
    EXPECT_EQ(PrinterNameFor(inputs), L"Fax Model");
}

TEST(PrinterNameTest, TakesStreamNameAndVersion) {
    auto inputs = PackageOfABrand();
    inputs.oem = L"Printer";
    inputs.streamDisplayName = L"PS3";
    inputs.upd = L"2";
    inputs.webDriverVersion = L"1.0";
    EXPECT_EQ(PrinterNameFor(inputs), L"Model PS3 (1.0)");
}

TEST(PrinterNameTest, OfAFaxDriverTakesTheVersionAsWell) {
    auto inputs = PackageOfABrand();
    inputs.isFaxDriver = true;
    inputs.upd = L"2";
    inputs.webDriverVersion = L"1.0";
    EXPECT_EQ(PrinterNameFor(inputs), L"Fax Model (1.0)");
}

TEST(PrinterNameTest, KeepsTheDiscoveredNameOnlyForExactlyOne) {
    auto inputs = PackageOfABrand();
    inputs.printerName = L"Hall";
    inputs.isNameFromDiscovery = false;
    EXPECT_EQ(PrinterNameFor(inputs), L"Zevana Universal");
    inputs.isNameFromDiscovery = true;
    EXPECT_EQ(PrinterNameFor(inputs), L"Hall");
    inputs.printerName.clear();
    EXPECT_EQ(PrinterNameFor(inputs), L"Zevana Universal");
}

TEST(PrinterNameTest, TakesTheModelWhenThereIsNoVendor) {
    auto inputs = PackageOfABrand();
    inputs.oem = L"Printer";
    EXPECT_EQ(PrinterNameFor(inputs), L"Model");
}

TEST(PrinterNameTest, ShowsNoVersionForOtherKindsOfPackage) {
    auto inputs = PackageOfABrand();
    inputs.webDriverVersion = L"1.0";
    inputs.upd = L"1";
    EXPECT_EQ(PrinterNameFor(inputs), L"Zevana Universal");
}

TEST(OemDefaultNameTest, BeginsWithTheBlankWhenThereIsNoBrand) {
    EXPECT_EQ(OemDefaultName(L"", L"Universal"), L" Universal");
    EXPECT_EQ(OemDefaultName(L"Zevana", L""), L"Zevana ");
}

TEST(DriverProductNameTest, IsTheModelOfAFaxDriver) {
    auto inputs = PackageOfABrand();
    inputs.isFaxDriver = true;
    inputs.printerName = L"Hall";
    EXPECT_EQ(DriverProductNameFor(inputs), L"Fax Model");
}

TEST(DriverProductNameTest, IsThePrinterNameUnlessThePackageIsOfKindOne) {
    auto inputs = PackageOfABrand();
    EXPECT_EQ(DriverProductNameFor(inputs), L"Model");
    inputs.printerName = L"Hall";
    EXPECT_EQ(DriverProductNameFor(inputs), L"Hall");
    inputs.upd = L"1";
    EXPECT_EQ(DriverProductNameFor(inputs), L"Model");
}

TEST(ModelNameTest, IsTheFirstEntryOfABrand) {
    EXPECT_EQ(KeyedValues({L"A:X", L"A:Y"}, L":").at(L"A"), L"X");
}

TEST(DefaultDriverTest, DependsOnColourAndSystem) {
    EXPECT_EQ(DefaultDriverTag(L"mono", false), L"MONO_DEFAULT");
    EXPECT_EQ(DefaultDriverTag(L"color", false), L"COLOR_DEFAULT");
    EXPECT_EQ(DefaultDriverTag(L"", false), L"NO_COMM_DEFAULT");
    EXPECT_EQ(DefaultDriverTag(L"mono", true), L"WIN8_MONO_DEFAULT");
    EXPECT_EQ(DefaultDriverTag(L"color", true), L"WIN8_COLOR_DEFAULT");
    EXPECT_EQ(DefaultDriverTag(L"Color", true), L"WIN8_NO_COMM_DEFAULT");
}

TEST(ProductCodeTest, IsTheLastPieceThatTheModelHolds) {
    const std::map<std::wstring, std::wstring> codes = {{L"S", L"M10|M20|M2"}};
    EXPECT_EQ(ProductCodeFor(codes, L"Zevana M20 dn", L"S"), L"M2");
    EXPECT_EQ(ProductCodeFor(codes, L"Zevana M10", L"S"), L"M10");
    EXPECT_EQ(ProductCodeFor(codes, L"Zevana M30", L"S"), L"");
    EXPECT_EQ(ProductCodeFor(codes, L"Zevana M10", L"T"), L"");
    EXPECT_EQ(ProductCodeFor({}, L"Zevana M10", L"S"), L"");
}

TEST(ProductCodeTest, TakesAnEmptyPieceLikeAnyOther) {
    EXPECT_EQ(ProductCodeFor({{L"S", L"M10|"}}, L"Zevana M10", L"S"), L"");
    EXPECT_EQ(ProductCodeFor({{L"S", L"|M10"}}, L"Zevana M10", L"S"), L"M10");
}

TEST(FormatProductCodeTest, TurnsTheBlankBehindTheBrandIntoALine) {
    EXPECT_EQ(FormatProductCode(L"Zevana M10", L"Zevana"), L"Zevana_M10");
    EXPECT_EQ(FormatProductCode(L"New Zevana M10", L"Zevana"), L"Zevana_M10");
    EXPECT_EQ(FormatProductCode(L"M10", L"Zevana"), L"");
}

TEST(FormatProductCodeTest, DropsTheFirstCharacterWhenThereIsNoBrand) {
    EXPECT_EQ(FormatProductCode(L"M10", L""), L"_10");
}

TEST(FormatProductCodeTest, GivesNothingForACodeThatEndsWithTheBrand) {
    EXPECT_EQ(FormatProductCode(L"M10 Zevana", L"Zevana"), std::nullopt);
    EXPECT_EQ(FormatProductCode(L"Zevana", L"Zevana"), std::nullopt);
    EXPECT_EQ(FormatProductCode(L"", L""), std::nullopt);
    EXPECT_EQ(FormatProductCode(L"Zevana ", L"Zevana"), L"Zevana_");
}

TEST(CommonSeriesTest, IsSharedByAllDevices) {
    const auto common = CommonSeries({{L"A", L"A1"}, {L"A", L"A2"}});
    EXPECT_EQ(common.series, L"A");
    EXPECT_EQ(common.model, L"A2");
}

class MixedSeriesTest : public testing::TestWithParam<std::vector<std::wstring>> {};

TEST_P(MixedSeriesTest, HasNoCommonSeries) {
    std::vector<SeriesAndModel> devices;
    for (const auto& series : GetParam()) devices.push_back({series, L"model"});
    const auto common = CommonSeries(devices);
    EXPECT_EQ(common.series, L"");
    EXPECT_EQ(common.model, L"");
}

INSTANTIATE_TEST_SUITE_P(Devices, MixedSeriesTest,
                         testing::Values(std::vector<std::wstring>{}, std::vector<std::wstring>{L""},
                                         std::vector<std::wstring>{L"A", L"A", L"B"},
                                         std::vector<std::wstring>{L"A", L"B", L"A"},
                                         std::vector<std::wstring>{L"A", L"A", L""},
                                         std::vector<std::wstring>{L"", L"A"}));

TEST(CountedNameTest, StandsInFrontOfTheLastDot) {
    EXPECT_EQ(CountedName(L"a.cfg", 1), L"a_1.cfg");
    EXPECT_EQ(CountedName(L"a_1.cfg", 2), L"a_1_2.cfg");
    EXPECT_EQ(CountedName(L"a.b.cfg", 10), L"a.b_10.cfg");
    EXPECT_EQ(CountedName(L"folder.x\\a", 1), L"folder_1.x\\a");
}

TEST(CountedNameTest, IsMissingWithoutADot) {
    EXPECT_EQ(CountedName(L"config", 1), std::nullopt);
}

}  // namespace
