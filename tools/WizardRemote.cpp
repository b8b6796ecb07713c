// Moves the wizard from outside, for the tour and for screenshots. Each call does one thing and ends with 0
// if it could:
//
//   WizardRemote wait ID      waits until a shown page has a shown control of that id
//   WizardRemote click ID     clicks the control of the shown page, as soon as it is enabled
//   WizardRemote scroll ID    scrolls the control to its end
//   WizardRemote pick ID TEXT picks the first row of the list that begins with the text
//   WizardRemote rows ID N    waits until the list has at least so many rows
//   WizardRemote list ID      prints the rows of the list, their cells divided by tabs
//   WizardRemote type ID TEXT puts the text into the field, as soon as it is enabled
//   WizardRemote answer ID    presses a button of the message box that is open
//   WizardRemote place        prints where the wizard's windows are, as WIDTHxHEIGHT+LEFT+TOP
//   WizardRemote quit         waits until the wizard has gone

#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <functional>
#include <string>
#include <string_view>

#include "framework/Handles.h"
#include "tools/PrintLine.h"

namespace {

constexpr DWORD pollInMilliseconds = 20;
constexpr DWORD limitInMilliseconds = 60000;
constexpr int longestCell = 260;

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

bool WaitUntilEnabled(int id) {
    return WaitFor([id] {
        const HWND control = FindShownControl(id);
        return control != nullptr && IsWindowEnabled(control) != FALSE;
    });
}

bool Click(int id) {
    return WaitUntilEnabled(id) && PostMessageW(FindShownControl(id), BM_CLICK, 0, 0) != FALSE;
}

bool Type(int id, const wchar_t* text) {
    return WaitUntilEnabled(id) &&
           SendMessageW(FindShownControl(id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) != FALSE;
}

bool HasRows(int id, LRESULT count) {
    const HWND list = FindShownControl(id);
    return list != nullptr && SendMessageW(list, LVM_GETITEMCOUNT, 0, 0) >= count;
}

// Memory of the wizard's process, in which a message of a list points at what it is about.
class RemoteMemory {
public:
    RemoteMemory(HWND window, SIZE_T size) {
        DWORD id = 0;
        GetWindowThreadProcessId(window, &id);
        process.reset(OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id));
        if (process) place = VirtualAllocEx(process.get(), nullptr, size, MEM_COMMIT, PAGE_READWRITE);
    }
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;
    ~RemoteMemory() {
        if (place != nullptr) VirtualFreeEx(process.get(), place, 0, MEM_RELEASE);
    }

    BYTE* Place() const { return static_cast<BYTE*>(place); }
    bool Write(SIZE_T offset, const void* data, SIZE_T size) const {
        return place != nullptr &&
               WriteProcessMemory(process.get(), Place() + offset, data, size, nullptr) != FALSE;
    }
    bool Read(SIZE_T offset, void* data, SIZE_T size) const {
        return place != nullptr &&
               ReadProcessMemory(process.get(), Place() + offset, data, size, nullptr) != FALSE;
    }

private:
    KernelHandle process;
    void* place = nullptr;
};

bool PickRow(int id, const std::wstring& text) {
    if (!WaitFor([id] { return FindShownControl(id) != nullptr; })) return false;
    const HWND list = FindShownControl(id);
    const SIZE_T textSize = (text.size() + 1) * sizeof(wchar_t);
    const RemoteMemory memory(list, sizeof(LVITEMW) + textSize);
    LVFINDINFOW wanted{};
    wanted.flags = LVFI_PARTIAL;
    wanted.psz = reinterpret_cast<const wchar_t*>(memory.Place() + sizeof(LVITEMW));
    if (!memory.Write(0, &wanted, sizeof(wanted)) || !memory.Write(sizeof(LVITEMW), text.c_str(), textSize)) {
        return false;
    }
    const auto place = reinterpret_cast<LPARAM>(memory.Place());
    const LRESULT row = SendMessageW(list, LVM_FINDITEMW, static_cast<WPARAM>(-1), place);
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    item.state = item.stateMask;
    return row >= 0 && memory.Write(0, &item, sizeof(item)) &&
           SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), place) != FALSE &&
           SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE) != FALSE;
}

// The text of a cell, which the list writes after the structure in the memory.
bool ReadCell(HWND list, const RemoteMemory& memory, LRESULT row, int column, std::wstring& text) {
    wchar_t cell[longestCell] = {};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = reinterpret_cast<wchar_t*>(memory.Place() + sizeof(item));
    item.cchTextMax = longestCell;
    if (!memory.Write(0, &item, sizeof(item)) || !memory.Write(sizeof(item), cell, sizeof(cell)))
        return false;
    const auto place = reinterpret_cast<LPARAM>(memory.Place());
    SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), place);
    if (!memory.Read(sizeof(item), cell, sizeof(cell))) return false;
    text.assign(cell, wcsnlen(cell, longestCell));
    return true;
}

bool PrintRows(int id) {
    const HWND list = FindShownControl(id);
    if (list == nullptr) return false;
    const RemoteMemory memory(list, sizeof(LVITEMW) + longestCell * sizeof(wchar_t));
    const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    const LRESULT columns = SendMessageW(header, HDM_GETITEMCOUNT, 0, 0);
    const LRESULT rows = SendMessageW(list, LVM_GETITEMCOUNT, 0, 0);
    for (LRESULT row = 0; row < rows; ++row) {
        std::wstring line;
        for (int column = 0; column < columns; ++column) {
            std::wstring cell;
            if (!ReadCell(list, memory, row, column, cell)) return false;
            line += (column == 0 ? L"" : L"\t") + cell;
        }
        PrintLine(line);
    }
    return true;
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
    if (verb == L"pick" && count > 3) done = PickRow(id, arguments[3]);
    if (verb == L"rows" && count > 3) done = WaitFor([=] { return HasRows(id, _wtoi(arguments[3])); });
    if (verb == L"list") done = PrintRows(id);
    if (verb == L"type" && count > 3) done = Type(id, arguments[3]);
    if (verb == L"place") done = PrintPlace();
    if (verb == L"quit") done = WaitFor([] { return FindWindowW(L"#32770", nullptr) == nullptr; });
    return done ? EXIT_SUCCESS : EXIT_FAILURE;
}
