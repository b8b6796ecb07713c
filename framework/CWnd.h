// The base of all windows: a C++ object bound to a window handle, whose messages it sees first.
#pragma once

#include <atomic>
#include <string>

#include "framework/MessageMap.h"

// A window is destroyed by its parent or by DestroyWindow; the object outlives it and is then unbound. The
// handle map is locked, since workers open windows too, and any thread may ask for the handle and send to the
// window. Everything else, with the fonts, icons and brushes of derived classes, belongs to the thread that
// made the window.
class CWnd {
public:
    CWnd() = default;
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;
    virtual ~CWnd();

    HWND GetSafeHwnd() const { return handle; }

    // The object bound to a handle, or null.
    static CWnd* FromHandle(HWND window);

    // Binds this object to an existing control of a dialog. False if the dialog has no such control.
    bool SubclassDlgItem(int id, const CWnd& dialog);

    // The control's handle, or null.
    HWND GetDlgItem(int id) const { return ::GetDlgItem(handle, id); }
    std::wstring GetWindowText() const;
    void SetWindowText(const std::wstring& text) { ::SetWindowTextW(handle, text.c_str()); }
    bool ShowWindow(int command) { return ::ShowWindow(handle, command) != FALSE; }
    void MoveWindow(int x, int y, int width, int height) { ::MoveWindow(handle, x, y, width, height, TRUE); }
    void SetParent(const CWnd& parent) { ::SetParent(handle, parent.handle); }
    bool EnableWindow(bool enable) { return ::EnableWindow(handle, enable ? TRUE : FALSE) != FALSE; }
    void SetFocus() { ::SetFocus(handle); }
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::SendMessageW(handle, message, wParam, lParam);
    }
    bool PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::PostMessageW(handle, message, wParam, lParam) != FALSE;
    }
    // Destroys the window, if there is one; the object stays.
    bool DestroyWindow();

    // For controls: draws the control that its dialog was asked to draw. The base draws nothing.
    virtual void DrawItem(const DRAWITEMSTRUCT& item);
    // For controls: sees a click on itself that its dialog does not handle.
    virtual void OnClicked() {}

    // Sees a posted message before it is translated. True if the message is done with.
    virtual bool PreTranslateMessage(MSG* message);

protected:
    // Runs when the object is bound, before a new window gets its first message.
    virtual void PreSubclassWindow() {}

    virtual const MessageMap& GetMessageMap() const;

    // The default handling of the message that is being handled, for a handler that only adds to it.
    LRESULT Default();

    // Binds the next window that this thread creates to this object, before its first message.
    class CreationHook {
    public:
        explicit CreationHook(CWnd& window);
        CreationHook(const CreationHook&) = delete;
        CreationHook& operator=(const CreationHook&) = delete;
        ~CreationHook();
    };

    virtual LRESULT WindowProc(const WindowMessage& message);
    LRESULT DefWindowProc(const WindowMessage& message);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK OnWindowCreation(int code, WPARAM wParam, LPARAM lParam);
    void Bind(HWND window);
    void Unbind();

    // Bound and unbound by the window's thread, and read by any.
    std::atomic<HWND> handle = nullptr;
    WNDPROC formerProcedure = nullptr;
    WindowMessage current{};
};
