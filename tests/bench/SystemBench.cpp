// Measures what touches the system, beside the limit it can be compared with. Lies in a package tree beside
// Brevanto.dll, like the program.
//
//   SystemBench library    lists the tree's packages and asks the library the two questions about each
//   SystemBench catalogue  builds both catalogues of the program
//   SystemBench log N      writes N log records, and then the same bytes to a file under a mutex
//
//   SystemBench list N     shows N devices in the list of the discovery page, and sorts them by their address
//
//   SystemBench start PROGRAM  starts a program of this folder and waits for its first page, then ends it
//
// Prints microseconds.

#include <windows.h>

#include <commctrl.h>

#include <chrono>
#include <cstdio>
#include <functional>
#include <list>
#include <string>
#include <string_view>
#include <vector>

#include "CommonLib/Files.h"
#include "CommonLib/InterProcessLock.h"
#include "CommonLib/LogRecord.h"
#include "CommonLib/Logger.h"
#include "CommonLib/PackageLibraries.h"
#include "app/Collaborators.h"
#include "catalogue/MsiInfoService.h"
#include "catalogue/MsiInterface.h"
#include "discovery/DiscoveryListCtrl.h"
#include "framework/Handles.h"
#include "resources/resource.h"
#include "settings/Localizer.h"
#include "settings/SettingsFiles.h"
#include "settings/TextKeys.h"

namespace {

long long MicrosecondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start)
        .count();
}

std::vector<std::wstring> ListPackages() {
    std::vector<std::wstring> paths;
    for (const wchar_t* folder : {L"Drivers\\x64\\", L"Drivers\\x86_x64\\", L"Applications\\",
                                  L"Applications\\x86_x64\\", L"Applications\\x64\\", L"Common\\x86_x64\\",
                                  L"Common\\x64\\", L"Optional\\x86_x64\\", L"Optional\\x64\\"}) {
        FindFiles(GetExeDirectory() + L"\\..\\..\\" + folder, paths, L"msi");
    }
    return paths;
}

void AskLibrary(HMODULE library) {
    const auto enable = FindExport<decltype(&MsiEnableInstallLog)>(library, "MsiEnableInstallLog");
    const auto properties = FindExport<decltype(&MsiGetProperties)>(library, "MsiGetProperties");
    const auto installed = FindExport<decltype(&MsiIsAppInstalledByLang)>(library, "MsiIsAppInstalledByLang");
    std::wstring buffer(2048, L'\0');
    for (const std::wstring& path : ListPackages()) {
        const auto length = static_cast<std::uint32_t>(path.size());
        std::uint32_t needed = 0;
        std::uint8_t flags[3] = {};
        enable(L"Bench", 5);
        properties(path.c_str(), L"1033", buffer.data(), static_cast<std::uint32_t>(buffer.size()), &needed);
        enable(L"Bench", 5);
        installed(path.c_str(), length, &flags[0], &flags[1], &flags[2], L"1033");
    }
}

long long MeasureLibrary() {
    const Library library(LoadLibraryW((GetExeDirectory() + L"\\Brevanto.dll").c_str()));
    return MicrosecondsOf([&] { AskLibrary(library.get()); });
}

long long MeasureCatalogue() {
    const Collaborators shared = TheCollaborators();
    LoadDefaults(shared.settings);
    // The texts are loaded with the first one that is asked for.
    static_cast<void>(shared.localizer.GetString(TextKey::LANGUAGE_ID));
    MsiInfoService service(*MsiInterface::GetInstance(), shared.settings, shared.localizer,
                           shared.applications, shared.drivers);
    return MicrosecondsOf([&] { service.DoRun(); });
}

