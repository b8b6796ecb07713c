#include "discovery/FirewallRules.h"

#include <windows.h>

#include <netfw.h>
#include <wrl/client.h>

#include <utility>

#include "CommonLib/Com.h"
#include "CommonLib/SystemVersion.h"

namespace {

using Microsoft::WRL::ComPtr;

constexpr long allProfiles = 0x7FFFFFFF;
constexpr DWORD apartmentFlags = COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE;

template <class Interface>
ComPtr<Interface> Make(REFCLSID kind) {
    ComPtr<Interface> object;
    CoCreateInstance(kind, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object));
    return object;
}

ComPtr<INetFwRules> PolicyRules() {
    ComPtr<INetFwRules> rules;
    const ComPtr<INetFwPolicy2> policy = Make<INetFwPolicy2>(__uuidof(NetFwPolicy2));
    if (policy) policy->get_Rules(&rules);
    return rules;
}

bool IsTaken(INetFwRules& rules, const std::wstring& name) {
    ComPtr<INetFwRule> rule;
    return rules.Item(ComText(name).get(), &rule) == S_OK;
}

// The system removes rules by their names, so a rule that is to go again needs a name of its own. Empty where
// there are too many.
std::wstring FreeName(INetFwRules& rules, const std::wstring& name) {
    constexpr int mostNames = 100;
    std::wstring candidate = name;
    for (int count = 2; IsTaken(rules, candidate); ++count) {
        if (count > mostNames) return {};
        candidate = name + L" " + std::to_wstring(count);
    }
    return candidate;
}

// Returns the name of the rule, empty if there is none.
std::wstring AddToPolicy(const std::wstring& path, const std::wstring& description) {
    const ComPtr<INetFwRules> rules = PolicyRules();
    const ComPtr<INetFwRule> rule = Make<INetFwRule>(__uuidof(NetFwRule));
    if (!rules || !rule) return {};
    std::wstring name = FreeName(*rules.Get(), description);
    if (name.empty()) return {};
    rule->put_Name(ComText(name).get());
    rule->put_Description(ComText(description).get());
    rule->put_ApplicationName(ComText(path).get());
    rule->put_LocalPorts(ComText(L"*").get());
    rule->put_Grouping(ComText(L"").get());
    rule->put_InterfaceTypes(ComText(L"ALL").get());
    rule->put_Profiles(allProfiles);
    rule->put_Action(NET_FW_ACTION_ALLOW);
    rule->put_Enabled(VARIANT_TRUE);
    if (FAILED(rules->Add(rule.Get()))) name.clear();
    return name;
}

// What systems before Vista have in place of rules.
ComPtr<INetFwAuthorizedApplications> AuthorizedApplications() {
    ComPtr<INetFwPolicy> policy;
    ComPtr<INetFwProfile> profile;
    ComPtr<INetFwAuthorizedApplications> applications;
    const ComPtr<INetFwMgr> manager = Make<INetFwMgr>(__uuidof(NetFwMgr));
    if (manager && SUCCEEDED(manager->get_LocalPolicy(&policy)) && policy &&
        SUCCEEDED(policy->get_CurrentProfile(&profile)) && profile) {
        profile->get_AuthorizedApplications(&applications);
    }
    return applications;
}

// Returns whether the program was not authorized before and is now.
bool Authorize(const std::wstring& path, const std::wstring& name) {
    const ComPtr<INetFwAuthorizedApplications> applications = AuthorizedApplications();
    const auto application = Make<INetFwAuthorizedApplication>(__uuidof(NetFwAuthorizedApplication));
    ComPtr<INetFwAuthorizedApplication> former;
    if (!applications || !application || applications->Item(ComText(path).get(), &former) == S_OK)
        return false;
    application->put_ProcessImageFileName(ComText(path).get());
    application->put_Name(ComText(name).get());
    return SUCCEEDED(applications->Add(application.Get()));
}

}  // namespace

FirewallRules::FirewallRules(std::wstring programPath, std::wstring ruleName)
    : path(std::move(programPath)), name(std::move(ruleName)) {}

void FirewallRules::AddRule() {
    const ComApartment apartment(apartmentFlags);
    if (!apartment.IsUsable()) return;
    if (IsWindowsVersionOrGreater(WindowsVersion::Vista)) {
        addedRule = AddToPolicy(path, name);
    } else {
        hasAuthorized = Authorize(path, name);
    }
}

void FirewallRules::RemoveRule() {
    const std::wstring rule = std::exchange(addedRule, {});
    const bool isAuthorized = std::exchange(hasAuthorized, false);
    if (rule.empty() && !isAuthorized) return;
    const ComApartment apartment(apartmentFlags);
    if (!apartment.IsUsable()) return;
    if (!rule.empty()) {
        if (const auto rules = PolicyRules()) rules->Remove(ComText(rule).get());
    } else if (const auto applications = AuthorizedApplications()) {
        applications->Remove(ComText(path).get());
    }
}
