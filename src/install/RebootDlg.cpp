#include "install/RebootDlg.h"

#include "CommonLib/Logger.h"
#include "settings/InstallSettings.h"
#include "settings/TagNames.h"
#include "wizard/Controller.h"

namespace {

constexpr UINT dialogTemplate = 134;
constexpr DWORD topic = 1621;
constexpr int headerId = 1133;
constexpr int textId = 1011;
constexpr int rebootNowId = 1009;
constexpr int rebootLaterId = 1010;
constexpr int linkId = 1100;
constexpr int helpId = 1057;

}  // namespace

const MessageMap& RebootDlg::GetMessageMap() const {
    using On = EventsOf<RebootDlg>;
    static const MessageMap map(&Events(), {On::Message(WM_SHOWWINDOW, &RebootDlg::OnShowWindow)});
    return map;
}

RebootDlg::RebootDlg() : InstallDialogEx(dialogTemplate) {}

bool RebootDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    finishButton.SubclassDlgItem(IDOK, *this);
    registrationLink.SubclassDlgItem(linkId, *this);
    helpButton.SubclassDlgItem(helpId, *this);
    SetUpControl(headerId, TextKey::REBOOT_HEADER_TEXT, fontHeading);
    SetUpControl(textId, TextKey::REBOOT_TEXT, fontBody);
    SetUpControl(rebootNowId, TextKey::REBOOT_NOW_TEXT, fontBody);
    SetUpControl(rebootLaterId, TextKey::REBOOT_LATER_TEXT, fontBody);
    SetUpControl(IDOK, TextKey::FINISH_BUTTON, fontButton);
    SetUpControl(linkId, TextKey::REGISTRATION_LINK, fontButton);
    SetUpControl(helpId, TextKey::HELP_BUTTON, fontButton);
    helpButton.SetImagePath(helpImagePath);
    CheckRadioButton(GetSafeHwnd(), rebootNowId, rebootLaterId, rebootNowId);
    finishButton.SetPrimary();
    return true;
}

LRESULT RebootDlg::OnShowWindow(WPARAM, LPARAM) {
    helpTopic = topic;
    const InstallSettings& settings = InstallSettings::GetInstance();
    const bool showLink = settings.GetString(Tag::SHOW_REGISTRATION) == L"1";
    if (showLink) registrationLink.SetURL(settings.GetString(Tag::REGISTRATION_LINK));
    ShowControl(linkId, showLink);
    if (settings.GetBool(Tag::USB)) updateRebootText();
    return Default();
}

void RebootDlg::updateRebootText() {
    LogBasic(L"User chose to install using USB but is required to reboot");
    LogAdvanced(L"RebootDlg::updateRebootText", LogLevel::Success);
    SetLocalizedText(textId, TextKey::USB_REBOOT_TEXT);
}

void RebootDlg::OnOK() {
    const bool later = IsDlgButtonChecked(GetSafeHwnd(), rebootNowId) != BST_CHECKED;
    if (later) {
        LogBasic(
            L"User chose to not allow the installer to reboot the system. A reboot will be required for all "
            L"applications to function correctly.");
    } else {
        LogBasic(L"User chose to allow the installer to reboot the system");
    }
    Controller::GetInstance().Finish(!later);
}

void RebootDlg::OnCancel() {
    Controller::GetInstance().Cancel(false);
}
