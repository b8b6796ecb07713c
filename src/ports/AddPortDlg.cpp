#include "ports/AddPortDlg.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "framework/HeldDrawing.h"
#include "ports/DriverConfigDlg.h"
#include "ports/PortText.h"
#include "ports/SharedPrinter.h"
#include "printer/ApplyChoice.h"
#include "printer/DefaultDriver.h"
#include "resources/resource.h"
#include "settings/DeviceDocument.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"
#include "settings/TextKeys.h"
#include "wizard/Controller.h"
#include "wizard/LocalizedMessage.h"
#include "wizard/PageNames.h"
#include "wizard/PaintedWait.h"

namespace {

constexpr int sharedKindIndex = 2;

// By design: a field takes one character more than is read of it.
constexpr std::size_t portNameRead = 63;
constexpr std::size_t addressRead = 255;
constexpr std::size_t pathRead = 255;

}  // namespace

const MessageMap& AddPortDlg::GetMessageMap() const {
    using On = EventsOf<AddPortDlg>;
    static const MessageMap map(
        &Events(), {
                       On::Message(WM_SHOWWINDOW, &AddPortDlg::OnShowWindow),
                       On::Control(IDC_ADD_PORT_KIND, CBN_SELCHANGE, &AddPortDlg::OnKindChanged),
                       On::Notify(IDC_ADD_PORT_LIST, LVN_ITEMCHANGED, &AddPortDlg::OnPortChanged),
                       On::Control(IDC_ADD_PORT_NAME, EN_CHANGE, &AddPortDlg::Update),
                       On::Control(IDC_ADD_PORT_ADDRESS, EN_CHANGE, &AddPortDlg::Update),
                       On::Control(IDC_ADD_PORT_PATH, EN_CHANGE, &AddPortDlg::Update),
                       On::Control(IDC_ADD_PORT_DRIVER_LIST, CBN_SELCHANGE, &AddPortDlg::OnDriverChanged),
                       On::Click(IDC_ADD_PORT_CONFIGURE, &AddPortDlg::OnConfigureDriver),
                       On::Click(IDC_ADD_PORT_BACK, &AddPortDlg::OnBack),
                   });
    return map;
}

AddPortDlg::AddPortDlg(const PageContext& context, AppCatalogue& appCatalogue, DriverInfo& driverCatalogue,
                       DriverConfiguration& driverConfiguration)
    : InstallDialogEx(context, IDD_ADD_PORT, HIDD_ADD_PORT),
      applications(appCatalogue),
      drivers(driverCatalogue),
      configuration(driverConfiguration) {
    dialogName = PageName::addPort;
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
    const HWND address = GetDlgItem(IDC_ADD_PORT_ADDRESS);
    SetWindowLongPtrW(address, GWL_EXSTYLE, GetWindowLongPtrW(address, GWL_EXSTYLE) & ~rightToLeft);
    kindList.SubclassDlgItem(IDC_ADD_PORT_KIND, *this);
    InsertLocalizedString(kindList.GetSafeHwnd(), 0, TextKey::DISCOVERED_PORTS);
    InsertLocalizedString(kindList.GetSafeHwnd(), 1, TextKey::IP_PORT);
    InsertLocalizedString(kindList.GetSafeHwnd(), sharedKindIndex, TextKey::UNC_PORT);
    kindList.SetCurSel(0);
    portList.SubclassDlgItem(IDC_ADD_PORT_LIST, *this);
    portList.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    driverList.SubclassDlgItem(IDC_ADD_PORT_DRIVER_LIST, *this);
    SetUpButtons();
    OnKindChanged();
    SetUpTexts();
    ::SendMessageW(GetDlgItem(IDC_ADD_PORT_NAME), EM_SETLIMITTEXT, portNameRead + 1, 0);
    ::SendMessageW(address, EM_SETLIMITTEXT, addressRead + 1, 0);
    ::SendMessageW(GetDlgItem(IDC_ADD_PORT_PATH), EM_SETLIMITTEXT, pathRead + 1, 0);
    MakeColumns();
    return true;
}

void AddPortDlg::SetUpButtons() {
    configureButton.SubclassDlgItem(IDC_ADD_PORT_CONFIGURE, *this);
    backButton.SubclassDlgItem(IDC_ADD_PORT_BACK, *this);
    nextButton.SubclassDlgItem(IDOK, *this);
    cancelButton.SubclassDlgItem(IDCANCEL, *this);
    helpButton.SubclassDlgItem(IDC_HELP_BUTTON, *this);
    helpButton.SetImagePath(helpImagePath);
    nextButton.SetPrimary();
}

