#include <gtest/gtest.h>

#include "settings/StartMarker.h"

namespace {

TEST(StartMarkerTest, IsTheByteOrderMarkReadByteByByte) {
    EXPECT_TRUE(HoldsStartMarker(L"\u00EF\u00BB\u00BF<A>1</A>"));
    EXPECT_TRUE(HoldsStartMarker(L"<A>1\u00EF\u00BB\u00BF</A>"));
    EXPECT_FALSE(HoldsStartMarker(L"\uFEFF<A>1</A>"));
    EXPECT_FALSE(HoldsStartMarker(L""));
}

TEST(StartMarkerTest, LeavesOutAPieceThatIsTheMarker) {
    EXPECT_EQ(StripStartMarker(L"\u00EF\u00BB\u00BF<A>1</A>"), L"<A>1</A>");
}

TEST(StartMarkerTest, DoublesTheFirstSignOfADocumentWithoutTheMarker) {
    // The empty piece in front of the first "<" is kept like any other.
    EXPECT_EQ(StripStartMarker(L"<A>1</A>"), L"<<A>1</A>");
}

TEST(StartMarkerTest, KeepsAPieceThatHoldsMoreThanTheMarker) {
    EXPECT_EQ(StripStartMarker(L"\u00EF\u00BB\u00BF\n<A>"), L"<\u00EF\u00BB\u00BF\n<A>");
    EXPECT_EQ(StripStartMarker(L"\uFEFF<A>"), L"<\uFEFF<A>");
}

}  // namespace
