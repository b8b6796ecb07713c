#include <windows.h>

#include <gtest/gtest.h>

#include "CommonLib/SystemText.h"

namespace {

TEST(ExpandEnvironmentTest, PutsTheValueInPlaceOfTheName) {
    SetEnvironmentVariableW(L"KESTRUNE_TEST", L"value");
    EXPECT_EQ(ExpandEnvironment(L"a %KESTRUNE_TEST% b"), L"a value b");
    SetEnvironmentVariableW(L"KESTRUNE_TEST", nullptr);
    EXPECT_EQ(ExpandEnvironment(L"%KESTRUNE_TEST%"), L"%KESTRUNE_TEST%");
    EXPECT_EQ(ExpandEnvironment(L""), L"");
}

TEST(ExpandEnvironmentTest, TakesAValueOfAnyLength) {
    const std::wstring value(20000, L'x');
    SetEnvironmentVariableW(L"KESTRUNE_TEST", value.c_str());
    EXPECT_EQ(ExpandEnvironment(L"%KESTRUNE_TEST%"), value);
    SetEnvironmentVariableW(L"KESTRUNE_TEST", nullptr);
}

TEST(Utf8ToWideTest, DecodesEveryLengthOfCharacter) {
    EXPECT_EQ(Utf8ToWide("a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x96\xA8"), L"a\u00E4\u20AC\xD83D\xDDA8");
    EXPECT_EQ(Utf8ToWide(""), L"");
}

TEST(Utf8ToWideTest, PutsReplacementCharactersForWhatCannotBeDecoded) {
    EXPECT_EQ(Utf8ToWide("a\xFF"
                         "b"),
              L"a\uFFFD"
              L"b");
}

TEST(CodePageToWideTest, DecodesThePage) {
    EXPECT_EQ(CodePageToWide(1252, "\xE4\x80"), L"\u00E4\u20AC");
    EXPECT_EQ(CodePageToWide(1256, "\xC7"), L"\u0627");
}

TEST(CodePageToWideTest, IsEmptyForAPageThatTheSystemLacks) {
    EXPECT_EQ(CodePageToWide(4711, "abc"), L"");
}

TEST(NarrowToWideTest, TakesTheGivenLength) {
    EXPECT_EQ(NarrowToWide("abc", 3), L"abc");
    EXPECT_EQ(NarrowToWide("abc", 2), L"ab");
}

TEST(NarrowToWideTest, IsEmptyForNoText) {
    EXPECT_EQ(NarrowToWide(nullptr, 3), L"");
    EXPECT_EQ(NarrowToWide("abc", 0), L"");
}

}  // namespace
