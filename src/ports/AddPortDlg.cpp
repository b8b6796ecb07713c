#include "ports/AddPortDlg.h"

#include <commctrl.h>

#include <utility>

#include "catalogue/AppCatalogue.h"
#include "catalogue/DriverInfo.h"
#include "ports/DriverConfigDlg.h"
#include "ports/DriverConfiguration.h"
#include "ports/PortText.h"
#include "ports/SharedPrinter.h"
#include "settings/DeviceDocument.h"
#include "settings/InstallSettings.h"
#include "settings/Localizer.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"
#include "wizard/Controller.h"
#include "wizard/LocalizedMessage.h"

namespace {

constexpr UINT dialogTemplate = 139;
constexpr DWORD topic = 1624;
constexpr int titleId = 1200;
constexpr int headingId = 1201;
constexpr int kindId = 1202;
constexpr int portListId = 1203;
constexpr int portNameLabelId = 1204;
constexpr int portNameId = 1205;
constexpr int addressLabelId = 1206;
constexpr int addressId = 1207;
constexpr int pathLabelId = 1208;
constexpr int pathId = 1209;
constexpr int driverFrameId = 1210;
constexpr int driverLabelId = 1211;
constexpr int driverListId = 1212;
constexpr int configureId = 1213;
constexpr int backId = 1214;
constexpr int helpId = 1057;

constexpr WPARAM sharedKindIndex = 2;

// A field takes one character more than is read of it, and this is meant.
constexpr size_t portNameRead = 63;
constexpr size_t addressRead = 255;
constexpr size_t pathRead = 255;

constexpr wchar_t localPortType[] = L"Local Port";

// Which controls describe a port of each kind.
constexpr int existingControls[] = {portListId};
constexpr int networkControls[] = {portNameLabelId, portNameId, addressLabelId, addressId};
constexpr int sharedControls[] = {pathLabelId, pathId};

std::wstring WithoutMnemonic(std::wstring text) {
    const size_t place = text.find(L'&');
    if (place != std::wstring::npos) text.erase(place, 1);
    return text;
}

// A port as the settings describe it; a host is told for a new network port only.
struct ChosenPort {
    std::wstring name;
    std::optional<std::wstring> host;
    std::wstring type;
    bool add = false;
};

// The devices of a predefined configuration take the port over.
void WritePort(const ChosenPort& port) {
    InstallSettings& settings = InstallSettings::GetInstance();
    settings.SetString(Tag::PORT_NAME, port.name);
    if (port.host) settings.SetString(Tag::HOST_NAME, *port.host);
    settings.SetString(Tag::PORT_TYPE, port.type);
    settings.SetBool(Tag::ADD_PORT, port.add);
    if (!settings.GetBool(Tag::INSTALL_FROM_CONFIG)) return;
    settings.SetDeviceValue(Tag::PORT_NAME, port.name);
    if (port.host) settings.SetDeviceValue(Tag::HOST_NAME, *port.host);
    settings.SetDeviceValue(Tag::ADD_PORT, port.add ? L"true" : L"false");
    settings.SetDeviceValue(Tag::PORT_TYPE, port.type);
}

void SelectScanDrivers() {
    DriverInfo::GetInstance().SelectDriver(L"SCAN");
}

void SelectForAmazon() {
    AppCatalogue::GetInstance().Update([](MSI_APP& record) {
        if (record.deviceType == L"FAX" || record.deviceType == L"SCANNER") record.isOptional = false;
        if (record.driverId.find(L"Fax") != std::wstring::npos) record.isSelected = true;
    });
    SelectScanDrivers();
}

}  // namespace

const MessageMap& AddPortDlg::GetMessageMap() const {
    using On = EventsOf<AddPortDlg>;
    static const MessageMap map(&Events(),
                                {
                                    On::Message(WM_SHOWWINDOW, &AddPortDlg::OnShowWindow),
                                    On::Control(kindId, CBN_SELCHANGE, &AddPortDlg::OnKindChanged),
                                    On::Notify(portListId, LVN_ITEMCHANGED, &AddPortDlg::OnPortChanged),
                                    On::Control(portNameId, EN_CHANGE, &AddPortDlg::UpdateNext),
                                    On::Control(addressId, EN_CHANGE, &AddPortDlg::UpdateNext),
                                    On::Control(pathId, EN_CHANGE, &AddPortDlg::UpdateNext),
                                    On::Control(driverListId, CBN_SELCHANGE, &AddPortDlg::OnDriverChanged),
                                    On::Click(configureId, &AddPortDlg::OnConfigureDriver),
                                    On::Click(backId, &AddPortDlg::OnBack),
                                });
    return map;
}

