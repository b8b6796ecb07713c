#include "wizard/InstallDialogEx.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "CommonLib/Files.h"
#include "framework/CWinApp.h"
#include "framework/ChildWindows.h"
#include "framework/HighContrast.h"
#include "framework/Resolution.h"
#include "framework/Spoken.h"
#include "resources/resource.h"
#include "settings/Localizer.h"
#include "wizard/Controller.h"
#include "wizard/Help.h"
#include "wizard/ReadingDirection.h"

namespace {

constexpr wchar_t fontFace[] = L"Velmora";
constexpr int light = 300;
constexpr int regular = 400;
constexpr int heavy = 600;

// Has the page take the focus on its own thread.
constexpr UINT takeFocusMessage = WM_APP;

// The program's own font, for this process alone.
HANDLE InstallFont() {
    const HMODULE module = GetModuleHandleW(nullptr);
    const HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(IDR_FONT), L"BINARY");
    const HGLOBAL loaded = resource == nullptr ? nullptr : LoadResource(module, resource);
    if (loaded == nullptr) return nullptr;
    DWORD installed = 0;
    return AddFontMemResourceEx(LockResource(loaded), SizeofResource(module, resource), nullptr, &installed);
}

HBRUSH GroundBrush() {
    return IsHighContrastOn() ? GetSysColorBrush(COLOR_3DFACE)
                              : static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
}

bool HasClass(HWND window, const wchar_t* name) {
    wchar_t actual[64] = {};
    GetClassNameW(window, actual, static_cast<int>(std::size(actual)));
    return _wcsicmp(actual, name) == 0;
}

bool ActsOnEnter(HWND control) {
    return (SendMessageW(control, WM_GETDLGCODE, 0, 0) & (DLGC_BUTTON | DLGC_RADIOBUTTON)) == DLGC_BUTTON;
}

// The page itself may be hidden yet.
bool TakesInput(HWND control) {
    const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE);
    return (style & WS_VISIBLE) != 0 && (style & WS_DISABLED) == 0;
}

bool IsDroppedDown(HWND control) {
    return HasClass(control, WC_COMBOBOXW) && SendMessageW(control, CB_GETDROPPEDSTATE, 0, 0) != FALSE;
}

}  // namespace

const MessageMap& InstallDialogEx::Events() {
    using On = EventsOf<InstallDialogEx>;
    static const MessageMap map(&CDialogEx::Events(),
                                {
                                    On::Message(WM_CTLCOLORSTATIC, &InstallDialogEx::OnControlColour),
                                    On::Message(WM_ERASEBKGND, &InstallDialogEx::OnEraseBackground),
                                    On::Message(WM_DESTROY, &InstallDialogEx::OnDestroy),
                                    On::Message(WM_UPDATEUISTATE, &InstallDialogEx::OnUpdateUiState),
                                    On::Click(IDC_HELP_BUTTON, &InstallDialogEx::ShowHelp),
                                    On::Message(WM_HELP, &InstallDialogEx::OnHelp),
                                    On::Message(takeFocusMessage, &InstallDialogEx::OnTakeFocus),
                                });
    return map;
}

InstallDialogEx::InstallDialogEx(const PageContext& context, UINT dialogTemplate, DWORD topic,
                                 CWnd* parentWindow)
    : CDialogEx(dialogTemplate, parentWindow),
      controller(context.controller),
      settings(context.settings),
      localizer(context.localizer),
      helpTopic(topic),
      fontResource(InstallFont()) {}

bool InstallDialogEx::CreateAsPage(const RECT& place) {
    if (AfxGetApp() == nullptr) return false;
    CWnd* const mainWindow = AfxGetMainWnd();
    if (!Create(TemplateId(), mainWindow)) return false;
    SetParent(*mainWindow);
    PlaceAnew(place);
    EnableWindow(false);
    return true;
}

void InstallDialogEx::PlaceAnew(const RECT& place) {
    // By design: the right and bottom edges serve as width and height; pages get their size so.
    MoveWindow(place.left, place.top, place.right, place.bottom);
    TakeTextSize();
}

void InstallDialogEx::Appear() {
    EnableWindow(true);
    ShowWindow(SW_SHOW);
    SendMessage(takeFocusMessage);
}

void InstallDialogEx::Disappear() {
    EnableWindow(false);
    ShowWindow(SW_HIDE);
}

