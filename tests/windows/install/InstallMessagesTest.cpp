#include <thread>

#include "framework/CDialogEx.h"
#include "install/InstallMessages.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/SettingsTest.h"
#include "tests/windows/world/TestApp.h"
#include "tests/wizard/Waiting.h"

namespace {

std::wstring TextOf(HWND window) {
    std::wstring text(400, L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), 400)));
    return text;
}

// A program with a main window, in front of which boxes come up.
class ErrorDialogTest : public SettingsTest {
protected:
    ErrorDialogTest() {
        AddTexts(
            "<DISK_FULL_ERROR_TITLE>full title</DISK_FULL_ERROR_TITLE>"
            "<DISK_FULL_ERROR_TEXT>full</DISK_FULL_ERROR_TEXT>"
            "<INSTALL_ALREADY_RUNNING_TITLE>running title</INSTALL_ALREADY_RUNNING_TITLE>"
            "<INSTALL_ALREADY_RUNNING_TEXT>running</INSTALL_ALREADY_RUNNING_TEXT>"
            "<PERMISSION_ERROR_TITLE>rights title</PERMISSION_ERROR_TITLE>"
            "<PERMISSION_ERROR_TEXT>rights</PERMISSION_ERROR_TEXT>"
            "<ERROR_TITLE>error title</ERROR_TITLE><ERROR_TEXT>error</ERROR_TEXT>");
        window.Create(IDD_TEST, nullptr);
        app.SetMainWnd(&window);
    }

    // Shows the box, answers it and gives what the caller got. Title and text stay in "shown".
    bool Show(std::uint32_t code) {
        const DWORD caller = GetCurrentThreadId();
        std::thread user([&] {
            HWND box = nullptr;
            if (!WaitUntil([&] { return (box = FindDialogOf(caller, window.GetSafeHwnd())) != nullptr; }))
                return;
            constexpr int boxText = 65535;
            shown = TextOf(box) + L": " + TextOf(GetDlgItem(box, boxText));
            PostMessageW(box, WM_COMMAND, IDOK, 0);
        });
        const bool stops = ShowErrorDialog(code);
        user.join();
        return stops;
    }

    TestApp app;
    CDialogEx window;
    std::wstring shown = L"nothing";
};

struct ErrorBox {
    std::uint32_t code;
    std::wstring shown;
    bool stops;
};

class ErrorBoxTest : public ErrorDialogTest, public testing::WithParamInterface<ErrorBox> {};

TEST_P(ErrorBoxTest, ShowsItsTextsAndSaysWhetherTheRunStops) {
    EXPECT_EQ(Show(GetParam().code), GetParam().stops);
    EXPECT_EQ(shown, GetParam().shown);
}

const ErrorBox boxes[] = {
    {112, L"full title: full", true},
    {1247, L"running title: running", true},
    {1618, L"running title: running", true},
    {1625, L"rights title: rights", true},
    {1640, L"rights title: rights", true},
    {1603, L"error title: error", true},
    {1622, L": ", false},
    {1623, L": ", false},
};

INSTANTIATE_TEST_SUITE_P(Codes, ErrorBoxTest, testing::ValuesIn(boxes),
                         [](const auto& box) { return std::to_string(box.param.code); });

TEST_F(ErrorDialogTest, StaysAwayInAnOptionalRun) {
    Settings().SetBool(L"OPTIONAL_INSTALL", true);
    EXPECT_FALSE(ShowErrorDialog(112));
}

TEST_F(ErrorDialogTest, GivesTheSameAnswerWithoutAMainWindow) {
    app.SetMainWnd(nullptr);
    EXPECT_TRUE(ShowErrorDialog(112));
    EXPECT_FALSE(ShowErrorDialog(1623));
}

}  // namespace