AddPortDlg::AddPortDlg() : InstallDialogEx(dialogTemplate) {
    dialogName = L"Add Port Dialog";
}

AddPortDlg::~AddPortDlg() = default;

std::uint32_t AddPortDlg::ReceiveMessage(std::wstring message) {
    receivedMessage = std::move(message);
    return 0;
}

std::wstring AddPortDlg::Received(std::wstring_view tag) const {
    return TagDocument::ValueOf(receivedMessage, tag);
}

bool AddPortDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    // An address is read from left to right in every language; the mirrored layout would turn it round too.
    constexpr LONG_PTR rightToLeft = WS_EX_RTLREADING | WS_EX_LAYOUTRTL;
    const HWND address = GetDlgItem(addressId);
    SetWindowLongPtrW(address, GWL_EXSTYLE, GetWindowLongPtrW(address, GWL_EXSTYLE) & ~rightToLeft);
    const HWND kinds = GetDlgItem(kindId);
    InsertLocalizedString(kinds, 0, TextKey::DISCOVERED_PORTS);
    InsertLocalizedString(kinds, 1, TextKey::IP_PORT);
    InsertLocalizedString(kinds, sharedKindIndex, TextKey::UNC_PORT);
    ::SendMessageW(kinds, CB_SETCURSEL, 0, 0);
    portList.SubclassDlgItem(portListId, *this);
    portList.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    driverList.Attach(GetDlgItem(driverListId));
    SetUpButtons();
    OnKindChanged();
    SetUpTexts();
    ::SendMessageW(GetDlgItem(portNameId), EM_SETLIMITTEXT, portNameRead + 1, 0);
    ::SendMessageW(address, EM_SETLIMITTEXT, addressRead + 1, 0);
    ::SendMessageW(GetDlgItem(pathId), EM_SETLIMITTEXT, pathRead + 1, 0);
    MakeColumns();
    return true;
}

void AddPortDlg::SetUpButtons() {
    configureButton.SubclassDlgItem(configureId, *this);
    backButton.SubclassDlgItem(backId, *this);
    nextButton.SubclassDlgItem(IDOK, *this);
    cancelButton.SubclassDlgItem(IDCANCEL, *this);
    helpButton.SubclassDlgItem(helpId, *this);
    helpButton.SetImagePath(helpImagePath);
    nextButton.SetPrimary();
}

void AddPortDlg::SetUpTexts() {
    SetUpControl(titleId, TextKey::DISCOVERY_TITLE, fontHeading);
    SetUpControl(headingId, TextKey::SELECT_PORT_TITLE, fontHeading);
    SetUpControl(portNameLabelId, TextKey::PORT_NAME_TEXT, fontBody);
    SetUpControl(addressLabelId, TextKey::IP_ADDRESS_TEXT, fontBody);
    SetUpControl(pathLabelId, TextKey::NETWORK_PATH_TEXT, fontBody);
    SetUpControl(driverLabelId, TextKey::PRINT_DRIVER_TEXT, fontBody);
    SetUpControl(driverListId, TextKey::PRINT_DRIVER_TEXT, fontBody);
    SetUpControl(configureId, TextKey::CONFIG_SETTINGS_BUTTON, fontButton);
    SetUpControl(backId, TextKey::BASIC_TEXT, fontButton);
    SetUpControl(IDOK, TextKey::NEXT_BUTTON, fontButton);
    SetUpControl(IDCANCEL, TextKey::CANCEL_BUTTON, fontButton);
    SetUpControl(helpId, TextKey::HELP_BUTTON, fontButton);
    for (const int id : {kindId, portListId, portNameId, addressId, pathId}) SetControlFont(id, fontBody);
}

void AddPortDlg::MakeColumns() {
    portList.InsertColumn(0, WithoutMnemonic(GetLocalizedText(TextKey::PORT_NAME_TEXT)));
    portList.InsertColumn(1, GetLocalizedText(TextKey::PORT_TYPE_TEXT));
    FitColumns();
}

// A heading needs more room than its text, which not every system reckons with.
void AddPortDlg::FitColumns() {
    const std::wstring heading = WithoutMnemonic(GetLocalizedText(TextKey::PORT_NAME_TEXT));
    const auto textWidth = static_cast<int>(
        portList.SendMessage(LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(heading.c_str())));
    const int needed = textWidth + GetSystemMetrics(SM_CXVSCROLL);
    portList.FitColumnToHeading(0);
    if (portList.GetColumnWidth(0) < needed) portList.SetColumnWidth(0, needed);
    portList.FitColumnToHeading(1);
}

