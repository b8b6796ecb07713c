#include "discovery/DiscoveryDlg.h"

#include <windows.h>

#include <commctrl.h>

#include <utility>

#include "CommonLib/Logger.h"
#include "catalogue/AppCatalogue.h"
#include "catalogue/DriverInfo.h"
#include "discovery/DeviceChoice.h"
#include "discovery/DiscoveredDevices.h"
#include "discovery/DriverMatch.h"
#include "discovery/ModifySearchDlg.h"
#include "ports/ConfigTool.h"
#include "ports/DriverConfigDlg.h"
#include "ports/DriverConfiguration.h"
#include "settings/InstallSettings.h"
#include "settings/TagNames.h"
#include "wizard/Controller.h"
#include "wizard/RegisteredMessages.h"

namespace {

constexpr UINT dialogTemplate = 136;
constexpr DWORD topic = 1566;
constexpr int titleId = 1010;
constexpr int listLabelId = 1013;
constexpr int listId = 1014;
// The first of the radio group has no control, so that no click leads back to the list, and this is meant.
constexpr int listRadioId = 1015;
constexpr int usbId = 1016;
constexpr int nimbojetId = 1021;
constexpr int modifySearchId = 1122;
constexpr int refreshId = 1123;
constexpr int addPortId = 1124;
constexpr int driverFrameId = 1125;
constexpr int driverLabelId = 1126;
constexpr int driverListId = 1127;
constexpr int configureId = 1129;
constexpr int selectionTextId = 1130;
constexpr int firstNoteId = 1131;
constexpr int secondNoteId = 1132;
constexpr int helpId = 1057;

// The fourth row of a new list is the one that is proposed, and this is meant.
constexpr int proposedRow = 3;

bool HasNimbojetPackage() {
    return AppCatalogue::GetInstance().FirstOfType(L"NIMBOJET").has_value();
}

}  // namespace

const MessageMap& DiscoveryDlg::GetMessageMap() const {
    using On = EventsOf<DiscoveryDlg>;
    static const MessageMap map(&Events(),
                                {
                                    On::Message(WM_SHOWWINDOW, &DiscoveryDlg::OnShowWindow),
                                    On::Message(WM_NCDESTROY, &DiscoveryDlg::OnWindowDestroyed),
                                    On::Message(ZVUPDATEDISCOVERYLIST, &DiscoveryDlg::OnDevicesDelivered),
                                    On::Message(ZVNOPRINTERFOUND, &DiscoveryDlg::OnNothingFound),
                                    On::Notify(listId, LVN_ITEMCHANGED, &DiscoveryDlg::OnSelectionChanged),
                                    On::Notify(listId, LVN_DELETEALLITEMS, &DiscoveryDlg::OnRowsDeleted),
                                    On::Notify(listId, LVN_COLUMNCLICK, &DiscoveryDlg::OnColumnClick),
                                    On::Control(driverListId, CBN_SELCHANGE, &DiscoveryDlg::OnDriverChanged),
                                    On::Click(modifySearchId, &DiscoveryDlg::OnModifySearch),
                                    On::Click(refreshId, &DiscoveryDlg::OnRefresh),
                                    On::Click(addPortId, &DiscoveryDlg::OnAddPort),
                                    On::Click(configureId, &DiscoveryDlg::OnConfigureDriver),
                                    On::Click(listRadioId, &DiscoveryDlg::OnBackToList),
                                    On::Click(usbId, &DiscoveryDlg::OnUsb),
                                    On::Click(nimbojetId, &DiscoveryDlg::OnNimbojet),
                                });
    return map;
}

DiscoveryDlg::DiscoveryDlg() : InstallDialogEx(dialogTemplate) {}

DiscoveryDlg::~DiscoveryDlg() = default;

bool DiscoveryDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    deviceList.SubclassDlgItem(listId, *this);
    deviceList.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    driverList.Attach(GetDlgItem(driverListId));
    SetUpTexts();
    SetUpButtons();
    CheckRadioButton(GetSafeHwnd(), listRadioId, nimbojetId, listRadioId);
    // A radio button that takes the focus by the Tab key is not a choice yet.
    for (const int id : {usbId, nimbojetId}) ::SendMessageW(GetDlgItem(id), BM_SETDONTCLICK, TRUE, 0);
    EnableControl(IDOK, false);
    deviceList.ShowMessage(GetLocalizedText(TextKey::DISCOVERED_LIST_COLUMN_SEARCHING));
    window = GetSafeHwnd();
    return true;
}

