// The page that asks whether the printer is on the network or on USB.
#pragma once

#include <string>

#include "catalogue/AppCatalogue.h"
#include "catalogue/DriverInfo.h"
#include "framework/Handles.h"
#include "wizard/CQorFlatButton.h"
#include "wizard/CQorLinkButton.h"
#include "wizard/InstallDialogEx.h"

class ConnectivityDlg : public InstallDialogEx {
public:
    ConnectivityDlg(const PageContext& context, AppCatalogue& appCatalogue, DriverInfo& driverCatalogue);

private:
    bool OnInitDialog() override;
    void OnTextSize(HFONT letters) override;
    void OnOK() override;
    const MessageMap& GetMessageMap() const override;

    LRESULT OnShowWindow(WPARAM shown, LPARAM reason);
    LRESULT OnDrawChoice(NMHDR& header);
    void OnNetworkChoice();
    void OnUsbChoice();
    void ShowChoicePictures();
    void SetChoicePicture(int controlId, const std::wstring& path, Icon& icon);

    AppCatalogue& applications;
    DriverInfo& drivers;
    bool usbSelected = false;
    CQorFlatButton nextButton;
    CQorFlatButton cancelButton;
    CQorLinkButton helpButton;
    Icon networkIcon;
    Icon usbIcon;
};
