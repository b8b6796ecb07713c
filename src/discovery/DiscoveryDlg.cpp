#include "discovery/DiscoveryDlg.h"

#include <windows.h>

#include <commctrl.h>

#include <utility>

#include "discovery/DeviceChoice.h"
#include "discovery/DriverMatch.h"
#include "discovery/ModifySearchDlg.h"
#include "framework/Spoken.h"
#include "ports/DriverConfigDlg.h"
#include "printer/ApplyChoice.h"
#include "printer/ConfigTool.h"
#include "printer/DefaultDriver.h"
#include "resources/resource.h"
#include "settings/TagNames.h"
#include "settings/TextKeys.h"
#include "wizard/Controller.h"
#include "wizard/RegisteredMessages.h"

namespace {

// The fourth row of a new list is the one that is proposed.
constexpr int proposedRow = 3;

constexpr wchar_t nimbojetType[] = L"NIMBOJET";

}  // namespace

const MessageMap& DiscoveryDlg::GetMessageMap() const {
    using On = EventsOf<DiscoveryDlg>;
    static const MessageMap map(
        &Events(), {
                       On::Message(WM_SHOWWINDOW, &DiscoveryDlg::OnShowWindow),
                       On::Message(WM_NCDESTROY, &DiscoveryDlg::OnWindowDestroyed),
                       On::Message(ZVUPDATEDISCOVERYLIST, &DiscoveryDlg::OnDevicesDelivered),
                       On::Message(ZVNOPRINTERFOUND, &DiscoveryDlg::OnNothingFound),
                       On::Notify(IDC_DISCOVERY_LIST, LVN_ITEMCHANGED, &DiscoveryDlg::OnSelectionChanged),
                       On::Notify(IDC_DISCOVERY_LIST, LVN_DELETEALLITEMS, &DiscoveryDlg::OnRowsDeleted),
                       On::Notify(IDC_DISCOVERY_LIST, LVN_COLUMNCLICK, &DiscoveryDlg::OnColumnClick),
                       On::Control(IDC_DISCOVERY_DRIVER_LIST, CBN_SELCHANGE, &DiscoveryDlg::OnDriverChanged),
                       On::Click(IDC_DISCOVERY_MODIFY_SEARCH, &DiscoveryDlg::OnModifySearch),
                       On::Click(IDC_DISCOVERY_REFRESH, &DiscoveryDlg::OnRefresh),
                       On::Click(IDC_DISCOVERY_ADD_PORT, &DiscoveryDlg::OnAddPort),
                       On::Click(IDC_DISCOVERY_CONFIGURE, &DiscoveryDlg::OnConfigureDriver),
                       On::Click(IDC_DISCOVERY_BACK_TO_LIST, &DiscoveryDlg::OnBackToList),
                       On::Click(IDC_DISCOVERY_USB, &DiscoveryDlg::OnUsb),
                       On::Click(IDC_DISCOVERY_NIMBOJET, &DiscoveryDlg::OnNimbojet),
                   });
    return map;
}

DiscoveryDlg::DiscoveryDlg(const PageContext& context, AppCatalogue& appCatalogue,
                           DriverInfo& driverCatalogue, DriverConfiguration& driverConfiguration,
                           DiscoveredDevices& delivered)
    : InstallDialogEx(context, IDD_DISCOVERY, HIDD_DISCOVERY),
      applications(appCatalogue),
      drivers(driverCatalogue),
      discovered(delivered),
      configuration(driverConfiguration),
      deviceList(context.localizer) {}

DiscoveryDlg::~DiscoveryDlg() = default;

bool DiscoveryDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    deviceList.SubclassDlgItem(IDC_DISCOVERY_LIST, *this);
    deviceList.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    driverList.SubclassDlgItem(IDC_DISCOVERY_DRIVER_LIST, *this);
    SetUpTexts();
    SetUpButtons();
    CheckRadioButton(GetSafeHwnd(), IDC_DISCOVERY_BACK_TO_LIST, IDC_DISCOVERY_NIMBOJET,
                     IDC_DISCOVERY_BACK_TO_LIST);
    // A radio button that takes the focus by the Tab key is not a choice yet.
    for (const int id : {IDC_DISCOVERY_USB, IDC_DISCOVERY_NIMBOJET})
        ::SendMessageW(GetDlgItem(id), BM_SETDONTCLICK, TRUE, 0);
    EnableControl(IDOK, false);
    SpeakAsNews(GetDlgItem(IDC_DISCOVERY_STATE));
    ShowState(TextKey::DISCOVERED_LIST_COLUMN_SEARCHING);
    window = GetSafeHwnd();
    return true;
}

