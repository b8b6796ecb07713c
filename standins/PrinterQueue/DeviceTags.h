// Tags of a device that the library reads beside those of the wizard: each stands for the package's property
// of the same meaning.
#pragma once

#include "settings/TagName.h"

namespace printerqueue::DeviceTag {

inline constexpr DocumentTag PROTOCOL(L"PROTOCOL");
inline constexpr DocumentTag PORT_NUMBER(L"PORT_NUMBER");
inline constexpr DocumentTag LPR_QUEUE(L"LPR_QUEUE");
inline constexpr DocumentTag LOCATION(L"LOCATION");
inline constexpr DocumentTag COMMENT(L"COMMENT");

// The values of PROTOCOL: this one, and anything else for raw data.
inline constexpr wchar_t LPR[] = L"LPR";

// What print servers call the queue of a device that has one only.
inline constexpr wchar_t usualLprQueue[] = L"lp";

}  // namespace printerqueue::DeviceTag
