#include <gtest/gtest.h>

#include <string>

#include "wizard/ButtonFace.h"

namespace {

struct FaceCase {
    std::string name;
    ButtonState state;
    bool secondary;
    RgbColour colour;
    int frameWidth;
};

class ButtonFaceTest : public testing::TestWithParam<FaceCase> {};

TEST_P(ButtonFaceTest, HasTheColourAndFrameOfItsState) {
    const ButtonFace face = FlatButtonFace(GetParam().state, GetParam().secondary);
    EXPECT_EQ(face.colour, GetParam().colour);
    EXPECT_EQ(face.frameWidth, GetParam().frameWidth);
}

INSTANTIATE_TEST_SUITE_P(
    AllStates, ButtonFaceTest,
    testing::Values(
        FaceCase{"NormalGrey", {}, true, 0x5A5A64, 1}, FaceCase{"NormalGreen", {}, false, 0x00AD21, 1},
        FaceCase{"DisabledGrey", {.disabled = true}, true, 0xC5C5C9, 1},
        FaceCase{"DisabledGreenIsPaleGreen", {.disabled = true}, false, 0xA6E3B2, 1},
        FaceCase{"FocusedGrey", {.focused = true}, true, 0x5A5A64, 2},
        FaceCase{"FocusedGreen", {.focused = true}, false, 0x00AD21, 2},
        FaceCase{"HotGrey", {.hot = true}, true, 0x4E4E57, 1},
        FaceCase{"HotGreen", {.hot = true}, false, 0x128622, 1},
        FaceCase{"HotAndFocusedHasTheWideFrame", {.hot = true, .focused = true}, false, 0x128622, 2},
        FaceCase{"SelectedGrey", {.selected = true}, true, 0x5A5A64, 2},
        FaceCase{"SelectedWinsOverHot", {.selected = true, .hot = true}, false, 0x00AD21, 2},
        FaceCase{"HotWinsOverDisabled", {.hot = true, .disabled = true}, true, 0x4E4E57, 1},
        FaceCase{"FocusedWinsOverDisabled", {.focused = true, .disabled = true}, false, 0x00AD21, 2}),
    [](const auto& face) { return face.param.name; });

TEST(ReadableOnTest, KeepsAColourThatCanBeRead) {
    EXPECT_EQ(ReadableOn(0x000000, 0xFFFFFF, 0xFFFF00), 0xFFFFFFU);
    // 4.54 and 4.48 to 1.
    EXPECT_EQ(ReadableOn(0xFFFFFF, 0x767676, 0x000000), 0x767676U);
    EXPECT_EQ(ReadableOn(0xFFFFFF, 0x777777, 0x000000), 0x000000U);
    // 4.52 to 1.
    EXPECT_EQ(ReadableOn(0x000000, 0x008800, 0xFFFFFF), 0x008800U);
}

TEST(ReadableOnTest, KnowsHowDarkADarkGroundIs) {
    // 4.42 and 4.55 to 1.
    EXPECT_EQ(ReadableOn(0x0A0A0A, 0x777777, 0xFFFFFF), 0xFFFFFFU);
    EXPECT_EQ(ReadableOn(0x0A0A0A, 0x797979, 0xFFFFFF), 0x797979U);
}

TEST(ReadableOnTest, TakesTheOtherWhereTheGroundHasTheSameColour) {
    EXPECT_EQ(ReadableOn(0xFFFFFF, 0xFFFFFF, 0x000000), 0x000000U);
    EXPECT_EQ(ReadableOn(0xFFFF00, 0xFFFF00, 0x000000), 0x000000U);
}

TEST(ReadableOnTest, KeepsTheBetterOfTwoThatAreFaint) {
    EXPECT_EQ(ReadableOn(0x808080, 0x404040, 0x606060), 0x404040U);
    EXPECT_EQ(ReadableOn(0x808080, 0x606060, 0x404040), 0x404040U);
}

}  // namespace