void DiscoveryDlg::SetUpTexts() {
    SetUpControl(IDC_DISCOVERY_TITLE, TextKey::DISCOVERY_TITLE, fontHeading);
    SetUpControl(IDC_DISCOVERY_LIST_LABEL, TextKey::DISCOVERED_DEVICES_LIST, fontBody);
    SetUpControl(IDC_DISCOVERY_LIST, TextKey::DISCOVERED_DEVICES_LIST, fontBody);
    SetUpControl(IDC_DISCOVERY_MODIFY_SEARCH, TextKey::MODIFY_SEARCH_TEXT, fontButton);
    SetUpControl(IDC_DISCOVERY_REFRESH, TextKey::REFRESH_TEXT, fontButton);
    SetUpControl(IDC_DISCOVERY_ADD_PORT, TextKey::ADVANCED_TEXT, fontButton);
    SetUpControl(IDC_DISCOVERY_USB, TextKey::CONNECT_WITH_USB_TEXT, fontBody);
    SetUpControl(IDC_DISCOVERY_NIMBOJET, TextKey::CONNECT_WITH_NIMBOJET_TEXT, fontBody);
    SetControlFont(IDC_DISCOVERY_DRIVER_FRAME, fontBody);
    SetUpControl(IDC_DISCOVERY_DRIVER_LABEL, TextKey::PRINT_DRIVER_TEXT, fontBody);
    SetUpControl(IDC_DISCOVERY_DRIVER_LIST, TextKey::PRINT_DRIVER_TEXT, fontBody);
    SetUpControl(IDC_DISCOVERY_CONFIGURE, TextKey::CONFIG_SETTINGS_BUTTON, fontButton);
    SetUpControl(IDC_DISCOVERY_SELECTION_TEXT, TextKey::SELECT_PRINT_TEXT, fontBody);
    SetUpControl(IDC_DISCOVERY_FIRST_NOTE, TextKey::SELECT_NOTE1_TEXT, fontSmall);
    SetUpControl(IDC_DISCOVERY_SECOND_NOTE, TextKey::SELECT_NOTE2_TEXT, fontSmall);
    SetUpControl(IDC_HELP_BUTTON, TextKey::HELP_BUTTON, fontButton);
    SetUpControl(IDOK, TextKey::NEXT_BUTTON, fontButton);
    SetUpControl(IDCANCEL, TextKey::CANCEL_BUTTON, fontButton);
}

void DiscoveryDlg::SetUpButtons() {
    modifySearchButton.SubclassDlgItem(IDC_DISCOVERY_MODIFY_SEARCH, *this);
    addPortButton.SubclassDlgItem(IDC_DISCOVERY_ADD_PORT, *this);
    configureButton.SubclassDlgItem(IDC_DISCOVERY_CONFIGURE, *this);
    nextButton.SubclassDlgItem(IDOK, *this);
    cancelButton.SubclassDlgItem(IDCANCEL, *this);
    helpButton.SubclassDlgItem(IDC_HELP_BUTTON, *this);
    helpButton.SetImagePath(helpImagePath);
    nextButton.SetPrimary();
    ::SendMessageW(GetDlgItem(IDC_DISCOVERY_REFRESH), BM_SETIMAGE, IMAGE_ICON,
                   reinterpret_cast<LPARAM>(refreshIcon.For(GetSafeHwnd())));
}

