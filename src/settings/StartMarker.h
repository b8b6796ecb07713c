// The start marker is the UTF-8 byte order mark as it looks when it was read one byte per character: the
// characters U+00EF, U+00BB, U+00BF. Both functions may run on any thread.
#pragma once

#include <string>
#include <string_view>

// Returns true if the document holds the marker anywhere.
bool HoldsStartMarker(std::wstring_view document);

// Returns the document for the log: split at every "<", without the pieces that are exactly the marker, and
// with one "<" in front of each other piece. So a document that begins with "<" comes back with "<<".
std::wstring StripStartMarker(std::wstring_view document);
