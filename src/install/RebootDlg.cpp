#include "install/RebootDlg.h"

#include "CommonLib/Logger.h"
#include "resources/resource.h"
#include "settings/InstallSettings.h"
#include "settings/TagNames.h"
#include "settings/TextKeys.h"
#include "wizard/Controller.h"

const MessageMap& RebootDlg::GetMessageMap() const {
    using On = EventsOf<RebootDlg>;
    static const MessageMap map(&Events(), {On::Message(WM_SHOWWINDOW, &RebootDlg::OnShowWindow)});
    return map;
}

RebootDlg::RebootDlg(const PageContext& context) : InstallDialogEx(context, IDD_REBOOT, HIDD_REBOOT) {}

bool RebootDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    finishButton.SubclassDlgItem(IDOK, *this);
    registrationLink.SubclassDlgItem(IDC_WEB_LINK, *this);
    helpButton.SubclassDlgItem(IDC_HELP_BUTTON, *this);
    SetUpControl(IDC_REBOOT_TITLE, TextKey::REBOOT_HEADER_TEXT, fontHeading);
    SetUpControl(IDC_REBOOT_TEXT, TextKey::REBOOT_TEXT, fontBody);
    SetUpControl(IDC_REBOOT_NOW, TextKey::REBOOT_NOW_TEXT, fontBody);
    SetUpControl(IDC_REBOOT_LATER, TextKey::REBOOT_LATER_TEXT, fontBody);
    SetUpControl(IDOK, TextKey::FINISH_BUTTON, fontButton);
    SetUpControl(IDC_WEB_LINK, TextKey::REGISTRATION_LINK, fontButton);
    SetUpControl(IDC_HELP_BUTTON, TextKey::HELP_BUTTON, fontButton);
    helpButton.SetImagePath(helpImagePath);
    CheckRadioButton(GetSafeHwnd(), IDC_REBOOT_NOW, IDC_REBOOT_LATER, IDC_REBOOT_NOW);
    finishButton.SetPrimary();
    return true;
}

LRESULT RebootDlg::OnShowWindow(WPARAM, LPARAM) {
    const bool showLink = settings.IsSet(Tag::SHOW_REGISTRATION);
    if (showLink) registrationLink.SetURL(settings.GetString(Tag::REGISTRATION_LINK));
    ShowControl(IDC_WEB_LINK, showLink);
    if (settings.GetBool(Tag::USB)) updateRebootText();
    return Default();
}

void RebootDlg::updateRebootText() {
    LogBasic(L"User chose to install using USB but is required to reboot");
    LogAdvanced(L"RebootDlg::updateRebootText", LogLevel::Success);
    SetLocalizedText(IDC_REBOOT_TEXT, TextKey::USB_REBOOT_TEXT);
}

void RebootDlg::OnOK() {
    const bool later = IsDlgButtonChecked(GetSafeHwnd(), IDC_REBOOT_NOW) != BST_CHECKED;
    if (later) {
        LogBasic(
            L"User chose to not allow the installer to reboot the system. A reboot will be required for all "
            L"applications to function correctly.");
    } else {
        LogBasic(L"User chose to allow the installer to reboot the system");
    }
    controller.Finish(!later);
}
