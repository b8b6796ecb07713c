#include "tests/windows/world/TestApp.h"

#include "CommonLib/Utf8.h"
#include "tests/windows/world/ScratchFolder.h"

void TestApp::OnUnhandledException(const std::wstring& where, const std::string& what) noexcept {
    const std::lock_guard guard(lock);
    exceptions.push_back(ToUtf8(where) + ": " + what);
}

std::vector<std::string> TestApp::Exceptions() const {
    const std::lock_guard guard(lock);
    return exceptions;
}

void PumpMessages() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

namespace {

struct DialogSearch {
    HWND other;
    HWND found;
};

BOOL CALLBACK TakeDialog(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<DialogSearch*>(parameter);
    wchar_t kind[16]{};
    GetClassNameW(window, kind, 16);
    const bool fits =
        window != search.other && IsWindowVisible(window) != FALSE && kind == std::wstring(L"#32770");
    if (fits) search.found = window;
    return fits ? FALSE : TRUE;
}

}  // namespace

HWND FindDialogOf(DWORD thread, HWND other) {
    DialogSearch search{.other = other, .found = nullptr};
    EnumThreadWindows(thread, &TakeDialog, reinterpret_cast<LPARAM>(&search));
    return search.found;
}
