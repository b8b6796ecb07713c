#include "pages/OptionalSoftwareBypassDlg.h"

#include "CommonLib/Logger.h"
#include "catalogue/DriverInfo.h"
#include "install/EndOfRun.h"
#include "settings/InstallSettings.h"
#include "settings/TagNames.h"
#include "wizard/Controller.h"

namespace {

constexpr UINT dialogTemplate = 5;
constexpr int helpId = 1057;
constexpr int finishId = 1116;
constexpr int titleId = 1103;
constexpr int textId = 1104;
constexpr int reinstallId = 1101;
constexpr int skipId = 1102;

// One printer driver that the package upgrades rules the way out, whatever stands before or behind it.
bool IsPrinterSoftwareUpToDate() {
    bool upToDate = false;
    for (const MSI_APP& driver : DriverInfo::GetInstance().GetDrivers()) {
        if (!driver.isPrinterDriver) continue;
        if (driver.upgradable) return false;
        upToDate = upToDate || driver.upToDate || driver.newerInstalled;
    }
    return upToDate;
}

}  // namespace

const MessageMap& OptionalSoftwareBypassDlg::GetMessageMap() const {
    using On = EventsOf<OptionalSoftwareBypassDlg>;
    static const MessageMap map(&Events(),
                                {
                                    On::Message(WM_SHOWWINDOW, &OptionalSoftwareBypassDlg::OnShowWindow),
                                    On::Click(reinstallId, &OptionalSoftwareBypassDlg::OnReinstallChoice),
                                    On::Click(skipId, &OptionalSoftwareBypassDlg::OnSkipChoice),
                                    On::Click(finishId, &OptionalSoftwareBypassDlg::OnFinish),
                                });
    return map;
}

OptionalSoftwareBypassDlg::OptionalSoftwareBypassDlg() : InstallDialogEx(dialogTemplate) {}

bool OptionalSoftwareBypassDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    nextButton.SubclassDlgItem(IDOK, *this);
    cancelButton.SubclassDlgItem(IDCANCEL, *this);
    finishButton.SubclassDlgItem(finishId, *this);
    helpButton.SubclassDlgItem(helpId, *this);
    SetUpControl(IDOK, TextKey::NEXT_BUTTON, fontButton);
    SetUpControl(IDCANCEL, TextKey::CANCEL_BUTTON, fontButton);
    SetUpControl(helpId, TextKey::HELP_BUTTON, fontButton);
    SetUpControl(finishId, TextKey::FINISH_BUTTON, fontButton);
    SetUpControl(titleId, TextKey::SW_BYPASS_TITLE, fontHeading);
    SetUpControl(textId, TextKey::SW_BYPASS_TEXT, fontBody);
    SetUpControl(reinstallId, TextKey::SW_BYPASS_REINSTALL, fontHeading);
    SetUpControl(skipId, TextKey::SW_BYPASS_OPTIONAL, fontHeading);
    EnableControl(IDOK, false);
    nextButton.SetPrimary();
    ShowControl(helpId, false);
    ShowControl(finishId, false);
    if (!InstallSettings::GetInstance().GetBool(Tag::SILENT_INSTALL)) UpdateDialogStatus();
    return true;
}

void OptionalSoftwareBypassDlg::UpdateDialogStatus() {
    if (IsPrinterSoftwareUpToDate()) {
        InstallSettings::GetInstance().SetBool(Tag::TAG_DIALOG_SHOW_BYPASS, true);
        LogAdvanced(L"OptionalSoftwareBypassDlg::UpdateDialogStatus: Showing Optional Software Bypass");
    } else {
        LogAdvanced(L"OptionalSoftwareBypassDlg::UpdateDialogStatus: No Optional Software Bypass");
    }
}

LRESULT OptionalSoftwareBypassDlg::OnShowWindow(WPARAM, LPARAM) {
    FocusControl(reinstallId);
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
    ShowControl(finishId, skip);
    EnableControl(finishId, skip);
    (skip ? finishButton : nextButton).SetPrimary();
}

void OptionalSoftwareBypassDlg::OnReinstallChoice() {
    if (IsChecked(reinstallId)) OfferWayOut(false);
}

void OptionalSoftwareBypassDlg::OnSkipChoice() {
    if (IsChecked(skipId)) OfferWayOut(true);
}

void OptionalSoftwareBypassDlg::OnOK() {
    if (IsChecked(skipId)) {
        LogBasic(L"User selected to Skip the Installation of Software");
        return;
    }
    LogBasic(L"User selected to reinstall/add driver");
    Controller::GetInstance().Next({});
}

void OptionalSoftwareBypassDlg::OnCancel() {
    Controller::GetInstance().Cancel(false);
}

void OptionalSoftwareBypassDlg::OnFinish() {
    LeaveForTheEnd();
}
