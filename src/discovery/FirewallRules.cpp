#include "discovery/FirewallRules.h"

#include <windows.h>

#include <netfw.h>
#include <wrl/client.h>

#include <utility>
#include <vector>

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

void AddToPolicy(const std::wstring& path, const std::wstring& name) {
    const ComPtr<INetFwRules> rules = PolicyRules();
    const ComPtr<INetFwRule> rule = Make<INetFwRule>(__uuidof(NetFwRule));
    if (!rules || !rule) return;
    rule->put_Name(ComText(name).get());
    rule->put_Description(ComText(name).get());
    rule->put_ApplicationName(ComText(path).get());
    rule->put_LocalPorts(ComText(L"*").get());
    rule->put_Grouping(ComText(L"").get());
    rule->put_InterfaceTypes(ComText(L"ALL").get());
    rule->put_Profiles(allProfiles);
    rule->put_Action(NET_FW_ACTION_ALLOW);
    rule->put_Enabled(VARIANT_TRUE);
    rules->Add(rule.Get());
}

// The names are read first: the walk need not survive a removal.
std::vector<std::wstring> RuleNamesOf(INetFwRules& rules, const std::wstring& path) {
    std::vector<std::wstring> names;
    ComPtr<IUnknown> unknown;
    ComPtr<IEnumVARIANT> walk;
    if (FAILED(rules.get__NewEnum(&unknown)) || !unknown || FAILED(unknown.As(&walk))) return names;
    for (;;) {
        Variant entry;
        ComPtr<INetFwRule> rule;
        if (walk->Next(1, entry.put(), nullptr) != S_OK) return names;
        if (entry.object() == nullptr || FAILED(entry.object()->QueryInterface(IID_PPV_ARGS(&rule))))
            continue;
        ComText application;
        ComText name;
        if (FAILED(rule->get_ApplicationName(application.put())) || FAILED(rule->get_Name(name.put())))
            continue;
        if (_wcsicmp(application.str().c_str(), path.c_str()) == 0) names.push_back(name.str());
    }
}

void RemoveFromPolicy(const std::wstring& path) {
    const ComPtr<INetFwRules> rules = PolicyRules();
    if (!rules) return;
    for (const std::wstring& name : RuleNamesOf(*rules.Get(), path)) rules->Remove(ComText(name).get());
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

void Authorize(const std::wstring& path, const std::wstring& name) {
    const ComPtr<INetFwAuthorizedApplications> applications = AuthorizedApplications();
    const auto application = Make<INetFwAuthorizedApplication>(__uuidof(NetFwAuthorizedApplication));
    if (!applications || !application) return;
    application->put_ProcessImageFileName(ComText(path).get());
    application->put_Name(ComText(name).get());
    applications->Add(application.Get());
}

}  // namespace

FirewallRules::FirewallRules(std::wstring programPath, std::wstring ruleName)
    : path(std::move(programPath)), name(std::move(ruleName)) {}

void FirewallRules::AddRule() const {
    const ComApartment apartment(apartmentFlags);
    if (!apartment.IsUsable()) return;
    if (IsWindowsVersionOrGreater(WindowsVersion::Vista)) {
        AddToPolicy(path, name);
    } else {
        Authorize(path, name);
    }
}

void FirewallRules::RemoveRule() const {
    const ComApartment apartment(apartmentFlags);
    if (!apartment.IsUsable()) return;
    if (IsWindowsVersionOrGreater(WindowsVersion::Vista)) {
        RemoveFromPolicy(path);
    } else if (const auto applications = AuthorizedApplications()) {
        applications->Remove(ComText(path).get());
    }
}
