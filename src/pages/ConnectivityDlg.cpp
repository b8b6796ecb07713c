#include "pages/ConnectivityDlg.h"

#include <utility>

#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "catalogue/AppCatalogue.h"
#include "catalogue/DriverInfo.h"
#include "framework/CImage.h"
#include "settings/InstallSettings.h"
#include "settings/TagNames.h"
#include "wizard/Controller.h"

namespace {

constexpr UINT dialogTemplate = 154;
constexpr DWORD topic = 1579;
constexpr int titleId = 1144;
constexpr int textId = 1160;
constexpr int helpId = 1057;
constexpr int networkId = 1145;
constexpr int usbId = 1147;
constexpr int networkCaptionId = 1170;
constexpr int usbCaptionId = 1171;
constexpr int networkTextId = 1172;
constexpr int usbTextId = 1173;

// Makes the applications for that kind of device part of the core run.
void MakeMandatory(const wchar_t* deviceType) {
    AppCatalogue::GetInstance().Update([deviceType](MSI_APP& record) {
        if (record.deviceType == deviceType) record.isOptional = false;
    });
}

}  // namespace

const MessageMap& ConnectivityDlg::GetMessageMap() const {
    using On = EventsOf<ConnectivityDlg>;
    static const MessageMap map(&Events(), {
                                               On::Message(WM_SHOWWINDOW, &ConnectivityDlg::OnShowWindow),
                                               On::Click(networkId, &ConnectivityDlg::OnNetworkChoice),
                                               On::Click(usbId, &ConnectivityDlg::OnUsbChoice),
                                           });
    return map;
}

ConnectivityDlg::ConnectivityDlg() : InstallDialogEx(dialogTemplate) {}

bool ConnectivityDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    nextButton.SubclassDlgItem(IDOK, *this);
    cancelButton.SubclassDlgItem(IDCANCEL, *this);
    helpButton.SubclassDlgItem(helpId, *this);
    SetUpControl(titleId, TextKey::CONNECTIVITY_TITLE, fontHeading);
    SetUpControl(textId, TextKey::CONNECTIVITY_TEXT, fontBody);
    SetUpControl(IDOK, TextKey::NEXT_BUTTON, fontButton);
    SetUpControl(IDCANCEL, TextKey::CANCEL_BUTTON, fontButton);
    SetUpControl(helpId, TextKey::HELP_BUTTON, fontButton);
    SetUpControl(networkCaptionId, TextKey::ETHERNETRADIO_TEXT, fontHeading);
    SetUpControl(usbCaptionId, TextKey::USBRADIO_TEXT, fontHeading);
    SetUpControl(networkTextId, TextKey::ETHERNET_TEXT, fontBody);
    SetUpControl(usbTextId, TextKey::USB_TEXT, fontBody);
    // The choices show a picture; their texts are for those who hear the page.
    SetUpControl(networkId, TextKey::ETHERNETRADIO_TEXT, fontButton);
    SetUpControl(usbId, TextKey::USBRADIO_TEXT, fontButton);
    FocusControl(IDOK);
    const std::wstring images = GetExeDirectory() + L"\\..\\res\\images\\";
    SetChoicePicture(networkId, images + L"network.png", networkIcon);
    SetChoicePicture(usbId, images + L"usb.png", usbIcon);
    helpButton.SetImagePath(helpImagePath);
    nextButton.SetPrimary();
    return true;
}

void ConnectivityDlg::SetChoicePicture(int controlId, const std::wstring& path, Icon& icon) {
    ATL::CImage image;
    if (!image.Load(path)) return;
    Icon loaded = image.ToIcon();
    ::SendMessageW(GetDlgItem(controlId), BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(loaded.get()));
    icon = std::move(loaded);
}

LRESULT ConnectivityDlg::OnShowWindow(WPARAM, LPARAM) {
    helpTopic = topic;
    FocusControl(IDOK);
    FocusControl(networkId);
    CheckDlgButton(GetSafeHwnd(), networkId, BST_CHECKED);
    ShowControl(helpId, false);
    return Default();
}

void ConnectivityDlg::OnNetworkChoice() {
    usbSelected = false;
    CheckDlgButton(GetSafeHwnd(), usbId, BST_UNCHECKED);
}

void ConnectivityDlg::OnUsbChoice() {
    usbSelected = true;
    CheckDlgButton(GetSafeHwnd(), networkId, BST_UNCHECKED);
}

void ConnectivityDlg::OnOK() {
    Controller& controller = Controller::GetInstance();
    MakeMandatory(L"FAX");
    MakeMandatory(L"SCANNER");
    if (usbSelected) {
        SelectForUsb();
        controller.GoToSpecifiedDlg(L"Progress Dialog", {});
    } else {
        controller.UpdateHideFlags();
        controller.Next({});
    }
}

// No discovery and no port: the package's default driver, with its scan and fax parts.
void ConnectivityDlg::SelectForUsb() {
    InstallSettings& settings = InstallSettings::GetInstance();
    const bool fromConfig = settings.GetBool(Tag::INSTALL_FROM_CONFIG);
    settings.SetBools({{Tag::NIMBOJET, false}, {Tag::USB, true}, {Tag::DISCOVERED_DEVICE, false}});
    settings.SetString(Tag::PORT_TYPE, L"USB");
    if (fromConfig) settings.SetDeviceValue(Tag::PORT_TYPE, L"USB");
    DriverInfo::GetInstance().SelectDriver(L"SCAN");
    AppCatalogue::GetInstance().Update([](MSI_APP& record) {
        if (record.driverId.find(L"Fax") != std::wstring::npos) record.isSelected = true;
    });
    if (fromConfig) {
        MakeMandatory(L"PRINTER");
        MakeMandatory(L"SCANNER");
    }
    LogBasic(L"Selected Port Type: USB");
    DriverInfo::GetInstance().SelectDriver(settings.GetDefaultDriver({}));
}

void ConnectivityDlg::OnCancel() {
    Controller::GetInstance().Cancel(false);
}
