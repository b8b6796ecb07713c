#include <gtest/gtest.h>

#include "ports/PortText.h"

namespace {

struct ShownCase {
    std::wstring name;
    bool rightToLeftTexts;
    bool rightToLeftLocale;
    std::wstring shown;
};

class ShownPortNameTest : public testing::TestWithParam<ShownCase> {};

TEST_P(ShownPortNameTest, HoldsTheMarksOfTheDirection) {
    const ShownCase& given = GetParam();
    EXPECT_EQ(ShownPortName(given.name, given.rightToLeftTexts, given.rightToLeftLocale), given.shown);
}

const ShownCase names[] = {
    {L"LPT1:", true, true, L"LPT1:"},
    {L"(a)(b)", true, false, L"(a)\u200E(b)"},
    {L"[a]{b}(c)", true, true, L"[a]\u200E{b}\u200E(c)\u200E"},
    {L"(a)", false, true, L"(a)"},
    {L"]", true, false, L"]\u200E"},
    {L"10.1.2.3", true, true, L"\u202D10.1.2.3\u202C"},
    {L"10.1.2.3", false, true, L"\u202D10.1.2.3\u202C"},
    {L"10.1.2.3", true, false, L"10.1.2.3"},
    {L"10.1.2.3_1", true, true, L"10.1.2.3_1"},
    {L"", true, true, L""},
};

INSTANTIATE_TEST_SUITE_P(Names, ShownPortNameTest, testing::ValuesIn(names));

}  // namespace