std::optional<AddPortDlg::PortKind> AddPortDlg::SelectedKind() const {
    const HWND kinds = GetDlgItem(kindId);
    if (::SendMessageW(kinds, CB_GETCURSEL, 0, 0) == CB_ERR) return std::nullopt;
    constexpr size_t longestText = 400;
    const std::wstring shown = TextOf(kindId, longestText);
    if (shown == GetLocalizedText(TextKey::DISCOVERED_PORTS)) return PortKind::Existing;
    if (shown == GetLocalizedText(TextKey::UNC_PORT)) return PortKind::Shared;
    if (shown == GetLocalizedText(TextKey::IP_PORT)) return PortKind::Network;
    return std::nullopt;
}

void AddPortDlg::OnKindChanged() {
    const std::optional<PortKind> kind = SelectedKind();
    if (!kind) return;
    for (const int id : existingControls) ShowControl(id, kind == PortKind::Existing);
    for (const int id : networkControls) ShowControl(id, kind == PortKind::Network);
    for (const int id : sharedControls) ShowControl(id, kind == PortKind::Shared);
    UpdateNext();
}

void AddPortDlg::UpdateNext() {
    EnableControl(IDOK, IsComplete());
}

bool AddPortDlg::IsComplete() const {
    const auto isFilled = [this](int field) { return GetWindowTextLengthW(GetDlgItem(field)) > 0; };
    const std::optional<PortKind> kind = SelectedKind();
    if (!kind) return false;
    switch (*kind) {
        case PortKind::Existing:
            return portList.SelectedRow() >= 0;
        case PortKind::Network:
            return isFilled(portNameId) && isFilled(addressId);
        case PortKind::Shared:
            return isFilled(pathId);
    }
    return false;
}

LRESULT AddPortDlg::OnPortChanged(NMHDR&) {
    UpdateNext();
    return 0;
}

LRESULT AddPortDlg::OnShowWindow(WPARAM shown, LPARAM) {
    if (shown == FALSE) return Default();
    const InstallSettings& settings = InstallSettings::GetInstance();
    helpTopic = topic;
    ShowControl(helpId, false);
    if (settings.GetBool(Tag::APPS_ONLY_PACKAGE)) EnableControl(titleId, false);
    ShowControl(titleId, false);
    if (driverList.IsEmpty()) {
        for (const int id : {driverListId, configureId, driverFrameId, driverLabelId}) ShowControl(id, false);
    }
    if (!receivedMessage.empty()) ObeyMessage();
    FocusControl(kindId);
    if (SelectedKind() == PortKind::Existing)
        ListView_SetItemState(portList.GetSafeHwnd(), -1, 0, LVIS_SELECTED);
    if (settings.GetBool(Tag::INSTALL_FROM_CONFIG)) {
        for (const int id : {driverListId, configureId}) ShowControl(id, false);
    }
    if (settings.IsAmazonSupported()) {
        EnableControl(driverLabelId, false);
        for (const int id : {driverListId, driverLabelId, configureId}) ShowControl(id, false);
    }
    return Default();
}

void AddPortDlg::ObeyMessage() {
    if (Received(Tag::SHOW_UNC) == L"false") {
        ::SendMessageW(GetDlgItem(kindId), CB_DELETESTRING, sharedKindIndex, 0);
    }
    if (Received(Tag::SHOW_DRIVER_LIST) == L"false") {
        for (const int id : {driverListId, configureId, driverFrameId}) ShowControl(id, false);
    }
}

void AddPortDlg::ClearDrivers() {
    driverList.Clear();
}

// The button is not shown here, unlike on the page of the discovered printers, and this is meant.
void AddPortDlg::AddDriver(const MSI_APP& driver) {
    if (Received(Tag::SHOW_DRIVER_LIST) == L"false") return;
    const InstallSettings& settings = InstallSettings::GetInstance();
    if (driverList.IsEmpty() && !settings.IsAmazonSupported()) {
        for (const int id : {driverFrameId, driverListId, driverLabelId}) ShowControl(id, true);
    }
    driverList.Add(driver);
    if (IsWindowVisible(GetDlgItem(configureId)) == FALSE && IsConfigToolAvailable(driver.driverName)) {
        SetLocalizedText(configureId, TextKey::CONFIG_SETTINGS_BUTTON);
    }
    driverList.Select(settings.GetDefaultDriver({}));
    OnDriverChanged();
}

