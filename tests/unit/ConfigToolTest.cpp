#include <gtest/gtest.h>

#include "printer/ConfigTool.h"

namespace {

struct GenerationCase {
    std::wstring driver;
    bool isV4;
};

class GenerationTest : public testing::TestWithParam<GenerationCase> {};

TEST_P(GenerationTest, IsToldByTwoCharactersAnywhere) {
    EXPECT_EQ(IsV4Driver(GetParam().driver), GetParam().isV4);
    EXPECT_EQ(&ConfigToolFor(GetParam().driver), GetParam().isV4 ? &v4ConfigTool : &olderConfigTool);
}

const GenerationCase drivers[] = {
    {L"V4", true}, {L"HVMONOV4", true}, {L"RPV40X", true},  {L"Loom V4 Color", true}, {L"v4", false},
    {L"", false},  {L"V 4", false},     {L"HVMONO", false}, {L"4V", false},
};

INSTANTIATE_TEST_SUITE_P(Drivers, GenerationTest, testing::ValuesIn(drivers));

TEST(UnpackCommandTest, QuotesThePathsAndHasNoVariable) {
    EXPECT_EQ(UnpackCommand(L"C:\\windows\\system32\\msiexec.exe", L"C:\\a & b\\100% \\Kit.msi",
                            L"C:\\Users\\John Doe\\Temp\\ArdentisKit"),
              L"\"C:\\windows\\system32\\msiexec.exe\" /a \"C:\\a & b\\100% \\Kit.msi\" /qn "
              L"TARGETDIR=\"C:\\Users\\John Doe\\Temp\\ArdentisKit\"");
}

const ConfigCommandInputs someInputs{.toolPath = L"C:\\my tools\\Tool.exe",
                                     .vendor = L"Veldt & Sons",
                                     .product = L"Loom 100%",
                                     .file = L"C:\\Program Data\\Veldt & Sons.cfg"};

TEST(ConfigCommandTest, QuotesEachValueForTheOlderTool) {
    EXPECT_EQ(ConfigCommandFor(L"HVMONO", someInputs),
              L"C:\\my tools\\Tool.exe /m \"Veldt & Sons\" /d \"Loom 100%\" /f "
              L"\"C:\\Program Data\\Veldt & Sons.cfg\"");
}

TEST(ConfigCommandTest, QuotesNothingForTheNewerTool) {
    EXPECT_EQ(ConfigCommandFor(L"HVMONOV4", someInputs),
              L"C:\\my tools\\Tool.exe save /xdc C:\\Program Data\\Veldt & Sons.cfg");
}

TEST(ConfigCommandTest, TakesAQuoteInAValueAsItStands) {
    ConfigCommandInputs inputs = someInputs;
    inputs.vendor = L"Veldt\" /x \"Sons";
    EXPECT_EQ(ConfigCommandFor(L"", inputs),
              L"C:\\my tools\\Tool.exe /m \"Veldt\" /x \"Sons\" /d \"Loom 100%\" /f "
              L"\"C:\\Program Data\\Veldt & Sons.cfg\"");
}

TEST(ConfigFilePathTest, CountsBehindTheVendor) {
    EXPECT_EQ(ConfigFilePath(L"C:\\d\\", L"Veldt", L".zdc", 0), L"C:\\d\\Veldt.zdc");
    EXPECT_EQ(ConfigFilePath(L"C:\\d\\", L"Veldt", L".zdc", 1), L"C:\\d\\Veldt_1.zdc");
    EXPECT_EQ(ConfigFilePath(L"C:\\d\\", L"Veldt", L".xdc", 12), L"C:\\d\\Veldt_12.xdc");
}

TEST(ConfigFilePathTest, IsTheExtensionAloneWithoutAVendor) {
    EXPECT_EQ(ConfigFilePath(L"C:\\d\\", L"", L".zdc", 0), L"C:\\d\\.zdc");
    EXPECT_EQ(ConfigFilePath(L"C:\\d\\", L"", L".zdc", 1), L"C:\\d\\_1.zdc");
}

TEST(LastPathTest, IsTheLastOneThatHoldsThePart) {
    EXPECT_EQ(LastPathWith({L"a\\Tool.exe", L"b\\Tool.exe", L"c\\Other.exe"}, L"Tool.exe"), L"b\\Tool.exe");
    EXPECT_EQ(LastPathWith({L"a\\tool.exe"}, L"Tool.exe"), L"");
    EXPECT_EQ(LastPathWith({}, L"Tool.exe"), L"");
}

struct FailureCase {
    std::int32_t code;
    std::wstring record;
};

class NewConfigurationFailureTest : public testing::TestWithParam<FailureCase> {};

TEST_P(NewConfigurationFailureTest, LeavesAsManyCharactersOutAsTheCodeSays) {
    EXPECT_EQ(NewConfigurationFailure(GetParam().code), GetParam().record);
}

const FailureCase failures[] = {
    {0, L"Exception in DriverConfigDlg::OnBnClickedConfigNewButton error code = "},
    {5, L"tion in DriverConfigDlg::OnBnClickedConfigNewButton error code = "},
    {68, L"= "},
    {70, L""},
    {71, L""},
    {0x7FFFFFFF, L""},
    {-1, L"Exception in DriverConfigDlg::OnBnClickedConfigNewButton error code = "},
};

INSTANTIATE_TEST_SUITE_P(Codes, NewConfigurationFailureTest, testing::ValuesIn(failures));

}  // namespace
