#include <gmock/gmock.h>

#include <limits>

#include "standins/discovery/Ber.h"

namespace {

using discovery::BerInteger;
using discovery::BerOid;
using discovery::ByteReader;
using discovery::Bytes;
using discovery::BytesView;
using discovery::MakeBer;
using discovery::MakeBerInteger;
using discovery::MakeBerOid;
using discovery::Oid;
using discovery::ReadBer;

constexpr auto octets = discovery::BerTag::Octets;

BytesView ContentsOf(BytesView bytes) {
    ByteReader reader(bytes);
    const BytesView contents = ReadBer(reader).contents;
    EXPECT_TRUE(reader.IsAtEnd());
    return contents;
}

TEST(BerTest, ReadsALengthOfOneToFourBytes) {
    EXPECT_EQ(ContentsOf("\x04\x03xyz"), "xyz");
    EXPECT_EQ(ContentsOf("\x04\x81\x03xyz"), "xyz");
    EXPECT_EQ(ContentsOf(Bytes("\x04\x84\0\0\0\x03xyz", 9)), "xyz");
}

TEST(BerTest, RefusesALengthOfMoreBytesAndOfNone) {
    EXPECT_THROW(ContentsOf(Bytes("\x04\x85\0\0\0\0\x03xyz", 10)), discovery::Malformed);
    EXPECT_THROW(ContentsOf("\x04\x80xyz"), discovery::Malformed);
}

TEST(BerTest, WritesALengthOfOneByteAsLongAsItFits) {
    EXPECT_EQ(MakeBer(octets, Bytes(127, 'x')), "\x04\x7F" + Bytes(127, 'x'));
    EXPECT_EQ(MakeBer(octets, Bytes(128, 'x')), Bytes("\x04\x82\0\x80", 4) + Bytes(128, 'x'));
    EXPECT_EQ(ContentsOf(MakeBer(octets, Bytes(300, 'x'))), Bytes(300, 'x'));
}

TEST(BerTest, ReadsTheFirstTwoArcsFromOneNumber) {
    for (const Oid& oid :
         {Oid{0, 0}, Oid{0, 39}, Oid{1, 0}, Oid{1, 39}, Oid{2, 0}, Oid{2, 999, 0xFFFFFFFF}}) {
        EXPECT_EQ(BerOid(ContentsOf(MakeBerOid(oid))), oid);
    }
    EXPECT_EQ(MakeBerOid({1, 3}), "\x06\x01\x2B");
    EXPECT_EQ(MakeBerOid({2, 999}), "\x06\x02\x88\x37");
}

TEST(BerTest, WritesNumbersInAsFewBytesAsHoldThem) {
    using Limits = std::numeric_limits<std::int32_t>;
    for (const auto& [number, size] : std::vector<std::pair<std::int32_t, std::size_t>>{{0, 1},
                                                                                        {127, 1},
                                                                                        {128, 2},
                                                                                        {32767, 2},
                                                                                        {32768, 3},
                                                                                        {-1, 1},
                                                                                        {-128, 1},
                                                                                        {-129, 2},
                                                                                        {-32768, 2},
                                                                                        {-32769, 3},
                                                                                        {Limits::max(), 4},
                                                                                        {Limits::min(), 4}}) {
        const Bytes bytes = MakeBerInteger(number);
        EXPECT_EQ(ContentsOf(bytes).size(), size) << number;
        EXPECT_EQ(BerInteger(ContentsOf(bytes)), number);
    }
}

}  // namespace