LRESULT InstallDialogEx::OnTakeFocus(WPARAM, LPARAM) {
    TakeName();
    TakeFocus();
    return 0;
}

void InstallDialogEx::TakeFocus() {
    const HWND focused = GetFocus();
    if (IsChild(GetSafeHwnd(), focused) == FALSE || !TakesInput(focused)) ::SetFocus(FirstFocus());
}

HWND InstallDialogEx::FirstFocus() const {
    const HWND first = GetNextDlgTabItem(GetSafeHwnd(), nullptr, FALSE);
    HWND control = first;
    while (control != nullptr && ActsOnEnter(control)) {
        control = GetNextDlgTabItem(GetSafeHwnd(), control, FALSE);
        if (control == first) control = nullptr;
    }
    return control != nullptr ? control : FirstText();
}

HWND InstallDialogEx::FirstText() const {
    HWND text = nullptr;
    do {
        text = FindWindowExW(GetSafeHwnd(), text, WC_STATICW, nullptr);
    } while (text != nullptr && !TakesInput(text));
    return text;
}

void InstallDialogEx::TakeName() {
    constexpr int longest = 256;
    wchar_t name[longest] = {};
    ::GetWindowTextW(FirstText(), name, longest);
    ::SetWindowTextW(GetSafeHwnd(), name);
}

void InstallDialogEx::HandFocusOn(HWND from) {
    if (from == nullptr || GetFocus() != from) return;
    const HWND first = FirstFocus();
    ::SetFocus(first != from ? first : FirstText());
}

void InstallDialogEx::ShowControl(int controlId, bool shown) {
    const HWND control = GetDlgItem(controlId);
    if (!shown) HandFocusOn(control);
    ::ShowWindow(control, shown ? SW_SHOW : SW_HIDE);
}

void InstallDialogEx::EnableControl(int controlId, bool enabled) {
    const HWND control = GetDlgItem(controlId);
    if (!enabled) HandFocusOn(control);
    ::EnableWindow(control, enabled ? TRUE : FALSE);
}

void InstallDialogEx::Apply(const std::vector<ControlState>& states) {
    const auto styleOf = [this](int id) { return GetWindowLongPtrW(GetDlgItem(id), GWL_STYLE); };
    // What appears comes first, so that what goes can hand the focus to it.
    for (const bool appears : {true, false}) {
        for (const auto& [id, shown, enabled] : states) {
            const LONG_PTR style = styleOf(id);
            if (enabled == appears && ((style & WS_DISABLED) == 0) != enabled) EnableControl(id, enabled);
            if (shown == appears && ((style & WS_VISIBLE) != 0) != shown) ShowControl(id, shown);
        }
    }
}

void InstallDialogEx::KeepTabStop(int firstRadio, int lastRadio) {
    HWND reachable = nullptr;
    for (int id = lastRadio; id >= firstRadio; --id) {
        const HWND radio = GetDlgItem(id);
        if (IsDlgButtonChecked(GetSafeHwnd(), id) == BST_CHECKED) return;
        if (radio != nullptr && TakesInput(radio)) reachable = radio;
    }
    if (reachable != nullptr)
        SetWindowLongPtrW(reachable, GWL_STYLE, GetWindowLongPtrW(reachable, GWL_STYLE) | WS_TABSTOP);
}

std::uint32_t InstallDialogEx::ReceiveMessage(std::wstring) {
    return 0;
}

bool InstallDialogEx::OnInitDialog() {
    CDialogEx::OnInitDialog();
    MakeFonts();
    helpImagePath = GetPicturePath(L"help.png");
    // The help follows the user's language, even where the texts are chosen to be of another.
    helpFile = GetSetupDirectory() + L"\\" + GetLanguageCode() + L"\\install.chm";
    return true;
}

Font InstallDialogEx::MakeFont(int points, int weight, bool underlined, int resolution) const {
    LOGFONTW description{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)), sizeof(description), &description);
    description.lfHeight = -MulDiv(points, resolution, 72);
    description.lfWeight = weight;
    description.lfUnderline = underlined ? TRUE : FALSE;
    lstrcpynW(description.lfFaceName, fontFace, LF_FACESIZE);
    return Font(CreateFontIndirectW(&description));
}

