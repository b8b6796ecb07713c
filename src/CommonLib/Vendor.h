// The vendor of a package that names none: it stands in paths, keys and names where the vendor's name would.
#pragma once

inline constexpr wchar_t unnamedVendor[] = L"Printer";
