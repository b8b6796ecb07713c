// What a run makes of the codes with which the library ends.

#include "tests/wizard/ShownRunTest.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

// Codes that end a package without a question; the next package follows.
struct CodeCase {
    std::uint32_t code;
    ScriptedState state;
    const wchar_t* message;
    int status;
    const wchar_t* reboot;
};

void PrintTo(const CodeCase& given, std::ostream* stream) {
    *stream << given.code;
}

class ReturnCodeTest : public ShownRunTest, public testing::WithParamInterface<CodeCase> {};

TEST_P(ReturnCodeTest, BecomesTheStatusOfThePackage) {
    const CodeCase& given = GetParam();
    tree.Add({.path = L"Applications\\a.msi",
              .states = {given.state},
              .install = {.steps = {{L"pause", L"1"}}, .code = given.code}});
    tree.Add({.path = L"Applications\\x64\\b.msi"});
    const FinishedRun run = RunShown();
    EXPECT_EQ(run.status, StatusDocument({{L"a", given.status}, {L"b", 0}}));
    EXPECT_EQ(run.reboot, given.reboot);
    const std::wstring message = given.message;
    EXPECT_THAT(BasicMessages(L"SUCCESS"),
                message.empty() ? std::vector<std::wstring>{} : std::vector<std::wstring>{message});
    EXPECT_THAT(Removals(), IsEmpty());
}

constexpr wchar_t cancelText[] = L"MSI Installer returned user canceled.";
constexpr wchar_t rebootText[] = L"MSI Installer returned reboot requires.";

INSTANTIATE_TEST_SUITE_P(
    Codes, ReturnCodeTest,
    testing::Values(CodeCase{0, {}, L"", 0, L""},
                    CodeCase{0, {.installed = true, .upgradable = true}, L"", 3, L""},
                    CodeCase{1602, {}, cancelText, 2, L""}, CodeCase{1641, {}, rebootText, 0, L"true"},
                    CodeCase{3010, {}, rebootText, 0, L"true"},
                    CodeCase{3010, {.installed = true, .upgradable = true}, rebootText, 3, L"true"},
                    CodeCase{1602, {.installed = true, .upgradable = true}, cancelText, 2, L""}));

// Codes that bring up a box. Those that stop the run cancel it by force, without a question.
struct ErrorCase {
    std::uint32_t code;
    const wchar_t* title;
    const wchar_t* text;
    bool stops;
};

void PrintTo(const ErrorCase& given, std::ostream* stream) {
    *stream << given.code;
}

class ErrorCodeTest : public ShownRunTest, public testing::WithParamInterface<ErrorCase> {};

TEST_P(ErrorCodeTest, ShowsItsBoxAndStopsTheRunOrNot) {
    const ErrorCase& given = GetParam();
    tree.Add({.path = L"Applications\\a.msi", .install = {.steps = {}, .code = given.code}});
    tree.Add({.path = L"Applications\\x64\\b.msi"});
    wizard.Start();
    const MessageBoxOnScreen box = wizard.Answer(IDOK);
    EXPECT_EQ(box.title, given.title);
    EXPECT_EQ(box.text, given.text);
    const FinishedRun run = ReadFinishPage();
    EXPECT_EQ(run.status, given.stops ? StatusDocument({{L"a", 1}}) : StatusDocument({{L"a", 1}, {L"b", 0}}));
    EXPECT_EQ(run.installStatus, L"FAILED");
    EXPECT_THAT(BasicLog(), HasRecord(L"ERROR", L"MSI Installer returned an error"));
    EXPECT_THAT(Removals(), SizeIs(given.stops ? 1 : 0));
    EXPECT_THAT(Calls(L"MsiCancel"), SizeIs(given.stops ? 1 : 0));
}

INSTANTIATE_TEST_SUITE_P(
    Codes, ErrorCodeTest,
    testing::Values(ErrorCase{1603, L"Error", L"Something went wrong.", true},
                    ErrorCase{1, L"Error", L"Something went wrong.", true},
                    ErrorCase{1619, L"Error", L"Something went wrong.", true},
                    ErrorCase{112, L"Disk full", L"There is no room left.", true},
                    ErrorCase{1247, L"Installer busy", L"Another installation is running.", true},
                    ErrorCase{1618, L"Installer busy", L"Another installation is running.", true},
                    ErrorCase{1625, L"No permission", L"You may not do this.", true},
                    ErrorCase{1640, L"No permission", L"You may not do this.", true},
                    ErrorCase{1622, L"", L"", false}, ErrorCase{1623, L"", L"", false}));

TEST_F(ShownRunTest, KeepsOneLineForTwoPackagesOfOneProductNameAndTheLaterStatusWins) {
    tree.Add({.path = L"Applications\\a.msi",
              .properties = L"<ProductName>Same</ProductName>",
              .install = {.steps = {}, .code = 1602}});
    tree.Add({.path = L"Applications\\x64\\b.msi",
              .properties = L"<ProductName>Same</ProductName>",
              .states = {{.installed = true, .upgradable = true}}});
    EXPECT_EQ(RunShown().status, StatusDocument({{L"Same", 3}}));
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi", L"b.msi"));
}

TEST_F(ShownRunTest, ShowsAnEmptyListWhenThereIsNothingToInstall) {
    const FinishedRun run = RunShown();
    EXPECT_EQ(run.status, L"");
    EXPECT_EQ(run.installStatus, L"");
    EXPECT_THAT(BasicLog(), HasRecord(L"ERROR", L"There were no applications found to install"));
}

TEST_F(ShownRunTest, CountsEveryPackageAsDoneWhenTheLibraryIsMissing) {
    tree.Add({.path = L"Applications\\a.msi"});
    tree.UseLibrary({});
    // Nothing names the product either.
    EXPECT_EQ(RunShown().status, StatusDocument({{L"", 0}}));
}

}  // namespace
