#include <gmock/gmock.h>

#include <algorithm>
#include <regex>
#include <set>
#include <string>

#include "tests/unit/packagecheck/RuleCases.h"
#include "tools/PackageCheck/Rule.h"

using packagecheck::AllRules;
using packagecheck::Finding;
using packagecheck::FindRule;
using packagecheck::Rule;

namespace {

bool Holds(const std::vector<Finding>& findings, std::string_view id) {
    return std::ranges::any_of(findings, [&](const Finding& finding) { return finding.rule->id == id; });
}

class RuleCaseTest : public testing::TestWithParam<RuleCase> {};

TEST_P(RuleCaseTest, FindsWhatBreaksTheRule) {
    MemoryTree tree;
    GetParam().breakIt(tree);
    const auto findings = FindingsOf(tree);
    EXPECT_TRUE(Holds(findings, GetParam().rule)) << testing::PrintToString(Described(findings));
}

TEST_P(RuleCaseTest, LeavesWhatJustKeepsTheRule) {
    MemoryTree tree;
    GetParam().keepIt(tree);
    const auto findings = FindingsOf(tree);
    EXPECT_FALSE(Holds(findings, GetParam().rule)) << testing::PrintToString(Described(findings));
}

std::string NameOfCase(const testing::TestParamInfo<RuleCase>& info) {
    std::string name(info.param.rule);
    std::ranges::replace(name, '-', '_');
    return name + "_" + std::to_string(info.index);
}

INSTANTIATE_TEST_SUITE_P(EveryRule, RuleCaseTest, testing::ValuesIn(AllRuleCases()), NameOfCase);

TEST(RuleTest, HasACaseForEachRule) {
    std::set<std::string_view> tested;
    for (const RuleCase& ruleCase : AllRuleCases()) tested.insert(ruleCase.rule);
    for (const Rule* rule : AllRules()) EXPECT_TRUE(tested.contains(rule->id)) << rule->id;
}

TEST(RuleTest, ListsEachRuleOnceUnderAPlainName) {
    std::set<std::string_view> ids;
    for (const Rule* rule : AllRules()) {
        EXPECT_TRUE(ids.insert(rule->id).second) << rule->id;
        EXPECT_TRUE(std::regex_match(std::string(rule->id), std::regex("[a-z0-9]+(-[a-z0-9]+)*")))
            << rule->id;
        EXPECT_EQ(FindRule(rule->id), rule);
    }
    EXPECT_EQ(FindRule("no-such-rule"), nullptr);
}

TEST(RuleTest, SaysEffectAndCureInWholeSentences) {
    for (const Rule* rule : AllRules()) {
        for (const std::string_view text : {rule->effect, rule->cure, rule->explanation}) {
            EXPECT_TRUE(text.ends_with('.')) << rule->id << ": " << text;
        }
    }
}

TEST(RuleTest, HasNothingToSayOfACleanPackage) {
    EXPECT_THAT(Described(FindingsOf(MemoryTree())), testing::IsEmpty());
}

}  // namespace

std::vector<RuleCase> AllRuleCases() {
    std::vector<RuleCase> all;
    for (const auto& cases :
         {TextRuleCases(), ElementRuleCases(), SettingsRuleCases(), DeviceRuleCases(), DriverRuleCases(),
          LanguageRuleCases(), CatalogueRuleCases(), DependentRuleCases(), FileRuleCases()}) {
        all.insert(all.end(), cases.begin(), cases.end());
    }
    return all;
}
