#include <gmock/gmock.h>

#include "standins/discovery/SnmpMessage.h"
#include "tests/unit/discovery/WirePackets.h"

namespace {

using discovery::Bytes;
using discovery::BytesView;
using discovery::DecodeSnmpResponse;
using discovery::Oid;
using testing::ElementsAre;

const Oid name{1, 3, 6, 1, 4, 1, 2699, 1, 2, 1, 2, 1, 1, 3, 1};

TEST(SnmpMessageTest, WritesAQuestionAsTheRulesHaveIt) {
    discovery::SnmpMessage message{
        .version = discovery::SnmpVersion::V1, .community = "public", .requestId = 0x1234};
    message.bindings.push_back({.name = {1, 3, 6, 1, 2, 1, 1, 5}, .value = {}});
    const Bytes expected(
        "\x30\x26\x02\x01\x00\x04\x06public\xA1\x19\x02\x02\x12\x34\x02\x01\x00\x02\x01\x00\x30\x0D\x30\x0B"
        "\x06\x07"
        "\x2B\x06\x01\x02\x01\x01\x05\x05\x00",
        40);
    EXPECT_EQ(EncodeSnmpQuestion(message), expected);
}

TEST(SnmpMessageTest, ReadsEachKindOfValue) {
    const Bytes packet = wire::SnmpPacket({.requestId = -2,
                                           .bindings = {{name, wire::OctetValue("Loom")},
                                                        {name, wire::NumberValue(-129)},
                                                        {name, wire::OidValue(name)},
                                                        {name, wire::EndOfView()},
                                                        {name, Bytes("\x42\x05\x00\xFF\xFF\xFF\xFF", 7)}}});
    const auto message = DecodeSnmpResponse(packet);
    ASSERT_TRUE(message);
    EXPECT_EQ(message->requestId, -2);
    EXPECT_EQ(message->community, "public");
    std::vector<discovery::SnmpValue> values;
    for (const discovery::SnmpBinding& binding : message->bindings) {
        EXPECT_EQ(binding.name, name);
        values.push_back(binding.value);
    }
    EXPECT_THAT(values, ElementsAre(Bytes("Loom"), std::int64_t{-129}, name, discovery::SnmpValue(),
                                    std::int64_t{0xFFFFFFFF}));
}

TEST(SnmpMessageTest, ReadsCountersAsNumbersThatAreNeverNegative) {
    const Bytes packet =
        wire::SnmpPacket({.bindings = {{name, Bytes("\x41\x05\x00\x80\x00\x00\x00", 7)},
                                       {name, Bytes("\x43\x01\x07", 3)},
                                       {name, Bytes("\x46\x09\x00\x7F\x00\x00\x00\x00\x00\x00\x01", 11)},
                                       {name, Bytes("\x40\x04\xC0\x00\x02\x07", 6)}}});
    const auto message = DecodeSnmpResponse(packet);
    ASSERT_TRUE(message);
    std::vector<discovery::SnmpValue> values;
    for (const discovery::SnmpBinding& binding : message->bindings) values.push_back(binding.value);
    EXPECT_THAT(values, ElementsAre(std::int64_t{0x80000000}, std::int64_t{7},
                                    std::int64_t{0x7F00000000000001}, Bytes("\xC0\x00\x02\x07", 4)));
}

// An answer to the request whose id has those bytes.
Bytes AnswerTo(BytesView requestId) {
    using discovery::BerTag;
    using discovery::MakeBer;
    using discovery::MakeBerInteger;
    constexpr std::uint8_t response = 0xA2;
    const Bytes pdu = MakeBer(BerTag::Integer, requestId) + MakeBerInteger(0) + MakeBerInteger(0) +
                      MakeBer(BerTag::Sequence, {});
    return MakeBer(BerTag::Sequence,
                   MakeBerInteger(1) + MakeBer(BerTag::Octets, "public") + MakeBer(response, pdu));
}

TEST(SnmpMessageTest, ReadsRequestIdsOf32Bits) {
    EXPECT_TRUE(DecodeSnmpResponse(AnswerTo(Bytes("\x7F\xFF\xFF\xFF", 4))));
    EXPECT_TRUE(DecodeSnmpResponse(AnswerTo(Bytes("\x80\0\0\0", 4))));
    EXPECT_FALSE(DecodeSnmpResponse(AnswerTo(Bytes("\0\x80\0\0\0", 5))));
    EXPECT_FALSE(DecodeSnmpResponse(AnswerTo(Bytes("\xFF\x7F\xFF\xFF\xFF", 5))));
}

TEST(SnmpMessageTest, ReadsWhatADeviceRefuses) {
    const auto message = DecodeSnmpResponse(wire::SnmpPacket(
        {.version = discovery::SnmpVersion::V1, .errorStatus = 2, .errorIndex = 3, .bindings = {}}));
    ASSERT_TRUE(message);
    EXPECT_EQ(message->version, discovery::SnmpVersion::V1);
    EXPECT_EQ(message->errorStatus, 2);
    EXPECT_EQ(message->errorIndex, 3);
}

TEST(SnmpMessageTest, ReadsNothingOfWhatIsCutOff) {
    const Bytes packet = wire::SnmpPacket({.bindings = {{name, wire::OctetValue(std::string(300, 'x'))}}});
    ASSERT_TRUE(DecodeSnmpResponse(packet));
    for (std::size_t size = 0; size < packet.size(); ++size) {
        EXPECT_FALSE(DecodeSnmpResponse(BytesView(packet).substr(0, size))) << size;
    }
}

TEST(SnmpMessageTest, ReadsNothingOfAnotherVersion) {
    EXPECT_FALSE(DecodeSnmpResponse(wire::SnmpPacket({.version = discovery::SnmpVersion{3}})));
    EXPECT_TRUE(DecodeSnmpResponse(wire::SnmpPacket({.version = discovery::SnmpVersion::V1})));
}

// An answer without values whose request id is of those bytes.
Bytes AnswerWithId(BytesView id) {
    using discovery::BerTag;
    using discovery::MakeBer;
    const Bytes fields = MakeBer(BerTag::Integer, id) + wire::NumberValue(0) + wire::NumberValue(0) +
                         MakeBer(BerTag::Sequence, {});
    return MakeBer(BerTag::Sequence,
                   wire::NumberValue(1) + wire::OctetValue("public") +
                       MakeBer(static_cast<std::uint8_t>(discovery::SnmpPdu::Response), fields));
}

TEST(SnmpMessageTest, ReadsIdsOf32BitsAndNoOthers) {
    EXPECT_TRUE(DecodeSnmpResponse(AnswerWithId(Bytes("\x00\x7F\xFF\xFF\xFF", 5))));
    EXPECT_TRUE(DecodeSnmpResponse(AnswerWithId(Bytes("\x80\x00\x00\x00", 4))));
    EXPECT_FALSE(DecodeSnmpResponse(AnswerWithId(Bytes("\x00\x80\x00\x00\x00", 5))));
    EXPECT_FALSE(DecodeSnmpResponse(AnswerWithId(Bytes("\xFF\x7F\xFF\xFF\xFF", 5))));
}

struct Broken {
    const char* name;
    Bytes value;
};

class BrokenSnmpTest : public testing::TestWithParam<Broken> {};

TEST_P(BrokenSnmpTest, ReadsNothing) {
    EXPECT_FALSE(DecodeSnmpResponse(wire::SnmpPacket({.bindings = {{name, GetParam().value}}})));
}

INSTANTIATE_TEST_SUITE_P(Values, BrokenSnmpTest,
                         testing::Values(Broken{"AnEmptyNumber", Bytes("\x02\x00", 2)},
                                         Broken{"ANumberOfNineBytes",
                                                "\x02\x09"
                                                "123456789"},
                                         Broken{"AnEmptyName", Bytes("\x06\x00", 2)},
                                         Broken{"ANameThatDoesNotEnd", "\x06\x02\x2B\x81"},
                                         Broken{"AnArcBeyond32Bits", "\x06\x07\x2B\x90\x80\x80\x80\x80\x01"},
                                         Broken{"ALengthWithoutEnd", "\x04\x80"},
                                         Broken{"ALengthOfFiveBytes", "\x04\x85\x01\x01\x01\x01\x01"},
                                         Broken{"ALengthBeyondThePacket", "\x04\x84\x7F\xFF\xFF\xFF"}),
                         [](const testing::TestParamInfo<Broken>& broken) {
                             return std::string(broken.param.name);
                         });

TEST(SnmpMessageTest, ReadsNoNameOfMoreArcsThanThereCanBe) {
    const Bytes arcs(discovery::mostArcs, '\1');
    EXPECT_FALSE(DecodeSnmpResponse(
        wire::SnmpPacket({.bindings = {{name, discovery::MakeBer(discovery::BerTag::ObjectId, arcs)}}})));
}

}  // namespace
