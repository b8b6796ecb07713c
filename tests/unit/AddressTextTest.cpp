#include <gtest/gtest.h>

#include <regex>

#include "CommonLib/AddressText.h"
#include "tests/unit/ReferenceForms.h"

namespace {

struct AddressCase {
    std::wstring text;
    bool valid;
};

class HostNameTest : public testing::TestWithParam<AddressCase> {};

TEST_P(HostNameTest, IsJudgedByItsLabels) {
    EXPECT_EQ(IsValidHostName(GetParam().text), GetParam().valid);
}

const AddressCase hostNames[] = {
    {L"a-b.c", true}, {L"a", true},    {L"1", true},     {L"10.0.0.7", true}, {L"A--b", true},
    {L"-a", false},   {L"a-", false},  {L"a..b", false}, {L"", false},        {L".a", false},
    {L"a.", false},   {L"a_b", false}, {L"a b", false},  {L"a\n", false},     {L"\u00E4", false},
    {L"a.-b", false}, {L"-", false},   {L"a-.b", false}, {L"a{b", false},     {L"a[b", false},
};

INSTANTIATE_TEST_SUITE_P(Names, HostNameTest, testing::ValuesIn(hostNames));

class IpV4TextTest : public testing::TestWithParam<AddressCase> {};

TEST_P(IpV4TextTest, IsFourNumbersUpTo255) {
    EXPECT_EQ(IsValidIpV4Text(GetParam().text), GetParam().valid);
}

const AddressCase addresses[] = {
    {L"0.0.0.0", true},       {L"255.255.255.255", true}, {L"10.20.30.99", true}, {L"1.100.199.249", true},
    {L"010.0.0.1", false},    {L"256.0.0.1", false},      {L"1.2.3", false},      {L"1.2.3.4.5", false},
    {L"1.2.3.", false},       {L"1.2.3.4.", false},       {L"1.2..4", false},     {L"", false},
    {L"00.0.0.0", false},     {L"1.2.3.1000", false},     {L"1.2.3.4 ", false},   {L"1.2.3.a", false},
    {L"1.2.3.\u0664", false}, {L"260.0.0.1", false},      {L"300.0.0.1", false},  {L"-1.0.0.1", false},
};

INSTANTIATE_TEST_SUITE_P(Addresses, IpV4TextTest, testing::ValuesIn(addresses));

TEST(GeneratedAddressTest, AgreesWithTheExpressionForHostNames) {
    const std::wregex expression(
        L"^(([a-zA-Z0-9]|[a-zA-Z0-9][a-zA-Z0-9\\-]*[a-zA-Z0-9])\\.)*"
        L"([A-Za-z0-9]|[A-Za-z0-9][A-Za-z0-9\\-]*[A-Za-z0-9])$");
    TextMaker texts({L"a", L"Z", L"0", L"-", L".", L"9", L"_"}, 41);
    for (int i = 0; i < 20'000; ++i) {
        const auto text = texts.Make(9);
        ASSERT_EQ(IsValidHostName(text), std::regex_match(text, expression)) << text;
    }
}

TEST(GeneratedAddressTest, AgreesWithTheExpressionForAddresses) {
    const std::wregex expression(
        L"^(([0-9]|[1-9][0-9]|1[0-9]{2}|2[0-4][0-9]|25[0-5])\\.){3}"
        L"([0-9]|[1-9][0-9]|1[0-9]{2}|2[0-4][0-9]|25[0-5])$");
    TextMaker texts({L"0.", L"1.", L"2", L"5", L"25", L"9.", L"4", L"0", L"."}, 42);
    int valid = 0;
    for (int i = 0; i < 40'000; ++i) {
        const auto text = texts.Make(9);
        ASSERT_EQ(IsValidIpV4Text(text), std::regex_match(text, expression)) << text;
        valid += IsValidIpV4Text(text) ? 1 : 0;
    }
    EXPECT_GT(valid, 500);
}

TEST(GeneratedAddressTest, AgreesWithTheExpressionForEveryNumber) {
    for (int number = 0; number < 1'100; ++number) {
        EXPECT_EQ(IsValidIpV4Text(L"1.2.3." + std::to_wstring(number)), number < 256) << number;
    }
}

TEST(AddressSizeTest, JudgesAMegabyte) {
    EXPECT_TRUE(IsValidHostName(std::wstring(1'000'000, L'a')));
    EXPECT_FALSE(IsValidHostName(std::wstring(1'000'000, L'a') + L'-'));
    EXPECT_FALSE(IsValidIpV4Text(std::wstring(1'000'000, L'1')));
}

struct BytesCase {
    std::wstring text;
    std::vector<std::uint8_t> bytes;
};

class AddressBytesTest : public testing::TestWithParam<BytesCase> {};

TEST_P(AddressBytesTest, AreThoseOfTheAddress) {
    EXPECT_EQ(AddressBytes(GetParam().text), GetParam().bytes);
}

const std::vector<std::uint8_t> loopback{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1};

INSTANTIATE_TEST_SUITE_P(
    Texts, AddressBytesTest,
    testing::Values(BytesCase{L"10.0.255.1", {10, 0, 255, 1}}, BytesCase{L"::1", loopback},
                    BytesCase{L"0:0:0:0:0:0:0:1", loopback}, BytesCase{L"0:0::0:1%eth0", loopback},
                    BytesCase{L"::0.0.0.1", loopback},
                    BytesCase{L"Fe80::aB1", {0xFE, 0x80, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x0A, 0xB1}},
                    BytesCase{L"1:2:3:4:5:6:7::", {0, 1, 0, 2, 0, 3, 0, 4, 0, 5, 0, 6, 0, 7, 0, 0}}));

class NoAddressTest : public testing::TestWithParam<const wchar_t*> {};

TEST_P(NoAddressTest, HasNoBytes) {
    EXPECT_TRUE(AddressBytes(GetParam()).empty());
}

INSTANTIATE_TEST_SUITE_P(Texts, NoAddressTest,
                         testing::Values(L"", L":", L":::", L"1", L"10.0.0", L"10.0.0.256", L"1:2:3:4:5:6:7",
                                         L"1:2:3:4:5:6:7:8:9", L"1:2:3:4:5:6:7:8:", L"1:2:3:4:5:6:7:8::",
                                         L"1::2::3", L"12345::", L"g::", L":1::", L"1::2:", L"::1%",
                                         L"1:2:3:4:5:6:7:10.0.0.1", L"10.0.0.1::"));

}  // namespace
