#include "tests/wizard/WizardDriver.h"

#include <commctrl.h>
#include <gtest/gtest.h>
#include <richedit.h>

#include <array>
#include <functional>

#include "tests/wizard/LostProcess.h"
#include "tests/wizard/Waiting.h"

namespace {

constexpr int boxTextId = 0xFFFF;

using WindowTest = std::function<bool(HWND)>;

struct Search {
    const WindowTest& test;
    HWND found = nullptr;
};

BOOL CALLBACK TakeIfFits(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    if (!search.test(window)) return TRUE;
    search.found = window;
    return FALSE;
}

HWND FindTopLevel(const WindowTest& test) {
    Search search{.test = test};
    EnumWindows(&TakeIfFits, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND FindChild(HWND parent, const WindowTest& test) {
    Search search{.test = test};
    EnumChildWindows(parent, &TakeIfFits, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

bool BelongsTo(DWORD processId, HWND window) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    return owner == processId;
}

bool IsDialog(HWND window) {
    wchar_t name[16]{};
    GetClassNameW(window, name, 16);
    return std::wstring(name) == L"#32770";
}

// A window behind a dialog is disabled with all that is in it, whatever its controls say.
bool TakesClicks(HWND control) {
    return control != nullptr && IsWindowEnabled(control) != FALSE &&
           IsWindowEnabled(GetAncestor(control, GA_ROOT)) != FALSE;
}

std::wstring CommandLine(const std::filesystem::path& program, const std::wstring& arguments) {
    return L"\"" + program.wstring() + L"\" " + arguments;
}

}  // namespace

void WizardDriver::Start(const std::wstring& arguments, const std::filesystem::path& workingFolder) {
    Create(arguments, workingFolder, 0);
}

void WizardDriver::StartHeld() {
    Create({}, {}, CREATE_SUSPENDED);
}

void WizardDriver::LetGo() {
    ResumeThread(firstThread.get());
}

void WizardDriver::Create(const std::wstring& arguments, const std::filesystem::path& workingFolder,
                          DWORD flags) {
    std::wstring commandLine = CommandLine(program, arguments);
    STARTUPINFOW startup{.cb = sizeof(STARTUPINFOW)};
    PROCESS_INFORMATION information{};
    const std::wstring folder = (workingFolder.empty() ? program.parent_path() : workingFolder).wstring();
    const auto start = [&] {
        return CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, flags, nullptr,
                              folder.c_str(), &startup, &information) != FALSE;
    };
    ASSERT_TRUE(StartUnlessLost(start)) << "error " << GetLastError();
    KeepProcess(information);
}

KernelHandle RestrictedToken() {
    KernelHandle own;
    OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, own.put());
    SID_IDENTIFIER_AUTHORITY authority = {SECURITY_NT_AUTHORITY};
    Sid administrators;
    AllocateAndInitializeSid(&authority, 2, SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_ADMINS, 0, 0, 0, 0,
                             0, 0, administrators.put());
    SID_AND_ATTRIBUTES disabled{.Sid = administrators.get(), .Attributes = 0};
    KernelHandle restricted;
    CreateRestrictedToken(own.get(), 0, 1, &disabled, 0, nullptr, 0, nullptr, restricted.put());
    return restricted;
}

void WizardDriver::StartRestricted() {
    const KernelHandle token = RestrictedToken();
    std::wstring commandLine = CommandLine(program, {});
    STARTUPINFOW startup{.cb = sizeof(STARTUPINFOW)};
    PROCESS_INFORMATION information{};
    ASSERT_TRUE(CreateProcessAsUserW(token.get(), nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0,
                                     nullptr, nullptr, &startup, &information));
    KeepProcess(information);
}

void WizardDriver::KeepProcess(const PROCESS_INFORMATION& information) {
    firstThread.reset(information.hThread);
    process.reset(information.hProcess);
    processId = information.dwProcessId;
}

bool WizardDriver::IsRunning() const {
    return process && WaitForSingleObject(process.get(), 0) == WAIT_TIMEOUT;
}

void WizardDriver::WaitForEnd() {
    if (WaitUntil([this] { return !IsRunning(); })) return;
    const auto box = FindBox();
    ADD_FAILURE() << "the program does not end"
                  << (box ? ", it shows a box: " + testing::PrintToString(box->text) : std::string());
    Kill();
}

void WizardDriver::Kill() {
    if (!IsRunning()) return;
    TerminateProcess(process.get(), 1);
    WaitForSingleObject(process.get(), INFINITE);
}

DWORD WizardDriver::ExitCode() const {
    DWORD code = 0;
    GetExitCodeProcess(process.get(), &code);
    return code;
}

std::optional<MessageBoxOnScreen> WizardDriver::FindBox() const {
    const HWND window = FindTopLevel([this](HWND candidate) {
        return BelongsTo(processId, candidate) && IsDialog(candidate) && IsWindowVisible(candidate) &&
               GetDlgItem(candidate, boxTextId) != nullptr;
    });
    if (window == nullptr) return std::nullopt;
    return MessageBoxOnScreen{
        .window = window, .title = TextOf(window), .text = TextOf(GetDlgItem(window, boxTextId))};
}

MessageBoxOnScreen WizardDriver::WaitForBox() const {
    std::optional<MessageBoxOnScreen> box;
    WaitUntil([&] {
        box = FindBox();
        return box || !IsRunning();
    });
    if (!box) ADD_FAILURE() << "no message box came up";
    return box.value_or(MessageBoxOnScreen{});
}

MessageBoxOnScreen WizardDriver::Answer(int button) const {
    MessageBoxOnScreen box = WaitForBox();
    const HWND control = GetDlgItem(box.window, button);
    EXPECT_NE(control, nullptr) << "the box has no button " << button;
    PostMessageW(control, BM_CLICK, 0, 0);
    EXPECT_TRUE(WaitUntil([&] { return !IsWindow(box.window); })) << "the box stays";
    return box;
}

// A dialog that is closing is hidden a moment before it is gone, so the visible window counts first; in a
// silent run there is none.
HWND WizardDriver::MainWindow() const {
    const auto isOwn = [this](HWND window) {
        return BelongsTo(processId, window) && IsDialog(window) && GetDlgItem(window, boxTextId) == nullptr;
    };
    const HWND shown =
        FindTopLevel([&](HWND window) { return isOwn(window) && IsWindowVisible(window) != FALSE; });
    return shown != nullptr ? shown : FindTopLevel(isOwn);
}

// Without a main window the windows of all programs would be looked through, whose ids mean something else.
HWND WizardDriver::FindControl(int id) const {
    const HWND mainWindow = MainWindow();
    if (mainWindow == nullptr) return nullptr;
    return FindChild(mainWindow,
                     [id](HWND window) { return GetDlgCtrlID(window) == id && IsWindowVisible(window); });
}

HWND WizardDriver::WaitForControl(int id) const {
    HWND control = nullptr;
    WaitUntil([&] {
        control = FindControl(id);
        return control != nullptr || !IsRunning();
    });
    EXPECT_NE(control, nullptr) << "no page shows the control " << id;
    Settle();
    return control;
}

// The window's thread answers a message of another process only between two of its own.
bool WizardDriver::Settle() const {
    const auto limit = static_cast<UINT>(std::chrono::milliseconds(patience).count());
    return SendMessageTimeoutW(MainWindow(), WM_NULL, 0, 0, SMTO_NORMAL, limit, nullptr) != 0;
}

void WizardDriver::Press(int id) const {
    HWND control = nullptr;
    WaitUntil([&] {
        control = FindControl(id);
        return TakesClicks(control) || !IsRunning();
    });
    ASSERT_TRUE(TakesClicks(control)) << "the control " << id << " cannot be clicked";
    PostMessageW(control, BM_CLICK, 0, 0);
}

void WizardDriver::PressKey(WPARAM key) const {
    HWND focus = nullptr;
    ASSERT_TRUE(WaitUntil([&] { return (focus = Focus()) != nullptr; })) << "nothing has the focus";
    PostMessageW(focus, WM_KEYDOWN, key, 0);
}

void WizardDriver::BringToFront() const {
    SetForegroundWindow(MainWindow());
    EXPECT_TRUE(WaitUntil([this] { return GetForegroundWindow() == MainWindow() && Focus() != nullptr; }));
}

HWND WizardDriver::Focus() const {
    GUITHREADINFO information{.cbSize = sizeof(GUITHREADINFO)};
    GetGUIThreadInfo(GetWindowThreadProcessId(MainWindow(), nullptr), &information);
    return information.hwndFocus;
}

std::wstring WizardDriver::TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
    const LRESULT length =
        SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

// The list reads and writes in its own process only, so the question goes over there and the answer comes
// back.
std::wstring WizardDriver::CellOf(HWND list, int row, int column) const {
    struct Question {
        LVITEMW item{};
        std::array<wchar_t, 260> text{};
    };
    void* const there = VirtualAllocEx(process.get(), nullptr, sizeof(Question), MEM_COMMIT, PAGE_READWRITE);
    auto* const remote = static_cast<Question*>(there);
    Question question;
    question.item.iSubItem = column;
    question.item.pszText = remote->text.data();
    question.item.cchTextMax = static_cast<int>(question.text.size());
    WriteProcessMemory(process.get(), there, &question, sizeof(question), nullptr);
    SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&remote->item));
    ReadProcessMemory(process.get(), there, &question, sizeof(question), nullptr);
    VirtualFreeEx(process.get(), there, 0, MEM_RELEASE);
    return question.text.data();
}

