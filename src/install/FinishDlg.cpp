#include "install/FinishDlg.h"

#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "framework/CImage.h"
#include "install/CDisplayAppsListDlg.h"
#include "install/EndOfRun.h"
#include "settings/InstallSettings.h"
#include "settings/Localizer.h"
#include "settings/TagNames.h"
#include "wizard/Controller.h"

namespace {

constexpr UINT dialogTemplate = 131;
constexpr DWORD topic = 1542;
constexpr int headerId = 1006;
constexpr int secondTextId = 1167;
constexpr int optionalTextId = 1111;
constexpr int hiddenTextId = 1143;
constexpr int finishId = 1116;
constexpr int helpId = 1057;
constexpr int listId = 1078;
constexpr int hiddenLinkId = 1100;
constexpr int errorLinkId = 1121;
constexpr int infoCenterLinkId = 1178;
constexpr int registrationLinkId = 1179;
constexpr int softwareListLinkId = 1169;
constexpr int picturePlaceId = 1175;

void Open(const std::wstring& target) {
    ShellExecuteW(nullptr, L"open", target.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

}  // namespace

const MessageMap& FinishDlg::GetMessageMap() const {
    using On = EventsOf<FinishDlg>;
    static const MessageMap map(&Events(), {
                                               On::Message(WM_SHOWWINDOW, &FinishDlg::OnShowWindow),
                                               On::Message(WM_SETCURSOR, &FinishDlg::OnSetCursor),
                                               On::Notify(listId, LVN_ITEMCHANGED, &FinishDlg::OnListChanged),
                                               On::Click(finishId, &FinishDlg::OnFinish),
                                               On::Click(errorLinkId, &FinishDlg::OnErrorLink),
                                               On::Click(softwareListLinkId, &FinishDlg::OnSoftwareList),
                                               On::Click(infoCenterLinkId, &FinishDlg::OnInfoCenterLink),
                                               On::Click(registrationLinkId, &FinishDlg::OnRegistrationLink),
                                           });
    return map;
}

FinishDlg::FinishDlg(const wchar_t* name) : InstallDialogEx(dialogTemplate) {
    dialogName = name;
}

bool FinishDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    finishButton.SubclassDlgItem(finishId, *this);
    optionalButton.SubclassDlgItem(IDOK, *this);
    helpButton.SubclassDlgItem(helpId, *this);
    errorLink.SubclassDlgItem(errorLinkId, *this);
    infoCenterLink.SubclassDlgItem(infoCenterLinkId, *this);
    registrationLink.SubclassDlgItem(registrationLinkId, *this);
    softwareListLink.SubclassDlgItem(softwareListLinkId, *this);
    const bool reboot = InstallSettings::GetInstance().GetBool(Tag::REBOOT);
    SetUpControl(finishId, reboot ? TextKey::NEXT_BUTTON : TextKey::FINISH_BUTTON, fontButton);
    SetUpControl(hiddenLinkId, TextKey::REGISTRATION_LINK, fontButton);
    SetUpControl(errorLinkId, TextKey::ERROR_LINK, fontButton);
    SetUpControl(infoCenterLinkId, TextKey::INFOCENTER_LINK_LABEL, fontButton);
    SetUpControl(registrationLinkId, TextKey::PRODUCT_REGISTRATION_LINK_LABEL, fontButton);
    SetUpControl(softwareListLinkId, TextKey::LIST_DISPLAY_LINK, fontButton);
    SetControlFont(headerId, fontHeading);
    SetControlFont(secondTextId, fontBody);
    ShowControl(listId, false);
    ShowControl(helpId, false);
    statusList.Attach(GetDlgItem(listId));
    finishButton.SetPrimary();
    return true;
}

LRESULT FinishDlg::OnShowWindow(WPARAM shown, LPARAM) {
    if (shown != FALSE) {
        helpTopic = topic;
        HideWhatIsNotOffered();
        FillStatusList();
        ShowOutcome();
        ShowLinks();
    }
    return Default();
}

void FinishDlg::HideWhatIsNotOffered() {
    for (const int id : {errorLinkId, hiddenTextId, static_cast<int>(IDOK), optionalTextId, hiddenLinkId}) {
        ShowControl(id, false);
    }
    EnableControl(hiddenTextId, false);
    EnableControl(IDOK, false);
}

// The hidden list's lines decide the status of the run; the last one that says anything wins.
void FinishDlg::FillStatusList() {
    allSucceeded = true;
    for (const StatusLine& line : statusList.Fill()) {
        if (line.code == 1) allSucceeded = false;
        const std::wstring_view status = InstallStatusOf(line.code);
        if (!status.empty()) InstallSettings::GetInstance().SetString(Tag::INSTALL_STATUS, status);
    }
}

RunOutcome FinishDlg::Outcome() const {
    const InstallSettings& settings = InstallSettings::GetInstance();
    return {.installStatus = settings.GetString(Tag::INSTALL_STATUS),
            .dotNetFailed = settings.GetBool(Tag::DOTNET_FAILED),
            .usb = settings.GetBool(Tag::USB),
            .amazonSupported = settings.IsAmazonSupported(),
            .optionalInstall = settings.GetBool(Tag::OPTIONAL_INSTALL),
            .installFromConfig = settings.GetBool(Tag::INSTALL_FROM_CONFIG)};
}

void FinishDlg::ShowOutcome() {
    const RunOutcome outcome = Outcome();
    const HeaderKeys header = FinishHeader(outcome);
    std::wstring text = GetLocalizedText(header.first);
    if (!header.second.empty()) text += L"  " + GetLocalizedText(header.second);
    ::SetWindowTextW(GetDlgItem(headerId), text.c_str());
    if (IsUsbFinish(outcome)) usbFinish = true;

    const std::wstring_view second = FinishSecondText(outcome);
    if (!second.empty()) SetLocalizedText(secondTextId, second);
    ShowControl(secondTextId, !second.empty());
}

void FinishDlg::ShowLinks() {
    const InstallSettings& settings = InstallSettings::GetInstance();
    ShowControl(softwareListLinkId, settings.IsAmazonSupported());
    if (settings.GetBool(Tag::REBOOT)) SetLocalizedText(finishId, TextKey::NEXT_BUTTON);
    ShowControl(infoCenterLinkId, !settings.GetString(Tag::INFOCENTER_LINK).empty());
    ShowControl(registrationLinkId, !settings.GetString(Tag::PRODUCT_REGISTRATION_LINK).empty());
    if (!allSucceeded) ShowControl(errorLinkId, true);
}

void FinishDlg::PaintGround(HDC context) {
    InstallDialogEx::PaintGround(context);
    const std::wstring status = InstallSettings::GetInstance().GetString(Tag::INSTALL_STATUS);
    ATL::CImage picture;
    picture.Load(GetExeDirectory() + L"\\..\\res\\images\\" + std::wstring(FinishPicture(status, usbFinish)));
    RECT place{};
    GetWindowRect(GetDlgItem(picturePlaceId), &place);
    MapWindowPoints(nullptr, GetSafeHwnd(), reinterpret_cast<POINT*>(&place), 2);
    picture.AlphaBlend(context, place.left, place.top);
}

LRESULT FinishDlg::OnSetCursor(WPARAM window, LPARAM) {
    switch (GetDlgCtrlID(reinterpret_cast<HWND>(window))) {
        case softwareListLinkId:
        case errorLinkId:
        case infoCenterLinkId:
        case registrationLinkId:
            SetCursor(LoadCursorW(nullptr, IDC_HAND));
            return TRUE;
        default:
            return Default();
    }
}

LRESULT FinishDlg::OnListChanged(NMHDR& header) {
    StatusListView::KeepUnselected(header);
    return 0;
}

void FinishDlg::OnFinish() {
    LeaveForTheEnd();
}

void FinishDlg::OnOK() {
    InstallSettings::GetInstance().SetBool(Tag::OPTIONAL_INSTALL, true);
    Controller::GetInstance().UpdateHideFlags();
    Controller::GetInstance().Next({});
}

void FinishDlg::OnCancel() {
    Controller::GetInstance().Cancel(false);
}

void FinishDlg::OnErrorLink() {
    if (allSucceeded) return;
    Open(Logger::GetInstance().GetLogFolder());
    ShowControl(errorLinkId, true);
}

void FinishDlg::OnSoftwareList() {
    const bool wasEnabled = IsWindowEnabled(GetDlgItem(finishId)) != FALSE;
    EnableControl(finishId, false);
    CDisplayAppsListDlg(this).DoModal();
    if (wasEnabled) EnableControl(finishId, true);
}

void FinishDlg::OnInfoCenterLink() {
    const InstallSettings& settings = InstallSettings::GetInstance();
    const std::wstring base = settings.GetString(Tag::INFOCENTER_LINK);
    if (!base.empty()) {
        Open(settings.GetBool(Tag::INSTALL_FROM_CONFIG) ? settings.GetString(Tag::EXACT_INFOCENTER_LINK)
                                                        : base + L"?loc=" + GetLanguageCode());
    }
    ShowControl(infoCenterLinkId, !base.empty());
}

void FinishDlg::OnRegistrationLink() {
    const std::wstring target = InstallSettings::GetInstance().GetString(Tag::PRODUCT_REGISTRATION_LINK);
    if (!target.empty()) Open(target);
    ShowControl(registrationLinkId, !target.empty());
}
