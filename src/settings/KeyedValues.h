// Values that bring their keys along.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

// Reads values of the form key, separator, value into a map. The first separator counts. Values that do not
// hold the separator are left out, and the first entry of a key is kept. An empty separator is found at the
// start of every non-empty value. May run on any thread.
std::map<std::wstring, std::wstring> KeyedValues(const std::vector<std::wstring>& values,
                                                 std::wstring_view separator);
