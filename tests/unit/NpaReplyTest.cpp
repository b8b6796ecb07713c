#include <gtest/gtest.h>

#include "discovery/NpaReply.h"
#include "tests/fakes/NpaPacket.h"

namespace {

using Npa::Builder;
using Npa::Bytes;

std::wstring Widen(std::string_view text) {
    return {text.begin(), text.end()};
}

std::optional<NpaDeviceInfo> Decode(const Bytes& packet) {
    return DecodeNpaReply(packet, Widen);
}

Bytes& operator+=(Bytes& bytes, const Bytes& more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
    return bytes;
}

Bytes BranchOf(const Builder& builder, const std::vector<int>& ids, const Bytes& element) {
    return builder.Packet({builder.Below(ids, element)});
}

TEST(NpaReplyTest, ReadsTheFaxFlag) {
    for (const std::uint8_t flag : Bytes{1, 2, 255}) {
        const auto info = Decode(Npa::FaxReply(flag));
        ASSERT_TRUE(info);
        EXPECT_TRUE(info->HasFax());
    }
}

TEST(NpaReplyTest, KnowsADeviceWithoutFaxByTheZero) {
    const auto info = Decode(Npa::FaxReply(0));
    ASSERT_TRUE(info);
    EXPECT_FALSE(info->HasFax());
}

TEST(NpaReplyTest, HasNoFaxWithoutTheValue) {
    const Builder builder;
    const auto info = Decode(builder.Packet({}));
    ASSERT_TRUE(info);
    EXPECT_FALSE(info->HasFax());
}

TEST(NpaReplyTest, KeepsTheValuesOfItsKeysAlone) {
    const Builder builder;
    const Bytes tree = builder.Group(
        1,
        {builder.Group(1, {builder.Number(1, {7}), builder.Number(9, {8})}),
         builder.Group(2, {builder.Text(1, "Loom"), builder.Text(9, "other"), builder.Number(4, {1, 2})})});
    const auto info = Decode(builder.Packet({tree}));
    ASSERT_TRUE(info);
    EXPECT_EQ(info->numbers,
              (std::map<std::string, std::uint32_t, std::less<>>{{"1.1.1.1", 7}, {"1.1.2.4", 0x0102}}));
    EXPECT_EQ(info->texts, (std::map<std::string, std::wstring, std::less<>>{{"1.1.2.1", L"Loom"}}));
}

struct KeyCase {
    const char* key;
    // The groups below the root, and the element in the last of them.
    std::vector<int> groups;
    int id;
};

void PrintTo(const KeyCase& key, std::ostream* stream) {
    *stream << key.key;
}

using NumberKeyTest = testing::TestWithParam<KeyCase>;

TEST_P(NumberKeyTest, IsKept) {
    const Builder builder;
    const auto info = Decode(BranchOf(builder, GetParam().groups, builder.Number(GetParam().id, {5})));
    ASSERT_TRUE(info);
    EXPECT_EQ(info->numbers, (std::map<std::string, std::uint32_t, std::less<>>{{GetParam().key, 5}}));
}

INSTANTIATE_TEST_SUITE_P(Keys, NumberKeyTest,
                         testing::Values(KeyCase{"1.1.1.1", {1, 1}, 1}, KeyCase{"1.1.1.2", {1, 1}, 2},
                                         KeyCase{"1.1.2.4", {1, 2}, 4}, KeyCase{"1.1.3.1", {1, 3}, 1},
                                         KeyCase{"1.1.3.2", {1, 3}, 2}, KeyCase{"1.1.3.3", {1, 3}, 3},
                                         KeyCase{"1.1.3.8.2", {1, 3, 8}, 2},
                                         KeyCase{"1.1.3.8.1", {1, 3, 8}, 1},
                                         KeyCase{"1.1.3.9.1", {1, 3, 9}, 1},
                                         KeyCase{"1.1.3.9.2", {1, 3, 9}, 2},
                                         KeyCase{"1.1.3.14.1", {1, 3, 14}, 1}, KeyCase{"1.1.3.5", {1, 3}, 5},
                                         KeyCase{"1.1.3.17.3", {1, 3, 17}, 3}));

using TextKeyTest = testing::TestWithParam<KeyCase>;

TEST_P(TextKeyTest, IsKept) {
    const Builder builder;
    const auto info = Decode(BranchOf(builder, GetParam().groups, builder.Text(GetParam().id, "x")));
    ASSERT_TRUE(info);
    EXPECT_EQ(info->texts, (std::map<std::string, std::wstring, std::less<>>{{GetParam().key, L"x"}}));
}

INSTANTIATE_TEST_SUITE_P(Keys, TextKeyTest,
                         testing::Values(KeyCase{"1.1.2.1", {1, 2}, 1}, KeyCase{"1.1.2.2", {1, 2}, 2},
                                         KeyCase{"1.1.2.3", {1, 2}, 3}, KeyCase{"1.1.3.12", {1, 3}, 12},
                                         KeyCase{"1.1.2.5", {1, 2}, 5}));

TEST(NpaReplyTest, StoresNoNumberUnderATextKey) {
    const Builder builder;
    const auto info = Decode(BranchOf(builder, {1, 2}, builder.Number(1, {7})));
    ASSERT_TRUE(info);
    EXPECT_TRUE(info->numbers.empty());
    EXPECT_TRUE(info->texts.empty());
}

TEST(NpaReplyTest, StepsOverAnUnknownTypeLikeANumber) {
    const Builder builder;
    const auto info = Decode(builder.Packet({builder.Group(
        1, {builder.Group(3, {builder.Leaf(1, 9, {1, 2, 3}),
                              builder.Group(17, {builder.Leaf(2, 200, {}), builder.Number(3, {1})})})})}));
    ASSERT_TRUE(info);
    EXPECT_TRUE(info->HasFax());
    EXPECT_EQ(info->numbers.size(), 1u);
}

TEST(NpaReplyTest, PassesOverAGroupOutsideTheDeviceBranch) {
    const Builder builder;
    // The content is no tree at all, which would fail if it were read.
    const Bytes strange = builder.LyingGroup(2, 200, 3, {0xFF, 0xFF, 0xFF});
    const auto info = Decode(builder.Packet({strange, builder.Below({1, 3, 17}, builder.Number(3, {1}))}));
    ASSERT_TRUE(info);
    EXPECT_TRUE(info->HasFax());
}

TEST(NpaReplyTest, ReadsEveryGroupWhosePathHoldsTheText) {
    const Builder builder;
    EXPECT_FALSE(Decode(builder.Packet({builder.LyingGroup(12, 200, 3, {0xFF, 0xFF, 0xFF})})));
}

TEST(NpaReplyTest, TakesAnIdAbove127ForANegativeNumber) {
    const Builder builder;
    const auto info = Decode(builder.Packet(
        {builder.Group(1, {builder.Group(3, {builder.Group(17, {builder.Number(0x83, {1})})})})}));
    ASSERT_TRUE(info);
    EXPECT_TRUE(info->numbers.empty());
}

TEST(NpaReplyTest, PassesOverAGroupWhoseNegativeIdBeginsWithOne) {
    const Builder builder;
    // 0x81 is -127; as 129 its path would hold the text of the branch.
    EXPECT_TRUE(Decode(builder.Packet({builder.LyingGroup(0x81, 200, 3, {0xFF, 0xFF, 0xFF})})));
}

TEST(NpaReplyTest, ReadsAsWideAsTheReplyAnnounces) {
    const Builder builder({.id = 2, .type = 3, .count = 4, .groupLength = 5, .leafLength = 6});
    const auto info = Decode(BranchOf(builder, {1, 3, 17}, builder.Number(3, {0, 0, 0, 0, 1})));
    ASSERT_TRUE(info);
    EXPECT_TRUE(info->HasFax());
}

TEST(NpaReplyTest, KeepsTheLowBitsOfALongNumber) {
    const Builder builder;
    const auto info = Decode(BranchOf(builder, {1, 1}, builder.Number(1, {9, 1, 2, 3, 4})));
    ASSERT_TRUE(info);
    EXPECT_EQ(info->numbers.at("1.1.1.1"), 0x01020304u);
}

TEST(NpaReplyTest, RefusesAWidthBeyondTheWidestEvenWhereNothingHasIt) {
    const Bytes tree = Builder({.groupLength = 0}).Group(1, {});
    EXPECT_TRUE(Decode(Npa::PacketOf("P{ID:1,DT:1}..{NE:1}..{LD:65535}", tree)));
    EXPECT_FALSE(Decode(Npa::PacketOf("P{ID:1,DT:1}..{NE:1}..{LD:65536}", tree)));
}

TEST(NpaReplyTest, TakesAMissingLabelForTheWidthZero) {
    // Neither ids nor types: everything is a group with the id 0, and none of it has elements.
    const auto info = Decode(Npa::PacketOf("P{}P{}P{}", {}));
    ASSERT_TRUE(info);
    EXPECT_TRUE(info->numbers.empty());
}

using LooseLayoutTest = testing::TestWithParam<const char*>;

TEST_P(LooseLayoutTest, LeavesTheTreeAtItsPlace) {
    const Builder builder;
    const Bytes tree = builder.Group(1, {builder.Below({1, 3, 17}, builder.Number(3, {1}))});
    const auto info = Decode(Npa::PacketOf(GetParam(), tree));
    ASSERT_TRUE(info);
    EXPECT_TRUE(info->HasFax());
}

// Whatever stands in the two bytes after a brace is stepped over, another brace as well.
INSTANTIATE_TEST_SUITE_P(Layouts, LooseLayoutTest,
                         testing::Values("P{ID:1,DT:1}..{NE:1,LD:2}..{LD:2}xyz",
                                         "P{ID:1a,DT:1}P{NE:1,LD:2}P{LD:2}",
                                         "P{ID:1,DT:1}}}NE:1,LD:2}}}LD:2}"));

TEST(NpaReplyTest, ReadsALengthInMoreBytesThanANumberHas) {
    const Builder builder({.leafLength = 10});
    const auto info = Decode(BranchOf(builder, {1, 1}, builder.Number(1, {7})));
    ASSERT_TRUE(info);
    EXPECT_EQ(info->numbers.at("1.1.1.1"), 7u);
}

TEST(NpaReplyTest, ReadsALengthBeyondOneByte) {
    const Builder builder;
    const std::string text(0x123, 'x');
    const auto info = Decode(BranchOf(builder, {1, 2}, builder.Text(1, text)));
    ASSERT_TRUE(info);
    EXPECT_EQ(info->texts.at("1.1.2.1").size(), text.size());
}

TEST(NpaReplyTest, RefusesALengthThatNoNumberHolds) {
    const Builder builder({.leafLength = 9});
    Bytes leaf = builder.Number(1, {});
    leaf[2] = 1;
    EXPECT_FALSE(Decode(builder.Packet({leaf})));
}

TEST(NpaReplyTest, RefusesAnotherStartByte) {
    Bytes packet = Npa::FaxReply(1);
    packet[0] = 0xA4;
    EXPECT_FALSE(Decode(packet));
}

TEST(NpaReplyTest, RefusesALengthThatIsNotThatOfThePacket) {
    Bytes packet = Npa::FaxReply(1);
    packet.push_back(0);
    EXPECT_FALSE(Decode(packet));
}

TEST(NpaReplyTest, RefusesABlockThatLeavesThePacket) {
    Bytes packet = Npa::FaxReply(1);
    ++packet[9];
    EXPECT_FALSE(Decode(packet));
}

class BrokenLayoutTest : public testing::TestWithParam<const char*> {};

TEST_P(BrokenLayoutTest, RefusesTheReply) {
    const Builder builder;
    EXPECT_FALSE(Decode(Npa::PacketOf(GetParam(), builder.Group(1, {}))));
}

INSTANTIATE_TEST_SUITE_P(Layouts, BrokenLayoutTest,
                         testing::Values("Q{ID:1,DT:1}P{NE:1,LD:2}P{LD:2}", "P[ID:1,DT:1}P{NE:1,LD:2}P{LD:2}",
                                         "P{ID:1,DT:1", "P{ID:1,DT:1}P{NE:1,LD:2",
                                         "P{ID:1,DT:1}P{NE:1,LD:2}P{LD", "P{ID:4294967297,DT:1}P{NE:1}P{}"));

TEST(NpaReplyTest, RefusesEveryBeginningOfAReply) {
    const Bytes packet = Npa::FaxReply(1);
    for (std::size_t length = 0; length < packet.size(); ++length) {
        Bytes cut(packet.begin(), packet.begin() + static_cast<std::ptrdiff_t>(length));
        if (length >= 3) {
            cut[1] = 0;
            cut[2] = static_cast<std::uint8_t>(length - 3);
        }
        EXPECT_FALSE(Decode(cut)) << length;
    }
}

TEST(NpaReplyTest, RefusesElementsThatAreNotThere) {
    const Builder builder;
    EXPECT_FALSE(
        Decode(Npa::PacketOf(builder.Layout(), builder.LyingGroup(1, 2, 0, builder.Number(5, {1})))));
}

TEST(NpaReplyTest, WalksAsDeepAsAPacketCanNest) {
    const Builder builder;
    // Each group claims one element and no length of its own, so its head is all it takes.
    const Bytes head = builder.LyingGroup(1, 1, 0, {});
    Bytes tree;
    for (std::size_t depth = 0; depth < 12000; ++depth) tree += head;
    EXPECT_FALSE(Decode(Npa::PacketOf(builder.Layout(), tree)));
}

TEST(NpaReplyTest, RefusesGroupsThatNameTheSameBytesAgain) {
    const Builder builder;
    Bytes tree;
    // Each group is the content of the one in front of it and what follows that one as well, so that read to
    // the letter each nearly doubles the work.
    for (std::size_t group = 0; group < 25; ++group) tree += builder.LyingGroup(1, 2, 0, {});
    for (std::size_t group = 0; group < 50; ++group) tree += builder.LyingGroup(1, 0, 0, {});
    EXPECT_FALSE(Decode(Npa::PacketOf(builder.Layout(), tree)));
}

TEST(NpaReplyTest, RefusesValuesThatAreNamedAgain) {
    const Builder builder;
    // Both groups claim the same texts.
    Bytes tree =
        builder.LyingGroup(1, 1, 0, builder.LyingGroup(1, 101, 0, builder.LyingGroup(1, 100, 0, {})));
    for (std::size_t count = 0; count < 100; ++count) tree += builder.Text(1, "text");
    EXPECT_FALSE(Decode(Npa::PacketOf(builder.Layout(), tree)));
}

}  // namespace
