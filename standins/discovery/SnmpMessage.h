// Messages of the Simple Network Management Protocol, versions 1 and 2c (RFC 1157, RFC 1901, RFC 3416).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "standins/discovery/Ber.h"

namespace discovery {

enum class SnmpVersion : std::uint8_t { V1 = 0, V2c = 1 };
enum class SnmpPdu : std::uint8_t { GetNext = 0xA1, Response = 0xA2 };

// A number, a text of bytes, an object identifier, or nothing (also for what the device does not have).
using SnmpValue = std::variant<std::monostate, std::int64_t, Bytes, Oid>;

struct SnmpBinding {
    Oid name;
    SnmpValue value;
};

struct SnmpMessage {
    SnmpVersion version = SnmpVersion::V2c;
    Bytes community;
    SnmpPdu pdu = SnmpPdu::GetNext;
    std::int32_t requestId = 0;
    // 0 where all went well; else the place of the binding that did not, counted from 1.
    std::int64_t errorStatus = 0;
    std::int64_t errorIndex = 0;
    std::vector<SnmpBinding> bindings;
};

// A question: its bindings go without their values, its error fields as 0.
Bytes EncodeSnmpQuestion(const SnmpMessage& message);
// Reads an answer; nothing where the bytes are none. Takes time in proportion to the bytes.
std::optional<SnmpMessage> DecodeSnmpResponse(BytesView packet);

}  // namespace discovery
