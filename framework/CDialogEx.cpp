#include "framework/CDialogEx.h"

namespace {

// Takes nothing: the object bound to the dialog sees every message before the system's dialog procedure does.
INT_PTR CALLBACK DialogProcedure(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

}  // namespace

bool CDialogEx::Create(UINT templateId, CWnd* parent) {
    const CreationHook hook(*this);
    const HWND owner = parent == nullptr ? nullptr : parent->GetSafeHwnd();
    return CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(templateId), owner,
                              &DialogProcedure, 0) != nullptr;
}

bool CDialogEx::PreTranslateMessage(MSG* message) {
    return IsDialogMessageW(GetSafeHwnd(), message) != FALSE;
}

LRESULT CDialogEx::WindowProc(const WindowMessage& message) {
    return message.message == WM_INITDIALOG ? static_cast<LRESULT>(OnInitDialog())
                                            : CWnd::WindowProc(message);
}
