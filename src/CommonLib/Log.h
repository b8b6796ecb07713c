// The records of the installer itself. What only computes writes them too: whoever links it brings the place
// that they go to, as the logs of the program do.
#pragma once

#include <string_view>

namespace LogLevel {
inline constexpr std::wstring_view None;
inline constexpr std::wstring_view Error = L"ERROR";
inline constexpr std::wstring_view Success = L"SUCCESS";
}  // namespace LogLevel

// On any thread. A record that cannot be kept is lost without a report.
void LogBasic(std::wstring_view message, std::wstring_view level = LogLevel::None);
void LogAdvanced(std::wstring_view message, std::wstring_view level = LogLevel::None);
