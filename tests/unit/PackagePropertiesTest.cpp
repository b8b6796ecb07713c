#include <gmock/gmock.h>

#include "catalogue/PackageProperties.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct SizeCase {
    std::wstring text;
    double megabytes;
};

class InstallSizeTest : public testing::TestWithParam<SizeCase> {};

TEST_P(InstallSizeTest, ReadsTheMegabytes) {
    EXPECT_EQ(InstallSizeInMb(GetParam().text), GetParam().megabytes);
}

const SizeCase sizes[] = {
    {L"12 MB", 12},      {L"12MB", 12}, {L"12.5MB", 12.5}, {L"MB", 0},
    {L"about 12 MB", 0}, {L"", 0},      {L"12", 12},       {L"12.5 units", 12.5},
    {L" 12  MB", 12},    {L"   MB", 0}, {L"1MB 2MB", 1},   {L"12 mb", 12},
};

INSTANTIATE_TEST_SUITE_P(Texts, InstallSizeTest, testing::ValuesIn(sizes));

TEST(DependentNamesTest, AreJoinedByCommasAndAWord) {
    EXPECT_EQ(JoinDependentNames({}, L"and"), L"");
    EXPECT_EQ(JoinDependentNames({L"A"}, L"and"), L"A");
    EXPECT_EQ(JoinDependentNames({L"A", L"B"}, L"and"), L"A and B");
    EXPECT_EQ(JoinDependentNames({L"A", L"B", L"C"}, L"and"), L"A,B and C");
}

TEST(DependentNamesTest, LoseACommaOfTheirOwn) {
    // The last comma of the text becomes the word, even where it belongs to a name.
    EXPECT_EQ(JoinDependentNames({L"A, B"}, L"and"), L"A and  B");
    EXPECT_EQ(JoinDependentNames({L"", L""}, L"and"), L" and ");
}

struct SystemCase {
    std::wstring supported;
    bool passes;
};

class SystemListTest : public testing::TestWithParam<SystemCase> {};

TEST_P(SystemListTest, AdmitsTheSystemsThatItNames) {
    EXPECT_EQ(SupportsSystem(GetParam().supported, L"WINDOWS_8"), GetParam().passes);
}

const SystemCase systems[] = {
    {L"", true},
    {L"WINDOWS_7", true},  // No list, so it is not looked at.
    {L"WINDOWS_7;WINDOWS_8", true},
    {L"WINDOWS_8;WINDOWS_7", true},
    {L"WINDOWS_7;WINDOWS_8;WINDOWS_BLUE", true},
    {L"WINDOWS_7;WINDOWS_BLUE", false},
    {L"WINDOWS_7;", false},
    {L"WINDOWS_8;", true},
    {L";WINDOWS_8", true},
    {L";", false},
    {L"WINDOWS_7; WINDOWS_8", false},
    {L"WINDOWS_7;windows_8", false},
    {L"WINDOWS_7;WINDOWS_80", false},
};

INSTANTIATE_TEST_SUITE_P(Lists, SystemListTest, testing::ValuesIn(systems));

TEST(DeviceTypeTest, MatchesThePiecesThatASemicolonCloses) {
    EXPECT_TRUE(MatchesDeviceType(L"FAX", L"FAX"));
    EXPECT_TRUE(MatchesDeviceType(L"FAX", L"FAX;PRINTER"));
    EXPECT_FALSE(MatchesDeviceType(L"PRINTER", L"FAX;PRINTER"));
    EXPECT_TRUE(MatchesDeviceType(L"PRINTER", L"FAX;PRINTER;"));
    EXPECT_TRUE(MatchesDeviceType(L"FAX;PRINTER", L"FAX;PRINTER"));
    EXPECT_FALSE(MatchesDeviceType(L"fax", L"FAX;"));
}

TEST(DeviceTypeTest, MatchesEverythingForARecordWithoutAType) {
    EXPECT_TRUE(MatchesDeviceType(L"", L"FAX"));
}

struct DriverCase {
    std::wstring driverId;
    bool scan, fax, printer;
};

class DriverClassTest : public testing::TestWithParam<DriverCase> {};

TEST_P(DriverClassTest, ComesFromTheIdentifier) {
    MSI_APP app;
    app.driverId = GetParam().driverId;
    ClassifyDriver(app);
    EXPECT_EQ(app.isScanDriver, GetParam().scan);
    EXPECT_EQ(app.isFaxDriver, GetParam().fax);
    EXPECT_EQ(app.isPrinterDriver, GetParam().printer);
}

INSTANTIATE_TEST_SUITE_P(Identifiers, DriverClassTest,
                         testing::Values(DriverCase{L"SCAN", true, false, false},
                                         DriverCase{L"Fax", false, true, false},
                                         DriverCase{L"FAX", false, false, true},
                                         DriverCase{L"PCL", false, false, true},
                                         DriverCase{L"", false, false, false}));

TEST(AcceptedDriverTypesTest, AreThePiecesOfTheSetting) {
    EXPECT_THAT(AcceptedDriverTypes(L"PS;PCL"), ElementsAre(L"PS", L"PCL"));
    EXPECT_THAT(AcceptedDriverTypes(L"PS; PCL"), ElementsAre(L"PS", L" PCL"));
    EXPECT_THAT(AcceptedDriverTypes(L""), IsEmpty());
}

TEST(AcceptedDriverTypesTest, HoldAnEmptyPieceBehindAClosingSemicolon) {
    EXPECT_THAT(AcceptedDriverTypes(L"PS;"), ElementsAre(L"PS", L""));
    EXPECT_THAT(AcceptedDriverTypes(L"PS;;PCL"), ElementsAre(L"PS", L"", L"PCL"));
}

}  // namespace
