#include <gmock/gmock.h>

#include <algorithm>
#include <numeric>

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

std::vector<std::size_t> Numbers(std::size_t count) {
    std::vector<std::size_t> numbers(count);
    std::iota(numbers.begin(), numbers.end(), std::size_t{0});
    return numbers;
}

std::vector<std::size_t> Sorted(std::vector<std::size_t> rows, const std::vector<SortedCell>& cells,
                                bool ascending = true) {
    SortRows(rows, cells, ascending);
    return rows;
}

TEST(SortedRowsTest, AreInTheOrderOfTheirCells) {
    const std::vector<SortedCell> cells = {{.text = L"c"}, {.text = L"a"}, {.text = L"b"}};
    EXPECT_THAT(Sorted({0, 1, 2}, cells), testing::ElementsAre(1, 2, 0));
    EXPECT_THAT(Sorted({0, 1, 2}, cells, false), testing::ElementsAre(0, 2, 1));
}

TEST(SortedRowsTest, StayInTheOrderInWhichTheyComeWhereTheyAreEqual) {
    const std::vector<SortedCell> cells = {{.text = L"x"}, {.text = L"x"}, {.text = L"a"}, {.text = L"x"}};
    EXPECT_THAT(Sorted({3, 1, 2, 0}, cells), testing::ElementsAre(2, 3, 1, 0));
    EXPECT_THAT(Sorted({3, 1, 2, 0}, cells, false), testing::ElementsAre(3, 1, 0, 2));
}

TEST(SortedRowsTest, AreInOrderWhateverTheirCount) {
    for (std::size_t count = 0; count < 70; ++count) {
        std::vector<std::wstring> texts;
        for (std::size_t row = 0; row < count; ++row)
            texts.push_back(std::to_wstring(100 + row * 37 % 71 % 20));
        std::vector<SortedCell> cells;
        for (const std::wstring& text : texts) cells.push_back({.text = text});
        std::vector<std::size_t> expected = Numbers(count);
        std::ranges::stable_sort(expected, {}, [&](std::size_t row) { return cells[row].text; });
        EXPECT_EQ(Sorted(Numbers(count), cells), expected);
    }
}

TEST(SortedRowsTest, GoByTheNumbersOfTheirAddressesHoweverTheseAreWritten) {
    const std::vector<SortedCell> cells = {{.text = L"10.0.0.10", .isAddress = true},
                                           {.text = L"fe80::1", .isAddress = true},
                                           {.text = L"10.0.0.9", .isAddress = true},
                                           {.text = L"9.255.0.0", .isAddress = true},
                                           {.text = L"255.0.0.1", .isAddress = true}};
    EXPECT_THAT(Sorted(Numbers(5), cells), testing::ElementsAre(1, 3, 2, 0, 4));
    EXPECT_THAT(Sorted(Numbers(5), cells, false), testing::ElementsAre(4, 0, 2, 3, 1));
}

// Ports go by their numbers and addresses too, yet beside each other, and beside names, they go by their
// texts.
TEST(SortedRowsTest, AreAllThereWhereThreeHaveNoOrder) {
    const std::vector<SortedCell> kinds = {{.text = L"9.0.0.1", .isAddress = true},
                                           {.text = L"10.0.0.1", .isAddress = true},
                                           {.text = L"5"},
                                           {.text = L"COM3:"},
                                           {.text = L"COM10:"},
                                           {.text = L"COM"},
                                           {.text = L"::1", .isAddress = true},
                                           {.text = L"95"}};
    std::vector<SortedCell> cells;
    for (std::size_t row = 0; row < 1000; ++row) cells.push_back(kinds[row * row % 1009 % kinds.size()]);
    EXPECT_THAT(Sorted(Numbers(1000), cells), testing::UnorderedElementsAreArray(Numbers(1000)));
}

}  // namespace
