// The two forms in which printers say what they are as keys with values.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "standins/discovery/Bytes.h"

namespace discovery {

// Values by their keys, which are in small ASCII letters.
using KeyedTexts = std::map<std::string, std::string, std::less<>>;

// The value of the first of the keys that has one, else empty.
std::string FirstOf(const KeyedTexts& texts, std::initializer_list<std::string_view> keys);

// The strings of a TXT record (RFC 6763, section 6): "key=value" each. Of one key the first counts; a string
// without
// "=" is a key without a value, one that begins with it nothing.
KeyedTexts ReadTxtRecord(const std::vector<Bytes>& strings);

// A device id of IEEE 1284: "KEY:value;" one after the other, in any order, with or without the two bytes of
// its length in front. Long keys count as their short forms (MFG, MDL, CMD, CLS, DES).
KeyedTexts ReadDeviceId(BytesView deviceId);

// Returns true if a list of words with commas between holds the word, in any case.
bool HasWord(std::string_view list, std::string_view word);

}  // namespace discovery
