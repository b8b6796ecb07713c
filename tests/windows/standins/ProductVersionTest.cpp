#include <gtest/gtest.h>

#include "standins/Brevanto/ProductVersion.h"

using brevanto::ParseProductVersion;

namespace {

TEST(ProductVersionTest, ComparesFieldsAsNumbers) {
    EXPECT_LT(ParseProductVersion(L"1.9.0"), ParseProductVersion(L"1.10.0"));
    EXPECT_LT(ParseProductVersion(L"1.2.3"), ParseProductVersion(L"2.0.0"));
    EXPECT_GT(ParseProductVersion(L"1.2.4"), ParseProductVersion(L"1.2.3"));
}

TEST(ProductVersionTest, PaysNoRegardToTheFourthField) {
    EXPECT_EQ(ParseProductVersion(L"1.2.3.4"), ParseProductVersion(L"1.2.3.5"));
}

TEST(ProductVersionTest, CountsMissingFieldsAsZero) {
    EXPECT_EQ(ParseProductVersion(L"1"), ParseProductVersion(L"1.0.0"));
    EXPECT_EQ(ParseProductVersion(L""), ParseProductVersion(L"0.0.0"));
}

TEST(ProductVersionTest, ReadsLeadingDigitsOfAField) {
    EXPECT_EQ(ParseProductVersion(L"1b.2 .x"), ParseProductVersion(L"1.2.0"));
}

TEST(ProductVersionTest, HoldsAFieldThatIsTooLargeAtTheLargest) {
    EXPECT_EQ(ParseProductVersion(L"99999999999999999999.1"), ParseProductVersion(L"65535.1"));
}

}  // namespace
