#include "discovery/ModifySearchDlg.h"

#include <windows.h>

#include "CommonLib/IpAddress.h"
#include "CommonLib/Logger.h"
#include "CommonLib/SystemVersion.h"
#include "resources/resource.h"
#include "settings/TagNames.h"
#include "settings/TextKeys.h"

namespace {

constexpr UINT_PTR checkTimer = 0;
constexpr UINT pauseInMilliseconds = 300;

}  // namespace

const MessageMap& ModifySearchDlg::GetMessageMap() const {
    using On = EventsOf<ModifySearchDlg>;
    static const MessageMap map(
        &Events(), {
                       On::Message(WM_SHOWWINDOW, &ModifySearchDlg::OnShowWindow),
                       On::Message(WM_TIMER, &ModifySearchDlg::OnTimer),
                       On::Control(IDC_MODIFY_SEARCH_HOST, EN_CHANGE, &ModifySearchDlg::ScheduleCheck),
                       On::Control(IDC_MODIFY_SEARCH_ADDRESS, EN_CHANGE, &ModifySearchDlg::ScheduleCheck),
                       On::Control(IDC_MODIFY_SEARCH_MASK, EN_CHANGE, &ModifySearchDlg::ScheduleCheck),
                       On::Click(IDC_MODIFY_SEARCH_LOCAL, &ModifySearchDlg::OnRadio),
                       On::Click(IDC_MODIFY_SEARCH_BY_HOST, &ModifySearchDlg::OnRadio),
                       On::Click(IDC_MODIFY_SEARCH_BY_SUBNET, &ModifySearchDlg::OnRadio),
                   });
    return map;
}

ModifySearchDlg::ModifySearchDlg(const PageContext& context, CWnd& page)
    : InstallDialogEx(context, IDD_MODIFY_SEARCH, HIDD_MODIFY_SEARCH, &page),
      check({.isPossible = [] { return IsWindowsVersionOrGreater(WindowsVersion::Vista); },
             .isAddress = [](const std::wstring& text) { return IsValidIpAddress(text) == 1; }}) {}

bool ModifySearchDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    hostEdit.SubclassDlgItem(IDC_MODIFY_SEARCH_HOST, *this);
    addressEdit.SubclassDlgItem(IDC_MODIFY_SEARCH_ADDRESS, *this);
    maskEdit.SubclassDlgItem(IDC_MODIFY_SEARCH_MASK, *this);
    okButton.SubclassDlgItem(IDOK, *this);
    cancelButton.SubclassDlgItem(IDCANCEL, *this);
    helpButton.SubclassDlgItem(IDC_HELP_BUTTON, *this);
    SetUpTexts();
    SetUpTips();
    helpButton.SetImagePath(helpImagePath);
    okButton.SetPrimary();
    return true;
}

// The dialog without its tips serves as well.
void ModifySearchDlg::SetUpTips() {
    if (!toolTips.Create(*this)) return;
    toolTips.AddTool(GetDlgItem(IDC_MODIFY_SEARCH_LOCAL),
                     GetLocalizedText(TextKey::LOCAL_SUBNET_SEARCH_TOOLTIP));
    toolTips.AddTool(GetDlgItem(IDC_MODIFY_SEARCH_BY_HOST),
                     GetLocalizedText(TextKey::IP_HOSTNAME_SEARCH_TOOLTIP));
    toolTips.AddTool(GetDlgItem(IDC_MODIFY_SEARCH_BY_SUBNET),
                     GetLocalizedText(TextKey::SUBNET_SEARCH_TOOLTIP));
    toolTips.Activate(true);
}

void ModifySearchDlg::SetUpTexts() {
    SetWindowText(GetLocalizedText(TextKey::ADD_NETWORK_PRINTER));
    SetUpControl(IDC_MODIFY_SEARCH_LOCAL, TextKey::LOCAL_SUBNET_SEARCH, fontBody);
    SetUpControl(IDC_MODIFY_SEARCH_BY_HOST, TextKey::IP_HOSTNAME_SEARCH, fontBody);
    SetUpControl(IDC_MODIFY_SEARCH_BY_SUBNET, TextKey::SUBNET_SEARCH, fontBody);
    SetUpControl(IDC_MODIFY_SEARCH_ADDRESS_LABEL, TextKey::IP_ADDRESS, fontBody);
    SetUpControl(IDC_MODIFY_SEARCH_MASK_LABEL, TextKey::SUBNET_MASK, fontBody);
    ::SetWindowTextW(GetDlgItem(IDC_MODIFY_SEARCH_HOST_LABEL),
                     GetPlainText(TextKey::IP_HOSTNAME_SEARCH).c_str());
    for (const int id : {IDC_MODIFY_SEARCH_HOST, IDC_MODIFY_SEARCH_ADDRESS, IDC_MODIFY_SEARCH_MASK})
        SetControlFont(id, fontBody);
    SetUpControl(IDOK, TextKey::OK_BUTTON, fontButton);
    SetUpControl(IDCANCEL, TextKey::CANCEL_BUTTON, fontButton);
    SetUpControl(IDC_HELP_BUTTON, TextKey::HELP_BUTTON, fontButton);
}

