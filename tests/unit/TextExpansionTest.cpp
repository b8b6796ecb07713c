#include <gmock/gmock.h>

#include <map>

#include "settings/TextExpansion.h"
#include "tests/unit/ReferenceForms.h"

namespace {

struct AccessKeyCase {
    std::wstring value;
    std::wstring reduced;
    int surplus;
};

class AccessKeyTest : public testing::TestWithParam<AccessKeyCase> {};

TEST_P(AccessKeyTest, ReducesTheMarkToOneSign) {
    int surplus = -1;
    EXPECT_EQ(ReduceAccessKeys(GetParam().value, surplus), GetParam().reduced);
    EXPECT_EQ(surplus, GetParam().surplus);
}

const AccessKeyCase accessKeys[] = {
    {L"", L"", 0},
    {L"Save as", L"Save as", 0},
    {L"Save &amp;as", L"Save &as", 0},
    {L"&amp;a &amp;b", L"&a &b", 1},
    {L"&amp;a &amp;b &amp;c", L"&a &b &c", 2},
    {L"a &amp b", L"a &", 0},
    {L"a &amp b; c", L"a & c", 0},
    {L"&amp", L"&&", 1},
    {L"&amp and more", L"&&", 1},
    {L"&amp;&amp", L"&&", 1},
    {L"&amp;amp;x", L"&x", 1},
    {L"&amp;amp", L"&&", 2},
    {L"a&amp;amp", L"a&", 1},
    {L"&lt;&am;", L"&lt;&am;", 0},
};

INSTANTIATE_TEST_SUITE_P(Values, AccessKeyTest, testing::ValuesIn(accessKeys));

TEST(AccessKeySizeTest, ReducesTwoHundredThousandMarks) {
    std::wstring value;
    for (int i = 0; i < 200'000; ++i) value += L"&amp;";
    int surplus = 0;
    EXPECT_EQ(ReduceAccessKeys(value, surplus), std::wstring(200'000, L'&'));
    EXPECT_EQ(surplus, 199'999);
}

TEST(AccessKeyTest, GivesTheResultOfPlainSearches) {
    TextMaker values({L"&amp", L"&", L"amp", L";", L"a", L"&amp;"}, 31);
    for (int i = 0; i < 30'000; ++i) {
        const auto value = values.Make(8);
        int surplus = 0, expectedSurplus = 0;
        const auto expected = ReduceBySearch(value, expectedSurplus);
        ASSERT_EQ(ReduceAccessKeys(value, surplus), expected) << value;
        ASSERT_EQ(surplus, expectedSurplus) << value;
    }
}

using Tags = std::vector<std::pair<std::wstring, std::wstring>>;

TagExpansion Expand(const std::wstring& value, const Tags& tags) {
    const std::map<std::wstring, std::wstring, std::less<>> byName(tags.begin(), tags.end());
    return ExpandTags(value, [&](std::wstring_view name) {
        const auto tag = byName.find(name);
        return tag == byName.end() ? std::wstring() : tag->second;
    });
}

struct ExpansionCase {
    std::wstring value;
    Tags tags;
    std::wstring text;
};

class ExpansionTest : public testing::TestWithParam<ExpansionCase> {};

TEST_P(ExpansionTest, ReplacesTagsByTheirValues) {
    const auto expansion = Expand(GetParam().value, GetParam().tags);
    EXPECT_FALSE(expansion.endless);
    EXPECT_EQ(expansion.text, GetParam().text);
}

const ExpansionCase expansions[] = {
    {L"", {}, L""},
    {L"no tag", {}, L"no tag"},
    {L"^OEM^ setup", {{L"OEM", L"Printer"}}, L"Printer setup"},
    {L"^OEM^ setup", {}, L" setup"},
    {L"100^", {}, L"100"},
    {L"100^", {{L"", L"x"}}, L"100x"},
    {L"100^OEM", {{L"OEM", L"x"}}, L"100x"},
    {L"^OEM", {{L"OEM", L"x"}}, L"xx"},
    {L"^^", {}, L""},
    {L"^A^ and ^A^", {{L"A", L"1"}}, L"1 and 1"},
    {L"^A^", {{L"A", L"<^B^>"}, {L"B", L"1"}}, L"<1>"},
    {L"^A^C^", {{L"A", L"^B"}, {L"BC", L"1"}}, L"1"},
    {L"x^A^ ^B^", {{L"A", L"^A"}}, L"xB"},
};

INSTANTIATE_TEST_SUITE_P(Values, ExpansionTest, testing::ValuesIn(expansions));

struct EndlessCase {
    std::wstring value;
    Tags tags;
};

class EndlessExpansionTest : public testing::TestWithParam<EndlessCase> {};

TEST_P(EndlessExpansionTest, LeavesTheValueAsItWas) {
    const auto expansion = Expand(GetParam().value, GetParam().tags);
    EXPECT_TRUE(expansion.endless);
    EXPECT_EQ(expansion.text, GetParam().value);
}

const EndlessCase endlessValues[] = {
    {L"^UNSET", {}},
    {L"^", {}},
    {L"^A^", {{L"A", L"^A^"}}},
    {L"x ^A^ y", {{L"A", L"more ^A^"}}},
    {L"^A^", {{L"A", L"^B^"}, {L"B", L"^A^"}}},
    {L"^A^", {{L"A", L"^B^^B^"}, {L"B", L"^C^^A^"}}},
    {L"x^A", {{L"A", L"^A"}}},
    {L"x^A^", {{L"A", L"^B"}, {L"B", L"^A"}}},
    {L"^A^^", {{L"A", L"^A"}}},
    {L"^^B^", {{L"", L"^"}, {L"B", L"^^B^"}}},
};

INSTANTIATE_TEST_SUITE_P(Values, EndlessExpansionTest, testing::ValuesIn(endlessValues));

TEST(ExpansionLimitTest, GivesUpATextThatDoublesWithEveryTag) {
    Tags tags;
    for (int i = 0; i < 40; ++i) {
        const auto next = L"^T" + std::to_wstring(i + 1) + L'^';
        tags.emplace_back(L"T" + std::to_wstring(i), next + next);
    }
    const auto expansion = Expand(L"^T0^", tags);
    EXPECT_TRUE(expansion.endless);
    EXPECT_EQ(expansion.text, L"^T0^");
}

// Whether a chain of that many tags, each of which names the next, comes to its end.
bool EndsAfter(std::size_t replacements) {
    const auto readTag = [=](std::wstring_view name) {
        const std::size_t next = std::stoul(std::wstring(name)) + 1;
        return next < replacements ? L'^' + std::to_wstring(next) + L'^' : std::wstring();
    };
    return !ExpandTags(L"^0^", readTag).endless;
}

TEST(ExpansionLimitTest, ReplacesAsOftenAsTheLimitSays) {
    EXPECT_TRUE(EndsAfter(65'536 + 3));
    EXPECT_FALSE(EndsAfter(65'536 + 4));
}

TEST(ExpansionLimitTest, ReadsNothingOnceATextIsBackAtItsStart) {
    std::vector<std::wstring> names;
    const auto readTag = [&](std::wstring_view name) {
        names.emplace_back(name);
        return std::wstring(name == L"A" ? L"^UNSET^" : L"");
    };
    EXPECT_TRUE(ExpandTags(L"^A", readTag).endless);
    EXPECT_EQ(names, (std::vector<std::wstring>{L"A", L"UNSET", L"A"}));
}

TEST(ExpansionLimitTest, TakesAsManyCharactersAsTheLimitSays) {
    constexpr std::size_t most = 16'777'216;
    for (const std::size_t length : {most - 1, most}) {
        const auto readTag = [=](std::wstring_view) { return std::wstring(length, L'v'); };
        EXPECT_EQ(ExpandTags(L"^A^", readTag).endless, length == most);
    }
}

TEST(ExpansionLimitTest, ExpandsAMegabyteOfTags) {
    std::wstring value;
    for (int i = 0; i < 200'000; ++i) value += L"^A^-";
    const auto expansion = Expand(value, {{L"A", L"12"}});
    EXPECT_FALSE(expansion.endless);
    EXPECT_EQ(expansion.text.size(), 600'000U);
}

TEST(ExpansionLimitTest, ExpandsAValueOfAMegabyte) {
    const std::wstring megabyte(1'000'000, L'v');
    const auto expansion = Expand(L"^A^^A^", {{L"A", megabyte}});
    EXPECT_FALSE(expansion.endless);
    EXPECT_TRUE(expansion.text == megabyte + megabyte);
}

TEST(GeneratedExpansionTest, GivesTheResultOfPlainSearches) {
    TextMaker texts({L"^", L"A", L"B", L"^A^", L"^B^", L"x"}, 32);
    int ended = 0;
    for (int i = 0; i < 3'000; ++i) {
        const auto value = texts.Make(6);
        const Tags tags = {{L"A", texts.Make(4)}, {L"B", texts.Make(4)}, {L"", i % 4 == 0 ? L"^" : L""}};
        auto expected = value;
        const bool ends = ExpandBySearch(expected, tags);
        const auto expansion = Expand(value, tags);
        ASSERT_EQ(expansion.endless, !ends) << value << "\nA=" << tags[0].second << "\nB=" << tags[1].second;
        ASSERT_EQ(expansion.text, ends ? expected : value);
        ended += ends ? 1 : 0;
    }
    EXPECT_GT(ended, 300);
}

TEST(LeftToRightTest, MarksTheFirstDotOnly) {
    EXPECT_EQ(MarkNumberLeftToRight(L".NET 4.0"), L"\u200E.NET 4.0");
    EXPECT_EQ(MarkNumberLeftToRight(L"1.2.3"), L"1\u200E.2.3");
    EXPECT_EQ(MarkNumberLeftToRight(L"no dot"), L"no dot");
}

TEST(FormatWithArgumentTest, ReplacesTheFirstArgumentOnly) {
    EXPECT_EQ(FormatWithArgument(L"a{0}b{0}", L"x"), L"axbx");
    EXPECT_EQ(FormatWithArgument(L"a{1}b", L"x"), L"a{1}b");
    EXPECT_EQ(FormatWithArgument(L"a{0}b{9}", L"x"), L"axb{9}");
    EXPECT_EQ(FormatWithArgument(L"abc", L"x"), L"abc");
    EXPECT_EQ(FormatWithArgument(L"{0", L"x"), L"{0");
}

TEST(FormatWithArgumentTest, TakesDollarsInTheArgumentAsReplacementSigns) {
    // By design: the argument goes in as the pattern of a replacement.
    EXPECT_EQ(FormatWithArgument(L"a{0}b", L"[$&]"), L"a[{0}]b");
    EXPECT_EQ(FormatWithArgument(L"a{0}b", L"$2"), L"a0b");
    EXPECT_EQ(FormatWithArgument(L"a{0}b", L"5$$"), L"a5$b");
    EXPECT_EQ(FormatWithArgument(L"a{0}b", L"$9"), L"ab");
}

TEST(FormatWithArgumentTest, IsThatOfRegularExpressions) {
    TextMaker texts({L"{0}", L"{", L"0", L"}", L"{1}", L"x"}, 33);
    TextMaker arguments({L"$", L"$$", L"$&", L"$`", L"$'", L"0", L"1", L"2", L"3", L"4", L"9", L"x"}, 34);
    for (int i = 0; i < 3'000; ++i) {
        const auto text = texts.Make(8);
        const auto argument = arguments.Make(6);
        ASSERT_EQ(FormatWithArgument(text, argument), FormatByRegex(text, argument)) << text << "\n"
                                                                                     << argument;
    }
}

TEST(FormatWithArgumentTest, FormatsALongText) {
    const std::wstring signs(100'000, L'{');
    EXPECT_TRUE(FormatWithArgument(signs + L"0}", L"x") == signs.substr(1) + L'x');
}

}  // namespace
