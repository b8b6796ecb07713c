#include "PageTest.h"

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
