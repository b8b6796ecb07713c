#include "tests/unit/packagecheck/RuleCases.h"

namespace {

// An application that takes packages along, and those that there are, by name and what they take along
// themselves.
void AddDependents(MemoryTree& tree, const std::wstring& list,
                   const std::vector<std::pair<std::wstring, std::wstring>>& dependents) {
    if (!list.empty()) tree.packages[applicationPath].properties[L"DEPENDENTAPPS"] = list;
    for (const auto& [name, own] : dependents) {
        packagecheck::MsiContents contents = CleanMsi(name);
        if (!own.empty()) contents.properties[L"DEPENDENTAPPS"] = own;
        tree.packages["Dependents/x64/" + std::string(name.begin(), name.end()) + ".msi"] = contents;
    }
}

}  // namespace

std::vector<RuleCase> DependentRuleCases() {
    return {
        {"dependent-missing",
         [](MemoryTree& tree) {
             AddDependents(tree, L"watch.msi", {{L"Watch", L""}});
         },
         [](MemoryTree& tree) {
             AddDependents(tree, L"Watch.msi, Toner.msi", {{L"Watch", L""}, {L"Toner", L""}});
         }},
        {"dependent-by-accident",
         [](MemoryTree& tree) {
             AddDependents(tree, L"TonerWatch.msi", {{L"TonerWatch", L""}, {L"Watch", L""}});
         },
         [](MemoryTree& tree) {
             AddDependents(tree, L"TonerWatch.msi;Watch.msi", {{L"TonerWatch", L""}, {L"Watch", L""}});
         }},
        {"dependent-ignored",
         [](MemoryTree& tree) { tree.packages[driverPath].properties[L"DEPENDENTAPPS"] = L"Watch.msi"; },
         [](MemoryTree& tree) {
             AddDependents(tree, L"Watch.msi", {{L"Watch", L""}});
         }},
        {"dependent-ignored",
         [](MemoryTree& tree) {
             AddDependents(tree, L"Watch.msi", {{L"Watch", L"Bell.msi"}, {L"Bell", L""}});
         },
         [](MemoryTree& tree) {
             AddDependents(tree, L"Watch.msi;Bell.msi", {{L"Watch", L""}, {L"Bell", L""}});
         }},
        {"dependent-cycle",
         [](MemoryTree& tree) {
             AddDependents(tree, L"A1.msi", {{L"A1", L"B2.msi"}, {L"B2", L"A1.msi"}});
         },
         [](MemoryTree& tree) {
             AddDependents(tree, L"A1.msi", {{L"A1", L"B2.msi"}, {L"B2", L""}});
         }},
        {"dependent-unused",
         [](MemoryTree& tree) {
             AddDependents(tree, L"", {{L"Watch", L""}});
         },
         [](MemoryTree& tree) {
             AddDependents(tree, L"Watch.msi", {{L"Watch", L""}});
         }},
    };
}
