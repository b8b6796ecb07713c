// The exception in the system's firewall that lets the answers of devices reach the program.
#pragma once

#include <string>

// A call that fails leaves the firewall as it is and is not reported: discovery then finds what it can. COM
// is brought up for the length of each operation.
class FirewallRules {
public:
    // The full path of the program's file, and the name of the rule.
    FirewallRules(std::wstring programPath, std::wstring ruleName);

    // Lets all ports of the program through, on all networks.
    void AddRule() const;
    // Removes every rule for the program's file.
    void RemoveRule() const;

private:
    std::wstring path;
    std::wstring name;
};
