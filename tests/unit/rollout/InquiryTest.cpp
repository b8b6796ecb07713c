#include <gtest/gtest.h>

#include "tools/Rollout/Inquiry.h"

namespace rollout {
namespace {

PackageDescription SampleDescription() {
    return {.failure = L"",
            .vendor = L"Müller & Söhne",
            .logFolder = L"C:\\ProgramData\\x\\",
            .canRunSilently = true,
            .boxTexts = {.failure = L"\"Wrong\"\n", .otherCopy = L"Twice"},
            .packages = {{.path = L"C:\\a.msi",
                          .product = L"A",
                          .version = L"1.0",
                          .intention = Intention::MinorUpgrade,
                          .parent = L"C:\\p.msi",
                          .before = {.installed = true, .upgradable = true, .minorUpgrade = true}}},
            .plan = {L"A 1.0  minor upgrade"}};
}

TEST(InquiryTest, BringsADescriptionOverInOneLine) {
    const std::string line = WriteDescription(SampleDescription());
    EXPECT_EQ(line.find('\n'), std::string::npos);
    EXPECT_EQ(line.find('\xC3'), std::string::npos) << "who reads it may take it for another code page";
    const auto read = ReadDescription(line);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->vendor, L"Müller & Söhne");
    EXPECT_EQ(read->logFolder, L"C:\\ProgramData\\x\\");
    EXPECT_TRUE(read->canRunSilently);
    EXPECT_EQ(read->boxTexts.failure, L"\"Wrong\"\n");
    EXPECT_EQ(read->boxTexts.otherCopy, L"Twice");
    ASSERT_EQ(read->packages.size(), 1U);
    EXPECT_EQ(read->packages.front().path, L"C:\\a.msi");
    EXPECT_EQ(read->packages.front().parent, L"C:\\p.msi");
    EXPECT_EQ(read->packages.front().intention, Intention::MinorUpgrade);
    EXPECT_EQ(read->packages.front().before, SampleDescription().packages.front().before);
    EXPECT_EQ(read->plan, SampleDescription().plan);
}

TEST(InquiryTest, BringsStatesAndCodesOver) {
    const std::vector<PackageState> states = {{.installed = true, .upToDate = true}, {}};
    EXPECT_EQ(ReadStates(WriteStates(states)), states);
    EXPECT_EQ(ReadRemoval(WriteRemoval(3010)), 3010U);
}

TEST(InquiryTest, ReadsNoAnswerOfAnotherKind) {
    EXPECT_FALSE(ReadStates(WriteRemoval(0)));
    EXPECT_FALSE(ReadDescription(WriteStates({})));
    // Whatever else it holds.
    std::string line = WriteStates({{.installed = true}});
    ASSERT_TRUE(ReadStates(line));
    line.replace(line.find("\"states\"", line.find("\"kind\"")), 8, "\"others\"");
    EXPECT_FALSE(ReadStates(line));
}

class ForeignLineTest : public testing::TestWithParam<const char*> {};

TEST_P(ForeignLineTest, IsNoAnswer) {
    EXPECT_FALSE(ReadDescription(GetParam()));
    EXPECT_FALSE(ReadStates(GetParam()));
    EXPECT_FALSE(ReadRemoval(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ForeignLineTest,
    testing::Values("", "Loading...", "[1]", "7", "null", R"({"kind":"states","states":[]})",
                    R"({"kestruneRollout":2,"kind":"removal","code":0})",
                    R"({"kestruneRollout":"1","kind":"states"})", R"({"kestruneRollout":1,"kind":5})",
                    R"({"kestruneRollout":1,"kind":"states","states":[{"installed":1}]})",
                    R"({"kestruneRollout":1,"kind":"states","states":7})",
                    R"({"kestruneRollout":1,"kind":"removal","code":"x"})",
                    R"({"kestruneRollout":1,"kind":"description","vendor":"x"})", "\xFF\xFE{}"));

}  // namespace
}  // namespace rollout