LRESULT DiscoveryDlg::OnShowWindow(WPARAM shown, LPARAM) {
    ReadPackage();
    deviceList.SelectRow(deviceList.SelectedRow());
    if (shown != FALSE && proposalDue) ProposeDevice();
    state.hasDrivers = !driverList.IsEmpty();
    // Without drivers there is no tool either, until one comes that has it.
    state.hasConfigTool = state.hasConfigTool && state.hasDrivers;
    ApplyState();
    KeepTabStop(IDC_DISCOVERY_USB, IDC_DISCOVERY_NIMBOJET);
    settings.SetBool(Tag::DISCOVERY_DONE, true);
    return Default();
}

void DiscoveryDlg::ReadPackage() {
    state.isAmazon = settings.IsAmazonSupported();
    state.fromConfig = settings.GetBool(Tag::INSTALL_FROM_CONFIG);
    state.hasNimbojet = applications.FirstOfType(nimbojetType).has_value();
    state.supportsUsb = settings.IsSet(Tag::USB_SUPPORTED);
}

LRESULT DiscoveryDlg::OnWindowDestroyed(WPARAM, LPARAM) {
    window = nullptr;
    return Default();
}

void DiscoveryDlg::ClearDrivers() {
    driverList.Clear();
}

void DiscoveryDlg::AddDriver(const MSI_APP& driver) {
    state.hasDrivers = true;
    if (!state.hasConfigTool && configuration.IsConfigToolAvailable(driver.driverName)) {
        state.hasConfigTool = true;
        SetLocalizedText(IDC_DISCOVERY_CONFIGURE, TextKey::CONFIG_SETTINGS_BUTTON);
    }
    ApplyState();
    driverList.Add(driver.driverId, driver.driverName);
}

void DiscoveryDlg::SetDevices(std::list<DiscoveredDevice> devices) {
    discovered.Assign(std::move(devices));
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
    const std::list<DiscoveredDevice> devices = discovered.All();
    if (devices.empty()) return 0;
    deviceList.ShowDevices(devices);
    Tell(GetPlainText(TextKey::DISCOVERED_DEVICES_LIST) + L" " + std::to_wstring(devices.size()));
    SetSelectionText();
    // Who has said how the printer is connected is asked for no device any more.
    proposalDue = !IsConnectionPicked();
    if (proposalDue && IsWindowVisible(GetSafeHwnd()) != FALSE) {
        deviceList.SetFocus();
        ProposeDevice();
    }
    return 0;
}

void DiscoveryDlg::ProposeDevice() {
    proposalDue = false;
    deviceList.SelectRow(proposedRow);
    SetSelectionText();
}

bool DiscoveryDlg::IsConnectionPicked() const {
    return IsDlgButtonChecked(GetSafeHwnd(), IDC_DISCOVERY_USB) == BST_CHECKED ||
           IsDlgButtonChecked(GetSafeHwnd(), IDC_DISCOVERY_NIMBOJET) == BST_CHECKED;
}

LRESULT DiscoveryDlg::OnNothingFound(WPARAM, LPARAM) {
    ShowState(TextKey::NO_PRINTER_FOUND);
    return 0;
}

void DiscoveryDlg::ShowState(TextId key) {
    const std::wstring text = GetLocalizedText(key);
    deviceList.ShowMessage(text);
    Tell(text);
}

// For who hears the page: the list says by itself what is in it only to who is there.
void DiscoveryDlg::Tell(const std::wstring& news) {
    const HWND line = GetDlgItem(IDC_DISCOVERY_STATE);
    if (TextOf(IDC_DISCOVERY_STATE, news.size() + 1) == news) return;
    ::SetWindowTextW(line, news.c_str());
    if (IsWindowVisible(GetSafeHwnd()) != FALSE) TellNews(line);
}

LRESULT DiscoveryDlg::OnSelectionChanged(NMHDR&) {
    if (deviceList.IsSorting()) return 0;
    AllowNext(deviceList.SelectedRow() >= 0);
    if (!state.canGoOn) return 0;
    SelectDriver(GetDriverForSelection());
    ShowControl(IDC_DISCOVERY_SELECTION_TEXT, false);
    ShowControl(IDC_DISCOVERY_SELECTION_TEXT, true);
    SetSelectionText();
    return 0;
}

LRESULT DiscoveryDlg::OnRowsDeleted(NMHDR&) {
    if (!state.isSearchOver) AllowNext(false);
    return 0;
}

