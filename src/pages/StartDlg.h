// The page that greets the user.
#pragma once

#include "framework/CMFCLinkCtrl.h"
#include "wizard/CQorFlatButton.h"
#include "wizard/InstallDialogEx.h"

class StartDlg : public InstallDialogEx {
public:
    explicit StartDlg(const PageContext& context);

private:
    bool OnInitDialog() override;
    void OnOK() override;
    const MessageMap& GetMessageMap() const override;

    LRESULT OnShowWindow(WPARAM shown, LPARAM reason);

    CQorFlatButton installButton;
    CQorFlatButton cancelButton;
    CMFCLinkCtrl informationLink;
    CMFCLinkCtrl registrationLink;
};
