// The page on which a port of this system is chosen, or a new one described by hand, with its driver.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/MSI_APP.h"
#include "framework/CListCtrl.h"
#include "ports/DriverList.h"
#include "ports/PortEntry.h"
#include "wizard/CQorFlatButton.h"
#include "wizard/CQorLinkButton.h"
#include "wizard/InstallDialogEx.h"

class DriverConfigDlg;

// Describes the port in the settings; the run makes it.
class AddPortDlg : public InstallDialogEx {
public:
    AddPortDlg();
    AddPortDlg(const AddPortDlg&) = delete;
    AddPortDlg& operator=(const AddPortDlg&) = delete;
    ~AddPortDlg() override;

    // Takes a tag document that may hide the shared printers and the drivers, and name the page behind Back.
    std::uint32_t ReceiveMessage(std::wstring message) override;

    // What the page's service fills it with, on the page's thread.
    void ClearDrivers();
    // Adds the driver and selects the package's default, if the list holds it by now.
    void AddDriver(const MSI_APP& driver);
    void FillPortList(const std::vector<PortEntry>& ports);

protected:
    bool OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    const MessageMap& GetMessageMap() const override;

private:
    enum class PortKind { Existing, Network, Shared };

    LRESULT OnShowWindow(WPARAM shown, LPARAM reason);
    LRESULT OnPortChanged(NMHDR& header);
    void OnKindChanged();
    void OnDriverChanged();
    void OnConfigureDriver();
    void OnBack();
    void UpdateNext();

    void SetUpTexts();
    void SetUpButtons();
    void MakeColumns();
    void FitColumns();
    void ObeyMessage();
    std::wstring Received(std::wstring_view tag) const;

    std::optional<PortKind> SelectedKind() const;
    bool IsComplete() const;
    bool TakePort();
    bool TakeExistingPort();
    bool TakeNetworkPort();
    bool TakeSharedPrinter();
    bool IsInPortList(const std::wstring& name) const;
    // Answers what was entered with that text and empties the field. Gives false.
    bool Refuse(std::wstring_view textKey, int field);
    void TakeDriver() const;

    std::wstring receivedMessage;
    CListCtrl portList;
    DriverList driverList;
    CQorFlatButton configureButton;
    CQorFlatButton backButton;
    CQorFlatButton nextButton;
    CQorFlatButton cancelButton;
    CQorLinkButton helpButton;
    std::unique_ptr<DriverConfigDlg> driverConfigDlg;
};
