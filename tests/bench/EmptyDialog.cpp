// The least that a program with a dialog can be: what the wizard's start is compared with.

#include <windows.h>

namespace {

// An extended template of a dialog with one static control, id 1082, as the wizard's first page has.
constexpr WORD emptyTemplate[] = {
    1, 0xFFFF, 0, 0, 0, 0, LOWORD(WS_VISIBLE), HIWORD(WS_POPUP | WS_CAPTION | WS_VISIBLE), 1, 0, 0, 200, 100,
    0, 0, 0,
    // The control: help id, styles, place, id, class "Static", no text, no data.
    0, 0, 0, 0, 0, LOWORD(WS_CHILD), HIWORD(WS_CHILD | WS_VISIBLE), 10, 10, 100, 20, 1082, 0, 0xFFFF, 0x0082,
    0, 0};

INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM, LPARAM) {
    if (message != WM_CLOSE) return FALSE;
    EndDialog(window, 0);
    return TRUE;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
    alignas(DWORD) WORD copy[sizeof(emptyTemplate) / sizeof(WORD)];
    CopyMemory(copy, emptyTemplate, sizeof(copy));
    return static_cast<int>(DialogBoxIndirectParamW(instance, reinterpret_cast<DLGTEMPLATE*>(copy), nullptr,
                                                    &DialogProcedure, 0));
}
