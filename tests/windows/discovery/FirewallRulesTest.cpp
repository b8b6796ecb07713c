#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <objbase.h>

#include <string>

#include "CommonLib/Files.h"
#include "discovery/FirewallRules.h"
#include "tests/windows/world/FakeFirewall.h"
#include "tests/windows/world/NetworkWorld.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/wizard/Waiting.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr wchar_t path[] = L"C:\\Tree\\Setup\\x64\\Kestrune.exe";

// COM for the length of a test.
struct Apartment {
    explicit Apartment(DWORD kind) { EXPECT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, kind))); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    ~Apartment() { CoUninitialize(); }
};

class FirewallRulesTest : public testing::Test {
protected:
    static std::vector<std::wstring> RuleNames() {
        std::vector<std::wstring> names;
        for (const FirewallRule& rule : FakeFirewall::Rules()) names.push_back(rule.name);
        return names;
    }

    Apartment apartment{COINIT_APARTMENTTHREADED};
    FakeFirewall firewall;
    FirewallRules rules{path, L"Kestrune"};
};

TEST_F(FirewallRulesTest, LetAllPortsOfTheProgramThrough) {
    rules.AddRule();
    ASSERT_EQ(FakeFirewall::Rules().size(), 1u);
    const FirewallRule& rule = FakeFirewall::Rules().front();
    EXPECT_EQ(rule.name, L"Kestrune");
    EXPECT_EQ(rule.description, L"Kestrune");
    EXPECT_EQ(rule.application, path);
    EXPECT_EQ(rule.localPorts, L"*");
    EXPECT_EQ(rule.grouping, L"");
    EXPECT_EQ(rule.interfaceTypes, L"ALL");
    EXPECT_EQ(rule.profiles, 0x7FFFFFFF);
    EXPECT_EQ(rule.action, 1);
    EXPECT_TRUE(rule.enabled);
}

TEST_F(FirewallRulesTest, RemoveTheirOwnRuleAlone) {
    FakeFirewall::Rules() = {{.name = L"other", .application = L"C:\\other.exe"},
                             {.name = L"mine", .application = path}};
    rules.AddRule();
    EXPECT_THAT(RuleNames(), ElementsAre(L"other", L"mine", L"Kestrune"));
    rules.RemoveRule();
    EXPECT_THAT(RuleNames(), ElementsAre(L"other", L"mine"));
}

TEST_F(FirewallRulesTest, LeaveARuleOfTheSameNameThatSomebodyElseMade) {
    FakeFirewall::Rules() = {{.name = L"Kestrune", .application = L"C:\\other.exe"},
                             {.name = L"Kestrune 2", .application = path}};
    rules.AddRule();
    EXPECT_THAT(RuleNames(), ElementsAre(L"Kestrune", L"Kestrune 2", L"Kestrune 3"));
    rules.RemoveRule();
    EXPECT_THAT(RuleNames(), ElementsAre(L"Kestrune", L"Kestrune 2"));
}

TEST_F(FirewallRulesTest, LookForAFreeNameUpToTheHundredth) {
    FakeFirewall::Rules() = {{.name = L"Kestrune", .application = path}};
    for (int count = 2; count < 100; ++count) {
        FakeFirewall::Rules().push_back({.name = L"Kestrune " + std::to_wstring(count), .application = path});
    }
    rules.AddRule();
    EXPECT_EQ(FakeFirewall::Rules().back().name, L"Kestrune 100");
    FirewallRules more{path, L"Kestrune"};
    more.AddRule();
    EXPECT_EQ(FakeFirewall::Rules().size(), 100u);
}

TEST_F(FirewallRulesTest, RemoveNothingBeforeTheyHaveAddedARule) {
    FakeFirewall::Rules() = {{.name = L"Kestrune", .application = path}};
    rules.RemoveRule();
    EXPECT_THAT(RuleNames(), ElementsAre(L"Kestrune"));
}

