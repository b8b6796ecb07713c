#include "discovery/ModifySearchDlg.h"

#include <windows.h>

#include "CommonLib/AddressText.h"
#include "CommonLib/IpAddress.h"
#include "CommonLib/Logger.h"
#include "CommonLib/SystemVersion.h"
#include "resources/resource.h"
#include "settings/InstallSettings.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"
#include "settings/TextKeys.h"

namespace {

constexpr UINT_PTR checkTimer = 0;
constexpr UINT pauseInMilliseconds = 300;
constexpr std::size_t longestHost = 255;
constexpr std::size_t longestAddress = 45;

// Systems before Vista cannot read addresses: they take every one.
bool CanTestAddresses() {
    return IsWindowsVersionOrGreater(WindowsVersion::Vista);
}

bool IsAcceptedHost(const std::wstring& text) {
    return (CanTestAddresses() && IsValidIpAddress(text) == 1) || IsValidHostName(text);
}

bool IsAcceptedAddress(const std::wstring& text) {
    return !CanTestAddresses() || IsValidIpAddress(text) == 1;
}

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
    : InstallDialogEx(context, IDD_MODIFY_SEARCH, HIDD_MODIFY_SEARCH, &page) {
    addressField.limitText = TextKey::MSG_IP_LIMIT;
    addressField.invalidText = TextKey::MSG_INVALID_IP;
    maskField.limitText = TextKey::MSG_SUBNET_LIMIT;
    maskField.invalidText = TextKey::MSG_INVALID_SUBNET;
}

bool ModifySearchDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    hostEdit.SubclassDlgItem(IDC_MODIFY_SEARCH_HOST, *this);
    addressField.edit.SubclassDlgItem(IDC_MODIFY_SEARCH_ADDRESS, *this);
    maskField.edit.SubclassDlgItem(IDC_MODIFY_SEARCH_MASK, *this);
    okButton.SubclassDlgItem(IDOK, *this);
    cancelButton.SubclassDlgItem(IDCANCEL, *this);
    helpButton.SubclassDlgItem(IDC_HELP_BUTTON, *this);
    SetUpTexts();
    toolTips.AddTool(GetDlgItem(IDC_MODIFY_SEARCH_LOCAL),
                     GetLocalizedText(TextKey::LOCAL_SUBNET_SEARCH_TOOLTIP));
    toolTips.AddTool(GetDlgItem(IDC_MODIFY_SEARCH_BY_HOST),
                     GetLocalizedText(TextKey::IP_HOSTNAME_SEARCH_TOOLTIP));
    toolTips.AddTool(GetDlgItem(IDC_MODIFY_SEARCH_BY_SUBNET),
                     GetLocalizedText(TextKey::SUBNET_SEARCH_TOOLTIP));
    toolTips.Activate(true);
    helpButton.SetImagePath(helpImagePath);
    okButton.SetPrimary();
    return true;
}

void ModifySearchDlg::SetUpTexts() {
    SetWindowText(GetLocalizedText(TextKey::ADD_NETWORK_PRINTER));
    SetUpControl(IDC_MODIFY_SEARCH_LOCAL, TextKey::LOCAL_SUBNET_SEARCH, fontBody);
    SetUpControl(IDC_MODIFY_SEARCH_BY_HOST, TextKey::IP_HOSTNAME_SEARCH, fontBody);
    SetUpControl(IDC_MODIFY_SEARCH_BY_SUBNET, TextKey::SUBNET_SEARCH, fontBody);
    SetUpControl(IDC_MODIFY_SEARCH_ADDRESS_LABEL, TextKey::IP_ADDRESS, fontBody);
    SetUpControl(IDC_MODIFY_SEARCH_MASK_LABEL, TextKey::SUBNET_MASK, fontBody);
    for (const int id : {IDC_MODIFY_SEARCH_HOST, IDC_MODIFY_SEARCH_ADDRESS, IDC_MODIFY_SEARCH_MASK})
        SetControlFont(id, fontBody);
    SetUpControl(IDOK, TextKey::OK_BUTTON, fontButton);
    SetUpControl(IDCANCEL, TextKey::CANCEL_BUTTON, fontButton);
    SetUpControl(IDC_HELP_BUTTON, TextKey::HELP_BUTTON, fontButton);
}

// Restores the fields from the search that is in place.
LRESULT ModifySearchDlg::OnShowWindow(WPARAM, LPARAM) {
    const std::wstring search = settings.GetString(Tag::DISCOVER_PARAMS);
    const std::wstring host = TagDocument::ValueOf(search, Tag::UNICAST_ADDRESS);
    const std::wstring subnet = TagDocument::ValueOf(search, Tag::REMOTE_SUBNETS);
    if (search.empty()) {
        CheckRadio(IDC_MODIFY_SEARCH_LOCAL);
        FocusControl(IDC_MODIFY_SEARCH_LOCAL);
        OnRadio();
    } else if (!host.empty()) {
        EnableFields(true, false);
        Fill(hostEdit, host);
        CheckRadio(IDC_MODIFY_SEARCH_BY_HOST);
        EnableControl(IDOK, true);
    } else if (!subnet.empty()) {
        RestoreSubnet(subnet);
    } else {
        LogBasic(L"No control is checked");
    }
    ShowControl(IDC_HELP_BUTTON, false);
    return Default();
}

