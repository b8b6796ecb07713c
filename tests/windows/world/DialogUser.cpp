#include "tests/windows/world/DialogUser.h"

#include <gtest/gtest.h>

#include <utility>

#include "framework/CMFCLinkCtrl.h"
#include "tests/windows/world/TestApp.h"
#include "tests/wizard/Waiting.h"
#include "wizard/CQorLinkButton.h"

DialogUser::DialogUser(HWND other, std::function<void(HWND)> deed)
    : thread([other, deed = std::move(deed), caller = GetCurrentThreadId()] {
          HWND dialog = nullptr;
          EXPECT_TRUE(WaitUntil([&] { return (dialog = FindDialogOf(caller, other)) != nullptr; }));
          if (dialog != nullptr) deed(dialog);
      }) {}

DialogUser::~DialogUser() {
    thread.join();
}

std::wstring TextOf(HWND window) {
    std::wstring text(400, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), 400)));
    return text;
}

std::wstring ClassOf(HWND window) {
    std::wstring name(64, L'\0');
    name.resize(static_cast<std::size_t>(GetClassNameW(window, name.data(), 64)));
    return name;
}

bool IsLink(HWND control) {
    const CWnd* const object = CWnd::FromHandle(control);
    return dynamic_cast<const CMFCLinkCtrl*>(object) != nullptr ||
           dynamic_cast<const CQorLinkButton*>(object) != nullptr;
}

void ClickOn(HWND dialog, int button) {
    PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, button)));
}
