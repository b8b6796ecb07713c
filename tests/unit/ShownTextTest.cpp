#include <gtest/gtest.h>

#include "tools/ShownText.h"

namespace {

TEST(ShownTextTest, WritesOutWhatATerminalWouldObey) {
    EXPECT_EQ(ShownText(L"a\x1b[2J\x07\x9b"
                        L"31m\x7f"),
              L"a\\u001B[2J\\u0007\\u009B31m\\u007F");
    EXPECT_EQ(ShownText(L"\u202Etxt.exe\u2066\u200F\u061C\uFEFF"),
              L"\\u202Etxt.exe\\u2066\\u200F\\u061C\\uFEFF");
}

TEST(ShownTextTest, HidesAllMarksOfDirectionAndNothingBesideThem) {
    for (const wchar_t mark : L"\u061C\u200E\u200F\u2028\u2029\u202A\u202E\u2066\u2069\uFEFF")
        EXPECT_TRUE(IsHidden(static_cast<std::uint32_t>(mark))) << static_cast<unsigned>(mark);
    for (const std::uint32_t control : {0x1FU, 0x7FU, 0x9FU}) EXPECT_TRUE(IsHidden(control)) << control;
    for (const wchar_t beside : {L' ', L'~', L'\u00A0', L'\u061B', L'\u061D', L'\u200D', L'\u2010', L'\u2027',
                                 L'\u202F', L'\u2065', L'\u206A', L'\uFEFE', L'\uFF00'})
        EXPECT_FALSE(IsHidden(static_cast<std::uint32_t>(beside))) << static_cast<unsigned>(beside);
}

TEST(ShownTextTest, KeepsLinesAndTabsAndNoReturnToTheStartOfALine) {
    EXPECT_EQ(ShownText(L"a\tb\nc\r\nd\re\r"), L"a\tb\nc\r\nd\\u000De\\u000D");
}

TEST(ShownTextTest, KeepsLettersOfEveryScript) {
    const std::wstring text = L"\u00dc \u20ac \u0645\u0631\u062d\u0628\u0627 \u65e5\u672c \xD83D\xDDA8";
    EXPECT_EQ(ShownText(text), text);
}

TEST(ShownTextTest, TakesUtf8WithBytesThatAreNone) {
    EXPECT_EQ(ShownText(std::string_view("\xC3\x9C\xC2\x9B\xFF")), "\xC3\x9C\\u009B\xEF\xBF\xBD");
}

}  // namespace
