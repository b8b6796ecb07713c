// The least that a program with a dialog can be: what the wizard's start is compared with.

#include <windows.h>

#include "resources/resource.h"

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
    // The control has the id by which the wizard's first page is known.
    const HWND dialog = CreateWindowExW(0, L"#32770", L"Empty", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100,
                                        600, 500, nullptr, nullptr, instance, nullptr);
    CreateWindowExW(0, L"Static", L"Text", WS_CHILD | WS_VISIBLE, 10, 10, 200, 20, dialog,
                    reinterpret_cast<HMENU>(IDC_START_TITLE), instance, nullptr);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    return 0;
}
