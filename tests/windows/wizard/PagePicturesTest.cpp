// Pictures of every dialog in every language of the sample, on a sheet for each language. What they show is
// compared with the sheets that somebody looked at: scripts/check-pictures.sh.

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <span>
#include <vector>

#include "CommonLib/Files.h"
#include "framework/Handles.h"
#include "resources/resource.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/DialogsWorld.h"
#include "tests/windows/world/SampleLanguages.h"
#include "tests/windows/world/ScratchFolder.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"

namespace {

// The build folder's part of this test, beside the folder of the tests' tree.
std::filesystem::path TestFolder() {
    return std::filesystem::path(GetExeDirectory()) / L".." / L".." / L"..";
}

struct GrayHeader {
    BITMAPINFOHEADER header{};
    std::array<RGBQUAD, 256> colours{};
};

// A sheet in 256 shades of gray with places for pictures, four in a row.
class PictureSheet {
public:
    explicit PictureSheet(int places) : height((places + columns - 1) / columns * cellHeight) {
        info.header = {.biSize = sizeof(BITMAPINFOHEADER),
                       .biWidth = width,
                       .biHeight = height,
                       .biPlanes = 1,
                       .biBitCount = 8,
                       .biClrUsed = 256};
        for (std::size_t shade = 0; shade < info.colours.size(); ++shade) {
            const auto part = static_cast<BYTE>(shade);
            info.colours[shade] = {.rgbBlue = part, .rgbGreen = part, .rgbRed = part, .rgbReserved = 0};
        }
        bitmap.reset(CreateDIBSection(nullptr, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS, &bits,
                                      nullptr, 0));
        sheet.reset(CreateCompatibleDC(nullptr));
        selected = std::make_unique<SelectedObject>(sheet.get(), bitmap.get());
    }

    // Copies what the window shows into the place of that number. Returns the number of shades in it.
    std::size_t Take(HWND window, int place) {
        RECT area{};
        GetClientRect(window, &area);
        const int left = place % columns * cellWidth;
        const int top = place / columns * cellHeight;
        const WindowDc source(window);
        // As it stands on the screen, also where the window is laid out from the right.
        SetLayout(source.get(), 0);
        BitBlt(sheet.get(), left, top, std::min<int>(area.right, cellWidth),
               std::min<int>(area.bottom, cellHeight), source.get(), 0, 0, SRCCOPY);
        GdiFlush();
        return ShadesAt(left, top);
    }

    void Save(const std::filesystem::path& path) const {
        const auto size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
        BITMAPFILEHEADER file{.bfType = 0x4D42, .bfOffBits = sizeof(file) + sizeof(info)};
        file.bfSize = static_cast<DWORD>(file.bfOffBits + size);
        std::string bytes(reinterpret_cast<const char*>(&file), sizeof(file));
        bytes.append(reinterpret_cast<const char*>(&info), sizeof(info));
        bytes.append(static_cast<const char*>(bits), size);
        WriteBytes(path, bytes);
    }

private:
    std::size_t ShadesAt(int left, int top) const {
        std::array<bool, 256> seen{};
        const auto* const pixels = static_cast<const unsigned char*>(bits);
        // The rows stand from the bottom up.
        for (int row = height - top - cellHeight; row < height - top; ++row) {
            const unsigned char* const first = pixels + std::ptrdiff_t{row} * width + left;
            for (const unsigned char shade : std::span(first, cellWidth)) seen[shade] = true;
        }
        return static_cast<std::size_t>(std::ranges::count(seen, true));
    }

    static constexpr int columns = 4;
    static constexpr int cellWidth = 640;
    static constexpr int cellHeight = 570;
    static constexpr int width = columns * cellWidth;
    int height = 0;
    GrayHeader info;
    void* bits = nullptr;
    Bitmap bitmap;
    MemoryDc sheet;
    std::unique_ptr<SelectedObject> selected;
};

class PagePicturesTest : public SettingsWorld, public testing::WithParamInterface<std::string> {
protected:
    PagePicturesTest() {
        AddTexts(TextsWithLicenceInUtf8());
        ReadTextsAnew();
        AddPictures(tree);
        tree.Add(L"Notices\\EULA\\EULA_en.txt", SampleLicence(GetParam()));
        Settings().SetString(Tag::OEM, L"Halvenny");
        Settings().SetString(Tag::MANUFACTURERS, L"Halvenny:72|Norrlund:73");
        Settings().SetString(Tag::INFOCENTER_LINK, L"http://help.test");
        Settings().SetString(Tag::PRODUCT_REGISTRATION_LINK, L"http://register.test");
        Settings().SetString(Tag::INSTALL_STATUS, L"SUCCESS");
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        for (const int control : {IDOK, IDCANCEL, IDC_TEST_EDIT, IDC_TEST_BUTTON})
            ShowWindow(window.GetDlgItem(control), SW_HIDE);
        window.MoveWindow(0, 0, 900, 900);
        window.ShowWindow(SW_SHOW);
    }

    // The texts of the language, but for a licence in UTF-8.
    static std::string TextsWithLicenceInUtf8() {
        std::string texts = SampleTexts(GetParam());
        const std::string element = "<CODE_PAGE>";
        const std::size_t value = texts.find(element) + element.size();
        return texts.replace(value, texts.find('<', value) - value, "65001");
    }

    AppCatalogue applications;
    DriverInfo drivers;
    DriverConfiguration configuration{Settings(), applications, drivers};
    TestApp app;
    CDialogEx window;
};

TEST_P(PagePicturesTest, ShowEveryDialog) {
    const std::vector<DialogCase> dialogs = EveryDialog();
    PictureSheet sheet(static_cast<int>(dialogs.size()));
    int place = 0;
    for (const DialogCase& dialogCase : dialogs) {
        const auto dialog = dialogCase.make({context, window, applications, drivers, configuration});
        ASSERT_TRUE(dialog->Create(dialog->TemplateId(), &window));
        dialog->ShowWindow(SW_SHOW);
        SetFocus(nullptr);
        PumpMessages();
        UpdateWindow(dialog->GetSafeHwnd());
        EXPECT_GT(sheet.Take(dialog->GetSafeHwnd(), place), 2U) << dialogCase.name;
        ++place;
    }
    sheet.Save(TestFolder() / L"pictures" / (GetParam() + ".bmp"));
}

INSTANTIATE_TEST_SUITE_P(Languages, PagePicturesTest, testing::ValuesIn(SampleLanguages()),
                         [](const testing::TestParamInfo<std::string>& given) { return given.param; });

}  // namespace