void ModifySearchDlg::RestoreSubnet(const std::wstring& subnet) {
    const std::size_t colon = subnet.find(L':');
    if (colon == std::wstring::npos) {
        LogBasic(L"Subnet values are not proper");
        return;
    }
    EnableFields(false, true);
    std::wstring mask = subnet.substr(colon + 1);
    if (!mask.empty()) mask.pop_back();
    maskField.edit.SetWindowText(mask);
    Fill(addressField.edit, subnet.substr(0, colon));
    CheckRadio(IDC_MODIFY_SEARCH_BY_SUBNET);
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

void ModifySearchDlg::EnableFields(bool host, bool subnet) {
    EnableControl(IDC_MODIFY_SEARCH_HOST, host);
    EnableControl(IDC_MODIFY_SEARCH_ADDRESS, subnet);
    EnableControl(IDC_MODIFY_SEARCH_MASK, subnet);
}

void ModifySearchDlg::OnRadio() {
    if (IsChecked(IDC_MODIFY_SEARCH_LOCAL)) {
        EnableFields(false, false);
    } else if (IsChecked(IDC_MODIFY_SEARCH_BY_HOST)) {
        EnableFields(true, false);
        hostEdit.SetFocus();
    } else if (IsChecked(IDC_MODIFY_SEARCH_BY_SUBNET)) {
        EnableFields(false, true);
        addressField.edit.SetFocus();
    }
    forceCheck = true;
    ScheduleCheck();
}

// The check runs when the user has paused, but at once for a text that is too long.
void ModifySearchDlg::ScheduleCheck() {
    if (hostEdit.GetLength() > longestHost || addressField.edit.GetLength() > longestAddress ||
        maskField.edit.GetLength() > longestAddress) {
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
    EnableControl(IDOK, false);
    if (IsChecked(IDC_MODIFY_SEARCH_LOCAL) || (IsChecked(IDC_MODIFY_SEARCH_BY_HOST) && CheckHost())) {
        EnableControl(IDOK, true);
    } else if (IsChecked(IDC_MODIFY_SEARCH_BY_SUBNET)) {
        const bool isAddressGood = CheckAddress(addressField);
        const bool isMaskGood = CheckAddress(maskField);
        if (isAddressGood && isMaskGood) EnableControl(IDOK, true);
    }
}

// A text that is cut off counts as good without a test.
// By design: a text that was checked before is refused, valid or not, until it changes.
bool ModifySearchDlg::CheckHost() {
    const std::wstring text = hostEdit.GetText(longestHost + 1);
    if (text.empty()) forceCheck = false;
    // An empty text is never good, nor is one that is as it was.
    if (text.empty() || (text == lastHostText && !forceCheck)) return false;
    bool accepted = true;
    if (hostEdit.GetLength() > longestHost) {
        CutOff(hostEdit, longestHost, TextKey::MSG_HOSTNAME_LIMIT);
    } else {
        accepted = IsAcceptedHost(text);
        // Before Vista the message comes whether or not the text has changed.
        if (!accepted && (text != lastHostText || !CanTestAddresses())) {
            Complain(hostEdit, TextKey::MSG_INVALID_IPHOST_NAME);
        }
    }
    lastHostText = hostEdit.GetText(longestHost);
    forceCheck = false;
    return accepted;
}

// Clears the force for the field that is checked next, which an unchanged text then passes in silence.
bool ModifySearchDlg::CheckAddress(AddressField& field) {
    const std::wstring text = field.edit.GetText(longestAddress + 2);
    const bool accepted = !text.empty() && TestAddress(field, text);
    forceCheck = false;
    return accepted;
}

bool ModifySearchDlg::TestAddress(AddressField& field, const std::wstring& text) {
    const bool isChanged = text != field.lastText;
    if (isChanged && field.edit.GetLength() > longestAddress) {
        CutOff(field.edit, longestAddress, field.limitText);
        field.lastText = field.edit.GetText(longestAddress);
        return true;
    }
    field.lastText = text;
    const bool accepted = IsAcceptedAddress(text);
    if (!accepted && isChanged) Complain(field.edit, field.invalidText);
    return accepted;
}

void ModifySearchDlg::CutOff(CEdit& edit, std::size_t longest, TextId limitText) {
    edit.SetWindowText(edit.GetText(longest));
    edit.MoveCaretToEnd();
    Complain(edit, limitText);
}

void ModifySearchDlg::Complain(CEdit& edit, TextId textKey) {
    edit.ShowBalloonTip(GetLocalizedText(textKey));
    MessageBeep(MB_OK);
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
    if (IsChecked(IDC_MODIFY_SEARCH_BY_HOST)) {
        const std::wstring host = hostEdit.GetText(longestHost);
        settings.SetString(Tag::DISCOVER_PARAMS, TagDocument::MakeElement(Tag::UNICAST_ADDRESS, host));
        LogBasic(L"Filter for Hostname: " + host);
    } else if (IsChecked(IDC_MODIFY_SEARCH_BY_SUBNET)) {
        const std::wstring subnet =
            addressField.edit.GetText(longestAddress) + L":" + maskField.edit.GetText(longestAddress) + L";";
        settings.SetString(Tag::DISCOVER_PARAMS, TagDocument::MakeElement(Tag::REMOTE_SUBNETS, subnet));
        LogBasic(L"Filter for Subnet: " + subnet);
    } else {
        settings.SetString(Tag::DISCOVER_PARAMS, {});
        LogBasic(L"No user-set filter in place");
    }
    EndDialog(IDOK);
}
