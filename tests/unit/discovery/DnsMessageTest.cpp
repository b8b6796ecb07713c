#include <gmock/gmock.h>

#include "standins/discovery/DnsMessage.h"
#include "tests/unit/discovery/WirePackets.h"

namespace {

using discovery::Bytes;
using discovery::BytesView;
using discovery::DecodeDnsResponse;
using discovery::DnsName;
using discovery::DnsType;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const DnsName type{"_ipp", "_tcp", "local"};
const DnsName instance{"Loom 3.10", "_ipp", "_tcp", "local"};
const DnsName host{"Loom", "local"};

constexpr std::size_t headerSize = 12;

// An answer of one record whose name is those bytes.
Bytes AnswerNamed(BytesView name) {
    Bytes packet("\0\7\x84\0\0\0\0\1\0\0\0\0", headerSize);
    return packet.append(name).append("\0\1\0\1\0\0\0\0\0\4\1\2\3\4", 14);
}

TEST(DnsMessageTest, WritesAQuestionForTheSenderAlone) {
    const Bytes expected("\x12\x34\0\0\0\1\0\0\0\0\0\0\4_ipp\4_tcp\5local\0\0\x0C\x80\1", 33);
    EXPECT_EQ(discovery::EncodeDnsQuery(0x1234, {{type, DnsType::Ptr}}), expected);
}

TEST(DnsMessageTest, ReadsTheRecordsOfAService) {
    const Bytes packet = wire::DnsPacket(7)
                             .Pointer(type, instance)
                             .Service(instance, host, 631)
                             .Texts(instance, {"rp=ipp/print", ""})
                             .Address(host, Bytes("\xC0\0\2\7", 4))
                             .Record(host, 47, "ignored")
                             .Packet();
    const auto response = DecodeDnsResponse(packet);
    ASSERT_TRUE(response);
    EXPECT_EQ(response->id, 7);
    ASSERT_THAT(response->records, SizeIs(4));
    EXPECT_EQ(std::get<DnsName>(response->records[0].data), instance);
    EXPECT_EQ(std::get<discovery::DnsService>(response->records[1].data).host, host);
    EXPECT_EQ(std::get<discovery::DnsService>(response->records[1].data).port, 631);
    EXPECT_THAT(std::get<discovery::DnsTexts>(response->records[2].data).strings,
                ElementsAre("rp=ipp/print", ""));
    EXPECT_EQ(std::get<Bytes>(response->records[3].data), Bytes("\xC0\0\2\7", 4));
}

TEST(DnsMessageTest, FollowsPointersBackward) {
    // The question has the name "loom.local" at place 12; the record's is "a" and what stands there.
    Bytes packet("\0\7\x84\0\0\1\0\1\0\0\0\0", headerSize);
    packet += wire::NameBytes(host) + Bytes("\0\1\0\1", 4);
    packet += Bytes("\1a\xC0\x0C\0\1\0\1\0\0\0\0\0\4\1\2\3\4", 18);
    const auto response = DecodeDnsResponse(packet);
    ASSERT_TRUE(response);
    ASSERT_THAT(response->records, SizeIs(1));
    EXPECT_THAT(response->records[0].name, ElementsAre("a", "Loom", "local"));
}

struct BrokenName {
    const char* name;
    Bytes bytes;
};

class BrokenDnsNameTest : public testing::TestWithParam<BrokenName> {};

TEST_P(BrokenDnsNameTest, ReadsNothing) {
    EXPECT_FALSE(DecodeDnsResponse(AnswerNamed(GetParam().bytes)));
}

Bytes LongName() {
    Bytes name;
    for (int count = 0; count < 5; ++count) name += '\x3F' + std::string(63, 'x');
    return name + '\0';
}

INSTANTIATE_TEST_SUITE_P(Names, BrokenDnsNameTest,
                         testing::Values(BrokenName{"APointerToItself", "\xC0\x0C"},
                                         BrokenName{"APointerForward", "\xC0\x20"},
                                         BrokenName{"APointerBeyondThePacket", "\xFF\xFF"},
                                         BrokenName{"ALoopOfTwo", Bytes("\1a\xC0\x10\1b\xC0\x0C", 8)},
                                         BrokenName{"ALongName", LongName()},
                                         BrokenName{"ALabelOfAnUnknownKind", '\x40' + Bytes(64, 'x') + '\0'}),
                         [](const testing::TestParamInfo<BrokenName>& broken) {
                             return std::string(broken.param.name);
                         });

// An answer whose last record has a name of so many pointers: the others stand one behind the other in the
// data of the record before it, each leads to the one before it, and the first to an empty name.
Bytes AnswerThroughPointers(std::size_t pointers) {
    Bytes packet("\0\7\x84\0\0\0\0\2\0\0\0\0", headerSize);
    packet += Bytes("\0\0\x2F\0\1\0\0\0\0", 9);
    discovery::AppendBigEndian(packet, static_cast<std::uint32_t>(2 * pointers - 1), 2);
    std::size_t target = packet.size();
    packet += '\0';
    for (std::size_t count = 0; count < pointers; ++count) {
        const std::size_t place = packet.size();
        packet += Bytes("\xC0", 1) + static_cast<char>(target);
        target = place;
    }
    return packet + Bytes("\0\1\0\1\0\0\0\0\0\4\1\2\3\4", 14);
}

TEST(DnsMessageTest, FollowsAFewPointersAndNoMore) {
    EXPECT_TRUE(DecodeDnsResponse(AnswerThroughPointers(16)));
    EXPECT_FALSE(DecodeDnsResponse(AnswerThroughPointers(17)));
}

TEST(DnsMessageTest, FollowsAPointerThatTakesBothItsBytes) {
    for (const std::uint32_t room : {256U, 512U}) {
        Bytes packet("\0\7\x84\0\0\0\0\2\0\0\0\0", headerSize);
        packet += Bytes("\0\0\x2F\0\1\0\0\0\0", 9);
        discovery::AppendBigEndian(packet, room + 3, 2);
        packet += Bytes(room, 'x');
        const auto place = static_cast<std::uint32_t>(packet.size());
        packet += Bytes("\1a\0", 3);
        discovery::AppendBigEndian(packet, 0xC000 | place, 2);
        packet += Bytes("\0\1\0\1\0\0\0\0\0\4\1\2\3\4", 14);
        const auto response = DecodeDnsResponse(packet);
        ASSERT_TRUE(response);
        ASSERT_THAT(response->records, SizeIs(1));
        EXPECT_THAT(response->records[0].name, ElementsAre("a"));
    }
}

TEST(DnsMessageTest, ReadsANameThatIsAsLongAsCanBe) {
    const Bytes longest = '\x3F' + Bytes(63, 'x');
    EXPECT_TRUE(DecodeDnsResponse(AnswerNamed(longest + longest + longest + '\x3E' + Bytes(62, 'x') + '\0')));
    EXPECT_FALSE(DecodeDnsResponse(AnswerNamed(longest + longest + longest + longest + '\0')));
}

TEST(DnsMessageTest, ReadsTheRecordsOfAllSections) {
    Bytes packet =
        wire::DnsPacket(7).Pointer(type, instance).Texts(instance, {}).Address(host, Bytes(4, '\1')).Packet();
    packet.replace(6, 6, Bytes("\0\1\0\1\0\1", 6));
    const auto response = DecodeDnsResponse(packet);
    ASSERT_TRUE(response);
    EXPECT_THAT(response->records, SizeIs(3));
}

TEST(DnsMessageTest, PassesTheQuestionsOver) {
    const Bytes question = wire::NameBytes(host) + Bytes("\0\1\0\1", 4);
    const auto response =
        DecodeDnsResponse(Bytes("\0\7\x84\0\0\3\0\1\0\0\0\0", headerSize) + question + question + question +
                          question + Bytes("\0\0\0\0\0\4\1\2\3\4", 10));
    ASSERT_TRUE(response);
    EXPECT_THAT(response->records, SizeIs(1));
}

TEST(DnsMessageTest, ReadsNoQuestionAndNoRefusal) {
    EXPECT_FALSE(DecodeDnsResponse(wire::DnsPacket(7, 0).Packet()));
    EXPECT_FALSE(DecodeDnsResponse(wire::DnsPacket(7, 0x8403).Packet()));
    EXPECT_TRUE(DecodeDnsResponse(wire::DnsPacket(7, 0x8400).Packet()));
}

TEST(DnsMessageTest, ReadsNothingOfWhatIsCutOff) {
    const Bytes packet = wire::DnsPacket(7).Service(instance, host, 631).Texts(instance, {"a=b"}).Packet();
    for (std::size_t size = 0; size < packet.size(); ++size) {
        EXPECT_FALSE(DecodeDnsResponse(BytesView(packet).substr(0, size))) << size;
    }
}

TEST(DnsMessageTest, RefusesAddressesOfAnotherSize) {
    EXPECT_FALSE(DecodeDnsResponse(wire::DnsPacket(7).Record(host, 1, "12345").Packet()));
    EXPECT_FALSE(DecodeDnsResponse(wire::DnsPacket(7).Record(host, 28, "1234").Packet()));
}

TEST(DnsMessageTest, ComparesNamesWithoutCase) {
    EXPECT_EQ(discovery::KeyOf({"LOOM 310", "_Ipp", "_tcp", "Local"}), "loom 310._ipp._tcp.local");
    EXPECT_THAT(discovery::DnsNameOf("printer.local."), ElementsAre("printer", "local"));
    EXPECT_THAT(discovery::DnsNameOf("printer..local"), ElementsAre("printer", "local"));
    EXPECT_THAT(discovery::DnsNameOf("p.local"), ElementsAre("p", "local"));
    EXPECT_THAT(discovery::DnsNameOf(""), IsEmpty());
}

}  // namespace
