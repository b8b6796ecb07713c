// Owners of system handles. This is the only place where a handle is closed by hand.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <utility>

// Owns one handle of the kind that Kind describes: its type, its invalid value and how it is closed. Closing
// keeps the thread's last error, so that an owner may go out of scope between a failed call and its report.
template <class Kind>
class HandleOwner {
public:
    using Handle = typename Kind::Handle;

    HandleOwner() = default;
    explicit HandleOwner(Handle owned) : handle(owned) {}
    HandleOwner(HandleOwner&& other) noexcept : handle(other.release()) {}
    HandleOwner& operator=(HandleOwner&& other) noexcept {
        if (this != &other) reset(other.release());
        return *this;
    }
    HandleOwner(const HandleOwner&) = delete;
    HandleOwner& operator=(const HandleOwner&) = delete;
    ~HandleOwner() { reset(); }

    Handle get() const noexcept { return handle; }
    explicit operator bool() const noexcept { return handle != Kind::invalid(); }
    [[nodiscard]] Handle release() noexcept { return std::exchange(handle, Kind::invalid()); }

    void reset(Handle owned = Kind::invalid()) {
        const Handle old = std::exchange(handle, owned);
        if (old == Kind::invalid()) return;
        const DWORD lastError = GetLastError();
        Kind::close(old);
        SetLastError(lastError);
    }

    // For calls that hand a handle out through a pointer; what was owned before is closed first.
    Handle* put() {
        reset();
        return &handle;
    }

private:
    Handle handle = Kind::invalid();
};

// What the kinds whose invalid value is null have in common.
template <class Type>
struct NullInvalid {
    using Handle = Type;
    static Handle invalid() noexcept { return nullptr; }
};

struct KernelHandleKind : NullInvalid<HANDLE> {
    static void close(HANDLE handle) { CloseHandle(handle); }
};
struct FileHandleKind {
    using Handle = HANDLE;
    static HANDLE invalid() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(HANDLE handle) { CloseHandle(handle); }
};
struct FindHandleKind {
    using Handle = HANDLE;
    static HANDLE invalid() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(HANDLE handle) { FindClose(handle); }
};
struct RegistryKeyKind : NullInvalid<HKEY> {
    static void close(HKEY key) { RegCloseKey(key); }
};
struct EventSourceKind : NullInvalid<HANDLE> {
    static void close(HANDLE source) { DeregisterEventSource(source); }
};
struct LibraryKind : NullInvalid<HMODULE> {
    static void close(HMODULE library) { FreeLibrary(library); }
};
struct LocalMemoryKind : NullInvalid<HLOCAL> {
    static void close(HLOCAL memory) { LocalFree(memory); }
};
struct SidKind : NullInvalid<PSID> {
    static void close(PSID sid) { FreeSid(sid); }
};
struct BitmapKind : NullInvalid<HBITMAP> {
    static void close(HBITMAP bitmap) { DeleteObject(bitmap); }
};
struct FontKind : NullInvalid<HFONT> {
    static void close(HFONT font) { DeleteObject(font); }
};
struct BrushKind : NullInvalid<HBRUSH> {
    static void close(HBRUSH brush) { DeleteObject(brush); }
};
struct PenKind : NullInvalid<HPEN> {
    static void close(HPEN pen) { DeleteObject(pen); }
};
struct IconKind : NullInvalid<HICON> {
    static void close(HICON icon) { DestroyIcon(icon); }
};
struct MemoryDcKind : NullInvalid<HDC> {
    static void close(HDC context) { DeleteDC(context); }
};
struct ImageListKind : NullInvalid<HIMAGELIST> {
    static void close(HIMAGELIST list) { ImageList_Destroy(list); }
};
struct FontResourceKind : NullInvalid<HANDLE> {
    static void close(HANDLE font) { RemoveFontMemResourceEx(font); }
};
struct HookKind : NullInvalid<HHOOK> {
    static void close(HHOOK hook) { UnhookWindowsHookEx(hook); }
};

using KernelHandle = HandleOwner<KernelHandleKind>;
using FileHandle = HandleOwner<FileHandleKind>;
using FindHandle = HandleOwner<FindHandleKind>;
using RegistryKey = HandleOwner<RegistryKeyKind>;
using EventSource = HandleOwner<EventSourceKind>;
using Library = HandleOwner<LibraryKind>;
using LocalMemory = HandleOwner<LocalMemoryKind>;
using Sid = HandleOwner<SidKind>;
using Bitmap = HandleOwner<BitmapKind>;
using Font = HandleOwner<FontKind>;
using Brush = HandleOwner<BrushKind>;
using Pen = HandleOwner<PenKind>;
using Icon = HandleOwner<IconKind>;
using MemoryDc = HandleOwner<MemoryDcKind>;
using ImageList = HandleOwner<ImageListKind>;
using FontResource = HandleOwner<FontResourceKind>;
using WindowsHook = HandleOwner<HookKind>;

// The device context of a window, or with null of the screen.
class WindowDc {
public:
    explicit WindowDc(HWND owner) : window(owner), context(GetDC(owner)) {}
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    ~WindowDc() { ReleaseDC(window, context); }

    HDC get() const noexcept { return context; }

private:
    HWND window;
    HDC context;
};

// The device context for the answer to one WM_PAINT.
class PaintDc {
public:
    explicit PaintDc(HWND painted) : window(painted), context(BeginPaint(painted, &paint)) {}
    PaintDc(const PaintDc&) = delete;
    PaintDc& operator=(const PaintDc&) = delete;
    ~PaintDc() { EndPaint(window, &paint); }

    HDC get() const noexcept { return context; }

private:
    PAINTSTRUCT paint{};
    HWND window;
    HDC context;
};

// Puts an object into a device context and the former one back at the end of its life.
class SelectedObject {
public:
    SelectedObject(HDC target, HGDIOBJ object) : context(target), former(SelectObject(target, object)) {}
    SelectedObject(const SelectedObject&) = delete;
    SelectedObject& operator=(const SelectedObject&) = delete;
    ~SelectedObject() { SelectObject(context, former); }

private:
    HDC context;
    HGDIOBJ former;
};

// The export of a loaded library under its type, or null when the library has none of that name.
template <class Function>
Function FindExport(HMODULE library, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}
