// The page that asks whether to restart now.
#pragma once

#include "framework/CMFCLinkCtrl.h"
#include "wizard/CQorFlatButton.h"
#include "wizard/CQorLinkButton.h"
#include "wizard/InstallDialogEx.h"

class RebootDlg : public InstallDialogEx {
public:
    explicit RebootDlg(const PageContext& context);

private:
    bool OnInitDialog() override;
    HWND FirstFocus() const override { return finishButton.GetSafeHwnd(); }
    void OnOK() override;
    const MessageMap& GetMessageMap() const override;

    LRESULT OnShowWindow(WPARAM shown, LPARAM reason);
    void updateRebootText();

    CQorFlatButton finishButton;
    CMFCLinkCtrl registrationLink;
    CQorLinkButton helpButton;
};