void DiscoveryDlg::SetUpTexts() {
    SetUpControl(titleId, TextKey::DISCOVERY_TITLE, fontHeading);
    SetUpControl(listLabelId, TextKey::DISCOVERED_DEVICES_LIST, fontBody);
    SetUpControl(listId, TextKey::DISCOVERED_DEVICES_LIST, fontBody);
    SetUpControl(modifySearchId, TextKey::MODIFY_SEARCH_TEXT, fontButton);
    SetUpControl(refreshId, TextKey::REFRESH_TEXT, fontButton);
    SetUpControl(addPortId, TextKey::ADVANCED_TEXT, fontButton);
    SetUpControl(usbId, TextKey::CONNECT_WITH_USB_TEXT, fontBody);
    SetUpControl(nimbojetId, TextKey::CONNECT_WITH_NIMBOJET_TEXT, fontBody);
    SetControlFont(driverFrameId, fontBody);
    SetUpControl(driverLabelId, TextKey::PRINT_DRIVER_TEXT, fontBody);
    SetUpControl(driverListId, TextKey::PRINT_DRIVER_TEXT, fontBody);
    SetUpControl(configureId, TextKey::CONFIG_SETTINGS_BUTTON, fontButton);
    SetUpControl(selectionTextId, TextKey::SELECT_PRINT_TEXT, fontBody);
    SetUpControl(firstNoteId, TextKey::SELECT_NOTE1_TEXT, fontSmall);
    SetUpControl(secondNoteId, TextKey::SELECT_NOTE2_TEXT, fontSmall);
    SetUpControl(helpId, TextKey::HELP_BUTTON, fontButton);
    SetUpControl(IDOK, TextKey::NEXT_BUTTON, fontButton);
    SetUpControl(IDCANCEL, TextKey::CANCEL_BUTTON, fontButton);
}

void DiscoveryDlg::SetUpButtons() {
    modifySearchButton.SubclassDlgItem(modifySearchId, *this);
    addPortButton.SubclassDlgItem(addPortId, *this);
    configureButton.SubclassDlgItem(configureId, *this);
    nextButton.SubclassDlgItem(IDOK, *this);
    cancelButton.SubclassDlgItem(IDCANCEL, *this);
    helpButton.SubclassDlgItem(helpId, *this);
    helpButton.SetImagePath(helpImagePath);
    nextButton.SetPrimary();
    ::SendMessageW(GetDlgItem(refreshId), BM_SETIMAGE, IMAGE_ICON,
                   reinterpret_cast<LPARAM>(refreshIcon.get()));
}

LRESULT DiscoveryDlg::OnShowWindow(WPARAM, LPARAM) {
    InstallSettings& settings = InstallSettings::GetInstance();
    helpTopic = topic;
    ShowControl(firstNoteId, false);
    ShowControl(helpId, false);
    deviceList.SelectRow(deviceList.SelectedRow());
    if (driverList.IsEmpty()) HideDriverChoice();
    HideUnsupportedRadios();
    if (settings.GetBool(Tag::INSTALL_FROM_CONFIG)) {
        ShowControl(driverListId, false);
        ShowControl(configureId, false);
    }
    if (settings.IsAmazonSupported()) HideDriverChoice();
    settings.SetBool(Tag::DISCOVERY_DONE, true);
    return Default();
}

void DiscoveryDlg::HideDriverChoice() {
    ShowDriverList(false);
    ShowControl(configureId, false);
}

void DiscoveryDlg::ShowDriverList(bool shown) {
    for (const int id : {driverListId, driverFrameId, driverLabelId}) ShowControl(id, shown);
    EnableControl(driverLabelId, shown);
}

void DiscoveryDlg::HideUnsupportedRadios() {
    const InstallSettings& settings = InstallSettings::GetInstance();
    const auto hide = [this](int id) {
        ShowControl(id, false);
        EnableControl(id, false);
    };
    const bool isAmazon = settings.IsAmazonSupported();
    if (isAmazon || !HasNimbojetPackage()) hide(nimbojetId);
    if (isAmazon || settings.GetString(Tag::USB_SUPPORTED) != L"1") hide(usbId);
}

