#include <gmock/gmock.h>

#include <algorithm>
#include <random>

#include "tests/unit/packagecheck/MemoryTree.h"
#include "tools/PackageCheck/Fixes.h"
#include "tools/PackageCheck/TextDiff.h"

using namespace std::string_literals;
using packagecheck::FixedBytes;
using packagecheck::TextKind;
using packagecheck::UnifiedDiff;

namespace {

TEST(FixesTest, LeaveACleanPackageAlone) {
    const MemoryTree tree;
    EXPECT_THAT(FindFixes(packagecheck::Package(tree)), testing::IsEmpty());
}

TEST(FixesTest, JoinADeviceThatStandsOnSeveralLines) {
    EXPECT_EQ(FixedBytes("<DEVICE>\r\n  <DRIVER_ID>A B</DRIVER_ID>\r\n  <PORT_NAME>\r\n "
                         "c\r\n</PORT_NAME>\r\n</DEVICE>\r\n",
                         TextKind::User),
              "<DEVICE><DRIVER_ID>A B</DRIVER_ID><PORT_NAME>c</PORT_NAME></DEVICE>\r\n");
}

TEST(FixesTest, LeaveBlanksBesideAValueInADeviceThatTheyJoin) {
    EXPECT_EQ(
        FixedBytes("<DEVICE>\n<COMMENT> a b </COMMENT> <LOCATION>c</LOCATION>\n</DEVICE>", TextKind::User),
        "<DEVICE><COMMENT> a b </COMMENT><LOCATION>c</LOCATION></DEVICE>");
}

TEST(FixesTest, LeaveAValueThatGoesOnOnTheNextLine) {
    const std::string bytes = "<DEVICE>\n<COMMENT>one\ntwo</COMMENT>\n</DEVICE>";
    EXPECT_EQ(FixedBytes(bytes, TextKind::User), bytes);
}

TEST(FixesTest, LeaveTheFrameOfTheFile) {
    const std::string bytes = "<SETTINGS>\n  <UPD>1</UPD>\n</SETTINGS>\n";
    EXPECT_EQ(FixedBytes(bytes, TextKind::User), bytes);
}

TEST(FixesTest, TakeBlanksAroundValuesOut) {
    EXPECT_EQ(FixedBytes("<UPD> 1\n</UPD>", TextKind::Defaults), "<UPD>1</UPD>");
    EXPECT_EQ(FixedBytes("<MINE> 1 </MINE>", TextKind::Defaults), "<MINE> 1 </MINE>");
    EXPECT_EQ(FixedBytes("<UPD> 1 </UPD>", TextKind::Language), "<UPD> 1 </UPD>");
}

TEST(FixesTest, WriteUtf16AsUtf8) {
    EXPECT_EQ(FixedBytes("\xFF\xFE<\0\xE4\0\x3D\xD8\xA8\xDD"s, TextKind::Language),
              "<\xC3\xA4\xF0\x9F\x96\xA8");
    EXPECT_EQ(FixedBytes("\xFE\xFF\0<\0\xE4"s, TextKind::Language), "<\xC3\xA4");
    EXPECT_EQ(FixedBytes("\0<\0A\x20\xAC\0>"s, TextKind::Language), "<A\xE2\x82\xAC>");
    EXPECT_EQ(FixedBytes("<\0A\0\xAC\x20>\0"s, TextKind::Language), "<A\xE2\x82\xAC>");
}

// A second half of a character without its first one.
TEST(FixesTest, WriteASignForHalfACharacter) {
    EXPECT_EQ(FixedBytes("\xFF\xFE\xA8\xDD<\0"s, TextKind::Language), "\xEF\xBF\xBD<");
    EXPECT_EQ(FixedBytes("\xFF\xFE\x3D\xD8\xA8\xDD\xA8\xDD"s, TextKind::Language),
              "\xF0\x9F\x96\xA8\xEF\xBF\xBD");
}

TEST(FixesTest, LeaveWhatIsInACodePage) {
    EXPECT_EQ(FixedBytes("<UPD> M\xFC</UPD>", TextKind::Defaults), "<UPD> M\xFC</UPD>");
}

TEST(FixesTest, TakeMarksOutWhereNothingIsLost) {
    EXPECT_EQ(FixedBytes("\xC3\xAF\xC2\xBB\xC2\xBF<A>", TextKind::Language), "<A>");
    EXPECT_EQ(FixedBytes("\xEF\xBB\xBF\xC3\xAF\xC2\xBB\xC2\xBF<A>", TextKind::Language), "\xEF\xBB\xBF<A>");
    EXPECT_EQ(FixedBytes("x\xC3\xAF\xC2\xBB\xC2\xBF<A>", TextKind::Language), "x\xC3\xAF\xC2\xBB\xC2\xBF<A>");
    EXPECT_EQ(FixedBytes("<A>\n\x1A\n", TextKind::Language), "<A>\n");
    EXPECT_EQ(FixedBytes("<A>\x1A<B>", TextKind::Language), "<A>\x1A<B>");
}

TEST(FixesTest, LeaveNothingToFix) {
    MemoryTree tree;
    tree.AddUserElement(
        "<DEVICE>\n  <DRIVER_ID>HVMONO</DRIVER_ID>\n  <PRINTER_NAME>a</PRINTER_NAME>\n</DEVICE>");
    tree.AddSetting("<UPD> 1</UPD>");
    for (const auto& fix : FindFixes(packagecheck::Package(tree))) tree.files[fix.path] = fix.after;
    EXPECT_THAT(Described(FindingsOf(tree)), testing::IsEmpty());
    EXPECT_THAT(FindFixes(packagecheck::Package(tree)), testing::IsEmpty());
}

TEST(TextDiffTest, ShowsWhatChangesWithLinesAroundIt) {
    EXPECT_EQ(UnifiedDiff("a.xml", "1\n2\n3\n4\n5\n6\n7\n8\n9\n", "1\n2\n3\n4\nfive\n6\n7\n8\n9\n"),
              "--- a/a.xml\n+++ b/a.xml\n@@ -2,7 +2,7 @@\n 2\n 3\n 4\n-5\n+five\n 6\n 7\n 8\n");
}

TEST(TextDiffTest, ShowsChangesFarApartByThemselves) {
    std::string before;
    for (int line = 1; line <= 30; ++line) before += std::to_string(line) + "\n";
    std::string after = before;
    after.replace(after.find("\n5\n") + 1, 1, "five");
    after.erase(after.find("\n25\n"), 3);
    const std::string diff = UnifiedDiff("a", before, after);
    EXPECT_THAT(diff, testing::HasSubstr("@@ -2,7 +2,7 @@\n"));
    EXPECT_THAT(diff, testing::HasSubstr("@@ -22,7 +22,6 @@\n"));
}

// With five lines between two changes one hunk shows them, with six there are two.
TEST(TextDiffTest, ShowsChangesWithFewLinesBetweenThemTogether) {
    EXPECT_THAT(UnifiedDiff("a", "x\n1\n2\n3\n4\n5\nx\n", "y\n1\n2\n3\n4\n5\ny\n"),
                testing::HasSubstr("@@ -1,7 +1,7 @@\n"));
    const std::string apart = UnifiedDiff("a", "x\n1\n2\n3\n4\n5\n6\nx\n", "y\n1\n2\n3\n4\n5\n6\ny\n");
    EXPECT_THAT(apart, testing::HasSubstr("@@ -1,4 +1,4 @@\n"));
    EXPECT_THAT(apart, testing::HasSubstr("@@ -5,4 +5,4 @@\n"));
}

TEST(TextDiffTest, ShowsNoControlCharacterButATab) {
    EXPECT_THAT(UnifiedDiff("a", "1\n", "\x1B[31m\t2\r\n"), testing::EndsWith("\n-1\n+[31m\t2\n"));
}

TEST(TextDiffTest, KeepsAsManyLinesAsItCan) {
    EXPECT_THAT(UnifiedDiff("a", "1\n2\n3\n4\n", "3\n1\n2\n4\n"),
                testing::EndsWith("\n+3\n 1\n 2\n-3\n 4\n"));
}

// The length of the longest sequence of lines that both texts have, found by trying every one of them.
std::size_t MostCommonLines(std::string_view before, std::string_view after) {
    if (before.empty() || after.empty()) return 0;
    const std::size_t without = MostCommonLines(before.substr(1), after);
    const std::size_t place = after.find(before.front());
    if (place == std::string_view::npos) return without;
    return std::max(without, 1 + MostCommonLines(before.substr(1), after.substr(place + 1)));
}

// How many lines have that sign, but for the one of the head.
std::size_t ChangedLines(std::string_view diff, char sign) {
    std::size_t count = 0;
    for (std::size_t end = diff.find('\n'); end + 1 < diff.size(); end = diff.find('\n', end + 1))
        count += diff[end + 1] == sign ? 1 : 0;
    return sign == '+' ? count - 1 : count;
}

std::string AsLines(std::string_view letters) {
    std::string lines;
    for (const char letter : letters) lines += std::string(1, letter) + "\n";
    return lines;
}

TEST(TextDiffTest, KeepsAsManyLinesAsTrialShows) {
    std::mt19937 random(7);
    const auto some = [&random] {
        std::string letters(random() % 9, 'a');
        for (char& letter : letters) letter = static_cast<char>('a' + random() % 4);
        return letters;
    };
    for (int count = 0; count < 500; ++count) {
        const std::string before = some();
        const std::string after = some();
        const std::string diff = UnifiedDiff("a", AsLines(before), AsLines(after));
        if (before == after) continue;
        const std::size_t common = MostCommonLines(before, after);
        EXPECT_EQ(ChangedLines(diff, '-'), before.size() - common) << before << " " << after;
        EXPECT_EQ(ChangedLines(diff, '+'), after.size() - common) << before << " " << after;
    }
}

TEST(TextDiffTest, HasNothingToShowOfEqualTexts) {
    EXPECT_EQ(UnifiedDiff("a", "1\n", "1\n"), "");
}

TEST(TextDiffTest, ReplacesAsAWholeWhatIsTooLongToCompare) {
    std::string before;
    std::string after;
    for (int line = 0; line < 3000; ++line) {
        before += "b" + std::to_string(line) + "\n";
        after += "a" + std::to_string(line) + "\n";
        if (line != 1500) continue;
        before += "in both\n";
        after += "in both\n";
    }
    const std::string diff = UnifiedDiff("a", before, after);
    EXPECT_THAT(diff, testing::HasSubstr("@@ -1,3001 +1,3001 @@\n-b0\n"));
    EXPECT_THAT(diff, testing::HasSubstr("\n-in both\n"));
    EXPECT_THAT(diff, testing::HasSubstr("\n+in both\n"));
}

}  // namespace
