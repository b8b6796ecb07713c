// What a rule says of a kind of mistake.
#pragma once

#include <span>
#include <string_view>

namespace packagecheck {

enum class Severity { Warning, Error };

// Returns "warning" or "error".
std::string_view NameOf(Severity severity);

// A rule never changes its id: build servers and suppressions refer to it. All texts are English, in UTF-8.
// The rules give them in this order.
struct Rule {
    std::string_view id;
    Severity severity = Severity::Warning;
    std::string_view effect;       // one sentence: what happens on the user's machine
    std::string_view cure;         // how to fix it
    std::string_view explanation;  // what the wizard does, and why
};

// All rules, by subject.
std::span<const Rule* const> AllRules();

// Returns the rule of that id, or null.
const Rule* FindRule(std::string_view id);

}  // namespace packagecheck
