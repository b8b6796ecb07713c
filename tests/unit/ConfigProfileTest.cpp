#include <gmock/gmock.h>

#include "package/programs/ConfigProfile.h"

namespace {

using testing::HasSubstr;

struct CommandCase {
    std::wstring commandLine;
    std::wstring file;
};

class TargetFileTest : public testing::TestWithParam<CommandCase> {};

TEST_P(TargetFileTest, IsWhatTheCommandLineNames) {
    EXPECT_EQ(TargetFile(GetParam().commandLine), GetParam().file);
}

const CommandCase commands[] = {
    {L"C:\\t\\Ardentis.exe save /xdc C:\\Program Data\\a b.xdc", L"C:\\Program Data\\a b.xdc"},
    {L"C:\\my temp\\Ardentis.exe save /xdc C:\\a.xdc", L"C:\\a.xdc"},
    {L"C:\\t\\Morvane.exe /m \"Veldt & Sons\" /d \"Loom\" /f \"C:\\a b.zdc\"", L"C:\\a b.zdc"},
    {L"C:\\my temp\\Morvane.exe /m \"\" /d \"\" /f \"C:\\a.zdc\"", L"C:\\a.zdc"},
    {L"C:\\t\\Morvane.exe /m \"x\"", L""},
    {L"C:\\t\\Ardentis.exe", L""},
    {L"", L""},
};

INSTANTIATE_TEST_SUITE_P(Commands, TargetFileTest, testing::ValuesIn(commands));

TEST(ProfileDocumentTest, HoldsTheNameAndTheSettings) {
    const std::wstring document =
        ProfileDocument({.name = L"a & \"b\" <c>", .twoSided = false, .saveToner = true});
    EXPECT_THAT(document, HasSubstr(L"<PrinterProfile name=\"a &amp; &quot;b&quot; &lt;c>\">"));
    EXPECT_THAT(document, HasSubstr(L"<TwoSided>false</TwoSided>"));
    EXPECT_THAT(document, HasSubstr(L"<SaveToner>true</SaveToner>"));
}

}  // namespace
