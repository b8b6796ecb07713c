// The page that shows the devices found on the network and lets the user pick one, with its driver.
#pragma once

#include <atomic>
#include <list>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "catalogue/AppCatalogue.h"
#include "catalogue/DriverInfo.h"
#include "discovery/DiscoveredDevices.h"
#include "discovery/DiscoveryListCtrl.h"
#include "discovery/DiscoveryState.h"
#include "discovery/IDiscoveryDialog.h"
#include "framework/Handles.h"
#include "printer/DriverConfiguration.h"
#include "printer/PrinterChoice.h"
#include "wizard/CQorFlatButton.h"
#include "wizard/CQorLinkButton.h"
#include "wizard/DriverList.h"
#include "wizard/InstallDialogEx.h"

class DriverConfigDlg;
class ModifySearchDlg;

class DiscoveryDlg : public InstallDialogEx, public IDiscoveryDialog {
public:
    DiscoveryDlg(const PageContext& context, AppCatalogue& appCatalogue, DriverInfo& driverCatalogue,
                 DriverConfiguration& driverConfiguration, DiscoveredDevices& delivered);
    DiscoveryDlg(const DiscoveryDlg&) = delete;
    DiscoveryDlg& operator=(const DiscoveryDlg&) = delete;
    ~DiscoveryDlg() override;

    // IDiscoveryDialog.
    void ClearDrivers() override;
    void AddDriver(const MSI_APP& driver) override;
    void SetDevices(std::list<DiscoveredDevice> devices) override;
    void NoPrinterFound() override;
    std::wstring GetReceivedMessage() const override;

    std::uint32_t ReceiveMessage(std::wstring message) override;
    bool PreTranslateMessage(MSG* message) override;

protected:
    bool OnInitDialog() override;
    void OnOK() override;
    const MessageMap& GetMessageMap() const override;

private:
    void SetUpTexts();
    void SetUpButtons();

    LRESULT OnShowWindow(WPARAM shown, LPARAM reason);
    LRESULT OnWindowDestroyed(WPARAM, LPARAM);
    LRESULT OnDevicesDelivered(WPARAM, LPARAM);
    LRESULT OnNothingFound(WPARAM, LPARAM);
    LRESULT OnSelectionChanged(NMHDR& header);
    LRESULT OnRowsDeleted(NMHDR& header);
    LRESULT OnColumnClick(NMHDR& header);
    void OnDriverChanged();
    void OnRefresh();
    void OnModifySearch();
    void OnAddPort();
    void OnConfigureDriver();
    void OnUsb();
    void OnNimbojet();
    void OnBackToList();

    void ReadPackage();
    void PickConnection();
    void AllowNext(bool allowed);
    void ApplyState() { Apply(ControlsFor(state)); }
    void SelectDriver(const std::wstring& driverId);
    bool IsConnectionPicked() const;
    void ProposeDevice();
    std::wstring GetDriverForSelection() const;
    DiscoveredDevice SelectedDevice() const;
    std::optional<ChosenDevice> ChosenRow() const;
    void SetSelectionText();
    // Shows the text in place of devices, and tells it.
    void ShowState(TextId key);
    void Tell(const std::wstring& news);

    AppCatalogue& applications;
    DriverInfo& drivers;
    DiscoveredDevices& discovered;
    DriverConfiguration& configuration;
    DiscoveryListCtrl deviceList;
    DriverList driverList;
    CQorFlatButton modifySearchButton;
    CQorFlatButton addPortButton;
    CQorFlatButton configureButton;
    CQorFlatButton nextButton;
    CQorFlatButton cancelButton;
    CQorLinkButton helpButton;
    std::unique_ptr<ModifySearchDlg> modifySearchDlg;
    std::unique_ptr<DriverConfigDlg> driverConfigDlg;

    // What the controls that come and go depend on; a handler changes it and applies it.
    DiscoveryState state;
    // Devices have arrived and none of them has been proposed to the user yet.
    bool proposalDue = false;
    // The window that the worker posts to; null before it is made and when it is gone.
    std::atomic<HWND> window = nullptr;
    // Guards the message, which the worker reads.
    mutable std::mutex messageLock;
    std::wstring receivedMessage;
};
