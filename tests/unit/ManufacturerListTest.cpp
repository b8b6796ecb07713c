#include <gtest/gtest.h>

#include "pages/ManufacturerList.h"
#include "settings/TagNames.h"

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

class SettledManufacturersTest : public testing::Test {
protected:
    void Settle(const std::wstring& oem, std::wstring_view list) {
        settings.SetStrings({{Tag::OEM, oem}, {Tag::OEM_NAME, L"what stood here"}, {Tag::OEMBYTE, L"9"}});
        SettleManufacturers(settings, ParseManufacturers(list));
    }
    std::wstring Brand() const { return settings.GetString(Tag::OEM_NAME); }
    std::wstring Code() const { return settings.GetString(Tag::OEMBYTE); }

    InstallSettings settings;
};

TEST_F(SettledManufacturersTest, TakeTheOnlyOneWithoutAQuestion) {
    Settle(L"", L"Veldt:72");
    EXPECT_FALSE(settings.GetBool(Tag::SHOW_MANUFACTURERS));
    EXPECT_EQ(Brand(), L"Veldt");
    EXPECT_EQ(Code(), L"72");
}

TEST_F(SettledManufacturersTest, KeepTheBrandOfThePackage) {
    Settle(L"Halvenny", L"Veldt:72");
    EXPECT_EQ(Brand(), L"Halvenny");
    Settle(L"Halvenny", L"");
    EXPECT_EQ(Brand(), L"Halvenny");
}

TEST_F(SettledManufacturersTest, KeepTheCodeWhereThereIsNone) {
    Settle(L"", L"");
    EXPECT_FALSE(settings.GetBool(Tag::SHOW_MANUFACTURERS));
    EXPECT_EQ(Brand(), L"Printer");
    EXPECT_EQ(Code(), L"9");
}

TEST_F(SettledManufacturersTest, AreAskedForWhereThereAreTwo) {
    Settle(L"", L"Veldt:1|Corvish:2");
    EXPECT_TRUE(settings.GetBool(Tag::SHOW_MANUFACTURERS));
    EXPECT_EQ(Brand(), L"what stood here");
    EXPECT_EQ(Code(), L"9");
}

TEST(ChosenManufacturerTest, BringsItsCode) {
    InstallSettings settings;
    ChooseManufacturer(settings, ParseManufacturers(L"Veldt:1|Corvish"), L"Veldt");
    EXPECT_EQ(settings.GetString(Tag::OEM_NAME), L"Veldt");
    EXPECT_EQ(settings.GetString(Tag::OEMBYTE), L"1");
    ChooseManufacturer(settings, ParseManufacturers(L"Veldt:1|Corvish"), L"Corvish");
    EXPECT_EQ(settings.GetString(Tag::OEM_NAME), L"Corvish");
    EXPECT_EQ(settings.GetString(Tag::OEMBYTE), L"");
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
