// The names by which a page can be gone to; most pages have none.
#pragma once

namespace PageName {

inline constexpr wchar_t addPort[] = L"Add Port Dialog";
inline constexpr wchar_t progress[] = L"Progress Dialog";
inline constexpr wchar_t coreFinish[] = L"Core Finish Dialog";
inline constexpr wchar_t finish[] = L"Finish Dialog";

}  // namespace PageName
