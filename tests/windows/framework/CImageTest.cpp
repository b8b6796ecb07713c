#include <windows.h>

#include <gtest/gtest.h>

#include <chrono>

#include "framework/CImage.h"
#include "framework/Resolution.h"
#include "tests/windows/world/ScratchFolder.h"
#include "tests/wizard/BitmapFile.h"

namespace {

constexpr COLORREF red = RGB(255, 0, 0);
constexpr COLORREF blue = RGB(0, 0, 255);

class CImageTest : public testing::Test {
protected:
    CImageTest() { Write(red); }
    void Write(COLORREF colour, int width = 16) const { WriteBytes(path, BitmapFile(colour, width)); }

    static COLORREF ColourOf(const ATL::CImage& image) {
        const MemoryDc memory(CreateCompatibleDC(nullptr));
        const SelectedObject selected(memory.get(), image.GetBitmap());
        return GetPixel(memory.get(), 1, 1);
    }

    ScratchFolder folder;
    std::wstring path = folder / L"picture.png";
    ATL::CImage image;
};

TEST_F(CImageTest, HasTheSizeOfTheResolution) {
    EXPECT_TRUE(image.Load(path, 2 * plainResolution));
    EXPECT_EQ(image.GetWidth(), 32);
    EXPECT_EQ(image.GetHeight(), 32);
}

TEST_F(CImageTest, FillsAnArea) {
    EXPECT_TRUE(image.LoadToFill(path, {20, 10}));
    EXPECT_EQ(image.GetWidth(), 20);
    EXPECT_EQ(image.GetHeight(), 10);
}

TEST_F(CImageTest, IsEmptyWithoutTheFile) {
    EXPECT_TRUE(image.Load(path, plainResolution));
    EXPECT_FALSE(image.Load(folder / L"none.png", plainResolution));
    EXPECT_TRUE(image.IsNull());
    EXPECT_EQ(image.GetBitmap(), nullptr);
    EXPECT_FALSE(image.ToIcon());
}

TEST_F(CImageTest, IsEmptyWhereTheFileIsNoPicture) {
    WriteBytes(path, "text");
    EXPECT_FALSE(image.Load(path, plainResolution));
}

TEST_F(CImageTest, IsReadOnceForEachSize) {
    ATL::CImage second;
    EXPECT_TRUE(image.Load(path, plainResolution));
    EXPECT_TRUE(second.Load(path, plainResolution));
    EXPECT_EQ(second.GetBitmap(), image.GetBitmap());
    EXPECT_TRUE(second.Load(path, 2 * plainResolution));
    EXPECT_NE(second.GetBitmap(), image.GetBitmap());
    EXPECT_TRUE(second.LoadToFill(path, {16, 16}));
    EXPECT_NE(second.GetBitmap(), image.GetBitmap());
}

TEST_F(CImageTest, IsReadAgainWhenTheFileHasAnotherSize) {
    EXPECT_TRUE(image.Load(path, plainResolution));
    Write(blue, 20);
    EXPECT_TRUE(image.Load(path, plainResolution));
    EXPECT_EQ(ColourOf(image), blue);
}

TEST_F(CImageTest, IsReadAgainWhenTheFileHasAnotherTime) {
    EXPECT_TRUE(image.Load(path, plainResolution));
    Write(blue);
    std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) + std::chrono::hours(1));
    EXPECT_TRUE(image.Load(path, plainResolution));
    EXPECT_EQ(ColourOf(image), blue);
}

TEST_F(CImageTest, StaysForWhoHasItWhenOthersFollow) {
    EXPECT_TRUE(image.Load(path, plainResolution));
    for (int width = 1; width < 100; ++width) {
        ATL::CImage other;
        EXPECT_TRUE(other.LoadToFill(path, {width, 1}));
    }
    EXPECT_EQ(ColourOf(image), red);
}

}  // namespace