LRESULT DiscoveryDlg::OnColumnClick(NMHDR& header) {
    deviceList.OnColumnClick(reinterpret_cast<const NMLISTVIEW&>(header).iSubItem);
    return 0;
}

std::wstring DiscoveryDlg::GetDriverForSelection() const {
    const std::wstring name = deviceList.SelectedName();
    if (auto driver = OverridingDriver(settings.GetString(Tag::MODEL_DEFAULT_OVERRIDE), name)) return *driver;
    return GetDefaultDriver(settings, discovered.FindColourBySeries(name));
}

DiscoveredDevice DiscoveryDlg::SelectedDevice() const {
    return discovered.LastWithAddress(deviceList.SelectedAddress());
}

void DiscoveryDlg::SetSelectionText() {
    const DiscoveredDevice device = SelectedDevice();
    SetLocalizedText(IDC_DISCOVERY_SELECTION_TEXT, SelectionTextKey(device.isMultiFunction, device.hasFax));
}

void DiscoveryDlg::SelectDriver(const std::wstring& driverId) {
    driverList.Select(driverId);
    OnDriverChanged();
}

void DiscoveryDlg::OnDriverChanged() {
    const std::wstring driverId = driverList.SelectedId();
    configuration.Follow(driverId);
    state.takesConfiguration = configuration.CanConfigureDriver(driverId);
    state.isV4Driver = IsV4Driver(driverId);
    state.isUsb = IsDlgButtonChecked(GetSafeHwnd(), IDC_DISCOVERY_USB) == BST_CHECKED;
    ApplyState();
}

void DiscoveryDlg::OnRefresh() {
    if (state.isSearchOver) return;
    ShowState(TextKey::DISCOVERED_LIST_COLUMN_SEARCHING);
    controller.RunCurrentService();
}

bool DiscoveryDlg::PreTranslateMessage(MSG* message) {
    if (message->message == WM_KEYDOWN && message->wParam == VK_F5) {
        OnRefresh();
        return true;
    }
    return InstallDialogEx::PreTranslateMessage(message);
}

void DiscoveryDlg::OnModifySearch() {
    modifySearchDlg = std::make_unique<ModifySearchDlg>(Context(), *this);
    if (modifySearchDlg->DoModal() == IDOK) OnRefresh();
}

void DiscoveryDlg::OnConfigureDriver() {
    OpenDriverConfiguration(*this, Context(), configuration, driverList.SelectedId(), driverConfigDlg);
    // Devices that arrived meanwhile may have brought another driver, which does not take over the file.
    configuration.Follow(driverList.SelectedId());
}

void DiscoveryDlg::OnUsb() {
    PickConnection();
}

void DiscoveryDlg::OnNimbojet() {
    PickConnection();
}

void DiscoveryDlg::PickConnection() {
    state.canGoOn = true;
    state.isSearchOver = true;
    SelectDriver(GetDefaultDriver(settings, {}));
}

void DiscoveryDlg::AllowNext(bool allowed) {
    state.canGoOn = allowed;
    ApplyState();
}

void DiscoveryDlg::OnBackToList() {
    const int row = deviceList.SelectedRow();
    state.isSearchOver = false;
    AllowNext(row >= 0 && state.canGoOn);
    if (row < 0) return;
    deviceList.SelectRow(row);
    deviceList.SetFocus();
    SelectDriver(GetDriverForSelection());
}

void DiscoveryDlg::OnAddPort() {
    settings.SetBool(Tag::DIALOG_ADD_PORT, true);
    controller.UpdateHideFlags();
    controller.Next({});
}

std::optional<ChosenDevice> DiscoveryDlg::ChosenRow() const {
    if (deviceList.SelectedRow() < 0) return std::nullopt;
    return DeviceOfRow(discovered, deviceList.SelectedName(), SelectedDevice().hasFax);
}

// A selected row decides alone, whatever radio button was clicked.
void DiscoveryDlg::OnOK() {
    ApplyChoice(ChooseDevice(ChosenRow(), MakeChoiceInputs(settings, drivers, driverList.SelectedId())),
                {settings, applications, drivers, localizer});
    controller.UpdateHideFlags();
    controller.Next({});
}
