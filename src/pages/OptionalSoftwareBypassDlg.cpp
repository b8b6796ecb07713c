#include "pages/OptionalSoftwareBypassDlg.h"

#include "CommonLib/Logger.h"
#include "pages/BypassOffer.h"
#include "resources/resource.h"
#include "settings/InstallSettings.h"
#include "settings/TagNames.h"
#include "settings/TextKeys.h"
#include "wizard/Controller.h"

const MessageMap& OptionalSoftwareBypassDlg::GetMessageMap() const {
    using On = EventsOf<OptionalSoftwareBypassDlg>;
    static const MessageMap map(
        &Events(), {
                       On::Message(WM_SHOWWINDOW, &OptionalSoftwareBypassDlg::OnShowWindow),
                       On::Click(IDC_BYPASS_REINSTALL, &OptionalSoftwareBypassDlg::OnReinstallChoice),
                       On::Click(IDC_BYPASS_SKIP, &OptionalSoftwareBypassDlg::OnSkipChoice),
                       On::Click(IDC_FINISH, &OptionalSoftwareBypassDlg::OnFinish),
                   });
    return map;
}

OptionalSoftwareBypassDlg::OptionalSoftwareBypassDlg(const PageContext& context,
                                                     const DriverInfo& driverCatalogue)
    : InstallDialogEx(context, IDD_BYPASS), drivers(driverCatalogue) {}

bool OptionalSoftwareBypassDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    nextButton.SubclassDlgItem(IDOK, *this);
    cancelButton.SubclassDlgItem(IDCANCEL, *this);
    finishButton.SubclassDlgItem(IDC_FINISH, *this);
    helpButton.SubclassDlgItem(IDC_HELP_BUTTON, *this);
    SetUpControl(IDOK, TextKey::NEXT_BUTTON, fontButton);
    SetUpControl(IDCANCEL, TextKey::CANCEL_BUTTON, fontButton);
    SetUpControl(IDC_HELP_BUTTON, TextKey::HELP_BUTTON, fontButton);
    SetUpControl(IDC_FINISH, TextKey::FINISH_BUTTON, fontButton);
    SetUpControl(IDC_BYPASS_TITLE, TextKey::SW_BYPASS_TITLE, fontHeading);
    SetUpControl(IDC_BYPASS_TEXT, TextKey::SW_BYPASS_TEXT, fontBody);
    SetUpControl(IDC_BYPASS_REINSTALL, TextKey::SW_BYPASS_REINSTALL, fontHeading);
    SetUpControl(IDC_BYPASS_SKIP, TextKey::SW_BYPASS_OPTIONAL, fontHeading);
    EnableControl(IDOK, false);
    nextButton.SetPrimary();
    finishButton.SetPrimary();
    ShowControl(IDC_HELP_BUTTON, false);
    ShowControl(IDC_FINISH, false);
    if (!settings.GetBool(Tag::SILENT_INSTALL)) UpdateDialogStatus();
    return true;
}

void OptionalSoftwareBypassDlg::UpdateDialogStatus() {
    if (IsPrinterSoftwareUpToDate(drivers)) {
        settings.SetBool(Tag::TAG_DIALOG_SHOW_BYPASS, true);
        LogAdvanced(L"OptionalSoftwareBypassDlg::UpdateDialogStatus: Showing Optional Software Bypass");
    } else {
        LogAdvanced(L"OptionalSoftwareBypassDlg::UpdateDialogStatus: No Optional Software Bypass");
    }
}

LRESULT OptionalSoftwareBypassDlg::OnShowWindow(WPARAM, LPARAM) {
    FocusControl(IDC_BYPASS_REINSTALL);
    return Default();
}

bool OptionalSoftwareBypassDlg::IsChecked(int controlId) const {
    return IsDlgButtonChecked(GetSafeHwnd(), controlId) == BST_CHECKED;
}

void OptionalSoftwareBypassDlg::OfferWayOut(bool skip) {
    for (const int id : {IDOK, IDCANCEL}) {
        ShowControl(id, !skip);
        EnableControl(id, !skip);
    }
    ShowControl(IDC_FINISH, skip);
    EnableControl(IDC_FINISH, skip);
}

void OptionalSoftwareBypassDlg::OnReinstallChoice() {
    if (IsChecked(IDC_BYPASS_REINSTALL)) OfferWayOut(false);
}

void OptionalSoftwareBypassDlg::OnSkipChoice() {
    if (IsChecked(IDC_BYPASS_SKIP)) OfferWayOut(true);
}

void OptionalSoftwareBypassDlg::OnOK() {
    if (IsChecked(IDC_BYPASS_SKIP)) {
        LogBasic(L"User selected to Skip the Installation of Software");
        return;
    }
    LogBasic(L"User selected to reinstall/add driver");
    controller.Next({});
}

// Whatever REBOOT says: nothing has run that could ask for a restart, and the way to its page installs.
void OptionalSoftwareBypassDlg::OnFinish() {
    controller.Finish(false);
}
