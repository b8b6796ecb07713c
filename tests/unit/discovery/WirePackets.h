// Builds the packets that devices answer with, the well-formed ones and the broken ones.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "standins/discovery/DnsMessage.h"
#include "standins/discovery/SnmpMessage.h"

namespace wire {

using discovery::Bytes;
using discovery::BytesView;
using discovery::DnsType;
using discovery::Oid;

// A value that a device holds: its encoded form.
Bytes OctetValue(std::string_view text);
Bytes NumberValue(std::int32_t number);
Bytes OidValue(const Oid& oid);
// What stands where version 2c has nothing more.
Bytes EndOfView();

struct SnmpAnswer {
    discovery::SnmpVersion version = discovery::SnmpVersion::V2c;
    std::string community = "public";
    std::int32_t requestId = 1;
    std::int32_t errorStatus = 0;
    std::int32_t errorIndex = 0;
    // Names with their encoded values.
    std::vector<std::pair<Oid, Bytes>> bindings;
};
Bytes SnmpPacket(const SnmpAnswer& answer);

// The request as a device reads it: its id, version and names. Fails the test where it is none.
discovery::SnmpMessage ReadSnmpQuestion(BytesView packet);

// A DNS answer, written without compression.
class DnsPacket {
public:
    explicit DnsPacket(std::uint16_t queryId, std::uint16_t answerFlags = 0x8400)
        : id(queryId), flags(answerFlags) {}

    DnsPacket& Pointer(const discovery::DnsName& name, const discovery::DnsName& target);
    DnsPacket& Service(const discovery::DnsName& name, const discovery::DnsName& host, std::uint16_t port);
    DnsPacket& Texts(const discovery::DnsName& name, const std::vector<std::string>& texts);
    DnsPacket& Address(const discovery::DnsName& name, BytesView address);
    DnsPacket& Record(const discovery::DnsName& name, std::uint16_t type, BytesView data);
    Bytes Packet() const;

private:
    std::uint16_t id;
    std::uint16_t flags;
    std::uint32_t count = 0;
    Bytes records;
};

Bytes NameBytes(const discovery::DnsName& name);

// An IPP answer to the request 9, with that status and those attributes of a printer, each made by the
// function below.
Bytes IppAttribute(std::uint8_t tag, BytesView name, BytesView value);
Bytes IppAnswer(const Bytes& attributes, std::uint16_t status = 0);

// The id and the names of the questions of a DNS packet.
std::uint16_t DnsQueryId(BytesView packet);
std::vector<discovery::DnsQuestion> DnsQuestions(BytesView packet);

}  // namespace wire
