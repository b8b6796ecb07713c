#include "tools/Rollout/BoxWindows.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace rollout {
namespace {

constexpr int messageTextId = 0xFFFF;
constexpr UINT longestTextInMilliseconds = 1000;
constexpr std::size_t longestBoxText = 2048;

std::wstring ClassOf(HWND window) {
    std::array<wchar_t, 64> name{};
    const int length = GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return {name.data(), static_cast<std::size_t>(length)};
}

std::wstring TextOf(HWND window) {
    std::wstring text(longestBoxText, L'\0');
    DWORD_PTR length = 0;
    if (SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                            SMTO_ABORTIFHUNG, longestTextInMilliseconds, &length) == 0) {
        length = 0;
    }
    text.resize(std::min(static_cast<std::size_t>(length), longestBoxText));
    return text;
}

bool CanBePressed(HWND control) {
    return ClassOf(control) == L"Button" && IsWindowVisible(control) != FALSE &&
           IsWindowEnabled(control) != FALSE;
}

BOOL CALLBACK TakeControl(HWND control, LPARAM parameter) {
    Box& box = *reinterpret_cast<Box*>(parameter);
    const int id = GetDlgCtrlID(control);
    if (CanBePressed(control)) {
        box.buttons.push_back(id);
    } else if (ClassOf(control) == L"Static" && (id == messageTextId || box.text.empty())) {
        box.text = TextOf(control);
    }
    return TRUE;
}

struct BoxSearch {
    DWORD processId = 0;
    std::vector<HWND> found;
};

BOOL CALLBACK TakeDialog(HWND window, LPARAM parameter) {
    BoxSearch& search = *reinterpret_cast<BoxSearch*>(parameter);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner == search.processId && IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE &&
        ClassOf(window) == L"#32770") {
        search.found.push_back(window);
    }
    return TRUE;
}

}  // namespace

std::vector<BoxOnScreen> FindBoxes(DWORD processId) {
    BoxSearch search{.processId = processId};
    EnumWindows(&TakeDialog, reinterpret_cast<LPARAM>(&search));
    std::vector<BoxOnScreen> boxes;
    for (const HWND window : search.found) {
        BoxOnScreen found{.window = window, .box = {.title = TextOf(window)}};
        EnumChildWindows(window, &TakeControl, reinterpret_cast<LPARAM>(&found.box));
        boxes.push_back(std::move(found));
    }
    return boxes;
}

void PressButton(HWND window, int button) {
    const HWND control = GetDlgItem(window, button);
    PostMessageW(window, WM_COMMAND, static_cast<WPARAM>(MAKELONG(button, BN_CLICKED)),
                 reinterpret_cast<LPARAM>(control));
}

}  // namespace rollout
