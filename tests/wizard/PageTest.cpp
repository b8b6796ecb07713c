#include "tests/wizard/PageTest.h"

#include "tests/wizard/BitmapFile.h"

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
    wizard.Settle();
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

void PageTest::AddPicture(const std::wstring& name, COLORREF colour) {
    tree.WriteFile(L"Setup\\res\\images\\" + name, BitmapFile(colour));
}

bool PageTest::HasColour(HWND window, COLORREF colour, std::chrono::milliseconds limit) {
    return WaitUntil([&] { return WizardDriver::PixelOf(window, insideFrame, insideFrame) == colour; },
                     limit);
}

bool PageTest::ShowsColour(HWND window, COLORREF colour) {
    const bool shown = HasColour(window, colour, std::chrono::seconds(10));
    if (!shown) {
        ADD_FAILURE() << "the screen shows " << std::hex
                      << WizardDriver::PixelOf(window, insideFrame, insideFrame);
    }
    return shown;
}
