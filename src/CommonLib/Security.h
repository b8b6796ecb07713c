// Security attributes for the creation of system objects, and their application to existing ones.
#pragma once

#include <windows.h>

class Security {
public:
    Security() = default;
    Security(const Security&) = delete;
    Security& operator=(const Security&) = delete;
    virtual ~Security() = default;

    // Valid as long as this object.
    virtual SECURITY_ATTRIBUTES* getAttributes() { return &attributes; }

    // Puts the access list of the descriptor on a kernel object or on a registry key. Throws Win32Exception.
    virtual void doApply(HANDLE kernelObject);
    virtual void doApply(HKEY registryKey);

protected:
    SECURITY_ATTRIBUTES attributes{
        .nLength = sizeof(SECURITY_ATTRIBUTES), .lpSecurityDescriptor = nullptr, .bInheritHandle = TRUE};
};
