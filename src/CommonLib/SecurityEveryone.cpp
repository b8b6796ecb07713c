#include "CommonLib/SecurityEveryone.h"

#include "CommonLib/Win32Exception.h"

namespace {

constexpr wchar_t everyoneSource[] = L"CommonLib/SecurityEveryone";
constexpr DWORD accessEntryRevision = 2;

void Require(BOOL succeeded, const wchar_t* message, std::int32_t line = __builtin_LINE()) {
    if (succeeded == FALSE) throw Win32Exception(message, GetLastError(), everyoneSource, line);
}

constexpr wchar_t descriptorFailed[] =
    L"SecurityEveryone::SecurityEveryone() InitializeSecurityDescriptor failed";

}  // namespace

SecurityEveryone::SecurityEveryone() : descriptor(LocalAlloc(LPTR, SECURITY_DESCRIPTOR_MIN_LENGTH)) {
    Require(InitializeSecurityDescriptor(descriptor.get(), SECURITY_DESCRIPTOR_REVISION), descriptorFailed);
    SID_IDENTIFIER_AUTHORITY world = {SECURITY_WORLD_SID_AUTHORITY};
    Require(AllocateAndInitializeSid(&world, 1, SECURITY_WORLD_RID, 0, 0, 0, 0, 0, 0, 0, sid.put()),
            L"SecurityEveryone::setSecurityIdEveryone() AllocateAndInitializeSid failed");
    Require(IsValidSid(sid.get()), L"SecurityEveryone::SecurityEveryone() IsValidSid failed");
    AllowEveryone();
    attributes.lpSecurityDescriptor = descriptor.get();
}

// By design: the failures here carry the text of the descriptor's own failure.
void SecurityEveryone::AllowEveryone() {
    acl.resize(sizeof(ACL) + sizeof(ACCESS_ALLOWED_ACE) - sizeof(DWORD) + GetLengthSid(sid.get()));
    auto* const list = reinterpret_cast<ACL*>(acl.data());
    Require(InitializeAcl(list, static_cast<DWORD>(acl.size()), accessEntryRevision), descriptorFailed);
    Require(AddAccessAllowedAce(list, accessEntryRevision, GENERIC_ALL, sid.get()), descriptorFailed);
    Require(SetSecurityDescriptorDacl(descriptor.get(), TRUE, list, FALSE), descriptorFailed);
}
