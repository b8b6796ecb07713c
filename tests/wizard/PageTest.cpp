#include "PageTest.h"

namespace {

// Far enough inside to miss a frame and a rounded corner, and short of the text.
constexpr int insideFrame = 4;

}  // namespace

void PageTest::UseSettings(const std::wstring& further) {
    tree.SetSettings(L"<HIDE_DISCOVERY>true</HIDE_DISCOVERY>" + further);
}

HWND PageTest::StartOn(int control) {
    wizard.Start();
    return wizard.WaitForControl(control);
}

bool PageTest::IsEnabled(int control) const {
    const HWND window = wizard.FindControl(control);
    return window != nullptr && IsWindowEnabled(window);
}

std::wstring PageTest::TextOf(int control) const {
    return WizardDriver::TextOf(wizard.FindControl(control));
}

bool PageTest::WaitUntilEnabled(int control) const {
    return WaitUntil([&] { return IsEnabled(control); }, std::chrono::seconds(5));
}

void PageTest::AnswerCancel(int button) const {
    EXPECT_EQ(wizard.Answer(button).text, L"Cancel the installation?");
}

bool PageTest::HasAskedToCancel() const {
    const std::vector<LogRecord> log = AdvancedLog();
    return testing::Value(log, HasRecord(L"", L"Controller::Cancel called"));
}

bool PageTest::StaysQuiet() const {
    return !WaitUntil([this] { return !wizard.IsRunning() || wizard.FindBox() || HasAskedToCancel(); },
                      std::chrono::milliseconds(300));
}

// A bitmap, since pictures are known by what they hold and not by their names.
void PageTest::AddPicture(const std::wstring& name, COLORREF colour) {
    constexpr int width = 16;
    const BITMAPINFOHEADER header{.biSize = sizeof(BITMAPINFOHEADER),
                                  .biWidth = width,
                                  .biHeight = width,
                                  .biPlanes = 1,
                                  .biBitCount = 24};
    constexpr DWORD start = sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER);
    const BITMAPFILEHEADER file{.bfType = 0x4D42, .bfSize = start + width * width * 3, .bfOffBits = start};
    std::string bytes(reinterpret_cast<const char*>(&file), sizeof(file));
    bytes.append(reinterpret_cast<const char*>(&header), sizeof(header));
    for (int pixel = 0; pixel < width * width; ++pixel) {
        for (const BYTE part : {GetBValue(colour), GetGValue(colour), GetRValue(colour)}) {
            bytes += static_cast<char>(part);
        }
    }
    tree.WriteFile(L"Setup\\res\\images\\" + name, bytes);
}

bool PageTest::ShowsColour(HWND window, COLORREF colour) {
    const bool shown =
        WaitUntil([&] { return WizardDriver::PixelOf(window, insideFrame, insideFrame) == colour; },
                  std::chrono::seconds(3));
    if (!shown) {
        ADD_FAILURE() << "the screen shows " << std::hex
                      << WizardDriver::PixelOf(window, insideFrame, insideFrame);
    }
    return shown;
}
