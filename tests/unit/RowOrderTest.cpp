#include <gtest/gtest.h>

#include "discovery/RowOrder.h"

namespace {

int Texts(const wchar_t* first, const wchar_t* second, bool ascending = true) {
    return CompareCells({.text = first}, {.text = second}, ascending);
}

int Addresses(const wchar_t* first, const wchar_t* second, bool ascending = true) {
    return CompareCells({.text = first, .isAddress = true}, {.text = second, .isAddress = true}, ascending);
}

TEST(RowOrderTest, PutsTextsInTheOrderOfTheirCodeUnits) {
    EXPECT_EQ(Texts(L"a", L"b"), -1);
    EXPECT_EQ(Texts(L"b", L"a"), 1);
    EXPECT_EQ(Texts(L"a", L"B"), 1);
}

TEST(RowOrderTest, NeverCallsTextsEqual) {
    EXPECT_EQ(Texts(L"a", L"a"), -1);
    EXPECT_EQ(Texts(L"a", L"a", false), -1);
}

TEST(RowOrderTest, TurnsTheOrderRound) {
    EXPECT_EQ(Texts(L"a", L"b", false), 1);
    EXPECT_EQ(Addresses(L"10.0.0.9", L"10.0.0.10", false), 1);
}

TEST(RowOrderTest, PutsAddressesInTheOrderOfTheirNumbers) {
    EXPECT_EQ(Addresses(L"10.0.0.9", L"10.0.0.10"), -1);
    EXPECT_EQ(Addresses(L"10.0.1.0", L"10.0.0.255"), 1);
    EXPECT_EQ(Addresses(L"9.255.255.255", L"10.0.0.0"), -1);
    EXPECT_EQ(Addresses(L"10.0.0.9", L"10.0.0.9"), 0);
    EXPECT_EQ(Addresses(L"10.0", L"10.0.0.9"), 0);
    EXPECT_EQ(Addresses(L"10.0.0.9", L"10.0"), 0);
}

TEST(RowOrderTest, PutsAddressesWithoutPointsByTheirLeadingNumber) {
    EXPECT_EQ(Addresses(L"2001:db8::1", L"192.0.2.1"), 1);
    EXPECT_EQ(Addresses(L"fe80::1", L"fe80::2"), -1);
}

TEST(RowOrderTest, ComparesAnAddressWithATextAsTexts) {
    EXPECT_EQ(CompareCells({.text = L"9.0.0.1", .isAddress = true}, {.text = L"10"}, true), 1);
}

TEST(RowOrderTest, PutsComPortsInTheOrderOfTheirNumbers) {
    EXPECT_EQ(Texts(L"COM3:", L"COM10:"), -1);
    EXPECT_EQ(Texts(L"COM10", L"COM3"), 1);
    EXPECT_EQ(Texts(L"COM3: (a:7)", L"COM2:"), 1);
    EXPECT_EQ(Texts(L"COM3:", L"COM3:"), -1);
    EXPECT_EQ(Texts(L"com3:", L"com10:"), 1);
    EXPECT_EQ(Texts(L"COM3:", L"LPT1:"), -1);
    EXPECT_EQ(Texts(L"LPT1:", L"COM3:"), 1);
}

}  // namespace
