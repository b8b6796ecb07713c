#include "wizard/KestruneDlg.h"

#include <utility>

#include "CommonLib/Files.h"
#include "framework/HighContrast.h"
#include "framework/Resolution.h"
#include "resources/resource.h"
#include "settings/Localizer.h"
#include "settings/TextKeys.h"
#include "wizard/Controller.h"
#include "wizard/InstallDialogEx.h"
#include "wizard/ReadingDirection.h"

namespace {

constexpr WPARAM systemCommandBits = 0xFFF0;

}  // namespace

const MessageMap& KestruneDlg::GetMessageMap() const {
    using On = EventsOf<KestruneDlg>;
    static const MessageMap map(&Events(), {
                                               On::Message(WM_PAINT, &KestruneDlg::OnPaint),
                                               On::Message(WM_QUERYDRAGICON, &KestruneDlg::OnQueryDragIcon),
                                               On::Message(WM_CTLCOLORSTATIC, &KestruneDlg::OnStaticColour),
                                               On::Message(WM_ERASEBKGND, &KestruneDlg::OnEraseBackground),
                                               On::Message(WM_SYSCOMMAND, &KestruneDlg::OnSysCommand),
                                               On::Message(WM_ENDSESSION, &KestruneDlg::OnEndSession),
                                               On::Message(WM_HELP, &KestruneDlg::OnHelp),
                                               On::Message(WM_ACTIVATE, &KestruneDlg::OnActivate),
                                               On::Message(WM_SETFOCUS, &KestruneDlg::OnSetFocus),
                                               On::Message(finishForWorker, &KestruneDlg::OnFinishForWorker),
                                           });
    return map;
}

DWORD KestruneDlg::ExtendedStyle(DWORD ofTemplate) const {
    return ReadingStyle(localizer, ofTemplate);
}

bool KestruneDlg::OnInitDialog() {
    icon = LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_KESTRUNE));
    SendMessage(WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
    SendMessage(WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon));

    SetWindowText(localizer.GetString(TextKey::INSTALL_TITLE));
    ShowLogo();
    SetPlaceOfPages();
    return true;
}

void KestruneDlg::SetPlaceOfPages() {
    RECT place{};
    GetWindowRect(GetDlgItem(IDC_MAIN_PAGE_PLACE), &place);
    MapWindowPoints(nullptr, GetSafeHwnd(), reinterpret_cast<POINT*>(&place), 2);
    controller.SetPageRect(place);
}

void KestruneDlg::OnTextSize(HFONT) {
    ShowLogo();
    SetPlaceOfPages();
    controller.PlacePagesAnew();
}

void KestruneDlg::ShowLogo() {
    Bitmap loaded(static_cast<HBITMAP>(LoadImageW(nullptr, GetPicturePath(L"logo.bmp").c_str(), IMAGE_BITMAP,
                                                  0, 0, LR_LOADFROMFILE | LR_DEFAULTSIZE)));
    if (!loaded) return;
    // Until the new one is shown.
    const Bitmap former = std::exchange(logo, std::move(loaded));
    ScaleLogo();
    const HWND place = GetDlgItem(IDC_MAIN_LOGO);
    // A logo holds a name, which must not be mirrored with the window.
    SetWindowLongPtrW(place, GWL_EXSTYLE, 0);
    ::SendMessageW(place, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(logo.get()));
    KeepLogoBeginningInView(place);
    UpdateWindow(GetSafeHwnd());
}

void KestruneDlg::ScaleLogo() {
    const int resolution = ResolutionOf(GetSafeHwnd());
    BITMAP own{};
    GetObjectW(logo.get(), sizeof(own), &own);
    Bitmap scaled(static_cast<HBITMAP>(CopyImage(logo.get(), IMAGE_BITMAP,
                                                 MulDiv(own.bmWidth, resolution, plainResolution),
                                                 MulDiv(own.bmHeight, resolution, plainResolution), 0)));
    if (scaled) logo = std::move(scaled);
}

// A logo may be wider than the window and has its name at its left end, which a mirrored window would cut
// off.
void KestruneDlg::KeepLogoBeginningInView(HWND place) const {
    if ((GetWindowLongPtrW(GetSafeHwnd(), GWL_EXSTYLE) & WS_EX_LAYOUTRTL) == 0) return;
    RECT ground{};
    RECT picture{};
    GetClientRect(GetSafeHwnd(), &ground);
    GetWindowRect(place, &picture);
    const LONG surplus = (picture.right - picture.left) - ground.right;
    if (surplus > 0)
        SetWindowPos(place, nullptr, -surplus, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT KestruneDlg::OnSysCommand(WPARAM command, LPARAM) {
    if ((command & systemCommandBits) != SC_CLOSE) return Default();
    const InstallDialogEx* const page = controller.CurrentPage();
    const HWND cancel = page == nullptr ? nullptr : page->GetDlgItem(IDCANCEL);
    if (cancel == nullptr) {
        controller.Cancel(false);
    } else if (IsWindowEnabled(cancel) != FALSE) {
        page->SendMessage(WM_COMMAND, IDCANCEL);
    }
    return 0;
}

LRESULT KestruneDlg::OnPaint(WPARAM, LPARAM) {
    if (IsIconic(GetSafeHwnd()) == FALSE) return Default();
    const PaintDc context(GetSafeHwnd());
    RECT area{};
    GetClientRect(GetSafeHwnd(), &area);
    DrawIcon(context.get(), (area.right - GetSystemMetrics(SM_CXICON) + 1) / 2,
             (area.bottom - GetSystemMetrics(SM_CYICON) + 1) / 2, icon);
    return 0;
}

LRESULT KestruneDlg::OnQueryDragIcon(WPARAM, LPARAM) {
    return reinterpret_cast<LRESULT>(icon);
}

LRESULT KestruneDlg::OnStaticColour(WPARAM context, LPARAM) {
    SetBkMode(reinterpret_cast<HDC>(context), TRANSPARENT);
    return reinterpret_cast<LRESULT>(GetStockObject(HOLLOW_BRUSH));
}

LRESULT KestruneDlg::OnEraseBackground(WPARAM context, LPARAM) {
    if (IsHighContrastOn()) return Default();
    RECT area{};
    GetClientRect(GetSafeHwnd(), &area);
    FillRect(reinterpret_cast<HDC>(context), &area, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    return TRUE;
}

// After this message the system ends the program without any further one.
LRESULT KestruneDlg::OnEndSession(WPARAM ends, LPARAM) {
    if (ends != FALSE) controller.CloseServices();
    return Default();
}

// The pages have their own help.
LRESULT KestruneDlg::OnHelp(WPARAM, LPARAM) {
    return TRUE;
}

// What had the focus when the window was left may have gone since, or its page.
LRESULT KestruneDlg::OnActivate(WPARAM state, LPARAM) {
    const LRESULT result = Default();
    if (LOWORD(state) != WA_INACTIVE && HIWORD(state) == 0) HandFocusToPage();
    return result;
}

LRESULT KestruneDlg::OnSetFocus(WPARAM, LPARAM) {
    const LRESULT result = Default();
    HandFocusToPage();
    return result;
}

LRESULT KestruneDlg::OnFinishForWorker(WPARAM reboot, LPARAM) {
    controller.FinishForWorker(reboot != 0);
    return 0;
}

void KestruneDlg::HandFocusToPage() {
    if (InstallDialogEx* const page = controller.CurrentPage();
        page != nullptr && IsWindowVisible(page->GetSafeHwnd()))
        page->TakeFocus();
}