void AddPortDlg::SetUpTexts() {
    SetUpControl(IDC_ADD_PORT_TITLE, TextKey::DISCOVERY_TITLE, fontHeading);
    SetUpControl(IDC_ADD_PORT_HEADING, TextKey::SELECT_PORT_TITLE, fontHeading);
    SetLocalizedText(IDC_ADD_PORT_LIST_LABEL, TextKey::DISCOVERED_PORTS);
    SetUpControl(IDC_ADD_PORT_NAME_LABEL, TextKey::PORT_NAME_TEXT, fontBody);
    SetUpControl(IDC_ADD_PORT_ADDRESS_LABEL, TextKey::IP_ADDRESS_TEXT, fontBody);
    SetUpControl(IDC_ADD_PORT_PATH_LABEL, TextKey::NETWORK_PATH_TEXT, fontBody);
    SetUpControl(IDC_ADD_PORT_DRIVER_LABEL, TextKey::PRINT_DRIVER_TEXT, fontBody);
    SetUpControl(IDC_ADD_PORT_DRIVER_LIST, TextKey::PRINT_DRIVER_TEXT, fontBody);
    SetUpControl(IDC_ADD_PORT_CONFIGURE, TextKey::CONFIG_SETTINGS_BUTTON, fontButton);
    SetUpControl(IDC_ADD_PORT_BACK, TextKey::BASIC_TEXT, fontButton);
    SetUpControl(IDOK, TextKey::NEXT_BUTTON, fontButton);
    SetUpControl(IDCANCEL, TextKey::CANCEL_BUTTON, fontButton);
    SetUpControl(IDC_HELP_BUTTON, TextKey::HELP_BUTTON, fontButton);
    for (const int id :
         {IDC_ADD_PORT_KIND, IDC_ADD_PORT_LIST, IDC_ADD_PORT_NAME, IDC_ADD_PORT_ADDRESS, IDC_ADD_PORT_PATH})
        SetControlFont(id, fontBody);
}

void AddPortDlg::MakeColumns() {
    portList.InsertColumn(0, GetPlainText(TextKey::PORT_NAME_TEXT));
    portList.InsertColumn(1, GetLocalizedText(TextKey::PORT_TYPE_TEXT));
    FitColumns();
}

// A heading needs more room than its text, which not every system reckons with.
void AddPortDlg::FitColumns() {
    const std::wstring heading = GetPlainText(TextKey::PORT_NAME_TEXT);
    const auto textWidth = static_cast<int>(
        portList.SendMessage(LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(heading.c_str())));
    const int needed = textWidth + GetSystemMetrics(SM_CXVSCROLL);
    portList.FitColumnToHeading(0);
    if (portList.GetColumnWidth(0) < needed) portList.SetColumnWidth(0, needed);
    portList.FitColumnToHeading(1);
}

std::optional<PortKind> AddPortDlg::SelectedKind() const {
    if (kindList.GetCurSel() < 0) return std::nullopt;
    constexpr std::size_t longestText = 400;
    const std::wstring shown = TextOf(IDC_ADD_PORT_KIND, longestText);
    if (shown == GetLocalizedText(TextKey::DISCOVERED_PORTS)) return PortKind::Existing;
    if (shown == GetLocalizedText(TextKey::UNC_PORT)) return PortKind::Shared;
    if (shown == GetLocalizedText(TextKey::IP_PORT)) return PortKind::Network;
    return std::nullopt;
}

void AddPortDlg::OnKindChanged() {
    const std::optional<PortKind> kind = SelectedKind();
    if (!kind) return;
    shownKind = *kind;
    Update();
}

AddPortState AddPortDlg::State() const {
    return {.kind = shownKind,
            .isComplete = IsComplete(),
            .appsOnly = settings.GetBool(Tag::APPS_ONLY_PACKAGE),
            .isAmazon = settings.IsAmazonSupported(),
            .fromConfig = settings.GetBool(Tag::INSTALL_FROM_CONFIG),
            .hasDrivers = !driverList.IsEmpty(),
            .withoutDriverList = Received(Tag::SHOW_DRIVER_LIST) == L"false",
            .hasConfigTool = configuration.CanConfigureDriver(driverList.SelectedId())};
}

void AddPortDlg::Update() {
    Apply(ControlsFor(State()));
}

bool AddPortDlg::IsComplete() const {
    const auto isFilled = [this](int field) { return GetWindowTextLengthW(GetDlgItem(field)) > 0; };
    const std::optional<PortKind> kind = SelectedKind();
    if (!kind) return false;
    switch (*kind) {
        case PortKind::Existing:
            return portList.SelectedRow() >= 0;
        case PortKind::Network:
            return isFilled(IDC_ADD_PORT_NAME) && isFilled(IDC_ADD_PORT_ADDRESS);
        case PortKind::Shared:
            return isFilled(IDC_ADD_PORT_PATH);
    }
    return false;
}

LRESULT AddPortDlg::OnPortChanged(NMHDR&) {
    Update();
    return 0;
}