void AddPortDlg::OnDriverChanged() {
    DropConfiguration();
    EnableControl(configureId, CanConfigureDriver(driverList.SelectedId()));
}

void AddPortDlg::OnConfigureDriver() {
    OpenDriverConfiguration(*this, driverList.SelectedId(), driverConfigDlg);
}

void AddPortDlg::FillPortList(const std::vector<PortEntry>& ports) {
    portList.DeleteAllItems();
    const bool rightToLeftTexts = IsRightToLeft();
    const bool rightToLeftLocale = IsRightToLeftLocale();
    int row = 0;
    for (const PortEntry& port : ports) {
        portList.InsertItem(row, ShownPortName(port.name, rightToLeftTexts, rightToLeftLocale), 0);
        portList.SetItemText(row, 1, port.description);
        ++row;
    }
    FitColumns();
}

void AddPortDlg::OnOK() {
    if (!TakePort()) return;
    InstallSettings& settings = InstallSettings::GetInstance();
    if (!settings.GetBool(Tag::INSTALL_FROM_CONFIG)) TakeDriver();
    settings.BuildInfoCenterLinks(settings.GetString(Tag::DRIVER_MODEL_NAME),
                                  settings.GetString(Tag::PRINTER_NAME));
    SelectScanDrivers();
    if (settings.IsAmazonSupported()) SelectForAmazon();
    Controller::GetInstance().Next({});
}

bool AddPortDlg::TakePort() {
    const std::optional<PortKind> kind = SelectedKind();
    if (!kind) return false;
    switch (*kind) {
        case PortKind::Existing:
            return TakeExistingPort();
        case PortKind::Network:
            return TakeNetworkPort();
        case PortKind::Shared:
            return TakeSharedPrinter();
    }
    return false;
}

bool AddPortDlg::TakeExistingPort() {
    const int row = portList.SelectedRow();
    if (row < 0) return false;
    WritePort({.name = ChosenPortName(portList.GetItemText(row, 0), IsRightToLeftLocale()),
               .type = portList.GetItemText(row, 1),
               .add = false});
    return true;
}

// The address may be anything; the port's monitor tells what it makes of it.
bool AddPortDlg::TakeNetworkPort() {
    const std::wstring name = TextOf(portNameId, portNameRead);
    if (IsInPortList(name)) return Refuse(TextKey::DUP_PORT_TEXT, portNameId);
    WritePort({.name = name,
               .host = TextOf(addressId, addressRead),
               .type = std::wstring(networkPortType),
               .add = true});
    return true;
}

bool AddPortDlg::TakeSharedPrinter() {
    const std::wstring path = TextOf(pathId, pathRead);
    if (IsInPortList(path)) return Refuse(TextKey::DUP_PORT_TEXT, pathId);
    if (!IsSharedPrinter(path)) return Refuse(TextKey::INVALID_NET_PATH_TEXT, pathId);
    WritePort({.name = path, .type = localPortType, .add = true});
    return true;
}

// What the list shows counts, with the marks that it may have put into a name; this is meant.
bool AddPortDlg::IsInPortList(const std::wstring& name) const {
    for (int row = 0; row < portList.GetItemCount(); ++row) {
        if (portList.GetItemText(row, 0) == name) return true;
    }
    return false;
}

bool AddPortDlg::Refuse(std::wstring_view textKey, int field) {
    ShowLocalizedMessage(GetSafeHwnd(), textKey, TextKey::GEN_ERROR_TITLE);
    SelectAll(field);
    ::SendMessageW(GetDlgItem(field), WM_CLEAR, 0, 0);
    FocusControl(field);
    EnableControl(IDOK, false);
    return false;
}

void AddPortDlg::TakeDriver() const {
    const std::wstring driverId = driverList.SelectedId();
    DriverInfo& drivers = DriverInfo::GetInstance();
    drivers.SelectDriver(driverId);
    InstallSettings& settings = InstallSettings::GetInstance();
    settings.SetString(Tag::SELECTED_DRIVER, drivers.GetDriverPath(driverId));
    settings.SetBool(Tag::SET_DEFAULT, true);
    AppCatalogue::GetInstance().Update([](MSI_APP& record) {
        if (record.deviceType == L"FAX") record.isOptional = true;
    });
}

void AddPortDlg::OnBack() {
    Controller& controller = Controller::GetInstance();
    const std::wstring page = Received(Tag::FROM_DIALOG);
    if (page.empty()) {
        controller.Back({});
    } else {
        controller.GoToSpecifiedDlg(page, receivedMessage);
    }
}

void AddPortDlg::OnCancel() {
    Controller::GetInstance().Cancel(false);
}
