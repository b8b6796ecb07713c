#include "install/FileInUseDlg.h"

#include "settings/InstallSettings.h"
#include "settings/TagNames.h"
#include "wizard/Controller.h"

namespace {

constexpr UINT dialogTemplate = 142;
constexpr int headerId = 1090;
constexpr int textId = 1065;
constexpr int applicationsId = 1093;
constexpr int ignoreId = 1067;
constexpr int retryId = 1066;

}  // namespace

const MessageMap& FileInUseDlg::GetMessageMap() const {
    using On = EventsOf<FileInUseDlg>;
    static const MessageMap map(&Events(), {
                                               On::Click(retryId, &FileInUseDlg::OnRetry),
                                               On::Click(ignoreId, &FileInUseDlg::OnIgnore),
                                           });
    return map;
}

FileInUseDlg::FileInUseDlg() : InstallDialogEx(dialogTemplate) {}

bool FileInUseDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    cancelButton.SubclassDlgItem(IDCANCEL, *this);
    ignoreButton.SubclassDlgItem(ignoreId, *this);
    retryButton.SubclassDlgItem(retryId, *this);
    SetWindowText(GetLocalizedText(TextKey::FILES_IN_USE_HEADER));
    SetUpControl(headerId, TextKey::FILES_IN_USE_HEADER, fontHeading);
    SetUpControl(textId, TextKey::FILE_IN_USE_TEXT, fontBody);
    SetUpControl(IDCANCEL, TextKey::CANCEL_BUTTON, fontButton);
    SetUpControl(retryId, TextKey::RETRY_BUTTON, fontButton);
    SetControlFont(applicationsId, fontBody);
    ::SetWindowTextW(GetDlgItem(applicationsId), applicationName.c_str());
    ShowControl(ignoreId, false);
    retryButton.SetPrimary();
    return true;
}

void FileInUseDlg::OnRetry() {
    EndDialog(IDRETRY);
}

void FileInUseDlg::OnIgnore() {
    InstallSettings::GetInstance().SetBool(Tag::REBOOT, true);
    Controller::GetInstance().UpdateHideFlags();
    EndDialog(IDIGNORE);
}
