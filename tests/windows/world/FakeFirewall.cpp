#include "tests/windows/world/FakeFirewall.h"

#include <netfw.h>
#include <wrl/client.h>

#include <algorithm>
#include <functional>

#include "CommonLib/Com.h"
#include "tests/windows/world/FakeObject.h"

namespace {

using Microsoft::WRL::ComPtr;

HRESULT Give(const std::wstring& value, BSTR* text) {
    *text = SysAllocString(value.c_str());
    return S_OK;
}

HRESULT Take(BSTR text, std::wstring& value) {
    value = text == nullptr ? L"" : text;
    return S_OK;
}

// The part of an interface for scripts, which the program does not use.
template <class Interface>
class Automation : public FakeObject<Interface> {
public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return E_NOTIMPL;
    }
};

class Rule : public Automation<INetFwRule> {
public:
    FirewallRule rule;

    HRESULT STDMETHODCALLTYPE get_Name(BSTR* text) override { return Give(rule.name, text); }
    HRESULT STDMETHODCALLTYPE put_Name(BSTR text) override { return Take(text, rule.name); }
    HRESULT STDMETHODCALLTYPE get_Description(BSTR* text) override { return Give(rule.description, text); }
    HRESULT STDMETHODCALLTYPE put_Description(BSTR text) override { return Take(text, rule.description); }
    HRESULT STDMETHODCALLTYPE get_ApplicationName(BSTR* text) override {
        return Give(rule.application, text);
    }
    HRESULT STDMETHODCALLTYPE put_ApplicationName(BSTR text) override { return Take(text, rule.application); }
    HRESULT STDMETHODCALLTYPE get_ServiceName(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_ServiceName(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Protocol(LONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Protocol(LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_LocalPorts(BSTR* text) override { return Give(rule.localPorts, text); }
    HRESULT STDMETHODCALLTYPE put_LocalPorts(BSTR text) override { return Take(text, rule.localPorts); }
    HRESULT STDMETHODCALLTYPE get_RemotePorts(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_RemotePorts(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_LocalAddresses(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_LocalAddresses(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_RemoteAddresses(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_RemoteAddresses(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_IcmpTypesAndCodes(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_IcmpTypesAndCodes(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Direction(NET_FW_RULE_DIRECTION*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Direction(NET_FW_RULE_DIRECTION) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Interfaces(VARIANT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Interfaces(VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_InterfaceTypes(BSTR* text) override {
        return Give(rule.interfaceTypes, text);
    }
    HRESULT STDMETHODCALLTYPE put_InterfaceTypes(BSTR text) override {
        return Take(text, rule.interfaceTypes);
    }
    HRESULT STDMETHODCALLTYPE get_Enabled(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Enabled(VARIANT_BOOL enabled) override {
        rule.enabled = enabled != VARIANT_FALSE;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_Grouping(BSTR* text) override { return Give(rule.grouping, text); }
    HRESULT STDMETHODCALLTYPE put_Grouping(BSTR text) override { return Take(text, rule.grouping); }
    HRESULT STDMETHODCALLTYPE get_Profiles(LONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Profiles(LONG profiles) override {
        rule.profiles = profiles;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_EdgeTraversal(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_EdgeTraversal(VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Action(NET_FW_ACTION*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Action(NET_FW_ACTION action) override {
        rule.action = action;
        return S_OK;
    }
};

// Walks over a copy of the rules.
class RuleWalk : public FakeObject<IEnumVARIANT> {
public:
    HRESULT STDMETHODCALLTYPE Next(ULONG, VARIANT* values, ULONG*) override {
        if (place == rules.size()) return S_FALSE;
        Rule* const object = new Rule;
        object->rule = rules[place++];
        values->vt = VT_DISPATCH;
        values->pdispVal = object;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

private:
    std::vector<FirewallRule> rules = FakeFirewall::Rules();
    std::size_t place = 0;
};

class RuleSet : public Automation<INetFwRules> {
public:
    HRESULT STDMETHODCALLTYPE Add(INetFwRule* added) override {
        FakeFirewall::Rules().push_back(static_cast<Rule*>(added)->rule);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Remove(BSTR name) override {
        std::erase_if(FakeFirewall::Rules(), [&](const FirewallRule& rule) { return rule.name == name; });
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get__NewEnum(IUnknown** walk) override {
        *walk = new RuleWalk;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_Count(LONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Item(BSTR name, INetFwRule** rule) override {
        const auto& rules = FakeFirewall::Rules();
        const auto found = std::ranges::find(rules, std::wstring(name), &FirewallRule::name);
        if (found == rules.end()) return HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
        Rule* const object = new Rule;
        object->rule = *found;
        *rule = object;
        return S_OK;
    }
};

class Policy2 : public Automation<INetFwPolicy2> {
public:
    HRESULT STDMETHODCALLTYPE get_Rules(INetFwRules** rules) override {
        *rules = new RuleSet;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_CurrentProfileTypes(LONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_FirewallEnabled(NET_FW_PROFILE_TYPE2, VARIANT_BOOL*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE put_FirewallEnabled(NET_FW_PROFILE_TYPE2, VARIANT_BOOL) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE get_ExcludedInterfaces(NET_FW_PROFILE_TYPE2, VARIANT*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE put_ExcludedInterfaces(NET_FW_PROFILE_TYPE2, VARIANT) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE get_BlockAllInboundTraffic(NET_FW_PROFILE_TYPE2, VARIANT_BOOL*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE put_BlockAllInboundTraffic(NET_FW_PROFILE_TYPE2, VARIANT_BOOL) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE get_NotificationsDisabled(NET_FW_PROFILE_TYPE2, VARIANT_BOOL*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE put_NotificationsDisabled(NET_FW_PROFILE_TYPE2, VARIANT_BOOL) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE get_UnicastResponsesToMulticastBroadcastDisabled(NET_FW_PROFILE_TYPE2,
                                                                               VARIANT_BOOL*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE put_UnicastResponsesToMulticastBroadcastDisabled(NET_FW_PROFILE_TYPE2,
                                                                               VARIANT_BOOL) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE get_ServiceRestriction(INetFwServiceRestriction**) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE EnableRuleGroup(LONG, BSTR, VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsRuleGroupEnabled(LONG, BSTR, VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE RestoreLocalFirewallDefaults() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_DefaultInboundAction(NET_FW_PROFILE_TYPE2, NET_FW_ACTION*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE put_DefaultInboundAction(NET_FW_PROFILE_TYPE2, NET_FW_ACTION) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE get_DefaultOutboundAction(NET_FW_PROFILE_TYPE2, NET_FW_ACTION*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE put_DefaultOutboundAction(NET_FW_PROFILE_TYPE2, NET_FW_ACTION) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE get_IsRuleGroupCurrentlyEnabled(BSTR, VARIANT_BOOL*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE get_LocalPolicyModifyState(NET_FW_MODIFY_STATE*) override { return E_NOTIMPL; }
};

class Program : public Automation<INetFwAuthorizedApplication> {
public:
    AuthorizedProgram program;

    HRESULT STDMETHODCALLTYPE put_Name(BSTR name) override { return Take(name, program.name); }
    HRESULT STDMETHODCALLTYPE put_ProcessImageFileName(BSTR path) override {
        return Take(path, program.path);
    }
    HRESULT STDMETHODCALLTYPE get_Name(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_ProcessImageFileName(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_IpVersion(NET_FW_IP_VERSION*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_IpVersion(NET_FW_IP_VERSION) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Scope(NET_FW_SCOPE*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Scope(NET_FW_SCOPE) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_RemoteAddresses(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_RemoteAddresses(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Enabled(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Enabled(VARIANT_BOOL) override { return E_NOTIMPL; }
};

class ProgramSet : public Automation<INetFwAuthorizedApplications> {
public:
    HRESULT STDMETHODCALLTYPE Add(INetFwAuthorizedApplication* added) override {
        FakeFirewall::Programs().push_back(static_cast<Program*>(added)->program);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Remove(BSTR path) override {
        std::erase_if(FakeFirewall::Programs(),
                      [&](const AuthorizedProgram& program) { return program.path == path; });
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_Count(LONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Item(BSTR path, INetFwAuthorizedApplication** program) override {
        const auto& programs = FakeFirewall::Programs();
        const auto found = std::ranges::find(programs, std::wstring(path), &AuthorizedProgram::path);
        if (found == programs.end()) return HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
        Program* const object = new Program;
        object->program = *found;
        *program = object;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get__NewEnum(IUnknown**) override { return E_NOTIMPL; }
};

class FirewallProfile : public Automation<INetFwProfile> {
public:
    HRESULT STDMETHODCALLTYPE get_AuthorizedApplications(INetFwAuthorizedApplications** programs) override {
        *programs = new ProgramSet;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_Type(NET_FW_PROFILE_TYPE*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_FirewallEnabled(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_FirewallEnabled(VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_ExceptionsNotAllowed(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_ExceptionsNotAllowed(VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_NotificationsDisabled(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_NotificationsDisabled(VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_UnicastResponsesToMulticastBroadcastDisabled(VARIANT_BOOL*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE put_UnicastResponsesToMulticastBroadcastDisabled(VARIANT_BOOL) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE get_RemoteAdminSettings(INetFwRemoteAdminSettings**) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE get_IcmpSettings(INetFwIcmpSettings**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_GloballyOpenPorts(INetFwOpenPorts**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Services(INetFwServices**) override { return E_NOTIMPL; }
};

class Policy : public Automation<INetFwPolicy> {
public:
    HRESULT STDMETHODCALLTYPE get_CurrentProfile(INetFwProfile** profile) override {
        *profile = new FirewallProfile;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetProfileByType(NET_FW_PROFILE_TYPE, INetFwProfile**) override {
        return E_NOTIMPL;
    }
};

class Manager : public Automation<INetFwMgr> {
public:
    HRESULT STDMETHODCALLTYPE get_LocalPolicy(INetFwPolicy** policy) override {
        *policy = new Policy;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_CurrentProfileType(NET_FW_PROFILE_TYPE*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE RestoreDefaults() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsPortAllowed(BSTR, NET_FW_IP_VERSION, LONG, BSTR, NET_FW_IP_PROTOCOL, VARIANT*,
                                            VARIANT*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE IsIcmpTypeAllowed(NET_FW_IP_VERSION, BSTR, BYTE, VARIANT*, VARIANT*) override {
        return E_NOTIMPL;
    }
};

}  // namespace

FakeFirewall::FakeFirewall()
    : registrations{RegisterFake<Policy2>(__uuidof(NetFwPolicy2)), RegisterFake<Rule>(__uuidof(NetFwRule)),
                    RegisterFake<Manager>(__uuidof(NetFwMgr)),
                    RegisterFake<Program>(__uuidof(NetFwAuthorizedApplication))} {
    Rules().clear();
    Programs().clear();
}

FakeFirewall::~FakeFirewall() {
    for (const DWORD registration : registrations) CoRevokeClassObject(registration);
}

std::vector<FirewallRule>& FakeFirewall::Rules() {
    static std::vector<FirewallRule> rules;
    return rules;
}

std::vector<AuthorizedProgram>& FakeFirewall::Programs() {
    static std::vector<AuthorizedProgram> programs;
    return programs;
}
