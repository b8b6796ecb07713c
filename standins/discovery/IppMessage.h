// Messages of the Internet Printing Protocol (RFC 8010, RFC 8011), as far as asking a printer what it is
// needs.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standins/discovery/Bytes.h"

namespace discovery {

// The values of an attribute as text: numbers in decimal, truth as "true" and "false".
using IppAttributes = std::map<std::string, std::vector<std::string>, std::less<>>;

// A Get-Printer-Attributes request for the attributes named, for the printer of that address
// (ipp://host/path).
Bytes EncodeIppQuestion(std::int32_t requestId, std::string_view printer,
                        const std::vector<std::string_view>& attributes);
// The attributes of a printer out of the answer to that request; nothing where it is none, answers another
// request or tells of an error. Values inside collections are left out.
std::optional<IppAttributes> DecodeIppResponse(std::int32_t requestId, BytesView message);

// The first value of an attribute, else empty.
std::string FirstValue(const IppAttributes& attributes, std::string_view name);

}  // namespace discovery
