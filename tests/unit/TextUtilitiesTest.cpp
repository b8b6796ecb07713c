#include <gmock/gmock.h>

#include <limits>

#include "CommonLib/TextUtilities.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TextUtilitiesTest, WritesNumbersInDecimal) {
    EXPECT_EQ(ToDecimalString(0), L"0");
    EXPECT_EQ(ToDecimalString(1603), L"1603");
    EXPECT_EQ(ToDecimalString(0xFFFFFFFF), L"4294967295");
}

TEST(TextUtilitiesTest, DropsTheRestBehindTheLastSeparator) {
    EXPECT_THAT(SplitClosed(L"a.exe;b.exe;", L';'), ElementsAre(L"a.exe", L"b.exe"));
    EXPECT_THAT(SplitClosed(L"a.exe;b.exe", L';'), ElementsAre(L"a.exe"));
    EXPECT_THAT(SplitClosed(L"a.exeb.exe", L';'), IsEmpty());
    EXPECT_THAT(SplitClosed(L";", L';'), ElementsAre(L""));
    EXPECT_THAT(SplitClosed(L"", L';'), IsEmpty());
}

TEST(TextUtilitiesTest, ComparesWithoutRegardToCase) {
    EXPECT_TRUE(EqualsIgnoringCase(L"yes", L"YES"));
    EXPECT_TRUE(EqualsIgnoringCase(L"", L""));
    EXPECT_FALSE(EqualsIgnoringCase(L"YES ", L"YES"));
    EXPECT_FALSE(EqualsIgnoringCase(L"YE", L"YES"));
    EXPECT_FALSE(EqualsIgnoringCase(L"@", L"`"));
    EXPECT_FALSE(EqualsIgnoringCase(L"[", L"{"));
    EXPECT_TRUE(EqualsIgnoringCase(L"abcxyz", L"ABCXYZ"));
}

struct IntegerCase {
    std::wstring text;
    std::int32_t number;
};

class LeadingIntegerTest : public testing::TestWithParam<IntegerCase> {};

TEST_P(LeadingIntegerTest, ReadsTheNumberInFront) {
    EXPECT_EQ(LeadingInteger(GetParam().text), GetParam().number);
}

const IntegerCase integers[] = {
    {L"42", 42},
    {L"  42", 42},
    {L"\t\r\n42", 42},
    {L"+42", 42},
    {L"-42", -42},
    {L"42%", 42},
    {L"4 2", 4},
    {L"", 0},
    {L"x42", 0},
    {L"- 42", 0},
    {L"--42", 0},
    {L"0x10", 0},
    {L"007", 7},
    {L"2147483647", std::numeric_limits<std::int32_t>::max()},
    {L"2147483648", std::numeric_limits<std::int32_t>::max()},
    {L"-2147483648", std::numeric_limits<std::int32_t>::min()},
    {L"-99999999999999999999", std::numeric_limits<std::int32_t>::min()},
    {L"99999999999999999999", std::numeric_limits<std::int32_t>::max()},
};

INSTANTIATE_TEST_SUITE_P(Texts, LeadingIntegerTest, testing::ValuesIn(integers));

struct NumberCase {
    std::wstring text;
    double number;
};

class LeadingNumberTest : public testing::TestWithParam<NumberCase> {};

TEST_P(LeadingNumberTest, ReadsTheNumberInFront) {
    EXPECT_EQ(LeadingNumber(GetParam().text), GetParam().number);
}

const NumberCase numbers[] = {
    {L"12", 12},     {L"12.5", 12.5}, {L" -0.25x", -0.25},
    {L".5", 0.5},    {L"5.", 5},      {L"1e3", 1000},
    {L"1e+3", 1000}, {L"1E-2", 0.01}, {L"1e", 1},
    {L"1e+", 1},     {L"1.2.3", 1.2}, {L"", 0},
    {L".", 0},       {L"-", 0},       {L"inf", 0},
    {L"nan", 0},     {L"0x10", 0},    {L"e3", 0},
    {L"1,5", 1},     {L"1e-999", 0},  {L"1e999", std::numeric_limits<double>::infinity()},
};

INSTANTIATE_TEST_SUITE_P(Texts, LeadingNumberTest, testing::ValuesIn(numbers));

TEST(TextUtilitiesTest, CutsAPathBehindItsLastBackslash) {
    EXPECT_EQ(FileNameOf(L"C:\\a\\..\\b.msi"), L"b.msi");
    EXPECT_EQ(FileNameOf(L"b.msi"), L"b.msi");
    EXPECT_EQ(FileNameOf(L"C:\\a\\"), L"");
    EXPECT_EQ(FileNameOf(L""), L"");
}

}  // namespace
