#include "CommonLib/Security.h"

#include <aclapi.h>

#include "CommonLib/Win32Exception.h"

namespace {

constexpr wchar_t securitySource[] = L"CommonLib/Security";

}  // namespace

void Security::doApply(HANDLE kernelObject) {
    if (SetKernelObjectSecurity(kernelObject, DACL_SECURITY_INFORMATION, attributes.lpSecurityDescriptor) ==
        FALSE) {
        throw Win32Exception(L"Security::doApply() SetKernelObjectSecurity failed ", GetLastError(),
                             securitySource);
    }
}

void Security::doApply(HKEY registryKey) {
    BOOL present = FALSE;
    BOOL defaulted = FALSE;
    PACL list = nullptr;
    if (GetSecurityDescriptorDacl(attributes.lpSecurityDescriptor, &present, &list, &defaulted) == FALSE) {
        throw Win32Exception(L"Security::doApply() GetSecurityDescriptorDacl failed ", GetLastError(),
                             securitySource);
    }
    const DWORD code = SetSecurityInfo(registryKey, SE_REGISTRY_KEY, DACL_SECURITY_INFORMATION, nullptr,
                                       nullptr, list, nullptr);
    if (code != ERROR_SUCCESS) {
        throw Win32Exception(L"Security::doApply() SetSecurityInfo failed ", code, securitySource);
    }
}
