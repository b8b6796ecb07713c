// The values of the tag INSTALL_STATUS, which says how the run went. A good run leaves it empty.
#pragma once

#include <string_view>

namespace InstallStatus {

inline constexpr std::wstring_view CANCELED = L"CANCELED";
inline constexpr std::wstring_view FAILED = L"FAILED";
inline constexpr std::wstring_view NOT_SUPPORTED = L"NOT_SUPPORTED";

}  // namespace InstallStatus
