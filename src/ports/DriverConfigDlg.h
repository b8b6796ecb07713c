// The dialog in which the user chooses a driver's configuration file, or has the vendor's tool make one.
#pragma once

#include <string>

#include "wizard/CQorFlatButton.h"
#include "wizard/InstallDialogEx.h"

// Leaves its result in the settings when it ends with OK, and nothing else.
class DriverConfigDlg : public InstallDialogEx {
public:
    explicit DriverConfigDlg(CWnd* parentWindow);

    // Takes the driver's identifier, before the dialog is run.
    std::uint32_t ReceiveMessage(std::wstring message) override;

protected:
    bool OnInitDialog() override;
    void OnOK() override;
    const MessageMap& GetMessageMap() const override;

private:
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
    void Refuse(std::wstring_view textKey);

    std::wstring driverId;
    CQorFlatButton newButton;
    CQorFlatButton loadButton;
    CQorFlatButton resetButton;
    CQorFlatButton helpButton;
    CQorFlatButton okButton;
    CQorFlatButton cancelButton;
};
