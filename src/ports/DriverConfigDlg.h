// The dialog in which the user chooses a driver's configuration file, or has the vendor's tool make one.
#pragma once

#include <memory>
#include <string>

#include "printer/DriverConfiguration.h"
#include "wizard/CQorFlatButton.h"
#include "wizard/InstallDialogEx.h"

// Leaves its result in the settings when it ends with OK, and nothing else.
class DriverConfigDlg : public InstallDialogEx {
public:
    DriverConfigDlg(const PageContext& context, DriverConfiguration& driverConfiguration, CWnd& page);

    // Takes the driver's identifier, before the dialog is run.
    std::uint32_t ReceiveMessage(std::wstring message) override;

private:
    bool OnInitDialog() override;
    void OnOK() override;
    const MessageMap& GetMessageMap() const override;

    LRESULT OnShowWindow(WPARAM shown, LPARAM reason);
    void OnNew();
    void OnLoad();
    void OnReset();
    void MakeConfiguration();
    void TakeNewFile(const std::wstring& file);
    void ChooseFile();
    void ShowPath(const std::wstring& path);
    void CheckApplyFuture(bool checked);
    // Answers what was entered with the text of that key.
    void Refuse(TextId textKey);

    DriverConfiguration& configuration;
    std::wstring driverId;
    CQorFlatButton newButton;
    CQorFlatButton loadButton;
    CQorFlatButton resetButton;
    CQorFlatButton helpButton;
    CQorFlatButton okButton;
    CQorFlatButton cancelButton;
};

// What a click on a page's Configure driver does: has the tool unpacked where this process has not done so
// yet, and shows the dialog over the page until the user is done with it. The page owns the dialog and keeps
// the last one; its class must see this header where its destructor stands.
void OpenDriverConfiguration(CWnd& page, const PageContext& context, DriverConfiguration& configuration,
                             const std::wstring& driverId, std::unique_ptr<DriverConfigDlg>& dialog);
