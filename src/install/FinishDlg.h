// The page that says how the run went. The chain holds it twice, under two names.
#pragma once

#include <string>

#include "install/FinishTexts.h"
#include "install/StatusListView.h"
#include "wizard/CQorFlatButton.h"
#include "wizard/CQorLinkButton.h"
#include "wizard/InstallDialogEx.h"

class FinishDlg : public InstallDialogEx {
public:
    FinishDlg(const PageContext& context, const wchar_t* name);

private:
    bool OnInitDialog() override;
    HWND FirstFocus() const override { return finishButton.GetSafeHwnd(); }
    // The button with id 1, which is hidden: goes on to the optional software.
    void OnOK() override;
    void PaintGround(HDC context) override;
    void OnTextSize(HFONT letters) override;
    const MessageMap& GetMessageMap() const override;

    LRESULT OnShowWindow(WPARAM shown, LPARAM reason);
    LRESULT OnSetCursor(WPARAM window, LPARAM);
    LRESULT OnListChanged(NMHDR& header);
    void OnFinish();
    void OnErrorLink();
    void OnSoftwareList();
    void OnInfoCenterLink();
    void OnRegistrationLink();

    RunOutcome Outcome() const;
    void HideWhatIsNotOffered();
    void FillStatusList();
    void ShowOutcome();
    void ShowLinks();

    bool allSucceeded = false;
    bool usbFinish = false;
    StatusListView statusList;
    CQorFlatButton finishButton;
    CQorFlatButton optionalButton;
    CQorLinkButton helpButton;
    CQorLinkButton errorLink;
    CQorLinkButton infoCenterLink;
    CQorLinkButton registrationLink;
    CQorLinkButton softwareListLink;
};
