// The list of the installed software, over the Finish page.
#pragma once

#include "install/StatusListView.h"
#include "wizard/CQorFlatButton.h"
#include "wizard/InstallDialogEx.h"

class CDisplayAppsListDlg : public InstallDialogEx {
public:
    CDisplayAppsListDlg(const PageContext& context, CWnd& page);

private:
    bool OnInitDialog() override;
    void OnTextSize(HFONT letters) override;
    const MessageMap& GetMessageMap() const override;

    LRESULT OnShowWindow(WPARAM shown, LPARAM reason);
    LRESULT OnListChanged(NMHDR& header);

    StatusListView statusList;
    CQorFlatButton okButton;
};
