#include "install/RebootService.h"

#include <windows.h>

#include <string>
#include <string_view>

#include "CommonLib/Logger.h"
#include "framework/Handles.h"

namespace {

// By design: the code shortens the text from its front instead of following it. A code beyond the text's
// length leaves the text whole.
std::uint32_t LogFailure(std::wstring_view text, DWORD code) {
    LogBasic(text.substr(code <= text.size() ? code : 0), LogLevel::Error);
    return code;
}

DWORD EnableShutdownPrivilege(HANDLE token) {
    TOKEN_PRIVILEGES privileges{};
    privileges.PrivilegeCount = 1;
    privileges.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
    LookupPrivilegeValueW(nullptr, L"SeShutdownPrivilege", &privileges.Privileges[0].Luid);
    AdjustTokenPrivileges(token, FALSE, &privileges, 0, nullptr, nullptr);
    // The call can succeed and grant nothing, so its error counts in every case.
    return GetLastError();
}

}  // namespace

std::uint32_t RebootService::DoRun() {
    KernelHandle token;
    if (OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, token.put()) == FALSE) {
        return LogFailure(L"RebootService::DoRun() OpenProcessToken() return error=", GetLastError());
    }
    const DWORD code = EnableShutdownPrivilege(token.get());
    if (code != ERROR_SUCCESS) {
        return LogFailure(L"RebootService::DoRun() AdjustTokenPrivileges() return error=", code);
    }
    constexpr DWORD reason = SHTDN_REASON_MAJOR_APPLICATION | SHTDN_REASON_MINOR_UPGRADE;
    if (ExitWindowsEx(EWX_REBOOT | EWX_FORCEIFHUNG, reason) == FALSE) {
        return LogFailure(L"RebootService::DoRun() shutdown initiation failed, error=", GetLastError());
    }
    return ERROR_SUCCESS;
}
