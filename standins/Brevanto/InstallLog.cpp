#include "standins/Brevanto/InstallLog.h"

#include <windows.h>

#include <msi.h>

#include <algorithm>
#include <mutex>
#include <string_view>

#include "CommonLib/SystemText.h"
#include "CommonLib/Vendor.h"

namespace brevanto {
namespace {

constexpr DWORD everything = INSTALLLOGMODE_FATALEXIT | INSTALLLOGMODE_ERROR | INSTALLLOGMODE_WARNING |
                             INSTALLLOGMODE_USER | INSTALLLOGMODE_INFO | INSTALLLOGMODE_RESOLVESOURCE |
                             INSTALLLOGMODE_OUTOFDISKSPACE | INSTALLLOGMODE_ACTIONSTART |
                             INSTALLLOGMODE_ACTIONDATA | INSTALLLOGMODE_COMMONDATA |
                             INSTALLLOGMODE_PROPERTYDUMP | INSTALLLOGMODE_VERBOSE;

std::mutex nameLock;

std::wstring& LogName() {
    static std::wstring name;
    return name;
}

bool IsUnfitForName(wchar_t unit) {
    return unit < L' ' || std::wstring_view(L"\\/:*?\"<>|").find(unit) != std::wstring_view::npos;
}

}  // namespace

void SetInstallLogName(const std::wstring& name) {
    const std::lock_guard guard(nameLock);
    LogName() = name;
}

std::wstring InstallLogPath(const std::wstring& name) {
    std::wstring vendor = name.empty() ? unnamedVendor : name;
    std::ranges::replace_if(vendor, IsUnfitForName, L'_');
    return ExpandEnvironment(L"%ALLUSERSPROFILE%\\") + vendor + L" Install Logs\\Packages.log";
}

InstallLogScope::InstallLogScope() {
    std::wstring path;
    {
        const std::lock_guard guard(nameLock);
        path = InstallLogPath(LogName());
    }
    CreateDirectoryW(path.substr(0, path.rfind(L'\\')).c_str(), nullptr);
    MsiEnableLogW(everything, path.c_str(), INSTALLLOGATTRIBUTES_APPEND);
}

InstallLogScope::~InstallLogScope() {
    MsiEnableLogW(0, nullptr, 0);
}

}  // namespace brevanto
