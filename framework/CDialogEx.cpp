#include "framework/CDialogEx.h"

#include <algorithm>

#include "framework/CWinApp.h"
#include "framework/DialogTemplate.h"
#include "framework/FreshDialog.h"
#include "framework/KeptFocus.h"
#include "framework/TextSize.h"

namespace {

// Takes nothing: the object bound to the dialog sees every message before the system's dialog procedure does.
INT_PTR CALLBACK DialogProcedure(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

// The part of the screen with most of the window that is for programs.
RECT RoomAround(HWND window) {
    MONITORINFO monitor{.cbSize = sizeof(MONITORINFO)};
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

// Keeps a window disabled that was enabled, and enables it again at the end of its life.
class DisabledWindow {
public:
    explicit DisabledWindow(HWND owner) : window(owner) {
        wasEnabled = window != nullptr && IsWindowEnabled(window) != FALSE;
        if (wasEnabled) EnableWindow(window, FALSE);
    }
    DisabledWindow(const DisabledWindow&) = delete;
    DisabledWindow& operator=(const DisabledWindow&) = delete;
    ~DisabledWindow() {
        if (wasEnabled) EnableWindow(window, TRUE);
    }

private:
    HWND window;
    bool wasEnabled;
};

}  // namespace

const MessageMap& CDialogEx::Events() {
    using On = EventsOf<CDialogEx>;
    static const MessageMap map(nullptr, {
                                             On::Click(IDOK, &CDialogEx::OnOK),
                                             On::Click(IDCANCEL, &CDialogEx::OnCancel),
                                             On::Message(WM_DRAWITEM, &CDialogEx::OnDrawItem),
                                             On::Message(WM_NOTIFY, &CDialogEx::OnNotify),
                                             On::Message(WM_SYSCOLORCHANGE, &CDialogEx::OnSystemColours),
                                             On::Message(WM_SETTINGCHANGE, &CDialogEx::OnSettingChange),
                                         });
    return map;
}

bool CDialogEx::Create(UINT dialogTemplate, CWnd* parentWindow) {
    DialogTemplate source(dialogTemplate);
    if (source.IsEmpty()) return false;
    source.SetExtendedStyle(ExtendedStyle(source.ExtendedStyle()));
    madeFrom = dialogTemplate;
    letterPoints = GrownPoints();
    source.Grow(letterPoints, templatePoints);

    const CreationHook hook(*this);
    const HWND owner = parentWindow == nullptr ? nullptr : parentWindow->GetSafeHwnd();
    return CreateDialogIndirectParamW(GetModuleHandleW(nullptr), source.get(), owner, &DialogProcedure, 0) !=
           nullptr;
}

int CDialogEx::DoModal() {
    constexpr int notCreated = -1;
    CWnd* const around = parent != nullptr ? parent : AfxGetMainWnd();
    const HWND owner = around == nullptr ? nullptr : GetAncestor(around->GetSafeHwnd(), GA_ROOT);
    const KeptFocus kept;
    {
        const DisabledWindow disabled(owner);
        modal = true;
        if (Create(templateId, around)) {
            ShowWindow(SW_SHOW);
            RunModalLoop();
        } else {
            modalResult = notCreated;
        }
        modal = false;
    }
    // The owner is enabled before the dialog goes, or the system would activate another program's window.
    DestroyWindow();
    return modalResult;
}

void CDialogEx::RunModalLoop() {
    MSG message{};
    while (modal && GetSafeHwnd() != nullptr) {
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            // The end of the program is for the outer loop.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (AfxGetApp()->PreTranslateMessage(&message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void CDialogEx::EndDialog(int result) {
    if (!modal) return;
    modalResult = result;
    modal = false;
    // Wakes the loop where the end came by a sent message.
    PostMessage(WM_NULL);
}

bool CDialogEx::PreTranslateMessage(MSG* message) {
    return IsDialogMessageW(GetSafeHwnd(), message) != FALSE;
}

LRESULT CDialogEx::OnDrawItem(WPARAM, LPARAM item) {
    const auto& drawing = *reinterpret_cast<const DRAWITEMSTRUCT*>(item);
    if (CWnd* const control = FromHandle(drawing.hwndItem)) control->DrawItem(drawing);
    return TRUE;
}

LRESULT CDialogEx::OnNotify(WPARAM id, LPARAM record) {
    CWnd* const control = FromHandle(reinterpret_cast<const NMHDR*>(record)->hwndFrom);
    return control == nullptr ? Default() : control->SendMessage(OCM_NOTIFY, id, record);
}

// The system tells the windows of the desktop alone, and a control asks for the colours when it is told.
LRESULT CDialogEx::OnSystemColours(WPARAM, LPARAM) {
    const LRESULT result = Default();
    if (IsChildWindow()) return result;
    EnumChildWindows(
        GetSafeHwnd(),
        [](HWND descendant, LPARAM) {
            ::SendMessageW(descendant, WM_SYSCOLORCHANGE, 0, 0);
            return TRUE;
        },
        0);
    RedrawAll();
    return result;
}

// Which of its settings the system names with a new text size is nowhere written, so each of them may bring
// one.
LRESULT CDialogEx::OnSettingChange(WPARAM setting, LPARAM) {
    const LRESULT result = Default();
    if (IsChildWindow()) return result;
    if (setting == SPI_SETHIGHCONTRAST) RedrawAll();
    FollowTextSize();
    TakeTextSize();
    return result;
}

void CDialogEx::TakeTextSize() {
    if (letterPoints == GrownPoints()) return;
    letterPoints = GrownPoints();
    const FreshDialog fresh(madeFrom, GetSafeHwnd());
    if (!fresh) return;
    if (!IsChildWindow()) TakeSize(fresh.Size());
    fresh.PlaceControlsOf(GetSafeHwnd());
    OnTextSize(fresh.Letters());
    RedrawAll();
}

void CDialogEx::TakeSize(SIZE size) {
    RECT area{};
    GetWindowRect(GetSafeHwnd(), &area);
    const RECT room = RoomAround(GetSafeHwnd());
    const LONG left = std::min((area.left + area.right - size.cx) / 2, room.right - size.cx);
    const LONG top = std::min((area.top + area.bottom - size.cy) / 2, room.bottom - size.cy);
    MoveWindow(std::max(left, room.left), std::max(top, room.top), size.cx, size.cy);
}

bool CDialogEx::IsChildWindow() const {
    return (GetWindowLongPtrW(GetSafeHwnd(), GWL_STYLE) & WS_CHILD) != 0;
}

void CDialogEx::RedrawAll() {
    RedrawWindow(GetSafeHwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

LRESULT CDialogEx::WindowProc(const WindowMessage& message) {
    if (message.message == WM_INITDIALOG) return static_cast<LRESULT>(OnInitDialog());
    const LRESULT result = CWnd::WindowProc(message);
    if (message.message == WM_COMMAND && HIWORD(message.wParam) == BN_CLICKED && message.lParam != 0) {
        if (CWnd* const control = FromHandle(reinterpret_cast<HWND>(message.lParam))) control->OnClicked();
    }
    return result;
}