TEST_F(FirewallRulesTest, LeaveAProgramThatWasAuthorizedBefore) {
    const PatchedImport older(
        "VerifyVersionInfoW", +[](LPOSVERSIONINFOEXW, DWORD, DWORDLONG) -> BOOL { return FALSE; });
    FakeFirewall::Programs() = {{.path = path, .name = L"somebody else's"}};
    rules.AddRule();
    rules.RemoveRule();
    ASSERT_EQ(FakeFirewall::Programs().size(), 1u);
    EXPECT_EQ(FakeFirewall::Programs().front().name, L"somebody else's");
}

TEST_F(FirewallRulesTest, AuthorizeTheProgramOnASystemWithoutRules) {
    const PatchedImport older(
        "VerifyVersionInfoW", +[](LPOSVERSIONINFOEXW, DWORD, DWORDLONG) -> BOOL { return FALSE; });
    rules.AddRule();
    EXPECT_THAT(RuleNames(), IsEmpty());
    ASSERT_EQ(FakeFirewall::Programs().size(), 1u);
    EXPECT_EQ(FakeFirewall::Programs().front().path, path);
    EXPECT_EQ(FakeFirewall::Programs().front().name, L"Kestrune");
    rules.RemoveRule();
    EXPECT_TRUE(FakeFirewall::Programs().empty());
}

TEST_F(FirewallRulesTest, LeaveComAsTheyFoundIt) {
    rules.AddRule();
    rules.RemoveRule();
    // The test's own apartment is still up.
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_FALSE);
    CoUninitialize();
}

TEST(FirewallApartmentTest, GoesOnWhereTheThreadHasAnApartmentOfAnotherKind) {
    const Apartment apartment(COINIT_MULTITHREADED);
    const FakeFirewall firewall;
    FirewallRules(path, L"Kestrune").AddRule();
    EXPECT_EQ(FakeFirewall::Rules().size(), 1u);
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_FALSE);
    CoUninitialize();
}

TEST(FirewallApartmentTest, GivesUpWhereComCannotBeBroughtUp) {
    const Apartment apartment(COINIT_APARTMENTTHREADED);
    const FakeFirewall firewall;
    const PatchedImport denied(
        "CoInitializeEx", +[](LPVOID, DWORD) -> HRESULT { return E_OUTOFMEMORY; });
    FirewallRules(path, L"Kestrune").AddRule();
    EXPECT_TRUE(FakeFirewall::Rules().empty());
}

class DiscoveryFirewallTest : public NetworkWorld {
protected:
    Apartment apartment{COINIT_APARTMENTTHREADED};
    FakeFirewall firewall;

    // A run that delivers nothing for which one could wait.
    void RunInVain() {
        service->DoRun();
        EXPECT_TRUE(WaitUntil([this] { return controller.ThreadCount() == 0; }));
    }
};

TEST_F(DiscoveryFirewallTest, IsOpenFromTheFirstRunUntilTheServiceIsClosed) {
    Start();
    EXPECT_TRUE(FakeFirewall::Rules().empty());
    Run();
    Run();
    ASSERT_EQ(FakeFirewall::Rules().size(), 1u);
    EXPECT_EQ(FakeFirewall::Rules().front().application, GetExePath());
    service->Close();
    EXPECT_TRUE(FakeFirewall::Rules().empty());
    RunInVain();
    EXPECT_TRUE(FakeFirewall::Rules().empty());
}

TEST_F(DiscoveryFirewallTest, IsClosedWithTheService) {
    Start();
    Run();
    service.reset();
    EXPECT_TRUE(FakeFirewall::Rules().empty());
}

TEST_F(DiscoveryFirewallTest, StaysClosedAfterACancel) {
    Start();
    service->Cancel();
    RunInVain();
    EXPECT_TRUE(FakeFirewall::Rules().empty());
}

}  // namespace