LRESULT DiscoveryDlg::OnWindowDestroyed(WPARAM, LPARAM) {
    window = nullptr;
    return Default();
}

void DiscoveryDlg::ClearDrivers() {
    driverList.Clear();
}

void DiscoveryDlg::AddDriver(const MSI_APP& driver) {
    const bool isAmazon = InstallSettings::GetInstance().IsAmazonSupported();
    if (isAmazon || driverList.IsEmpty()) ShowDriverList(!isAmazon);
    if (!isAmazon && IsWindowVisible(GetDlgItem(configureId)) == FALSE &&
        IsConfigToolAvailable(driver.driverName)) {
        ShowControl(configureId, true);
        SetLocalizedText(configureId, TextKey::CONFIG_SETTINGS_BUTTON);
    }
    driverList.Add(driver);
}

void DiscoveryDlg::SetDevices(std::list<DiscoveredDevice> devices) {
    DiscoveredDevices::GetInstance().Assign(std::move(devices));
    if (const HWND target = window) ::PostMessageW(target, ZVUPDATEDISCOVERYLIST, 0, 0);
}

void DiscoveryDlg::NoPrinterFound() {
    if (const HWND target = window) ::PostMessageW(target, ZVNOPRINTERFOUND, 0, 0);
}

std::wstring DiscoveryDlg::GetReceivedMessage() const {
    const std::lock_guard guard(messageLock);
    return receivedMessage;
}

std::uint32_t DiscoveryDlg::ReceiveMessage(std::wstring message) {
    const std::lock_guard guard(messageLock);
    receivedMessage = std::move(message);
    return 0;
}

LRESULT DiscoveryDlg::OnDevicesDelivered(WPARAM, LPARAM) {
    const std::list<DiscoveredDevice> devices = DiscoveredDevices::GetInstance().All();
    if (devices.empty()) return 0;
    deviceList.ShowDevices(devices);
    deviceList.SetFocus();
    deviceList.SelectRow(proposedRow);
    SetSelectionText();
    return 0;
}

LRESULT DiscoveryDlg::OnNothingFound(WPARAM, LPARAM) {
    deviceList.ShowMessage(GetLocalizedText(TextKey::NO_PRINTER_FOUND));
    return 0;
}

LRESULT DiscoveryDlg::OnSelectionChanged(NMHDR&) {
    if (deviceList.SelectedRow() < 0) {
        EnableControl(IDOK, false);
        return 0;
    }
    SelectDriver(GetDriverForSelection());
    EnableControl(IDOK, true);
    ShowControl(selectionTextId, false);
    ShowControl(selectionTextId, true);
    SetSelectionText();
    return 0;
}

LRESULT DiscoveryDlg::OnRowsDeleted(NMHDR&) {
    if (IsWindowEnabled(deviceList.GetSafeHwnd()) != FALSE) EnableControl(IDOK, false);
    return 0;
}

LRESULT DiscoveryDlg::OnColumnClick(NMHDR& header) {
    deviceList.OnColumnClick(reinterpret_cast<const NMLISTVIEW&>(header).iSubItem);
    return 0;
}

std::wstring DiscoveryDlg::GetDriverForSelection() const {
    const InstallSettings& settings = InstallSettings::GetInstance();
    const std::wstring name = deviceList.SelectedName();
    if (auto driver = OverridingDriver(settings.GetString(Tag::MODEL_DEFAULT_OVERRIDE), name)) return *driver;
    return settings.GetDefaultDriver(DiscoveredDevices::GetInstance().FindColourBySeries(name));
}

// Goes by the address as it is shown: with the marks of a language that reads from right to left no device is
// found, and this is meant.
DiscoveredDevice DiscoveryDlg::SelectedDevice() const {
    return DiscoveredDevices::GetInstance().LastWithAddress(deviceList.SelectedAddress());
}

void DiscoveryDlg::SetSelectionText() {
    const DiscoveredDevice device = SelectedDevice();
    SetLocalizedText(selectionTextId, SelectionTextKey(device.isMultiFunction, device.hasFax));
}

void DiscoveryDlg::SelectDriver(const std::wstring& driverId) {
    driverList.Select(driverId);
    OnDriverChanged();
}

