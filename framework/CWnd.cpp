#include "framework/CWnd.h"

#include <map>
#include <mutex>
#include <utility>

#include "framework/CWinApp.h"
#include "framework/Handles.h"

namespace {

class HandleMap {
public:
    void Insert(HWND window, CWnd* object) {
        const std::lock_guard guard(lock);
        objects[window] = object;
    }
    void Remove(HWND window) {
        const std::lock_guard guard(lock);
        objects.erase(window);
    }
    CWnd* Find(HWND window) {
        const std::lock_guard guard(lock);
        const auto entry = objects.find(window);
        return entry == objects.end() ? nullptr : entry->second;
    }

private:
    std::mutex lock;
    std::map<HWND, CWnd*> objects;
};

HandleMap& Handles() {
    static HandleMap map;
    return map;
}

// The object that waits for the window which this thread is about to create.
struct PendingCreation {
    CWnd* object = nullptr;
    WindowsHook hook;
};
thread_local PendingCreation pendingCreation;

}  // namespace

CWnd::~CWnd() {
    DestroyWindow();
}

CWnd* CWnd::FromHandle(HWND window) {
    return Handles().Find(window);
}

bool CWnd::SubclassDlgItem(int id, const CWnd& dialog) {
    const HWND control = dialog.GetDlgItem(id);
    if (control == nullptr) return false;
    Bind(control);
    return true;
}

std::wstring CWnd::GetWindowText() const {
    const auto length = SendMessage(WM_GETTEXTLENGTH);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const auto copied = SendMessage(WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

bool CWnd::DestroyWindow() {
    const HWND window = handle;
    return window != nullptr && ::DestroyWindow(window) != FALSE;
}

void CWnd::DrawItem(const DRAWITEMSTRUCT&) {}

bool CWnd::PreTranslateMessage(MSG*) {
    return false;
}

const MessageMap& CWnd::GetMessageMap() const {
    static const MessageMap map(nullptr, {});
    return map;
}

void CWnd::Bind(HWND window) {
    handle = window;
    Handles().Insert(window, this);
    PreSubclassWindow();
    formerProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
}

void CWnd::Unbind() {
    Handles().Remove(handle);
    handle = nullptr;
    formerProcedure = nullptr;
}

LRESULT CALLBACK CWnd::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    CWnd* const object = FromHandle(window);
    if (object == nullptr) return ::DefWindowProcW(window, message, wParam, lParam);
    try {
        return object->WindowProc({message, wParam, lParam});
    } catch (...) {
        // No exception may cross the system's frames below this one.
        CWinApp::ReportUnhandledException(L"window procedure");
        return 0;
    }
}

LRESULT CWnd::WindowProc(const WindowMessage& message) {
    const WindowMessage outer = std::exchange(current, message);
    LRESULT result = 0;
    if (!GetMessageMap().Dispatch(*this, message, result)) result = DefWindowProc(message);
    current = outer;
    // Nothing is sent after this message, so that the object may be bound anew or go.
    if (message.message == WM_NCDESTROY) Unbind();
    return result;
}

LRESULT CWnd::Default() {
    return DefWindowProc(current);
}

LRESULT CWnd::DefWindowProc(const WindowMessage& message) {
    return formerProcedure == nullptr
               ? ::DefWindowProcW(handle, message.message, message.wParam, message.lParam)
               : ::CallWindowProcW(formerProcedure, handle, message.message, message.wParam, message.lParam);
}

CWnd::CreationHook::CreationHook(CWnd& window) {
    pendingCreation.object = &window;
    pendingCreation.hook.reset(SetWindowsHookExW(WH_CBT, &OnWindowCreation, nullptr, GetCurrentThreadId()));
}

CWnd::CreationHook::~CreationHook() {
    pendingCreation.object = nullptr;
    pendingCreation.hook.reset();
}

LRESULT CALLBACK CWnd::OnWindowCreation(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_CREATEWND && pendingCreation.object != nullptr) {
        std::exchange(pendingCreation.object, nullptr)->Bind(reinterpret_cast<HWND>(wParam));
    }
    const LRESULT result = CallNextHookEx(nullptr, code, wParam, lParam);
    // Only the first window is the awaited one; the children of a dialog need not come through here.
    if (pendingCreation.object == nullptr) pendingCreation.hook.reset();
    return result;
}
