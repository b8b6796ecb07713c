// Message maps: one table per class, at the head of its source file, that names an event and its handler.
#pragma once

#include <windows.h>

#include <olectl.h>

#include <functional>
#include <vector>

class CWnd;

// A window message on its way to a handler.
struct WindowMessage {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

struct MessageMapEntry {
    std::function<bool(const WindowMessage&)> matches;
    std::function<LRESULT(CWnd&, const WindowMessage&)> handle;
};

class MessageMap {
public:
    // The base map is asked for what this table does not name; it may be null and must outlive this map.
    MessageMap(const MessageMap* baseMap, std::vector<MessageMapEntry> ownEntries);

    // Hands the message to the first entry that names it, own entries first. False if none does.
    bool Dispatch(CWnd& window, const WindowMessage& message, LRESULT& result) const;

private:
    const MessageMap* base;
    std::vector<MessageMapEntry> entries;
};

// The makers of a map's entries for the window class Window.
template <class Window>
struct EventsOf {
    // A window message, registered ones included. The handler gets both parameters and returns the result.
    static MessageMapEntry Message(UINT message, LRESULT (Window::*handler)(WPARAM, LPARAM)) {
        return {.matches = [message](const WindowMessage& m) { return m.message == message; },
                .handle =
                    [handler](CWnd& window, const WindowMessage& m) {
                        return (static_cast<Window&>(window).*handler)(m.wParam, m.lParam);
                    }};
    }

    // A click on the control with this id (or its menu item or key).
    static MessageMapEntry Click(UINT id, void (Window::*handler)()) {
        return Control(id, BN_CLICKED, handler);
    }

    // A notification that the control with this id sends as a command, such as CBN_SELCHANGE.
    static MessageMapEntry Control(UINT id, UINT code, void (Window::*handler)()) {
        return {.matches =
                    [id, code](const WindowMessage& m) {
                        return m.message == WM_COMMAND && LOWORD(m.wParam) == id && HIWORD(m.wParam) == code;
                    },
                .handle = [handler](CWnd& window, const WindowMessage&) -> LRESULT {
                    (static_cast<Window&>(window).*handler)();
                    return 0;
                }};
    }

    // A notification that the control with this id sends with a record. The handler returns the result.
    static MessageMapEntry Notify(UINT id, UINT code, LRESULT (Window::*handler)(NMHDR&)) {
        return {.matches =
                    [id, code](const WindowMessage& m) {
                        return m.message == WM_NOTIFY && RecordOf(m).idFrom == id && RecordOf(m).code == code;
                    },
                .handle = WithRecord(handler)};
    }

    // A notification of the control itself that its dialog has not handled. The handler returns the result.
    static MessageMapEntry OwnNotify(UINT code, LRESULT (Window::*handler)(NMHDR&)) {
        return {.matches =
                    [code](const WindowMessage& m) {
                        return m.message == OCM_NOTIFY && RecordOf(m).code == code;
                    },
                .handle = WithRecord(handler)};
    }

private:
    static NMHDR& RecordOf(const WindowMessage& message) { return *reinterpret_cast<NMHDR*>(message.lParam); }

    static auto WithRecord(LRESULT (Window::*handler)(NMHDR&)) {
        return [handler](CWnd& window, const WindowMessage& m) {
            return (static_cast<Window&>(window).*handler)(RecordOf(m));
        };
    }
};
