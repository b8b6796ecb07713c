// The page on which a port of this system is chosen, or a new one described by hand, with its driver.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/AppCatalogue.h"
#include "catalogue/DriverInfo.h"
#include "framework/CComboBox.h"
#include "framework/CListCtrl.h"
#include "ports/AddPortState.h"
#include "ports/IAddPortDialog.h"
#include "printer/DriverConfiguration.h"
#include "printer/PrinterChoice.h"
#include "printer/SystemPorts.h"
#include "wizard/CQorFlatButton.h"
#include "wizard/CQorLinkButton.h"
#include "wizard/DriverList.h"
#include "wizard/InstallDialogEx.h"

class DriverConfigDlg;

// Describes the port in the settings; the run makes it.
class AddPortDlg : public InstallDialogEx, public IAddPortDialog {
public:
    AddPortDlg(const PageContext& context, AppCatalogue& appCatalogue, DriverInfo& driverCatalogue,
               DriverConfiguration& driverConfiguration);
    AddPortDlg(const AddPortDlg&) = delete;
    AddPortDlg& operator=(const AddPortDlg&) = delete;
    ~AddPortDlg() override;

    // Takes a tag document that may hide the shared printers and the drivers, and name the page to which Back
    // leads.
    std::uint32_t ReceiveMessage(std::wstring message) override;

    // IAddPortDialog.
    void ClearDrivers() override;
    void AddDriver(const MSI_APP& driver) override;
    void FillPortList(const std::vector<PortEntry>& ports) override;

protected:
    bool OnInitDialog() override;
    void OnOK() override;
    const MessageMap& GetMessageMap() const override;

private:
    LRESULT OnShowWindow(WPARAM shown, LPARAM reason);
    LRESULT OnPortChanged(NMHDR& header);
    void OnKindChanged();
    void OnDriverChanged();
    void OnConfigureDriver();
    void OnBack();
    // Shows and enables the controls by what the page knows.
    void Update();
    AddPortState State() const;

    void SetUpTexts();
    void SetUpButtons();
    void MakeColumns();
    void FitColumns();
    std::wstring Received(std::wstring_view tag) const;

    std::optional<PortKind> SelectedKind() const;
    bool IsComplete() const;
    // The port that the page describes; nothing, with the user told why, where it cannot be taken.
    std::optional<ChosenPort> TakePort();
    std::optional<ChosenPort> TakeExistingPort();
    std::optional<ChosenPort> TakeNetworkPort();
    std::optional<ChosenPort> TakeSharedPrinter();
    bool IsInPortList(const std::wstring& name) const;
    // Answers what was entered with that text and empties the field. Returns nothing.
    std::nullopt_t Refuse(TextId textKey, int field);

    AppCatalogue& applications;
    DriverInfo& drivers;
    DriverConfiguration& configuration;
    std::wstring receivedMessage;
    CComboBox kindList;
    // The last kind that was selected: the list can be without a selection.
    PortKind shownKind = PortKind::Existing;
    // What the list shows, without the marks of a language that reads from right to left.
    std::vector<PortEntry> systemPorts;
    CListCtrl portList;
    DriverList driverList;
    CQorFlatButton configureButton;
    CQorFlatButton backButton;
    CQorFlatButton nextButton;
    CQorFlatButton cancelButton;
    CQorLinkButton helpButton;
    std::unique_ptr<DriverConfigDlg> driverConfigDlg;
};
