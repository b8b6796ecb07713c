// Which makers' devices a package may be limited to.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace discovery {

// Names of makers by the number that a package has in OEMBYTE.
using OemTable = std::map<int, std::vector<std::wstring>>;

// Reads lines of the form "number = maker, maker"; numbers are decimal, or hexadecimal after "0x". Empty
// lines, those that begin with "#", and those that cannot be read are passed over.
OemTable ReadOemTable(std::wstring_view text);

// The makers for the text of an OEMBYTE element; none, which stands for all, where it names no row.
std::vector<std::wstring> MakersOf(const OemTable& table, std::wstring_view oemByte);

}  // namespace discovery
