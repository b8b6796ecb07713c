// A firewall that keeps what is done to it, in place of the system's.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

struct FirewallRule {
    std::wstring name;
    std::wstring description;
    std::wstring application;
    std::wstring localPorts;
    std::wstring grouping = L"(never set)";
    std::wstring interfaceTypes;
    long profiles = 0;
    int action = -1;
    bool enabled = false;
};

// What the system before rules kept: the file and the name of a program.
struct AuthorizedProgram {
    std::wstring path;
    std::wstring name;
};

// Answers for the system's firewall classes to this thread until the end of this object's life; one at a
// time, on a thread that COM has been brought up on.
class FakeFirewall {
public:
    FakeFirewall();
    FakeFirewall(const FakeFirewall&) = delete;
    FakeFirewall& operator=(const FakeFirewall&) = delete;
    ~FakeFirewall();

    static std::vector<FirewallRule>& Rules();
    static std::vector<AuthorizedProgram>& Programs();

private:
    std::vector<DWORD> registrations;
};
