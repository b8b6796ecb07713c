#include "tools/PackageCheck/RuleTable.h"

#include <string_view>

#include "tools/PackageCheck/Rule.h"

namespace packagecheck {

namespace {

// A text in a cell, where a bar would end it and a tag or a star would be taken for one.
std::string Cell(std::string_view text) {
    std::string cell;
    for (const char letter : text) {
        if (letter == '|' || letter == '<' || letter == '*' || letter == '\\') cell += '\\';
        cell += letter;
    }
    return cell;
}

}  // namespace

std::string RuleTable() {
    std::string table =
        "| rule | | what happens on the user's machine | how to fix it |\n|---|---|---|---|\n";
    for (const Rule* rule : AllRules()) {
        table.append("| `").append(rule->id).append("` | ").append(NameOf(rule->severity));
        table += " | " + Cell(rule->effect) + " | " + Cell(rule->cure) + " |\n";
    }
    return table;
}

}  // namespace packagecheck
