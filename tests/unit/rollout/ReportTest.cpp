#include <gtest/gtest.h>

#include "resources/resource.h"
#include "tools/Rollout/Report.h"

#include <nlohmann/json.hpp>

namespace rollout {
namespace {

using nlohmann::json;

Report SampleReport() {
    return {
        .action = "install",
        .computer = L"DESK-1",
        .folder = L"\\\\server\\share\\Setup\\x64",
        .vendor = L"Müller",
        .started = "2026-03-01T09:05:07Z",
        .seconds = 1.5,
        .verdict = {.code = Code::Failed, .reason = L"A package has failed."},
        .packages = {{.path = L"C:\\a.msi", .product = L"A", .version = L"1.0"},
                     {.path = L"C:\\d.msi", .product = L"D", .parent = L"C:\\a.msi"}},
        .results = {{.outcome = PackageOutcome::Installed,
                     .after = PackageState{.installed = true, .upToDate = true},
                     .seconds = 0.5},
                    {.outcome = PackageOutcome::Unknown, .code = Code::Failed}},
        .questions = {{.kind = QuestionKind::FilesInUse,
                       .title = L"T",
                       .text = L"X",
                       .answer = IDC_FILES_IN_USE_RETRY}},
        .log = {
            {.level = L"ERROR", .time = L"2026/03/01-09:05:07", .message = L'y' + std::wstring(4999, L'x')}}};
}

TEST(RolloutReportTest, HoldsEachPackageWithItsStates) {
    const json report = json::parse(WriteReport(SampleReport()));
    EXPECT_EQ(report["code"], 1603);
    EXPECT_EQ(report["vendor"], "M\xC3\xBCller");
    const json& first = report["packages"][0];
    EXPECT_EQ(first["file"], "a.msi");
    EXPECT_EQ(first["plan"], "install");
    EXPECT_EQ(first["before"]["installed"], false);
    EXPECT_EQ(first["after"]["upToDate"], true);
    EXPECT_EQ(first["seconds"], 0.5);
    EXPECT_FALSE(first.contains("parent"));
    const json& second = report["packages"][1];
    EXPECT_EQ(second["parent"], "a.msi");
    EXPECT_TRUE(second["after"].is_null());
    EXPECT_TRUE(second["seconds"].is_null());
    EXPECT_EQ(second["code"], 1603);
}

TEST(RolloutReportTest, TellsOfBoxesAndOfTheLog) {
    const json report = json::parse(WriteReport(SampleReport()));
    EXPECT_EQ(report["questions"][0]["kind"], "filesInUse");
    EXPECT_EQ(report["questions"][0]["answer"], "retry");
    EXPECT_EQ(report["log"][0]["level"], "ERROR");
    EXPECT_EQ(report["log"][0]["message"], 'y' + std::string(999, 'x'));
}

TEST(RolloutReportTest, IsIndentedAndHoldsLettersAsTheyAre) {
    const std::string report = WriteReport(SampleReport());
    EXPECT_NE(report.find("\n  \"vendor\": \"M\xC3\xBCller\",\n"), std::string::npos) << report;
}

// The packages are known before the run, and their results only after it.
TEST(RolloutReportTest, GivesPackagesOfARunThatDidNotBeginItsCode) {
    Report report = SampleReport();
    report.results.clear();
    report.verdict.code = Code::InstallerBusy;
    const json document = json::parse(WriteReport(report));
    EXPECT_EQ(document["form"], 1);
    EXPECT_EQ(document["packages"][0]["outcome"], "unknown");
    EXPECT_EQ(document["packages"][0]["code"], 1618);
}

}  // namespace
}  // namespace rollout
