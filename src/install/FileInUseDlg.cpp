#include "install/FileInUseDlg.h"

#include "resources/resource.h"
#include "settings/InstallSettings.h"
#include "settings/TagNames.h"
#include "settings/TextKeys.h"
#include "wizard/Controller.h"

const MessageMap& FileInUseDlg::GetMessageMap() const {
    using On = EventsOf<FileInUseDlg>;
    static const MessageMap map(&Events(), {
                                               On::Click(IDC_FILES_IN_USE_RETRY, &FileInUseDlg::OnRetry),
                                               On::Click(IDC_FILES_IN_USE_IGNORE, &FileInUseDlg::OnIgnore),
                                           });
    return map;
}

FileInUseDlg::FileInUseDlg(const PageContext& context) : InstallDialogEx(context, IDD_FILES_IN_USE) {}

bool FileInUseDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    cancelButton.SubclassDlgItem(IDCANCEL, *this);
    ignoreButton.SubclassDlgItem(IDC_FILES_IN_USE_IGNORE, *this);
    retryButton.SubclassDlgItem(IDC_FILES_IN_USE_RETRY, *this);
    SetWindowText(GetLocalizedText(TextKey::FILES_IN_USE_HEADER));
    SetUpControl(IDC_FILES_IN_USE_TITLE, TextKey::FILES_IN_USE_HEADER, fontHeading);
    SetUpControl(IDC_FILES_IN_USE_TEXT, TextKey::FILE_IN_USE_TEXT, fontBody);
    SetUpControl(IDCANCEL, TextKey::CANCEL_BUTTON, fontButton);
    SetUpControl(IDC_FILES_IN_USE_RETRY, TextKey::RETRY_BUTTON, fontButton);
    SetControlFont(IDC_FILES_IN_USE_APPLICATIONS, fontBody);
    ::SetWindowTextW(GetDlgItem(IDC_FILES_IN_USE_APPLICATIONS), applicationName.c_str());
    ShowControl(IDC_FILES_IN_USE_IGNORE, false);
    retryButton.SetPrimary();
    return true;
}

void FileInUseDlg::OnRetry() {
    EndDialog(IDRETRY);
}

void FileInUseDlg::OnIgnore() {
    settings.SetBool(Tag::REBOOT, true);
    controller.UpdateHideFlags();
    EndDialog(IDIGNORE);
}
