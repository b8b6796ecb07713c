#include "standins/discovery/SnmpMessage.h"

#include <limits>
#include <utility>

namespace discovery {

namespace {

// Numbers of the types counter, gauge, time ticks and counter of 64 bits: never negative.
enum ApplicationTag : std::uint8_t {
    ipAddress = 0x40,
    counter = 0x41,
    gauge = 0x42,
    timeTicks = 0x43,
    counter64 = 0x46
};

std::int64_t Counter(BytesView contents) {
    // A set high bit takes a zero byte before it; a ninth byte says only that.
    if (contents.size() == sizeof(std::int64_t) + 1 && contents.front() == '\0') contents.remove_prefix(1);
    return BerInteger(contents);
}

SnmpValue ValueOf(const BerValue& value) {
    switch (value.tag) {
        case static_cast<std::uint8_t>(BerTag::Integer):
            return BerInteger(value.contents);
        case static_cast<std::uint8_t>(BerTag::Octets):
        case ApplicationTag::ipAddress:
            return Bytes(value.contents);
        case static_cast<std::uint8_t>(BerTag::ObjectId):
            return BerOid(value.contents);
        case ApplicationTag::counter:
        case ApplicationTag::gauge:
        case ApplicationTag::timeTicks:
        case ApplicationTag::counter64:
            return Counter(value.contents);
        default:
            return {};
    }
}

SnmpBinding ReadBinding(BytesView contents) {
    ByteReader reader(contents);
    SnmpBinding binding;
    binding.name = BerOid(ReadBer(reader, BerTag::ObjectId));
    binding.value = ValueOf(ReadBer(reader));
    return binding;
}

std::int32_t ReadRequestId(ByteReader& reader) {
    const std::int64_t number = BerInteger(ReadBer(reader, BerTag::Integer));
    if (number < std::numeric_limits<std::int32_t>::min() ||
        number > std::numeric_limits<std::int32_t>::max()) {
        throw Malformed();
    }
    return static_cast<std::int32_t>(number);
}

void ReadPdu(BytesView contents, SnmpMessage& message) {
    ByteReader reader(contents);
    message.requestId = ReadRequestId(reader);
    message.errorStatus = BerInteger(ReadBer(reader, BerTag::Integer));
    message.errorIndex = BerInteger(ReadBer(reader, BerTag::Integer));
    ByteReader bindings(ReadBer(reader, BerTag::Sequence));
    while (!bindings.IsAtEnd()) {
        message.bindings.push_back(ReadBinding(ReadBer(bindings, BerTag::Sequence)));
    }
}

SnmpMessage ReadMessage(BytesView packet) {
    ByteReader outer(packet);
    ByteReader reader(ReadBer(outer, BerTag::Sequence));
    SnmpMessage message;
    const std::int64_t version = BerInteger(ReadBer(reader, BerTag::Integer));
    if (version != static_cast<int>(SnmpVersion::V1) && version != static_cast<int>(SnmpVersion::V2c)) {
        throw Malformed();
    }
    message.version = static_cast<SnmpVersion>(version);
    message.community = ReadBer(reader, BerTag::Octets);
    const BerValue pdu = ReadBer(reader);
    if (pdu.tag != static_cast<std::uint8_t>(SnmpPdu::Response)) throw Malformed();
    message.pdu = SnmpPdu::Response;
    ReadPdu(pdu.contents, message);
    return message;
}

}  // namespace

Bytes EncodeSnmpQuestion(const SnmpMessage& message) {
    Bytes bindings;
    for (const SnmpBinding& binding : message.bindings) {
        bindings += MakeBer(BerTag::Sequence, MakeBerOid(binding.name) + MakeBer(BerTag::Null, {}));
    }
    const Bytes pdu = MakeBerInteger(message.requestId) + MakeBerInteger(0) + MakeBerInteger(0) +
                      MakeBer(BerTag::Sequence, bindings);
    return MakeBer(BerTag::Sequence, MakeBerInteger(static_cast<int>(message.version)) +
                                         MakeBer(BerTag::Octets, message.community) +
                                         MakeBer(static_cast<std::uint8_t>(message.pdu), pdu));
}

std::optional<SnmpMessage> DecodeSnmpResponse(BytesView packet) {
    try {
        return ReadMessage(packet);
    } catch (const Malformed&) {
        return std::nullopt;
    }
}

}  // namespace discovery
