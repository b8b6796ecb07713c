#include "install/CDisplayAppsListDlg.h"

#include <windows.h>

#include <commctrl.h>

#include "settings/TagNames.h"

namespace {

constexpr UINT dialogTemplate = 1176;
constexpr int headerId = 1006;
constexpr int listId = 1078;

}  // namespace

const MessageMap& CDisplayAppsListDlg::GetMessageMap() const {
    using On = EventsOf<CDisplayAppsListDlg>;
    static const MessageMap map(&Events(),
                                {
                                    On::Message(WM_SHOWWINDOW, &CDisplayAppsListDlg::OnShowWindow),
                                    On::Notify(listId, LVN_ITEMCHANGED, &CDisplayAppsListDlg::OnListChanged),
                                });
    return map;
}

CDisplayAppsListDlg::CDisplayAppsListDlg(CWnd* parentWindow)
    : InstallDialogEx(dialogTemplate, parentWindow) {}

bool CDisplayAppsListDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    okButton.SubclassDlgItem(IDOK, *this);
    SetUpControl(headerId, TextKey::SOFTWARE_LIST_DISPLAY_TITLE, fontHeading);
    SetUpControl(IDOK, TextKey::OK_BUTTON, fontButton);
    SetControlFont(listId, fontBody);
    SetWindowText(GetLocalizedText(TextKey::SOFTWARE_LIST_DISPLAY_WINDOW_TITLE));
    statusList.Attach(GetDlgItem(listId));
    okButton.SetPrimary();
    return true;
}

LRESULT CDisplayAppsListDlg::OnShowWindow(WPARAM, LPARAM) {
    statusList.Fill();
    ShowControl(listId, true);
    return Default();
}

LRESULT CDisplayAppsListDlg::OnListChanged(NMHDR& header) {
    StatusListView::KeepUnselected(header);
    return 0;
}
