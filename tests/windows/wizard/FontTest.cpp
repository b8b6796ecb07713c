// The font of the pages as the system draws it.

#include <windows.h>

#include <gtest/gtest.h>

#include "framework/Handles.h"
#include "resources/resource.h"

namespace {

class FontMarkTest : public testing::TestWithParam<wchar_t> {
protected:
    FontMarkTest() {
        const HRSRC resource = FindResourceW(nullptr, MAKEINTRESOURCEW(IDR_FONT), L"BINARY");
        const HGLOBAL loaded = LoadResource(nullptr, resource);
        DWORD installed = 0;
        fonts = AddFontMemResourceEx(LockResource(loaded), SizeofResource(nullptr, resource), nullptr,
                                     &installed);
        font.reset(CreateFontW(-40, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                               OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH,
                               L"Velmora"));
    }
    ~FontMarkTest() override { RemoveFontMemResourceEx(fonts); }

    HANDLE fonts = nullptr;
    Font font;
};

TEST_P(FontMarkTest, HasNoWidthAndDrawsNothing) {
    const MemoryDc context(CreateCompatibleDC(nullptr));
    const SelectedObject selected(context.get(), font.get());
    WORD glyph = 0xFFFF;
    const wchar_t mark = GetParam();
    GetGlyphIndicesW(context.get(), &mark, 1, &glyph, GGI_MARK_NONEXISTING_GLYPHS);
    EXPECT_NE(glyph, 0xFFFF);
    GLYPHMETRICS metrics{};
    const MAT2 identity{.eM11 = {0, 1}, .eM12 = {}, .eM21 = {}, .eM22 = {0, 1}};
    EXPECT_EQ(
        GetGlyphOutlineW(context.get(), glyph, GGO_GLYPH_INDEX | GGO_NATIVE, &metrics, 0, nullptr, &identity),
        0U);
    EXPECT_EQ(metrics.gmCellIncX, 0);
}

INSTANTIATE_TEST_SUITE_P(OrderingMarks, FontMarkTest,
                         testing::Values(0x200E, 0x200F, 0x202A, 0x202B, 0x202C, 0x202D, 0x202E, 0x2066,
                                         0x2067, 0x2068, 0x2069));

}  // namespace