void WriteBare(InterProcessLock& lock, const std::wstring& path, const std::wstring& record) {
    const InterProcessLockGuard guard(lock);
    const FileHandle file(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    SetFilePointer(file.get(), 0, nullptr, FILE_END);
    DWORD written = 0;
    WriteFile(file.get(), record.data(), static_cast<DWORD>(record.size() * sizeof(wchar_t)), &written,
              nullptr);
}

BOOL CALLBACK LookForPage(HWND window, LPARAM found) {
    if (GetDlgCtrlID(window) != IDC_START_TITLE || IsWindowVisible(window) == FALSE) return TRUE;
    *reinterpret_cast<bool*>(found) = true;
    return FALSE;
}

BOOL CALLBACK LookAtWindow(HWND window, LPARAM found) {
    if (IsWindowVisible(window) != FALSE) EnumChildWindows(window, &LookForPage, found);
    return *reinterpret_cast<bool*>(found) ? FALSE : TRUE;
}

long long MeasureStart(const std::wstring& name) {
    std::wstring commandLine = GetExeDirectory() + L"\\" + name;
    STARTUPINFOW startupInfo{.cb = sizeof(STARTUPINFOW)};
    PROCESS_INFORMATION information{};
    const long long duration = MicrosecondsOf([&] {
        CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &startupInfo, &information);
        for (bool found = false; !found; Sleep(1))
            EnumWindows(&LookAtWindow, reinterpret_cast<LPARAM>(&found));
    });
    TerminateProcess(information.hProcess, 0);
    WaitForSingleObject(information.hProcess, INFINITE);
    const KernelHandle process(information.hProcess);
    const KernelHandle thread(information.hThread);
    return duration;
}

// A window with an empty list, which is asked for its texts as a dialog asks it.
class ListWindow : public CWnd {
public:
    static constexpr int listId = 1;

    ListWindow() {
        InitCommonControls();
        {
            const CreationHook hook(*this);
            CreateWindowExW(0, L"Static", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 600, 400, nullptr,
                            nullptr, GetModuleHandleW(nullptr), nullptr);
        }
        CreateWindowExW(0, WC_LISTVIEWW, L"",
                        WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL, 0, 0, 580, 360,
                        GetSafeHwnd(), reinterpret_cast<HMENU>(INT_PTR{listId}), GetModuleHandleW(nullptr),
                        nullptr);
    }

protected:
    LRESULT WindowProc(const WindowMessage& message) override {
        if (message.message != WM_NOTIFY) return CWnd::WindowProc(message);
        return ::SendMessageW(GetDlgItem(listId), OCM_NOTIFY, message.wParam, message.lParam);
    }
};

void MeasureList(int count) {
    std::list<DiscoveredDevice> devices;
    for (int number = 0; number < count; ++number) {
        const int shuffled = number * 7919 % count;
        devices.push_back(
            {.series = L"Series " + std::to_wstring(shuffled % 100),
             .address = L"10.0." + std::to_wstring(shuffled / 256) + L"." + std::to_wstring(shuffled % 256),
             .colour = L"color"});
    }
    const ListWindow window;
    DiscoveryListCtrl list{Localizer::GetInstance()};
    list.SubclassDlgItem(ListWindow::listId, window);
    const long long shown = MicrosecondsOf([&] { list.ShowDevices(devices); });
    const long long sorted = MicrosecondsOf([&] {
        list.OnColumnClick(1);
        UpdateWindow(list.GetSafeHwnd());
    });
    std::printf("show %lld sort %lld\n", shown, sorted);
}

void MeasureLog(int recordCount) {
    const std::wstring message = L"A message of the usual length, as the walk writes it";
    Logger::GetInstance().SetVendor(L"Bench");
    LogBasic(message);
    const long long records = MicrosecondsOf([&] {
        for (int count = 0; count < recordCount; ++count) LogBasic(message);
    });
    InterProcessLock lock(L"BenchLock");
    const std::wstring path = Logger::GetInstance().GetLogFolder() + L"Bare.log";
    const std::wstring record = FormatBasicRecord(LogLevel::None, {}, message);
    const long long bare = MicrosecondsOf([&] {
        for (int count = 0; count < recordCount; ++count) WriteBare(lock, path, record);
    });
    std::printf("records %lld bare %lld\n", records, bare);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    const std::wstring_view what = count > 1 ? arguments[1] : L"";
    if (what == L"library") std::printf("%lld\n", MeasureLibrary());
    if (what == L"catalogue") std::printf("%lld\n", MeasureCatalogue());
    if (what == L"log" && count > 2) MeasureLog(_wtoi(arguments[2]));
    if (what == L"list" && count > 2) MeasureList(_wtoi(arguments[2]));
    if (what == L"start" && count > 2) std::printf("%lld\n", MeasureStart(arguments[2]));
    return 0;
}
