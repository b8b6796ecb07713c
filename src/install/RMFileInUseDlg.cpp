#include "install/RMFileInUseDlg.h"

#include "settings/TagNames.h"

namespace {

constexpr UINT dialogTemplate = 141;
constexpr int textId = 1061;
constexpr int applicationsId = 1096;
constexpr int restartId = 1063;
constexpr int doNotCloseId = 1064;

}  // namespace

RMFileInUseDlg::RMFileInUseDlg() : InstallDialogEx(dialogTemplate) {}

bool RMFileInUseDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    okButton.SubclassDlgItem(IDOK, *this);
    SetWindowText(GetLocalizedText(TextKey::FILES_IN_USE_HEADER));
    SetUpControl(textId, TextKey::RM_FILE_IN_USE_TEXT, fontBody);
    SetUpControl(restartId, TextKey::AUTO_RESTART_TEXT, fontBody);
    SetUpControl(doNotCloseId, TextKey::DO_NOT_CLOSE_TEXT, fontBody);
    SetUpControl(IDOK, TextKey::OK_BUTTON, fontButton);
    SetControlFont(applicationsId, fontBody);
    ::SetWindowTextW(GetDlgItem(applicationsId), applicationName.c_str());
    CheckRadioButton(GetSafeHwnd(), restartId, doNotCloseId, restartId);
    okButton.SetPrimary();
    return true;
}

bool RMFileInUseDlg::PreTranslateMessage(MSG* message) {
    if (message->message == WM_KEYDOWN && message->wParam == VK_ESCAPE) {
        OnCancel();
        return true;
    }
    return InstallDialogEx::PreTranslateMessage(message);
}

void RMFileInUseDlg::OnOK() {
    EndDialog(IsDlgButtonChecked(GetSafeHwnd(), restartId) == BST_CHECKED ? IDOK : IDCANCEL);
}
