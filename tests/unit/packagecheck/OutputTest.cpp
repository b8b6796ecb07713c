#include <gmock/gmock.h>

#include <sstream>

#include "tools/PackageCheck/JsonOutput.h"
#include "tools/PackageCheck/SettingsRules.h"
#include "tools/PackageCheck/TextOutput.h"

#include <nlohmann/json.hpp>

using nlohmann::json;
using packagecheck::Finding;
using packagecheck::Report;

namespace {

std::vector<Finding> SomeFindings() {
    Report report;
    report.Add(packagecheck::rules::flagValue,
               {.file = "Setup/a b.xml", .position = {.line = 3, .column = 7}}, "A flag.");
    report.Add(packagecheck::rules::kindOfPackage, {.file = "Setup/a b.xml"}, "A kind.");
    report.Add(packagecheck::rules::linkQuery, {}, "A package.");
    return report.Sorted();
}

TEST(TextOutputTest, WritesALineThatEditorsUnderstand) {
    std::ostringstream out;
    packagecheck::WriteText(out, SomeFindings(), "out/package", false);
    EXPECT_EQ(out.str(),
              "out/package: warning: A package. [link-query]\n"
              "out/package/Setup/a b.xml: warning: A kind. [upd-value]\n"
              "out/package/Setup/a b.xml:3:7: error: A flag. [flag-value]\n"
              "1 error, 2 warnings\n");
}

TEST(TextOutputTest, WritesColoursWhereTheyAreShown) {
    std::ostringstream out;
    packagecheck::WriteText(out, SomeFindings(), "p", true);
    EXPECT_THAT(out.str(), testing::HasSubstr("\x1b[1;31merror\x1b[0m"));
}

TEST(TextOutputTest, WritesOutWhatATerminalWouldObey) {
    Report report;
    report.Add(packagecheck::rules::flagValue, {.file = "Setup/a\x1b[2J\xC2\x9B.xml"}, "A \x07 flag.");
    std::ostringstream out;
    packagecheck::WriteText(out, report.Sorted(), "p", false);
    EXPECT_THAT(out.str(), testing::StartsWith("p/Setup/a\\u001B[2J\\u009B.xml: error: A \\u0007 flag. "));
}

TEST(TextOutputTest, SaysThatThereIsNothingToSay) {
    std::ostringstream out;
    packagecheck::WriteText(out, {}, "p", false);
    EXPECT_EQ(out.str(), "No findings.\n");
}

TEST(JsonOutputTest, WritesPlacesWhereThereAreSome) {
    std::ostringstream out;
    packagecheck::WriteJson(out, SomeFindings(), "out/package");
    const json document = json::parse(out.str());
    EXPECT_EQ(document["version"], 1);
    EXPECT_EQ(document["package"], "out/package");
    EXPECT_EQ(document["errors"], 1);
    EXPECT_EQ(document["warnings"], 2);
    EXPECT_FALSE(document["findings"][0].contains("file"));
    EXPECT_FALSE(document["findings"][1].contains("line"));
    EXPECT_EQ(document["findings"][2]["line"], 3);
    EXPECT_EQ(document["findings"][2]["column"], 7);
    EXPECT_EQ(document["findings"][2]["rule"], "flag-value");
}

TEST(JsonOutputTest, SurvivesNamesThatAreNoUtf8) {
    Report report;
    report.Add(packagecheck::rules::flagValue, {.file = "Setup/\xFF.xml"}, "A \xFF.");
    std::ostringstream out;
    packagecheck::WriteJson(out, report.Sorted(), "\xFF");
    EXPECT_EQ(json::parse(out.str())["findings"].size(), 1U);
}

TEST(SarifOutputTest, RefersToRulesThatItDescribes) {
    std::ostringstream out;
    packagecheck::WriteSarif(out, SomeFindings());
    const json document = json::parse(out.str());
    EXPECT_EQ(document["version"], "2.1.0");
    const json& run = document["runs"][0];
    for (const json& result : run["results"]) {
        const std::size_t index = result["ruleIndex"];
        EXPECT_EQ(run["tool"]["driver"]["rules"][index]["id"], result["ruleId"]);
    }
}

TEST(SarifOutputTest, WritesPathsAsWebAddresses) {
    std::ostringstream out;
    packagecheck::WriteSarif(out, SomeFindings());
    const json result = json::parse(out.str())["runs"][0]["results"][2];
    const json& place = result["locations"][0]["physicalLocation"];
    EXPECT_EQ(place["artifactLocation"]["uri"], "Setup/a%20b.xml");
    EXPECT_EQ(place["region"]["startLine"], 3);
    EXPECT_EQ(place["region"]["startColumn"], 7);
}

TEST(SarifOutputTest, LeavesLettersDigitsAndAFewSignsOfAPath) {
    Report report;
    report.Add(packagecheck::rules::flagValue, {.file = "AZ/az/09/-._~@[`{:\xC3\xA9"}, "A flag.");
    std::ostringstream out;
    packagecheck::WriteSarif(out, report.Sorted());
    const json result = json::parse(out.str())["runs"][0]["results"][0];
    EXPECT_EQ(result["locations"][0]["physicalLocation"]["artifactLocation"]["uri"],
              "AZ/az/09/-._~%40%5B%60%7B%3A%C3%A9");
}

TEST(SarifOutputTest, KnowsTheFirstLineFromNone) {
    Report report;
    report.Add(packagecheck::rules::flagValue, {.file = "a", .position = {.line = 1, .column = 1}},
               "A flag.");
    report.Add(packagecheck::rules::linkQuery, {.file = "b"}, "A link.");
    std::ostringstream out;
    packagecheck::WriteSarif(out, report.Sorted());
    const json results = json::parse(out.str())["runs"][0]["results"];
    EXPECT_EQ(results[0]["locations"][0]["physicalLocation"]["region"]["startLine"], 1);
    EXPECT_FALSE(results[1]["locations"][0]["physicalLocation"].contains("region"));
}

TEST(FindingTest, SaysTheSameOfAPlaceOnce) {
    Report report;
    for (int i = 0; i < 2; ++i) report.Add(packagecheck::rules::flagValue, {.file = "a"}, "A flag.");
    EXPECT_EQ(report.Sorted().size(), 1U);
}

TEST(FindingTest, KeepsWhatElseIsSaidOfAPlace) {
    Report report;
    report.Add(packagecheck::rules::flagValue, {.file = "a"}, "A flag.");
    report.Add(packagecheck::rules::flagValue, {.file = "a"}, "Another flag.");
    report.Add(packagecheck::rules::linkQuery, {.file = "a"}, "Another flag.");
    EXPECT_EQ(report.Sorted().size(), 3U);
}

TEST(FindingTest, EndsTheProgramByTheWorstFinding) {
    Report report;
    EXPECT_EQ(packagecheck::ExitCodeFor(report.Sorted()), 0);
    report.Add(packagecheck::rules::linkQuery, {}, "A package.");
    EXPECT_EQ(packagecheck::ExitCodeFor(report.Sorted()), 1);
    report.Add(packagecheck::rules::flagValue, {}, "A flag.");
    EXPECT_EQ(packagecheck::ExitCodeFor(report.Sorted()), 2);
}

}  // namespace
