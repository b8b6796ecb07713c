// What devices say of themselves, as texts.

#include <gmock/gmock.h>

#include "CommonLib/Utf8.h"
#include "standins/discovery/DeviceFacts.h"
#include "standins/discovery/OemTable.h"
#include "standins/discovery/PlainText.h"

namespace {

using discovery::Bytes;
using discovery::MakersOf;
using discovery::NameOf;
using discovery::PlainText;
using discovery::ReadDeviceId;
using discovery::ReadOemTable;
using discovery::ReadTxtRecord;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

TEST(TxtRecordTest, TakesTheFirstOfAKeyInAnyCase) {
    EXPECT_THAT(ReadTxtRecord({"Color=T", "COLOR=F", "note", "=lost", "", "rp=a=b"}),
                ElementsAre(Pair("color", "T"), Pair("note", ""), Pair("rp", "a=b")));
}

TEST(DeviceIdTest, ReadsKeysInAnyFormAndOrder) {
    EXPECT_THAT(
        ReadDeviceId("MODEL: Loom 310 ;MANUFACTURER:Halvenny;COMMAND SET:PCL,PS;CLASS:PRINTER;junk;SN:1:2"),
        ElementsAre(Pair("cls", "PRINTER"), Pair("cmd", "PCL,PS"), Pair("mdl", "Loom 310"),
                    Pair("mfg", "Halvenny"), Pair("sn", "1:2")));
}

TEST(DeviceIdTest, PassesTheLengthInFrontOver) {
    EXPECT_THAT(ReadDeviceId(Bytes("\0\x0AMFG:H;;;", 10)), ElementsAre(Pair("mfg", "H")));
    EXPECT_THAT(ReadDeviceId(Bytes("\1\4MFG:H;X:", 10) + Bytes(250, 'x')), Contains(Pair("mfg", "H")));
    EXPECT_THAT(ReadDeviceId(""), IsEmpty());
}

TEST(DeviceIdTest, TellsFaxAndScan) {
    discovery::DeviceFacts facts;
    TakeClasses(ReadDeviceId("CLS:PRINTER, Scanner;CMD:PCL,fax;"), facts);
    EXPECT_EQ(facts.hasFax, true);
    EXPECT_EQ(facts.canScan, true);
    EXPECT_TRUE(facts.isPrinter);
    discovery::DeviceFacts silent;
    TakeClasses(ReadDeviceId("CLS:FAXLIKE;"), silent);
    EXPECT_EQ(silent.hasFax, std::nullopt);
}

TEST(DeviceNameTest, SaysTheMakerOnce) {
    EXPECT_EQ(NameOf(ReadDeviceId("MFG:Halvenny;MDL:halvenny Loom 310;")).model, "Loom 310");
    EXPECT_EQ(NameOf("Halvenny Loom 310", "Halvenny", discovery::Witness::Announcement).model, "Loom 310");
    EXPECT_EQ(NameOf("(Loom 310)", "", discovery::Witness::Announcement).model, "Loom 310");
    EXPECT_EQ(NameOf("(X)", "", discovery::Witness::Announcement).model, "X");
    EXPECT_EQ(NameOf("()", "", discovery::Witness::Announcement).model, "()");
    EXPECT_EQ(NameOf("Loom (310)", "", discovery::Witness::Announcement).model, "Loom (310)");
    EXPECT_EQ(NameOf("Halvennyx 310", "Halvenny", discovery::Witness::Announcement).model, "Halvennyx 310");
}

TEST(DeviceFactsTest, BelievesTheBetterWitness) {
    discovery::DeviceFacts facts{.name = NameOf("Loom", "", discovery::Witness::Announcement)};
    Complete(facts, {.name = NameOf("Description", "", discovery::Witness::Description)});
    EXPECT_EQ(facts.name.model, "Loom");
    Complete(facts, {.name = NameOf(ReadDeviceId("MFG:Halvenny;MDL:Loom 310;")), .isColour = true});
    EXPECT_EQ(facts.name.model, "Loom 310");
    Complete(facts, {.isColour = false});
    EXPECT_EQ(facts.isColour, true);
}

TEST(DeviceFactsTest, HasABoundedNumberOfAddresses) {
    discovery::DeviceFacts more;
    for (std::uint32_t number = 1; number <= 20; ++number) more.addresses.emplace_back(number);
    discovery::DeviceFacts facts;
    Complete(facts, more);
    EXPECT_EQ(facts.addresses.size(), 16U);
    EXPECT_EQ(facts.addresses.back(), discovery::NetworkAddress(16));
}

TEST(DeviceFactsTest, BelievesTheFirstOfTwoWitnessesOfAKind) {
    discovery::DeviceFacts facts{.name = NameOf("Loom", "", discovery::Witness::Announcement)};
    Complete(facts, {.name = NameOf("Spindle", "", discovery::Witness::Announcement)});
    EXPECT_EQ(facts.name.model, "Loom");
}

TEST(PlainTextTest, ReadsUtf8AndWhatIsNone) {
    EXPECT_EQ(PlainText("S\xC3\xBC"
                        "d"),
              L"S\u00FC"
              L"d");
    EXPECT_EQ(PlainText("S\xFC"
                        "d"),
              L"S\u00FC"
              L"d");
    EXPECT_EQ(PlainText("\xE2\x82\xAC"), L"\u20AC");
    EXPECT_EQ(PlainText("\xC0\xAF"), L"\u00C0\u00AF");
    // Half of a pair is no character: its bytes stand for themselves, but for the control character among
    // them.
    EXPECT_EQ(PlainText("\xED\xA0\x80"
                        "x"),
              L"\u00ED\u00A0 x");
}

TEST(PlainTextTest, HoldsNothingThatCouldBeMoreThanText) {
    EXPECT_EQ(PlainText("a<b>c;d"), L"a b c d");
    EXPECT_EQ(PlainText("  a\r\n\t b\x1B[31m "), L"a b [31m");
    EXPECT_EQ(PlainText("a\xE2\x80\xAE"
                        "b"),
              L"a b");
    EXPECT_EQ(PlainText(std::string("a\0b", 3)), L"a b");
}

TEST(PlainTextTest, LeavesOutTheMarksAndTheirNeighboursIn) {
    const auto isLeftOut = [](std::uint32_t code) {
        std::string bytes = "a";
        AppendCharacter(bytes, code);
        return PlainText(bytes + "b") == L"a b";
    };
    for (const auto& [first, last] : std::vector<std::pair<std::uint32_t, std::uint32_t>>{
             {0x7F, 0x9F}, {0x200B, 0x200F}, {0x2028, 0x202E}, {0x2060, 0x206F}, {0xFEFF, 0xFEFF}}) {
        EXPECT_FALSE(isLeftOut(first - 1)) << first;
        EXPECT_TRUE(isLeftOut(first)) << first;
        EXPECT_TRUE(isLeftOut(last)) << last;
        EXPECT_FALSE(isLeftOut(last + 1)) << last;
    }
}

TEST(PlainTextTest, IsBounded) {
    // There is room for a blank and for a character of two units until the end.
    EXPECT_EQ(PlainText(std::string(100000, 'x')).size(), discovery::longestPlainText - 2);
    EXPECT_EQ(PlainText(std::string(4095, ' ') + 'x'), L"x");
    EXPECT_EQ(PlainText(std::string(4096, ' ') + 'x'), L"");
}

TEST(OemTableTest, ReadsDigitsOfTheBaseAlone) {
    const auto table = ReadOemTable(L"#7=Nobody\n10=Ten\n0xAF=Halvenny\n0xfa=Norrlund");
    EXPECT_THAT(table, ElementsAre(Pair(10, ElementsAre(L"Ten")), Pair(0xAF, ElementsAre(L"Halvenny")),
                                   Pair(0xFA, ElementsAre(L"Norrlund"))));
    EXPECT_THAT(MakersOf(table, L"a"), IsEmpty());
    EXPECT_THAT(MakersOf(table, L"0Xa"), ElementsAre(L"Ten"));
}

TEST(OemTableTest, ReadsMakersByTheirNumber) {
    const auto table = ReadOemTable(
        L"\uFEFF# makers\r\n0x1F = Halvenny , Norrlund\r\n7=Veldt Office\r\n256=x\r\nx=y\r\n8\r\n31=More");
    EXPECT_THAT(table, ElementsAre(Pair(7, ElementsAre(L"Veldt Office")),
                                   Pair(31, ElementsAre(L"Halvenny", L"Norrlund", L"More"))));
    EXPECT_THAT(MakersOf(table, L"0x07"), ElementsAre(L"Veldt Office"));
    EXPECT_THAT(MakersOf(table, L"31"), ElementsAre(L"Halvenny", L"Norrlund", L"More"));
    EXPECT_THAT(MakersOf(table, L"9"), IsEmpty());
    EXPECT_THAT(MakersOf(table, L""), IsEmpty());
}

}  // namespace
