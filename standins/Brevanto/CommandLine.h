// The installer's command line for a command document.
#pragma once

#include <string>
#include <string_view>

namespace brevanto {

// Turns a command document into the installer's command line.
//
// Each outer element with the name of a public property (capitals, digits, underscores) becomes that
// property, its value quoted as a whole, so that no text of a value can be taken for another property. Of
// two elements of one name the first counts, and an element that never closes ends the reading.
// TAG_REINSTALL with the value "true" becomes a reinstall from the package; properties that steer the
// installer itself are not taken from a document. A restart is always left to the caller.
std::wstring BuildCommandLine(std::wstring_view commandDocument);

}  // namespace brevanto