void InstallDialogEx::MakeFonts() {
    const int resolution = ResolutionOf(GetSafeHwnd());
    const auto make = [&](Font& field, int points, int weight, bool underlined = false) {
        field = MakeFont(points, weight, underlined, resolution);
        SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(field.get()), FALSE);
    };
    make(fontBody, 9, light);
    make(fontLarge, 24, light);
    make(fontHeading, 10, heavy);
    make(fontMedium, 10, regular);
    make(fontButton, 9, light);
    make(fontSmall, 9, light);
    make(fontUnderlined, 9, light, true);
}

std::array<Font*, 7> InstallDialogEx::Fonts() {
    return {&fontBody, &fontLarge, &fontHeading, &fontMedium, &fontButton, &fontSmall, &fontUnderlined};
}

std::array<PictureIcon*, 4> InstallDialogEx::Icons() {
    return {&helpIcon, &helpIconHighContrast, &refreshIcon, &refreshIconHighContrast};
}

void InstallDialogEx::OnTextSize(HFONT letters) {
    RenewFonts(letters);
    RenewIcons();
}

// The former fonts go when no control has one any more.
void InstallDialogEx::RenewFonts(HFONT letters) {
    const std::array<Font*, 7> fonts = Fonts();
    std::array<Font, 7> former;
    for (std::size_t index = 0; index < fonts.size(); ++index) former[index] = std::move(*fonts[index]);
    MakeFonts();
    LOGFONTW description{};
    GetObjectW(letters, sizeof(description), &description);
    const Font formerTemplateFont = std::exchange(templateFont, Font(CreateFontIndirectW(&description)));
    ForEachChild(GetSafeHwnd(), [&](HWND control) {
        const auto font = reinterpret_cast<HFONT>(::SendMessageW(control, WM_GETFONT, 0, 0));
        const auto own = std::ranges::find(former, font, &Font::get);
        const Font& renewed =
            own == former.end() ? templateFont : *fonts[static_cast<std::size_t>(own - former.begin())];
        ::SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(renewed.get()), FALSE);
    });
}

void InstallDialogEx::RenewIcons() {
    for (PictureIcon* const icon : Icons()) {
        const Icon former = icon->Renew(GetSafeHwnd());
        if (!former) continue;
        ForEachChild(GetSafeHwnd(), [&](HWND control) {
            if (!HasClass(control, WC_BUTTONW)) return;
            const LRESULT shown = ::SendMessageW(control, BM_GETIMAGE, IMAGE_ICON, 0);
            if (reinterpret_cast<HICON>(shown) == former.get())
                ::SendMessageW(control, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon->Current()));
        });
    }
}

DWORD InstallDialogEx::ExtendedStyle(DWORD ofTemplate) const {
    return ReadingStyle(localizer, ofTemplate);
}

void InstallDialogEx::SetLocalizedText(HWND window, TextId key) {
    ::SetWindowTextW(window, GetLocalizedText(key).c_str());
}

void InstallDialogEx::InsertLocalizedString(HWND comboBox, int index, TextId key) {
    ::SendMessageW(comboBox, CB_INSERTSTRING, static_cast<WPARAM>(index),
                   reinterpret_cast<LPARAM>(GetLocalizedText(key).c_str()));
}

std::wstring InstallDialogEx::GetLocalizedText(TextId key) const {
    return localizer.GetString(key);
}

std::wstring InstallDialogEx::GetPlainText(TextId key) const {
    std::wstring text = GetLocalizedText(key);
    const std::size_t mark = text.find(L'&');
    if (mark != std::wstring::npos) text.erase(mark, 1);
    return text;
}

void InstallDialogEx::SetControlFont(int controlId, const Font& font) {
    ::SendMessageW(GetDlgItem(controlId), WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
}

void InstallDialogEx::SetUpControl(int controlId, TextId key, const Font& font) {
    SetLocalizedText(controlId, key);
    SetControlFont(controlId, font);
}

std::wstring InstallDialogEx::TextOf(int controlId, std::size_t longest) const {
    std::wstring text(longest + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        ::GetWindowTextW(GetDlgItem(controlId), text.data(), static_cast<int>(text.size()))));
    return text;
}

void InstallDialogEx::SelectAll(int controlId) {
    ::SendMessageW(GetDlgItem(controlId), EM_SETSEL, 0, -1);
    ::SendMessageW(GetDlgItem(controlId), EM_SCROLLCARET, 0, 0);
}

void InstallDialogEx::RedrawControl(HWND control) {
    RECT area{};
    GetWindowRect(control, &area);
    MapWindowPoints(nullptr, GetSafeHwnd(), reinterpret_cast<POINT*>(&area), 2);
    InvalidateRect(GetSafeHwnd(), &area, TRUE);
    UpdateWindow(GetSafeHwnd());
}

