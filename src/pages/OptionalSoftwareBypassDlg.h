// The page that offers the way past an installation that is up to date.
#pragma once

#include "catalogue/DriverInfo.h"
#include "wizard/CQorFlatButton.h"
#include "wizard/CQorLinkButton.h"
#include "wizard/InstallDialogEx.h"

class OptionalSoftwareBypassDlg : public InstallDialogEx {
public:
    OptionalSoftwareBypassDlg(const PageContext& context, const DriverInfo& driverCatalogue);

private:
    bool OnInitDialog() override;
    void OnOK() override;
    const MessageMap& GetMessageMap() const override;

    LRESULT OnShowWindow(WPARAM shown, LPARAM reason);
    void OnReinstallChoice();
    void OnSkipChoice();
    void OnFinish();
    // Decides whether the page is shown, from the printer drivers on the system.
    void UpdateDialogStatus();
    bool IsChecked(int controlId) const;
    void OfferWayOut(bool skip);

    const DriverInfo& drivers;
    CQorFlatButton nextButton;
    CQorFlatButton cancelButton;
    CQorFlatButton finishButton;
    CQorLinkButton helpButton;
};
