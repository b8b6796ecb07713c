#include <gtest/gtest.h>

#include "pages/ManufacturerList.h"

namespace {

TEST(ManufacturerListTest, ReadsNamesAndCodesInOrder) {
    const auto list = ParseManufacturers(L"A:1|B:2");
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0].name, L"A");
    EXPECT_EQ(list[0].oemByte, L"1");
    EXPECT_EQ(list[1].name, L"B");
    EXPECT_EQ(list[1].oemByte, L"2");
}

TEST(ManufacturerListTest, TakesAnEntryWithoutColonAsANameWithoutCode) {
    const auto list = ParseManufacturers(L"A");
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0].name, L"A");
    EXPECT_EQ(list[0].oemByte, L"");
}

TEST(ManufacturerListTest, PassesOverEmptyEntries) {
    const auto list = ParseManufacturers(L"|A:1||B:2|");
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[1].name, L"B");
}

TEST(ManufacturerListTest, SplitsAnEntryAtItsFirstColon) {
    const auto list = ParseManufacturers(L"A:1:2");
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0].oemByte, L"1:2");
}

TEST(ManufacturerListTest, KeepsAnEntryThatHasACodeAlone) {
    const auto list = ParseManufacturers(L":7|B:2");
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0].name, L"");
    EXPECT_EQ(list[0].oemByte, L"7");
}

TEST(ManufacturerListTest, IsEmptyForAnEmptyText) {
    EXPECT_TRUE(ParseManufacturers(L"").empty());
}

TEST(BrandTest, FollowsTheChoiceWhereThePackageNamesNoBrand) {
    EXPECT_EQ(BrandFor(L"", L"Veldt"), L"Veldt");
    EXPECT_EQ(BrandFor(L"Printer", L"Veldt"), L"Veldt");
}

TEST(BrandTest, IsPrinterWithoutBrandAndChoice) {
    EXPECT_EQ(BrandFor(L"", L""), L"Printer");
    EXPECT_EQ(BrandFor(L"Printer", L""), L"Printer");
}

TEST(BrandTest, StaysThePackagesOwnWhateverIsPicked) {
    EXPECT_EQ(BrandFor(L"Halvenny", L"Veldt"), L"Halvenny");
    EXPECT_EQ(BrandFor(L"Halvenny", L""), L"Halvenny");
}

TEST(PreselectedManufacturerTest, IsTheNamedEntry) {
    EXPECT_EQ(PreselectedManufacturer(ParseManufacturers(L"Veldt:1|Corvish:2"), L"Corvish"), L"Corvish");
    EXPECT_EQ(PreselectedManufacturer(ParseManufacturers(L"Veldt:1|Corvish:2"), L"corvish"), std::nullopt);
}

TEST(PreselectedManufacturerTest, IsALaterOneAfterAnEntryWithoutAName) {
    EXPECT_EQ(PreselectedManufacturer(ParseManufacturers(L":9|Veldt:1|Corvish:2"), L"Veldt"), L"Corvish");
    EXPECT_EQ(PreselectedManufacturer(ParseManufacturers(L":9|Veldt:1|Corvish:2"), L"Corvish"), std::nullopt);
}

TEST(MarkFinalPointTest, PutsTheMarkBehindAFinalPointOnly) {
    EXPECT_EQ(MarkFinalPoint(L"Veldt Inc."), std::wstring(L"Veldt Inc.") + static_cast<wchar_t>(0x200E));
    EXPECT_EQ(MarkFinalPoint(L"V.eldt"), L"V.eldt");
    EXPECT_EQ(MarkFinalPoint(L""), L"");
}

}  // namespace