void InstallDialogEx::PaintGround(HDC context) {
    RECT area{};
    GetClientRect(GetSafeHwnd(), &area);
    FillRect(context, &area, GroundBrush());
}

bool InstallDialogEx::PreTranslateMessage(MSG* message) {
    toolTips.RelayEvent(message);
    // An open list is closed by these keys first.
    const bool isForPage = message->message == WM_KEYDOWN && !IsDroppedDown(GetFocus());
    if (isForPage && message->wParam == VK_ESCAPE) return OnEscape();
    if (isForPage && message->wParam == VK_RETURN) return OnEnter();
    return CDialogEx::PreTranslateMessage(message);
}

// A page is a child of the main window, a sub-dialog a window of its own.
void InstallDialogEx::OnCancel() {
    if (IsChildWindow()) {
        controller.Cancel(false);
    } else {
        CDialogEx::OnCancel();
    }
}

bool InstallDialogEx::OnEscape() {
    const HWND cancel = GetDlgItem(IDCANCEL);
    if (cancel == nullptr || IsWindowEnabled(cancel) != FALSE) SendMessage(WM_COMMAND, IDCANCEL);
    return true;
}

// Enter clicks what has the focus; there is no default button.
bool InstallDialogEx::OnEnter() {
    const HWND focused = GetFocus();
    const int id = focused == nullptr ? 0 : GetDlgCtrlID(focused);
    if (id != 0) SendMessage(WM_COMMAND, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(focused));
    return true;
}

// A change of the setting reaches the page here, with no notification.
LRESULT InstallDialogEx::OnEraseBackground(WPARAM context, LPARAM) {
    PaintGround(reinterpret_cast<HDC>(context));
    const bool isOn = IsHighContrastOn();
    // A button with a new picture has the page erased under it once more, so that is for a change alone.
    if (isOn == highContrast) return 1;
    highContrast = isOn;
    if (isOn) {
        PutContrastIcons(helpIconHighContrast, refreshIconHighContrast);
    } else {
        PutContrastIcons(helpIcon, refreshIcon);
    }
    return 1;
}

void InstallDialogEx::PutContrastIcons(PictureIcon& help, PictureIcon& refresh) {
    const auto put = [&](int id, PictureIcon& icon) {
        if (const HWND control = GetDlgItem(id)) {
            ::SendMessageW(control, BM_SETIMAGE, IMAGE_ICON,
                           reinterpret_cast<LPARAM>(icon.For(GetSafeHwnd())));
        }
    };
    put(IDC_HELP_BUTTON, help);
    put(IDC_DISCOVERY_SECOND_REFRESH, refresh);
    put(IDC_DISCOVERY_REFRESH, refresh);
}

LRESULT InstallDialogEx::OnControlColour(WPARAM context, LPARAM control) {
    const HWND window = reinterpret_cast<HWND>(control);
    const bool isSystems = HasClass(window, WC_EDITW) && !IsHighContrastOn();
    return isSystems ? Default() : OnCtlColor(reinterpret_cast<HDC>(context), window);
}

LRESULT InstallDialogEx::OnCtlColor(HDC context, HWND control) {
    SetBkMode(context, TRANSPARENT);
    if (IsHighContrastOn()) {
        SetTextColor(context, GetSysColor(IsWindowEnabled(control) ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
        SetBkColor(context, GetSysColor(COLOR_3DFACE));
    }
    return reinterpret_cast<LRESULT>(GroundBrush());
}

LRESULT InstallDialogEx::OnUpdateUiState(WPARAM, LPARAM) {
    const LRESULT result = Default();
    RedrawControl(GetSafeHwnd());
    return result;
}

LRESULT InstallDialogEx::OnDestroy(WPARAM, LPARAM) {
    ForgetSpokenIn(GetSafeHwnd());
    for (Font* const font : Fonts()) font->reset();
    templateFont.reset();
    for (PictureIcon* const icon : Icons()) icon->Reset();
    return 0;
}

void InstallDialogEx::ShowHelp() {
    ShowHelpTopic(GetSafeHwnd(), helpFile, helpTopic);
}

LRESULT InstallDialogEx::OnHelp(WPARAM, LPARAM) {
    ShowHelp();
    return 1;
}
