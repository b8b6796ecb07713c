#include "install/CDisplayAppsListDlg.h"

#include <windows.h>

#include <commctrl.h>

#include "resources/resource.h"
#include "settings/TextKeys.h"

const MessageMap& CDisplayAppsListDlg::GetMessageMap() const {
    using On = EventsOf<CDisplayAppsListDlg>;
    static const MessageMap map(
        &Events(), {
                       On::Message(WM_SHOWWINDOW, &CDisplayAppsListDlg::OnShowWindow),
                       On::Notify(IDC_STATUS_LIST, LVN_ITEMCHANGED, &CDisplayAppsListDlg::OnListChanged),
                   });
    return map;
}

CDisplayAppsListDlg::CDisplayAppsListDlg(const PageContext& context, CWnd& page)
    : InstallDialogEx(context, IDD_SOFTWARE_LIST, HIDD_DEFAULT, &page),
      statusList(context.settings, context.localizer) {}

bool CDisplayAppsListDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    okButton.SubclassDlgItem(IDOK, *this);
    SetUpControl(IDC_OUTCOME_TITLE, TextKey::SOFTWARE_LIST_DISPLAY_TITLE, fontHeading);
    SetUpControl(IDOK, TextKey::OK_BUTTON, fontButton);
    SetControlFont(IDC_STATUS_LIST, fontBody);
    SetWindowText(GetLocalizedText(TextKey::SOFTWARE_LIST_DISPLAY_WINDOW_TITLE));
    statusList.SubclassDlgItem(IDC_STATUS_LIST, *this);
    statusList.SetUp();
    okButton.SetPrimary();
    return true;
}

void CDisplayAppsListDlg::OnTextSize(HFONT letters) {
    InstallDialogEx::OnTextSize(letters);
    statusList.LoadPictures();
}

LRESULT CDisplayAppsListDlg::OnShowWindow(WPARAM, LPARAM) {
    statusList.Fill();
    ShowControl(IDC_STATUS_LIST, true);
    return Default();
}

LRESULT CDisplayAppsListDlg::OnListChanged(NMHDR& header) {
    StatusListView::KeepUnselected(header);
    return 0;
}