void DiscoveryDlg::OnDriverChanged() {
    DropConfiguration();
    const std::wstring driverId = driverList.SelectedId();
    const bool isV4OnUsb = IsV4Driver(driverId) && IsDlgButtonChecked(GetSafeHwnd(), usbId) == BST_CHECKED;
    EnableControl(configureId, CanConfigureDriver(driverId) && !isV4OnUsb);
}

void DiscoveryDlg::OnRefresh() {
    if (IsWindowEnabled(GetDlgItem(refreshId)) == FALSE) return;
    deviceList.ShowMessage(GetLocalizedText(TextKey::DISCOVERED_LIST_COLUMN_SEARCHING));
    Controller::GetInstance().RunCurrentService();
}

bool DiscoveryDlg::PreTranslateMessage(MSG* message) {
    if (message->message == WM_KEYDOWN && message->wParam == VK_F5) {
        OnRefresh();
        return true;
    }
    return InstallDialogEx::PreTranslateMessage(message);
}

void DiscoveryDlg::OnModifySearch() {
    modifySearchDlg = std::make_unique<ModifySearchDlg>(this);
    if (modifySearchDlg->DoModal() == IDOK) OnRefresh();
}

void DiscoveryDlg::OnConfigureDriver() {
    OpenDriverConfiguration(*this, driverList.SelectedId(), driverConfigDlg);
}

void DiscoveryDlg::OnUsb() {
    if (IsV4Driver(driverList.SelectedId())) EnableControl(configureId, false);
    PickConnection();
}

void DiscoveryDlg::OnNimbojet() {
    PickConnection();
}

void DiscoveryDlg::PickConnection() {
    EnableControl(IDOK, true);
    EnableSearch(false);
    SelectDriver(InstallSettings::GetInstance().GetDefaultDriver({}));
}

void DiscoveryDlg::EnableSearch(bool enabled) {
    for (const int id : {listId, refreshId, modifySearchId, addPortId}) EnableControl(id, enabled);
}

void DiscoveryDlg::OnBackToList() {
    EnableSearch(true);
    const int row = deviceList.SelectedRow();
    if (row < 0) {
        EnableControl(IDOK, false);
        return;
    }
    deviceList.SelectRow(row);
    deviceList.SetFocus();
    SelectDriver(GetDriverForSelection());
}

void DiscoveryDlg::OnAddPort() {
    InstallSettings::GetInstance().SetBool(Tag::DIALOG_ADD_PORT, true);
    Controller::GetInstance().UpdateHideFlags();
    Controller::GetInstance().Next({});
}

// A selected row decides alone, whatever radio button was clicked.
void DiscoveryDlg::OnOK() {
    InstallSettings& settings = InstallSettings::GetInstance();
    settings.SetBools({{Tag::USB, false}, {Tag::NIMBOJET, false}, {Tag::DISCOVERED_DEVICE, true}});
    if (deviceList.SelectedRow() >= 0) TakeDevice(deviceList.SelectedName(), SelectedDevice().hasFax);
    std::wstring printerName;
    std::wstring modelName;
    if (!settings.GetBool(Tag::INSTALL_FROM_CONFIG)) {
        DriverInfo& drivers = DriverInfo::GetInstance();
        const std::wstring driverId = driverList.SelectedId();
        drivers.SelectDriver(driverId);
        const std::wstring path = drivers.GetDriverPath(driverId);
        LogBasic(L"Selected driver: " + path);
        settings.SetString(Tag::SELECTED_DRIVER, path);
        printerName = settings.GetString(Tag::PRINTER_NAME);
        modelName = settings.GetString(Tag::DRIVER_MODEL_NAME);
    } else if (const auto series = settings.GetDeviceValues(Tag::PRINTER_SERIES_NAME); !series.empty()) {
        const auto models = settings.GetDeviceValues(Tag::PRINTER_MODEL_NAME);
        printerName = series.front();
        if (!models.empty()) modelName = models.front();
    }
    settings.SetBool(Tag::DIALOG_ADD_PORT, false);
    settings.BuildInfoCenterLinks(modelName, printerName);
    Controller::GetInstance().UpdateHideFlags();
    Controller::GetInstance().Next({});
}

void DiscoveryDlg::OnCancel() {
    Controller::GetInstance().Cancel(false);
}
