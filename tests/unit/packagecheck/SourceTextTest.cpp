#include <gmock/gmock.h>

#include "CommonLib/Utf8.h"
#include "tools/PackageCheck/Quoted.h"
#include "tools/PackageCheck/SourceText.h"

using namespace std::string_literals;
using packagecheck::Decoding;
using packagecheck::FlawKind;
using packagecheck::Position;
using packagecheck::SourceText;

namespace {

Position PlaceOf(const SourceText& source, std::wstring_view text) {
    return source.PositionOf(source.Text().find(text));
}

TEST(SourceTextTest, ReadsLineEndsOfWindowsAsOneCharacter) {
    const SourceText source("a\r\nb\rc\n", Decoding::Pieces);
    EXPECT_EQ(source.Text(), L"a\nb\rc\n");
}

TEST(SourceTextTest, CountsCharactersAndNotBytes) {
    const SourceText source(
        "\xEF\xBB\xBF"
        "first\r\n\xC3\xA4\xF0\x9F\x96\xA8<A>",
        Decoding::Pieces);
    EXPECT_EQ(PlaceOf(source, L"<A>"), (Position{.line = 2, .column = 3}));
    EXPECT_EQ(PlaceOf(source, L"first"), (Position{.line = 1, .column = 2}));
}

TEST(SourceTextTest, LeavesTheByteOrderMarkOfALanguageOut) {
    const SourceText source("\xEF\xBB\xBF<A>", Decoding::Whole);
    EXPECT_EQ(source.Text(), L"<A>");
    EXPECT_EQ(PlaceOf(source, L"<A>"), (Position{.line = 1, .column = 1}));
}

TEST(SourceTextTest, FindsPlacesInLongLines) {
    const SourceText source(std::string(5200, 'x') + "<A>" + std::string(3000, 'y') + "\n<B>",
                            Decoding::Pieces);
    EXPECT_EQ(PlaceOf(source, L"<A>"), (Position{.line = 1, .column = 5201}));
    EXPECT_EQ(PlaceOf(source, L"<B>"), (Position{.line = 2, .column = 1}));
}

TEST(SourceTextTest, FindsPlacesAfterPiecesOfOtherLengthsThanTheirCharacters) {
    std::string piece = "x";
    while (piece.size() < 2047) piece += "\xC3\xA4";
    const SourceText source(piece + piece + piece + "<A>", Decoding::Pieces);
    EXPECT_EQ(PlaceOf(source, L"<A>"), (Position{.line = 1, .column = 3 * 1024 + 1}));
}

TEST(SourceTextTest, NotesAFlawAtItsFirstPlaceAlone) {
    const SourceText source("ab\0c\nd\0\n"s, Decoding::Pieces);
    ASSERT_EQ(source.Flaws().size(), 1U);
    EXPECT_EQ(source.Flaws().front().position, (Position{.line = 1, .column = 3}));
}

TEST(SourceTextTest, LosesACharacterBetweenTwoPiecesOfSettings) {
    const std::string bytes = std::string(2046, 'x') + "\xC3\xBC";
    const SourceText settings(bytes, Decoding::Pieces);
    ASSERT_EQ(settings.Flaws().size(), 1U);
    EXPECT_EQ(settings.Flaws().front().kind, FlawKind::SplitCharacter);
    EXPECT_EQ(settings.Flaws().front().position, (Position{.line = 1, .column = 2047}));
    EXPECT_TRUE(SourceText(bytes, Decoding::Whole).Flaws().empty());
}

TEST(SourceTextTest, LosesACharacterWhereverItIsSplit) {
    for (const std::string character :
         {"\xC2\x80", "\xC3\xBC", "\xE0\xA0\x80", "\xE2\x82\xAC", "\xF0\x90\x80\x80"}) {
        for (std::size_t inside = 1; inside < character.size(); ++inside) {
            const SourceText settings(std::string(2047 - inside, 'x') + character, Decoding::Pieces);
            ASSERT_FALSE(settings.Flaws().empty());
            EXPECT_EQ(settings.Flaws().front().kind, FlawKind::SplitCharacter) << character.size() << inside;
        }
    }
}

TEST(SourceTextTest, BeginsOnTheFirstLineThoughItIsEmpty) {
    EXPECT_EQ(SourceText("", Decoding::Pieces).PositionOf(0), (Position{.line = 1, .column = 1}));
}

TEST(SourceTextTest, SplitsNothingAtTheEndOfTheFile) {
    const SourceText settings(std::string(2046, 'x') + "\xC3", Decoding::Pieces);
    ASSERT_EQ(settings.Flaws().size(), 1U);
    EXPECT_EQ(settings.Flaws().front().kind, FlawKind::NotUtf8);
}

TEST(SourceTextTest, SplitsNothingWhereNoCharacterBeginsAtTheEndOfAPiece) {
    const SourceText settings(std::string(2044, 'x') + "\x80\x80\x80" + "y", Decoding::Pieces);
    ASSERT_EQ(settings.Flaws().size(), 1U);
    EXPECT_EQ(settings.Flaws().front().kind, FlawKind::NotUtf8);
    EXPECT_EQ(settings.Flaws().front().position, (Position{.line = 1, .column = 2045}));
}

// Four bytes from the end of the piece, which ends within another one.
TEST(SourceTextTest, TakesNothingForSplitThatStandsBeforeTheLastCharacterOfAPiece) {
    const SourceText settings(std::string(2043, 'x') + "\xFFxx\xC3" + "\xBC", Decoding::Pieces);
    ASSERT_EQ(settings.Flaws().size(), 2U);
    EXPECT_EQ(settings.Flaws().front().kind, FlawKind::NotUtf8);
    EXPECT_EQ(settings.Flaws().front().position, (Position{.line = 1, .column = 2044}));
    EXPECT_EQ(settings.Flaws().back().kind, FlawKind::SplitCharacter);
}

TEST(SourceTextTest, SplitsNothingWhereAPieceEndsInASimpleCharacter) {
    const SourceText settings(std::string(2045, 'x') + "\xFFx" + "y", Decoding::Pieces);
    ASSERT_EQ(settings.Flaws().size(), 1U);
    EXPECT_EQ(settings.Flaws().front().kind, FlawKind::NotUtf8);
}

// Three bytes that only look like a character, and are all there.
TEST(SourceTextTest, SplitsNothingWhereTheLastCharacterOfAPieceIsWhole) {
    const SourceText settings(std::string(2044, 'x') + "\xE0\x80\x80" + "y", Decoding::Pieces);
    ASSERT_EQ(settings.Flaws().size(), 1U);
    EXPECT_EQ(settings.Flaws().front().kind, FlawKind::NotUtf8);
}

TEST(SourceTextTest, SplitsNoCharacterOfALanguage) {
    const SourceText language(std::string(2046, 'x') + "\xC3", Decoding::Whole);
    ASSERT_EQ(language.Flaws().size(), 1U);
    EXPECT_EQ(language.Flaws().front().kind, FlawKind::NotUtf8);
}

TEST(SourceTextTest, LosesTheRestOfAPieceWithANullCharacter) {
    const SourceText source("ab\0cd\n<A>"s, Decoding::Pieces);
    EXPECT_EQ(source.Text(), L"ab<A>");
    EXPECT_EQ(PlaceOf(source, L"<A>"), (Position{.line = 2, .column = 1}));
    EXPECT_EQ(source.Flaws().front().kind, FlawKind::NullCharacter);
}

TEST(SourceTextTest, EndsAtTheEndMark) {
    const SourceText source("ab\x1A<A>", Decoding::Pieces);
    EXPECT_EQ(source.Text(), L"ab");
    EXPECT_EQ(source.Flaws().front().kind, FlawKind::EndMark);
    EXPECT_EQ(source.Flaws().front().position, (Position{.line = 1, .column = 3}));
}

TEST(SourceTextTest, FindsTheEndMarkOnALineOfItsOwn) {
    const SourceText source("a\nb\n\x1A", Decoding::Pieces);
    EXPECT_EQ(source.Flaws().front().position, (Position{.line = 3, .column = 1}));
}

}  // namespace
