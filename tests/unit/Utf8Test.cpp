#include <gtest/gtest.h>

#include "CommonLib/Utf8.h"

namespace {

TEST(Utf8Test, GoesThereAndBack) {
    const std::wstring text = L"a\u00E4\u20AC\uFFFF\U0001F5A8\u007F";
    EXPECT_EQ(ToUtf8(text), "a\xC3\xA4\xE2\x82\xAC\xEF\xBF\xBF\xF0\x9F\x96\xA8\x7F");
    EXPECT_EQ(FromUtf8(ToUtf8(text)), text);
}

TEST(Utf8Test, KnowsTheFirstAndTheLastCharacterOfEachLength) {
    for (const std::uint32_t code :
         {0x7FU, 0x80U, 0x7FFU, 0x800U, 0xD7FFU, 0xE000U, 0xFFFFU, 0x10000U, 0x10FFFFU}) {
        std::string bytes;
        AppendCharacter(bytes, code);
        std::wstring text;
        AppendCharacter(text, code);
        EXPECT_EQ(FromUtf8(bytes), text) << code;
        EXPECT_EQ(ToUtf8(text), bytes) << code;
        EXPECT_EQ(FirstCharacter(bytes).length, bytes.size()) << code;
    }
}

TEST(Utf8Test, ReplacesHalfAPair) {
    EXPECT_EQ(ToUtf8(std::wstring{wchar_t(0xD83D)}), "\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8(std::wstring{wchar_t(0xDDA8), L'a'}),
              "\xEF\xBF\xBD"
              "a");
    EXPECT_EQ(ToUtf8(std::wstring{wchar_t(0xD83D), L'a'}),
              "\xEF\xBF\xBD"
              "a");
}

class BrokenUtf8Test : public testing::TestWithParam<const char*> {};

TEST_P(BrokenUtf8Test, IsReplacedByteByByte) {
    EXPECT_FALSE(FirstCharacter(GetParam()).isValid);
    const std::wstring text = FromUtf8(GetParam() + std::string("a"));
    EXPECT_EQ(text.back(), L'a');
    EXPECT_EQ(text.find_first_not_of(L'\uFFFD'), text.size() - 1);
    EXPECT_GT(text.size(), 1U);
}

// Too short, too long, half of a pair, beyond the last character, and bytes that begin nothing.
INSTANTIATE_TEST_SUITE_P(Bytes, BrokenUtf8Test,
                         testing::Values("\xC3", "\xE2\x82", "\xF0\x9F\x96", "\xC0\x80", "\xE0\x80\x80",
                                         "\xED\xA0\x80", "\xF4\x90\x80\x80", "\x80", "\xFF",
                                         "\xF5\x80\x80\x80", "\x80\x90\x80\x80", "\xF8\x90\x80\x80"));

}  // namespace
