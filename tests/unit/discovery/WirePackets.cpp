#include "tests/unit/discovery/WirePackets.h"

#include <gtest/gtest.h>

namespace wire {

using discovery::AppendBigEndian;
using discovery::BerTag;
using discovery::ByteReader;
using discovery::DnsName;
using discovery::MakeBer;
using discovery::MakeBerInteger;
using discovery::MakeBerOid;

namespace {

constexpr std::uint16_t internet = 1;

}  // namespace

Bytes OctetValue(std::string_view text) {
    return MakeBer(BerTag::Octets, text);
}

Bytes NumberValue(std::int32_t number) {
    return MakeBerInteger(number);
}

Bytes OidValue(const Oid& oid) {
    return MakeBerOid(oid);
}

Bytes EndOfView() {
    constexpr std::uint8_t endOfMibView = 0x82;
    return MakeBer(endOfMibView, {});
}

Bytes SnmpPacket(const SnmpAnswer& answer) {
    Bytes bindings;
    for (const auto& [name, value] : answer.bindings) {
        bindings += MakeBer(BerTag::Sequence, MakeBerOid(name) + value);
    }
    const Bytes pdu = MakeBerInteger(answer.requestId) + MakeBerInteger(answer.errorStatus) +
                      MakeBerInteger(answer.errorIndex) + MakeBer(BerTag::Sequence, bindings);
    return MakeBer(BerTag::Sequence,
                   MakeBerInteger(static_cast<int>(answer.version)) +
                       MakeBer(BerTag::Octets, answer.community) +
                       MakeBer(static_cast<std::uint8_t>(discovery::SnmpPdu::Response), pdu));
}

discovery::SnmpMessage ReadSnmpQuestion(BytesView packet) {
    ByteReader outer(packet);
    ByteReader reader(ReadBer(outer, BerTag::Sequence));
    discovery::SnmpMessage message;
    message.version =
        static_cast<discovery::SnmpVersion>(discovery::BerInteger(ReadBer(reader, BerTag::Integer)));
    message.community = ReadBer(reader, BerTag::Octets);
    const discovery::BerValue pdu = ReadBer(reader);
    EXPECT_EQ(pdu.tag, static_cast<std::uint8_t>(discovery::SnmpPdu::GetNext));
    ByteReader fields(pdu.contents);
    message.requestId = static_cast<std::int32_t>(discovery::BerInteger(ReadBer(fields, BerTag::Integer)));
    ReadBer(fields, BerTag::Integer);
    ReadBer(fields, BerTag::Integer);
    ByteReader bindings(ReadBer(fields, BerTag::Sequence));
    while (!bindings.IsAtEnd()) {
        ByteReader binding(ReadBer(bindings, BerTag::Sequence));
        message.bindings.push_back(
            {.name = discovery::BerOid(ReadBer(binding, BerTag::ObjectId)), .value = {}});
    }
    return message;
}

Bytes NameBytes(const DnsName& name) {
    Bytes bytes;
    for (const std::string& label : name) {
        AppendBigEndian(bytes, static_cast<std::uint32_t>(label.size()), 1);
        bytes += label;
    }
    return bytes + '\0';
}

DnsPacket& DnsPacket::Record(const DnsName& name, std::uint16_t type, BytesView data) {
    ++count;
    records += NameBytes(name);
    AppendBigEndian(records, type, 2);
    AppendBigEndian(records, internet, 2);
    AppendBigEndian(records, 120, 4);
    AppendBigEndian(records, static_cast<std::uint32_t>(data.size()), 2);
    records += data;
    return *this;
}

DnsPacket& DnsPacket::Pointer(const DnsName& name, const DnsName& target) {
    return Record(name, static_cast<std::uint16_t>(DnsType::Ptr), NameBytes(target));
}

DnsPacket& DnsPacket::Service(const DnsName& name, const DnsName& host, std::uint16_t port) {
    Bytes data(4, '\0');
    AppendBigEndian(data, port, 2);
    return Record(name, static_cast<std::uint16_t>(DnsType::Srv), data + NameBytes(host));
}

DnsPacket& DnsPacket::Texts(const DnsName& name, const std::vector<std::string>& texts) {
    Bytes data;
    for (const std::string& text : texts) {
        AppendBigEndian(data, static_cast<std::uint32_t>(text.size()), 1);
        data += text;
    }
    return Record(name, static_cast<std::uint16_t>(DnsType::Txt), data);
}

DnsPacket& DnsPacket::Address(const DnsName& name, BytesView address) {
    const DnsType type = address.size() == 4 ? DnsType::A : DnsType::Aaaa;
    return Record(name, static_cast<std::uint16_t>(type), address);
}

Bytes DnsPacket::Packet() const {
    Bytes packet;
    for (const std::uint32_t number : {std::uint32_t{id}, std::uint32_t{flags}, 0U, count, 0U, 0U}) {
        AppendBigEndian(packet, number, 2);
    }
    return packet + records;
}

Bytes IppAttribute(std::uint8_t tag, BytesView name, BytesView value) {
    Bytes bytes(1, static_cast<char>(tag));
    for (const BytesView text : {name, value}) {
        AppendBigEndian(bytes, static_cast<std::uint32_t>(text.size()), 2);
        bytes += text;
    }
    return bytes;
}

Bytes IppAnswer(const Bytes& attributes, std::uint16_t status) {
    Bytes bytes("\1\1", 2);
    AppendBigEndian(bytes, status, 2);
    AppendBigEndian(bytes, 9, 4);
    return bytes + '\1' + IppAttribute(0x47, "attributes-charset", "utf-8") + '\4' + attributes + '\3';
}

std::uint16_t DnsQueryId(BytesView packet) {
    return ByteReader(packet).Number16();
}

std::vector<discovery::DnsQuestion> DnsQuestions(BytesView packet) {
    ByteReader reader(packet);
    reader.Take(4);
    std::vector<discovery::DnsQuestion> questions(reader.Number16());
    reader.Take(6);
    for (discovery::DnsQuestion& question : questions) {
        while (const std::uint8_t size = reader.Byte()) question.name.emplace_back(reader.Take(size));
        question.type = static_cast<DnsType>(reader.Number16());
        EXPECT_EQ(reader.Number16(), 0x8001);
    }
    return questions;
}

}  // namespace wire
