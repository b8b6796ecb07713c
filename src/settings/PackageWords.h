// The words by which packages say what they are.
#pragma once

#include <string>

// Returns the value of a flag.
inline std::wstring FlagText(bool flag) {
    return flag ? L"true" : L"false";
}

// Device types, the property DEVICETYPE; a page says with the same words what discovery is to look for.
namespace DeviceType {

inline constexpr wchar_t PRINTER[] = L"PRINTER";
inline constexpr wchar_t SCANNER[] = L"SCANNER";
inline constexpr wchar_t FAX[] = L"FAX";

}  // namespace DeviceType

// Identifiers of the drivers that are no printer drivers, the property DRIVERID.
namespace DriverId {

inline constexpr wchar_t SCAN[] = L"SCAN";
inline constexpr wchar_t FAX[] = L"Fax";

}  // namespace DriverId