// Restores the fields from the search that is in place.
LRESULT ModifySearchDlg::OnShowWindow(WPARAM, LPARAM) {
    const ShownSearch search = ReadSearch(settings.GetString(Tag::DISCOVER_PARAMS));
    switch (search.kind) {
        case SearchKind::OwnSubnet:
            CheckRadio(IDC_MODIFY_SEARCH_LOCAL);
            FocusControl(IDC_MODIFY_SEARCH_LOCAL);
            OnRadio();
            break;
        case SearchKind::Host:
            EnableFields(SearchKind::Host);
            Fill(hostEdit, search.host);
            Restore(IDC_MODIFY_SEARCH_BY_HOST);
            break;
        case SearchKind::Subnet:
            EnableFields(SearchKind::Subnet);
            maskEdit.SetWindowText(search.mask);
            Fill(addressEdit, search.address);
            Restore(IDC_MODIFY_SEARCH_BY_SUBNET);
            break;
        case SearchKind::Unreadable:
            LogBasic(L"No control is checked");
            break;
        case SearchKind::UnreadableSubnet:
            LogBasic(L"Subnet values are not proper");
            break;
    }
    KeepTabStop(IDC_MODIFY_SEARCH_LOCAL, IDC_MODIFY_SEARCH_BY_SUBNET);
    ShowControl(IDC_HELP_BUTTON, false);
    return Default();
}

void ModifySearchDlg::Restore(int radioId) {
    CheckRadio(radioId);
    EnableControl(IDOK, true);
}

void ModifySearchDlg::Fill(CEdit& edit, const std::wstring& text) {
    edit.SetWindowText(text);
    edit.SetFocus();
    edit.MoveCaretToEnd();
}

bool ModifySearchDlg::IsChecked(int radioId) const {
    return IsDlgButtonChecked(GetSafeHwnd(), radioId) == BST_CHECKED;
}

void ModifySearchDlg::CheckRadio(int radioId) {
    CheckRadioButton(GetSafeHwnd(), IDC_MODIFY_SEARCH_LOCAL, IDC_MODIFY_SEARCH_BY_SUBNET, radioId);
}

SearchKind ModifySearchDlg::SelectedKind() const {
    if (IsChecked(IDC_MODIFY_SEARCH_BY_HOST)) return SearchKind::Host;
    return IsChecked(IDC_MODIFY_SEARCH_BY_SUBNET) ? SearchKind::Subnet : SearchKind::OwnSubnet;
}

void ModifySearchDlg::EnableFields(SearchKind kind) {
    EnableControl(IDC_MODIFY_SEARCH_HOST, kind == SearchKind::Host);
    EnableControl(IDC_MODIFY_SEARCH_ADDRESS, kind == SearchKind::Subnet);
    EnableControl(IDC_MODIFY_SEARCH_MASK, kind == SearchKind::Subnet);
}

void ModifySearchDlg::OnRadio() {
    const SearchKind kind = SelectedKind();
    EnableFields(kind);
    if (kind == SearchKind::Host) hostEdit.SetFocus();
    if (kind == SearchKind::Subnet) addressEdit.SetFocus();
    check.Force();
    ScheduleCheck();
}

// The check runs when the user has paused, but at once for a text that is too long.
void ModifySearchDlg::ScheduleCheck() {
    if (hostEdit.GetLength() > longestHost || addressEdit.GetLength() > longestAddress ||
        maskEdit.GetLength() > longestAddress) {
        KillTimer(GetSafeHwnd(), checkTimer);
        Check();
    } else if (SetTimer(GetSafeHwnd(), checkTimer, pauseInMilliseconds, nullptr) == 0) {
        LogAdvanced(L"Timer for validation could not be set");
    }
}

LRESULT ModifySearchDlg::OnTimer(WPARAM timer, LPARAM) {
    if (timer == checkTimer && KillTimer(GetSafeHwnd(), checkTimer) != FALSE) Check();
    return 0;
}

void ModifySearchDlg::Check() {
    EnableControl(IDOK, IsSearchGood());
}

// Both fields of a subnet are checked, whatever comes of the first.
bool ModifySearchDlg::IsSearchGood() {
    if (IsChecked(IDC_MODIFY_SEARCH_LOCAL)) return true;
    if (IsChecked(IDC_MODIFY_SEARCH_BY_HOST))
        return Obey(hostEdit, check.CheckHost(hostEdit.GetWindowText()));
    if (!IsChecked(IDC_MODIFY_SEARCH_BY_SUBNET)) return false;
    const bool isAddressGood = Obey(addressEdit, check.CheckAddress(addressEdit.GetWindowText()));
    const bool isMaskGood = Obey(maskEdit, check.CheckMask(maskEdit.GetWindowText()));
    return isAddressGood && isMaskGood;
}

bool ModifySearchDlg::Obey(CEdit& edit, const FieldVerdict& verdict) {
    if (verdict.cutTo) {
        edit.SetWindowText(edit.GetText(*verdict.cutTo));
        edit.MoveCaretToEnd();
    }
    if (!verdict.complaint.empty()) {
        edit.ShowBalloonTip(GetLocalizedText(verdict.complaint));
        MessageBeep(MB_OK);
    }
    return verdict.accepted;
}

// By design: Enter confirms past the check, whether OK is enabled or not.
bool ModifySearchDlg::PreTranslateMessage(MSG* message) {
    if (message->message == WM_KEYDOWN && message->wParam == VK_RETURN) {
        OnOK();
        return true;
    }
    return InstallDialogEx::PreTranslateMessage(message);
}

void ModifySearchDlg::OnOK() {
    const ShownSearch search{.kind = SelectedKind(),
                             .host = hostEdit.GetText(longestHost),
                             .address = addressEdit.GetText(longestAddress),
                             .mask = maskEdit.GetText(longestAddress)};
    settings.SetString(Tag::DISCOVER_PARAMS, WriteSearch(search));
    if (search.kind == SearchKind::Host) {
        LogBasic(L"Filter for Hostname: " + search.host);
    } else if (search.kind == SearchKind::Subnet) {
        LogBasic(L"Filter for Subnet: " + search.address + L":" + search.mask + L";");
    } else {
        LogBasic(L"No user-set filter in place");
    }
    EndDialog(IDOK);
}