std::wstring WizardDriver::HeadingOf(HWND list, int column) const {
    struct Question {
        HDITEMW item{.mask = HDI_TEXT};
        std::array<wchar_t, 260> text{};
    };
    void* const there = VirtualAllocEx(process.get(), nullptr, sizeof(Question), MEM_COMMIT, PAGE_READWRITE);
    auto* const remote = static_cast<Question*>(there);
    Question question;
    question.item.pszText = remote->text.data();
    question.item.cchTextMax = static_cast<int>(question.text.size());
    WriteProcessMemory(process.get(), there, &question, sizeof(question), nullptr);
    const HWND header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&remote->item));
    ReadProcessMemory(process.get(), there, &question, sizeof(question), nullptr);
    VirtualFreeEx(process.get(), there, 0, MEM_RELEASE);
    return question.text.data();
}

void WizardDriver::SelectRow(HWND list, int row) const {
    const LVITEMW item{.state = LVIS_SELECTED | LVIS_FOCUSED, .stateMask = LVIS_SELECTED | LVIS_FOCUSED};
    void* const there = VirtualAllocEx(process.get(), nullptr, sizeof(item), MEM_COMMIT, PAGE_READWRITE);
    WriteProcessMemory(process.get(), there, &item, sizeof(item), nullptr);
    SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(there));
    VirtualFreeEx(process.get(), there, 0, MEM_RELEASE);
}

int WizardDriver::ScrollPositionOf(HWND text) const {
    void* const there = VirtualAllocEx(process.get(), nullptr, sizeof(POINT), MEM_COMMIT, PAGE_READWRITE);
    SendMessageW(text, EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(there));
    POINT position{};
    ReadProcessMemory(process.get(), there, &position, sizeof(position), nullptr);
    VirtualFreeEx(process.get(), there, 0, MEM_RELEASE);
    return position.y;
}

COLORREF WizardDriver::PixelOf(HWND window, int x, int y) {
    RECT area{};
    GetWindowRect(window, &area);
    const HDC screen = GetDC(nullptr);
    const COLORREF colour = GetPixel(screen, area.left + x, area.top + y);
    ReleaseDC(nullptr, screen);
    return colour;
}

void WizardDriver::CloseMainWindow() const {
    PostMessageW(MainWindow(), WM_SYSCOMMAND, SC_CLOSE, 0);
}