LRESULT AddPortDlg::OnShowWindow(WPARAM shown, LPARAM) {
    if (shown == FALSE) return Default();
    if (Received(Tag::SHOW_UNC) == L"false") kindList.DeleteString(sharedKindIndex);
    FocusControl(IDC_ADD_PORT_KIND);
    if (SelectedKind() == PortKind::Existing)
        ListView_SetItemState(portList.GetSafeHwnd(), -1, 0, LVIS_SELECTED);
    Update();
    return Default();
}

void AddPortDlg::ClearDrivers() {
    driverList.Clear();
    Update();
}

void AddPortDlg::AddDriver(const MSI_APP& driver) {
    if (Received(Tag::SHOW_DRIVER_LIST) == L"false") return;
    driverList.Add(driver.driverId, driver.driverName);
    driverList.Select(GetDefaultDriver(settings, {}));
    // A page that the walk only passes by chooses no driver.
    if (IsWindowVisible(GetSafeHwnd()) != FALSE) configuration.Follow(driverList.SelectedId());
    Update();
}

void AddPortDlg::OnDriverChanged() {
    configuration.Follow(driverList.SelectedId());
    Update();
}

void AddPortDlg::OnConfigureDriver() {
    OpenDriverConfiguration(*this, Context(), configuration, driverList.SelectedId(), driverConfigDlg);
}

void AddPortDlg::FillPortList(const std::vector<PortEntry>& ports) {
    const HeldDrawing held(portList);
    portList.DeleteAllItems();
    systemPorts = ports;
    const bool rightToLeftTexts = IsRightToLeft(localizer);
    const bool rightToLeftLocale = IsRightToLeftLocale();
    int row = 0;
    for (const PortEntry& port : ports) {
        portList.InsertItem(row, ShownPortName(port.name, rightToLeftTexts, rightToLeftLocale), row);
        portList.SetItemText(row, 1, port.description);
        ++row;
    }
    FitColumns();
}

void AddPortDlg::OnOK() {
    const std::optional<ChosenPort> port = TakePort();
    if (!port) return;
    ApplyChoice(ChoosePort(*port, MakeChoiceInputs(settings, drivers, driverList.SelectedId())),
                {settings, applications, drivers, localizer});
    controller.Next({});
}

std::optional<ChosenPort> AddPortDlg::TakePort() {
    const std::optional<PortKind> kind = SelectedKind();
    if (!kind) return std::nullopt;
    switch (*kind) {
        case PortKind::Existing:
            return TakeExistingPort();
        case PortKind::Network:
            return TakeNetworkPort();
        case PortKind::Shared:
            return TakeSharedPrinter();
    }
    return std::nullopt;
}

std::optional<ChosenPort> AddPortDlg::TakeExistingPort() {
    const int row = portList.SelectedRow();
    if (row < 0) return std::nullopt;
    const PortEntry& port = systemPorts.at(static_cast<std::size_t>(portList.GetItemData(row)));
    return ChosenPort{.name = port.name, .host = {}, .type = port.description, .add = false};
}

// The address may be anything; the port's monitor says what it makes of it.
std::optional<ChosenPort> AddPortDlg::TakeNetworkPort() {
    const std::wstring name = TextOf(IDC_ADD_PORT_NAME, portNameRead);
    if (IsInPortList(name)) return Refuse(TextKey::DUP_PORT_TEXT, IDC_ADD_PORT_NAME);
    return ChosenPort{.name = name,
                      .host = TextOf(IDC_ADD_PORT_ADDRESS, addressRead),
                      .type = std::wstring(networkPortType),
                      .add = true};
}

std::optional<ChosenPort> AddPortDlg::TakeSharedPrinter() {
    const std::wstring path = TextOf(IDC_ADD_PORT_PATH, pathRead);
    if (IsInPortList(path)) return Refuse(TextKey::DUP_PORT_TEXT, IDC_ADD_PORT_PATH);
    if (!RunPainted([&] { return IsSharedPrinter(path); }))
        return Refuse(TextKey::INVALID_NET_PATH_TEXT, IDC_ADD_PORT_PATH);
    return ChosenPort{.name = path, .type = std::wstring(localPortType), .add = true};
}

bool AddPortDlg::IsInPortList(const std::wstring& name) const {
    return std::ranges::find(systemPorts, name, &PortEntry::name) != systemPorts.end();
}

std::nullopt_t AddPortDlg::Refuse(TextId textKey, int field) {
    ShowLocalizedMessage(localizer, GetSafeHwnd(), textKey, TextKey::GEN_ERROR_TITLE);
    SelectAll(field);
    ::SendMessageW(GetDlgItem(field), WM_CLEAR, 0, 0);
    FocusControl(field);
    Update();
    return std::nullopt;
}

void AddPortDlg::OnBack() {
    const std::wstring page = Received(Tag::FROM_DIALOG);
    if (page.empty()) {
        controller.Back({});
    } else {
        controller.GoToSpecifiedDlg(page, receivedMessage);
    }
}
