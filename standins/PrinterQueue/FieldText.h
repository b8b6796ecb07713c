// Fields of a text that the library writes for itself: elements as in a tag document, with values that may
// hold anything.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace printerqueue {

// Returns the field as text. Fields may follow one another, and a value may be a text of fields.
std::wstring WriteField(std::wstring_view name, std::wstring_view value);

// Returns the value of the first field of that name, empty if there is none.
std::wstring ReadField(std::wstring_view text, std::wstring_view name);

// Returns the values of all fields of that name, in their order.
std::vector<std::wstring> ReadFields(std::wstring_view text, std::wstring_view name);

}  // namespace printerqueue
