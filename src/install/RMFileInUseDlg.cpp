#include "install/RMFileInUseDlg.h"

#include "resources/resource.h"
#include "settings/TextKeys.h"

RMFileInUseDlg::RMFileInUseDlg(const PageContext& context) : InstallDialogEx(context, IDD_CLOSABLE_FILES) {}

bool RMFileInUseDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    okButton.SubclassDlgItem(IDOK, *this);
    SetWindowText(GetLocalizedText(TextKey::FILES_IN_USE_HEADER));
    SetUpControl(IDC_CLOSABLE_FILES_TEXT, TextKey::RM_FILE_IN_USE_TEXT, fontBody);
    SetUpControl(IDC_CLOSABLE_FILES_RESTART, TextKey::AUTO_RESTART_TEXT, fontBody);
    SetUpControl(IDC_CLOSABLE_FILES_DO_NOT_CLOSE, TextKey::DO_NOT_CLOSE_TEXT, fontBody);
    SetUpControl(IDOK, TextKey::OK_BUTTON, fontButton);
    SetControlFont(IDC_CLOSABLE_FILES_APPLICATIONS, fontBody);
    ::SetWindowTextW(GetDlgItem(IDC_CLOSABLE_FILES_APPLICATIONS), applicationName.c_str());
    CheckRadioButton(GetSafeHwnd(), IDC_CLOSABLE_FILES_RESTART, IDC_CLOSABLE_FILES_DO_NOT_CLOSE,
                     IDC_CLOSABLE_FILES_RESTART);
    okButton.SetPrimary();
    return true;
}

void RMFileInUseDlg::OnOK() {
    EndDialog(IsDlgButtonChecked(GetSafeHwnd(), IDC_CLOSABLE_FILES_RESTART) == BST_CHECKED ? IDOK : IDCANCEL);
}
