// The filters by which the program picks packages from its catalogue.
#pragma once

#include <string_view>

// What a filter may ask a record for.
namespace FilterName {

inline constexpr wchar_t ISOPTIONAL[] = L"ISOPTIONAL";
inline constexpr wchar_t ISINSTALLED[] = L"ISINSTALLED";
inline constexpr wchar_t ISSELECTED[] = L"ISSELECTED";
inline constexpr wchar_t DEVICETYPE[] = L"DEVICETYPE";

}  // namespace FilterName

namespace PackageFilter {

inline constexpr std::wstring_view selected = L"<ISSELECTED>true</ISSELECTED>";
inline constexpr std::wstring_view selectedForCoreRun =
    L"<ISOPTIONAL>false</ISOPTIONAL><ISSELECTED>true</ISSELECTED>";
inline constexpr std::wstring_view selectedForOptionalRun =
    L"<ISOPTIONAL>true</ISOPTIONAL><ISSELECTED>true</ISSELECTED>";

}  // namespace PackageFilter
