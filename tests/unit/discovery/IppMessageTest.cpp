#include <gmock/gmock.h>

#include "standins/discovery/IppMessage.h"
#include "tests/unit/discovery/WirePackets.h"

namespace {

using discovery::Bytes;
using discovery::BytesView;
using discovery::DecodeIppResponse;
using discovery::FirstValue;
using testing::ElementsAre;
using testing::IsEmpty;
using wire::IppAnswer;
using wire::IppAttribute;

TEST(IppMessageTest, WritesAQuestionForSomeAttributes) {
    const Bytes question = discovery::EncodeIppQuestion(9, "ipp://192.0.2.7:631/ipp/print", {"one", "two"});
    EXPECT_EQ(question.substr(0, 9), Bytes("\1\1\0\x0B\0\0\0\x09\1", 9));
    EXPECT_NE(question.find(IppAttribute(0x45, "printer-uri", "ipp://192.0.2.7:631/ipp/print")), Bytes::npos);
    EXPECT_TRUE(question.ends_with(IppAttribute(0x44, "requested-attributes", "one") +
                                   IppAttribute(0x44, "", "two") + '\3'));
}

TEST(IppMessageTest, ReadsEachKindOfValue) {
    const auto attributes =
        DecodeIppResponse(9, IppAnswer(IppAttribute(0x41, "printer-make-and-model", "Halvenny Loom") +
                                       IppAttribute(0x22, "color-supported", "\1") +
                                       IppAttribute(0x21, "copies", Bytes("\0\0\1\0", 4)) +
                                       IppAttribute(0x35, "printer-info", Bytes("\0\2de\0\4Loom", 10)) +
                                       IppAttribute(0x44, "ipp-features-supported", "airprint") +
                                       IppAttribute(0x44, "", "faxout") + IppAttribute(0x40, "note", "x") +
                                       IppAttribute(0x3F, "form", "x")));
    ASSERT_TRUE(attributes);
    EXPECT_EQ(FirstValue(*attributes, "printer-make-and-model"), "Halvenny Loom");
    EXPECT_EQ(FirstValue(*attributes, "color-supported"), "true");
    EXPECT_EQ(FirstValue(*attributes, "copies"), "256");
    EXPECT_EQ(FirstValue(*attributes, "printer-info"), "Loom");
    EXPECT_THAT(attributes->at("ipp-features-supported"), ElementsAre("airprint", "faxout"));
    EXPECT_EQ(FirstValue(*attributes, "note"), "x");
    EXPECT_EQ(FirstValue(*attributes, "form"), "");
    EXPECT_EQ(FirstValue(*attributes, "attributes-charset"), "");
}

TEST(IppMessageTest, LeavesCollectionsOut) {
    const auto attributes = DecodeIppResponse(
        9, IppAnswer(IppAttribute(0x34, "media-col", "") + IppAttribute(0x4A, "", "color-supported") +
                     IppAttribute(0x22, "", "\1") + IppAttribute(0x37, "", "") +
                     IppAttribute(0x22, "color-supported", Bytes("\0", 1))));
    ASSERT_TRUE(attributes);
    EXPECT_THAT(attributes->at("color-supported"), ElementsAre("false"));
    EXPECT_EQ(attributes->count("media-col"), 0U);
}

TEST(IppMessageTest, ReadsNoAnswerToAnotherRequestAndNoRefusal) {
    EXPECT_TRUE(DecodeIppResponse(9, IppAnswer({})));
    EXPECT_FALSE(DecodeIppResponse(8, IppAnswer({})));
    EXPECT_TRUE(DecodeIppResponse(9, IppAnswer({}, 0x00FF)));
    EXPECT_FALSE(DecodeIppResponse(9, IppAnswer({}, 0x0100)));
    EXPECT_FALSE(DecodeIppResponse(9, IppAnswer({}, 0x0406)));
}

TEST(IppMessageTest, PassesTheEndOfACollectionOverThatNeverBegan) {
    const auto attributes = DecodeIppResponse(
        9, IppAnswer(IppAttribute(0x37, "", "") + IppAttribute(0x22, "color-supported", "\1")));
    ASSERT_TRUE(attributes);
    EXPECT_EQ(FirstValue(*attributes, "color-supported"), "true");
}

TEST(IppMessageTest, ReadsNoAttributeInFrontOfTheGroups) {
    const auto attributes = DecodeIppResponse(
        9, Bytes("\1\1\0\0\0\0\0\x09", 8) + IppAttribute(0x41, "printer-info", "Loom") + '\3');
    ASSERT_TRUE(attributes);
    EXPECT_THAT(*attributes, IsEmpty());
}

TEST(IppMessageTest, ReadsNothingOfWhatIsCutOff) {
    const Bytes answer = IppAnswer(IppAttribute(0x41, "printer-make-and-model", "Halvenny Loom"));
    for (std::size_t size = 0; size < answer.size(); ++size) {
        EXPECT_FALSE(DecodeIppResponse(9, BytesView(answer).substr(0, size))) << size;
    }
    EXPECT_THAT(FirstValue({}, "absent"), IsEmpty());
}

}  // namespace
