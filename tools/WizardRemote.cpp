// Moves the wizard from outside, for the tour and for screenshots. Each call does one thing and ends with 0
// if it could:
//
//   WizardRemote wait ID      waits until a shown page has a shown control of that id
//   WizardRemote click ID     clicks the control of the shown page, as soon as it is enabled
//   WizardRemote scroll ID    scrolls the control to its end
//   WizardRemote rows ID N    waits until the list has at least so many rows
//   WizardRemote answer ID    presses a button of the message box that is open
//   WizardRemote place        prints where the wizard's windows are, as WIDTHxHEIGHT+LEFT+TOP
//   WizardRemote quit         waits until the wizard has gone

#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <functional>
#include <string_view>

namespace {

constexpr DWORD pollInMilliseconds = 20;
constexpr DWORD limitInMilliseconds = 60000;

bool WaitFor(const std::function<bool()>& condition) {
    for (DWORD waited = 0; waited < limitInMilliseconds; waited += pollInMilliseconds) {
        if (condition()) return true;
        Sleep(pollInMilliseconds);
    }
    return false;
}

struct Search {
    int id;
    HWND found;
};

// The main window or dialog of the wizard is the only dialog that is shown and holds such a control.
BOOL CALLBACK LookAtChild(HWND child, LPARAM parameter) {
    Search& search = *reinterpret_cast<Search*>(parameter);
    if (GetDlgCtrlID(child) != search.id || IsWindowVisible(child) == FALSE) return TRUE;
    search.found = child;
    return FALSE;
}

BOOL CALLBACK LookAtWindow(HWND window, LPARAM parameter) {
    wchar_t name[32] = {};
    GetClassNameW(window, name, 32);
    if (std::wcscmp(name, L"#32770") != 0 || IsWindowVisible(window) == FALSE) return TRUE;
    EnumChildWindows(window, &LookAtChild, parameter);
    return reinterpret_cast<Search*>(parameter)->found == nullptr ? TRUE : FALSE;
}

HWND FindShownControl(int id) {
    Search search{.id = id, .found = nullptr};
    EnumWindows(&LookAtWindow, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

bool Click(int id) {
    const auto clickable = [id] {
        const HWND control = FindShownControl(id);
        return control != nullptr && IsWindowEnabled(control) != FALSE;
    };
    if (!WaitFor(clickable)) return false;
    const HWND control = FindShownControl(id);
    return PostMessageW(control, BM_CLICK, 0, 0) != FALSE;
}

bool HasRows(int id, LRESULT count) {
    const HWND list = FindShownControl(id);
    return list != nullptr && SendMessageW(list, LVM_GETITEMCOUNT, 0, 0) >= count;
}

bool ScrollToEnd(int id) {
    const HWND control = FindShownControl(id);
    return control != nullptr && PostMessageW(control, WM_VSCROLL, SB_BOTTOM, 0) != FALSE;
}

// Widens the area by each window of the wizard that is shown: pages, and what opened over them.
BOOL CALLBACK AddToArea(HWND window, LPARAM parameter) {
    wchar_t name[32] = {};
    GetClassNameW(window, name, 32);
    if (std::wcscmp(name, L"#32770") != 0 || IsWindowVisible(window) == FALSE) return TRUE;
    RECT own{};
    GetWindowRect(window, &own);
    RECT& area = *reinterpret_cast<RECT*>(parameter);
    const RECT before = area;
    UnionRect(&area, &before, &own);
    return TRUE;
}

bool PrintPlace() {
    RECT area{};
    EnumWindows(&AddToArea, reinterpret_cast<LPARAM>(&area));
    std::printf("%ldx%ld+%ld+%ld\n", area.right - area.left, area.bottom - area.top, area.left, area.top);
    return IsRectEmpty(&area) == FALSE;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    const std::wstring_view verb = count > 1 ? arguments[1] : L"";
    const int id = count > 2 ? _wtoi(arguments[2]) : 0;
    bool done = false;
    if (verb == L"wait") done = WaitFor([id] { return FindShownControl(id) != nullptr; });
    if (verb == L"click" || verb == L"answer") done = Click(id);
    if (verb == L"scroll") done = ScrollToEnd(id);
    if (verb == L"rows" && count > 3) done = WaitFor([=] { return HasRows(id, _wtoi(arguments[3])); });
    if (verb == L"place") done = PrintPlace();
    if (verb == L"quit") done = WaitFor([] { return FindWindowW(L"#32770", nullptr) == nullptr; });
    return done ? EXIT_SUCCESS : EXIT_FAILURE;
}
