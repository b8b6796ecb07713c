// How a package breaks each rule, and how it just does not.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/unit/packagecheck/MemoryTree.h"

// A case changes the clean tree.
struct RuleCase {
    std::string_view rule;
    void (*breakIt)(MemoryTree& tree);
    // What comes nearest to breaking it.
    void (*keepIt)(MemoryTree& tree);
};

std::vector<RuleCase> TextRuleCases();
std::vector<RuleCase> ElementRuleCases();
std::vector<RuleCase> SettingsRuleCases();
std::vector<RuleCase> DeviceRuleCases();
std::vector<RuleCase> DriverRuleCases();
std::vector<RuleCase> LanguageRuleCases();
std::vector<RuleCase> CatalogueRuleCases();
std::vector<RuleCase> DependentRuleCases();
std::vector<RuleCase> FileRuleCases();

// All of the above.
std::vector<RuleCase> AllRuleCases();
