// Texts of the network as the wizard can show them.
#pragma once

#include <string>
#include <string_view>

namespace discovery {

// The longest text of a device that is handed on, in characters.
inline constexpr std::size_t longestPlainText = 128;

// The text of UTF-8 bytes, at most that long and without what could be taken for more than text: control
// characters, marks of direction, and the characters that separate elements and entries in the documents
// ("<", ">" and ";"), each of which becomes a blank. Runs of blanks become one, none stay at the edges. Bytes
// that are no UTF-8 are taken for Latin-1, as old devices send it.
std::wstring PlainText(std::string_view bytes);

}  // namespace discovery
