#include <gtest/gtest.h>

#include <string>

#include "standins/Brevanto/CommandLine.h"

using brevanto::BuildCommandLine;

namespace {

const std::wstring always = L"REBOOT=ReallySuppress";

struct CommandCase {
    const char* name;
    const wchar_t* document;
    const wchar_t* line;  // what stands after the part that is always there
};

class CommandLineTest : public testing::TestWithParam<CommandCase> {};

TEST_P(CommandLineTest, TurnsElementsIntoProperties) {
    EXPECT_EQ(BuildCommandLine(GetParam().document), always + GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(
    Documents, CommandLineTest,
    testing::Values(
        CommandCase{"Empty", L"", L""},
        CommandCase{"TwoElements", L"<TARGET_DIR>C:\\A b</TARGET_DIR><LANGUAGEID>1033</LANGUAGEID>",
                    L" TARGET_DIR=\"C:\\A b\" LANGUAGEID=\"1033\""},
        CommandCase{"EmptyValue", L"<INFOCENTER_LINK></INFOCENTER_LINK>", L" INFOCENTER_LINK=\"\""},
        CommandCase{"NestedElementsStayInTheirValue",
                    L"<PRINTER_INFO><DEVICE><A>1</A></DEVICE></PRINTER_INFO><B>2</B>",
                    L" PRINTER_INFO=\"<DEVICE><A>1</A></DEVICE>\" B=\"2\""},
        CommandCase{"ValueOfSeveralLines", L"<A>1\r\n2</A>", L" A=\"1\r\n2\""},
        CommandCase{"QuotesAreDoubled", L"<A>say \"hi\" B=1</A>", L" A=\"say \"\"hi\"\" B=1\""},
        CommandCase{"QuotesAtBothEnds", L"<A>\" REMOVE=ALL \"</A>", L" A=\"\"\" REMOVE=ALL \"\"\""},
        CommandCase{"ValueThatIsOneQuote", L"<A>\"</A>", L" A=\"\"\"\""},
        CommandCase{"FirstOfTwoCounts", L"<A>1</A><A>2</A>", L" A=\"1\""},
        CommandCase{"NamesThatAreNoPropertiesAreLeftOut", L"<App 0>x</App 0><a>1</a><1A>2</1A><>3</><B>4</B>",
                    L" B=\"4\""},
        CommandCase{"ElementWithoutEndEndsTheReading", L"<A>1</A><B>2<C>3</C>", L" A=\"1\""},
        CommandCase{"Reinstall", L"<TAG_REINSTALL>true</TAG_REINSTALL>",
                    L" REINSTALL=ALL REINSTALLMODE=vomus"},
        CommandCase{"ReinstallThatIsNotTrue", L"<TAG_REINSTALL>false</TAG_REINSTALL>", L""},
        CommandCase{"SteeringPropertiesAreLeftOut",
                    L"<TRANSFORMS>x.mst</TRANSFORMS><REBOOT>Force</REBOOT><REMOVE>ALL</REMOVE><A>1</A>",
                    L" A=\"1\""},
        CommandCase{"TextOutsideElements", L"junk < 5 > 4 <<A>1</A> more", L" A=\"1\""}),
    [](const auto& test) { return test.param.name; });

TEST(CommandLine, LeavesOutNullCharacters) {
    const std::wstring document = std::wstring(L"<A>1") + L'\0' + L"2</A>";
    EXPECT_EQ(BuildCommandLine(document), always + L" A=\"12\"");
}

TEST(CommandLine, ReadsAMegabyteOfOpenTags) {
    std::wstring document;
    while (document.size() < 1'000'000) document += L"<A";
    EXPECT_EQ(BuildCommandLine(document), always);
}

}  // namespace
