// The exception in the system's firewall that lets the answers of devices reach the program, for a time.
#pragma once

#include <string>

// A call that fails leaves the firewall as it is and is not reported: discovery then finds what it can. COM
// is brought up for the length of each operation.
class FirewallRules {
public:
    // The full path of the program's file, and the name of the rule.
    FirewallRules(std::wstring programPath, std::wstring ruleName);

    // Lets all ports of the program through, on all networks. A rule of that name which is there already is
    // somebody else's: the new one then has a number after the name.
    void AddRule();
    // Removes the rule that AddRule has added, and no other.
    void RemoveRule();

private:
    std::wstring path;
    std::wstring name;
    // The name of the rule that stands now, empty if none does; and what stands for it on older systems.
    std::wstring addedRule;
    bool hasAuthorized = false;
};
