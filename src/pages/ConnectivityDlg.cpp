#include "pages/ConnectivityDlg.h"

#include <windows.h>

#include <commctrl.h>

#include <utility>

#include "CommonLib/Files.h"
#include "framework/CImage.h"
#include "framework/FocusRing.h"
#include "framework/Resolution.h"
#include "framework/Spoken.h"
#include "printer/ApplyChoice.h"
#include "printer/DefaultDriver.h"
#include "resources/resource.h"
#include "settings/TextKeys.h"
#include "wizard/Controller.h"
#include "wizard/PageNames.h"

namespace {

// A button without the frame around it.
RECT FaceOf(HWND button) {
    constexpr int frame = 3;
    RECT face{};
    GetClientRect(button, &face);
    InflateRect(&face, -frame, -frame);
    return face;
}

}  // namespace

const MessageMap& ConnectivityDlg::GetMessageMap() const {
    using On = EventsOf<ConnectivityDlg>;
    static const MessageMap map(
        &Events(), {
                       On::Message(WM_SHOWWINDOW, &ConnectivityDlg::OnShowWindow),
                       On::Click(IDC_CONNECTIVITY_NETWORK, &ConnectivityDlg::OnNetworkChoice),
                       On::Click(IDC_CONNECTIVITY_USB, &ConnectivityDlg::OnUsbChoice),
                       On::Notify(IDC_CONNECTIVITY_NETWORK, NM_CUSTOMDRAW, &ConnectivityDlg::OnDrawChoice),
                       On::Notify(IDC_CONNECTIVITY_USB, NM_CUSTOMDRAW, &ConnectivityDlg::OnDrawChoice),
                   });
    return map;
}

ConnectivityDlg::ConnectivityDlg(const PageContext& context, AppCatalogue& appCatalogue,
                                 DriverInfo& driverCatalogue)
    : InstallDialogEx(context, IDD_CONNECTIVITY, HIDD_CONNECTIVITY),
      applications(appCatalogue),
      drivers(driverCatalogue) {}

bool ConnectivityDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    nextButton.SubclassDlgItem(IDOK, *this);
    cancelButton.SubclassDlgItem(IDCANCEL, *this);
    helpButton.SubclassDlgItem(IDC_HELP_BUTTON, *this);
    SetUpControl(IDC_CONNECTIVITY_TITLE, TextKey::CONNECTIVITY_TITLE, fontHeading);
    SetUpControl(IDC_CONNECTIVITY_TEXT, TextKey::CONNECTIVITY_TEXT, fontBody);
    SetUpControl(IDOK, TextKey::NEXT_BUTTON, fontButton);
    SetUpControl(IDCANCEL, TextKey::CANCEL_BUTTON, fontButton);
    SetUpControl(IDC_HELP_BUTTON, TextKey::HELP_BUTTON, fontButton);
    SetUpControl(IDC_CONNECTIVITY_NETWORK_CAPTION, TextKey::ETHERNETRADIO_TEXT, fontHeading);
    SetUpControl(IDC_CONNECTIVITY_USB_CAPTION, TextKey::USBRADIO_TEXT, fontHeading);
    SetUpControl(IDC_CONNECTIVITY_NETWORK_TEXT, TextKey::ETHERNET_TEXT, fontBody);
    SetUpControl(IDC_CONNECTIVITY_USB_TEXT, TextKey::USB_TEXT, fontBody);
    // The choices show a picture. Their texts, with those beside them, are for who hears the page.
    SetUpControl(IDC_CONNECTIVITY_NETWORK, TextKey::ETHERNETRADIO_TEXT, fontButton);
    SetUpControl(IDC_CONNECTIVITY_USB, TextKey::USBRADIO_TEXT, fontButton);
    SetSpokenDescription(GetDlgItem(IDC_CONNECTIVITY_NETWORK), GetLocalizedText(TextKey::ETHERNET_TEXT));
    SetSpokenDescription(GetDlgItem(IDC_CONNECTIVITY_USB), GetLocalizedText(TextKey::USB_TEXT));
    FocusControl(IDOK);
    ShowChoicePictures();
    helpButton.SetImagePath(helpImagePath);
    nextButton.SetPrimary();
    return true;
}

void ConnectivityDlg::OnTextSize(HFONT letters) {
    InstallDialogEx::OnTextSize(letters);
    ShowChoicePictures();
}

void ConnectivityDlg::ShowChoicePictures() {
    SetChoicePicture(IDC_CONNECTIVITY_NETWORK, GetPicturePath(L"network.png"), networkIcon);
    SetChoicePicture(IDC_CONNECTIVITY_USB, GetPicturePath(L"usb.png"), usbIcon);
}

void ConnectivityDlg::SetChoicePicture(int controlId, const std::wstring& path, Icon& icon) {
    ATL::CImage image;
    if (!image.Load(path, ResolutionOf(GetSafeHwnd()))) return;
    Icon loaded = image.ToIcon();
    ::SendMessageW(GetDlgItem(controlId), BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(loaded.get()));
    icon = std::move(loaded);
}

LRESULT ConnectivityDlg::OnShowWindow(WPARAM, LPARAM) {
    FocusControl(IDOK);
    FocusControl(IDC_CONNECTIVITY_NETWORK);
    CheckDlgButton(GetSafeHwnd(), IDC_CONNECTIVITY_NETWORK, BST_CHECKED);
    ShowControl(IDC_HELP_BUTTON, false);
    return Default();
}

// The system marks the focus in a colour that may be near to that of a checked button.
LRESULT ConnectivityDlg::OnDrawChoice(NMHDR& header) {
    const auto& drawing = reinterpret_cast<const NMCUSTOMDRAW&>(header);
    if (drawing.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYPOSTPAINT;
    if (drawing.dwDrawStage == CDDS_POSTPAINT && GetFocus() == header.hwndFrom)
        DrawFocusRing(drawing.hdc, FaceOf(header.hwndFrom));
    return CDRF_DODEFAULT;
}

void ConnectivityDlg::OnNetworkChoice() {
    usbSelected = false;
    CheckDlgButton(GetSafeHwnd(), IDC_CONNECTIVITY_USB, BST_UNCHECKED);
}

void ConnectivityDlg::OnUsbChoice() {
    usbSelected = true;
    CheckDlgButton(GetSafeHwnd(), IDC_CONNECTIVITY_NETWORK, BST_UNCHECKED);
}

void ConnectivityDlg::OnOK() {
    const ChoiceTargets targets{settings, applications, drivers, localizer};
    if (usbSelected) {
        ApplyChoice(ChooseUsb(MakeChoiceInputs(settings, drivers, GetDefaultDriver(settings, {}))), targets);
        controller.GoToSpecifiedDlg(PageName::progress, {});
    } else {
        ApplyChoice(ChooseNetwork(), targets);
        controller.UpdateHideFlags();
        controller.Next({});
    }
}
