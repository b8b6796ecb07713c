#include "pages/EULADlg.h"

#include <windows.h>

#include <richedit.h>

#include <cwchar>
#include <vector>

#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "CommonLib/SystemText.h"
#include "CommonLib/TextFile.h"
#include "CommonLib/TextUtilities.h"
#include "framework/SystemLibrary.h"
#include "resources/resource.h"
#include "settings/LanguageTable.h"
#include "settings/Localizer.h"
#include "settings/TextKeys.h"
#include "wizard/Controller.h"

namespace {

// Makes the control report every kind of scrolling.
constexpr LPARAM scrollEvents = 0xBD;
// Comes back to the page when the control has done what it reports.
constexpr UINT scrollDone = firstPageMessage;

}  // namespace

const MessageMap& EULADlg::GetMessageMap() const {
    using On = EventsOf<EULADlg>;
    static const MessageMap map(&Events(),
                                {
                                    On::Message(WM_SHOWWINDOW, &EULADlg::OnShowWindow),
                                    On::Control(IDC_LICENCE_TEXT, EN_VSCROLL, &EULADlg::OnScroll),
                                    On::Notify(IDC_LICENCE_TEXT, EN_MSGFILTER, &EULADlg::OnMessageFilter),
                                    On::Message(scrollDone, &EULADlg::OnScrollDone),
                                });
    return map;
}

EULADlg::EULADlg(const PageContext& context)
    : InstallDialogEx(context, IDD_LICENCE), richEdit(LoadSystemLibrary(L"riched20.dll")) {}

// The text's window goes before the library that holds its procedure.
EULADlg::~EULADlg() {
    DestroyWindow();
}

bool EULADlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    agreeButton.SubclassDlgItem(IDOK, *this);
    disagreeButton.SubclassDlgItem(IDCANCEL, *this);
    SetUpControl(IDC_LICENCE_TITLE, TextKey::LICENSE_AGREEMENT, fontHeading);
    SetUpControl(IDC_LICENCE_SCROLL_HINT, TextKey::LICENSE_SCROLL_TEXT, fontSmall);
    SetUpControl(IDOK, TextKey::AGREE_BUTTON, fontButton);
    SetUpControl(IDCANCEL, TextKey::DISAGREE_BUTTON, fontButton);
    // The font comes before the text, whose length in lines the scroll test asks for.
    SetControlFont(IDC_LICENCE_TEXT, fontBody);
    ShowLicence();
    EnableControl(IDOK, false);
    OnScroll();
    agreeButton.SetPrimary();
    return true;
}

void EULADlg::ShowLicence() {
    const HWND licence = GetDlgItem(IDC_LICENCE_TEXT);
    const std::wstring text = ReadEULAFile(GetEULAPath());
    const LRESULT events = ::SendMessageW(licence, EM_GETEVENTMASK, 0, 0);
    ::SendMessageW(licence, EM_SETEVENTMASK, 0, events | scrollEvents);
    ::SendMessageW(licence, EM_EXLIMITTEXT, 0, static_cast<LPARAM>(text.size()));
    ::SetWindowTextW(licence, text.c_str());
    ::SendMessageW(licence, EM_SETOPTIONS, ECOOP_OR, ECO_SAVESEL);
}

std::wstring EULADlg::GetEULAPath() const {
    const std::uint32_t languageId = GetUserDefaultUILanguage();
    const std::uint32_t primaryId = languageId & 0x3FF;
    std::wstring code = GetLanguageCode();
    if (code == L"id_ID") code = L"id";
    const std::wstring folder = GetExeDirectory() + L"\\..\\..\\Notices\\EULA\\";
    std::vector<std::wstring> found;
    FindFiles(folder + L"*eula_" + code, found, L"txt");
    std::wstring path = found.empty() ? folder + L"EULA_en.txt" : found.front();
    LogAdvanced(L"EULADlg::GetEULAPath(), currentLangId = " + ToDecimalString(languageId) +
                L" primaryLangId = " + ToDecimalString(primaryId));
    LogAdvanced(L"EULA path being used: " + path);
    return path;
}

std::wstring EULADlg::ReadEULAFile(const std::wstring& path) const {
    // By design: the shown text begins with an empty line.
    std::wstring text = L"\r";
    const std::wstring codePageText = GetLocalizedText(TextKey::CODE_PAGE);
    const auto codePage = static_cast<UINT>(std::wcstoul(codePageText.c_str(), nullptr, 10));
    const int error =
        ReadTextPieces(path, [&](std::string_view piece) { text += CodePageToWide(codePage, piece); });
    if (error != 0) {
        LogAdvanced(L"EULADlg::ReadEULAFile(), Loading EULA file failed! " + path, LogLevel::Error);
    }
    return text;
}

LRESULT EULADlg::OnShowWindow(WPARAM, LPARAM) {
    FocusControl(IDC_LICENCE_TEXT);
    ::SendMessageW(GetDlgItem(IDC_LICENCE_TEXT), EM_SETSEL, 0, 0);
    return Default();
}

// The control asks before it acts, and the thumb of its scroll bar brings no other event. So the position is
// read now and once more after the move.
LRESULT EULADlg::OnMessageFilter(NMHDR&) {
    OnScroll();
    PostMessage(scrollDone);
    return 0;
}

LRESULT EULADlg::OnScrollDone(WPARAM, LPARAM) {
    OnScroll();
    return 0;
}

// The end is the largest position that the control can be scrolled to; one unit above it is near enough. Its
// maximum is the text's height, which the last position does not reach, unlike that of other controls.
void EULADlg::OnScroll() {
    SCROLLINFO scroll{.cbSize = sizeof(SCROLLINFO), .fMask = SIF_ALL};
    GetScrollInfo(GetDlgItem(IDC_LICENCE_TEXT), SB_VERT, &scroll);
    const int end = scroll.nMax - static_cast<int>(scroll.nPage);
    if (scroll.nPos + 1 < end) return;
    EnableControl(IDOK, true);
    agreeButton.SendMessage(BM_SETSTATE, FALSE);
}

void EULADlg::OnOK() {
    LogBasic(L"User agreed to the EULA ");
    controller.Next({});
}
