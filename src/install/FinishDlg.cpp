#include "install/FinishDlg.h"

#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "framework/CImage.h"
#include "install/CDisplayAppsListDlg.h"
#include "resources/resource.h"
#include "settings/InstallSettings.h"
#include "settings/Localizer.h"
#include "settings/TagNames.h"
#include "settings/TextKeys.h"
#include "wizard/Controller.h"

namespace {

void Open(const std::wstring& target) {
    ShellExecuteW(nullptr, L"open", target.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

}  // namespace

const MessageMap& FinishDlg::GetMessageMap() const {
    using On = EventsOf<FinishDlg>;
    static const MessageMap map(&Events(),
                                {
                                    On::Message(WM_SHOWWINDOW, &FinishDlg::OnShowWindow),
                                    On::Message(WM_SETCURSOR, &FinishDlg::OnSetCursor),
                                    On::Notify(IDC_STATUS_LIST, LVN_ITEMCHANGED, &FinishDlg::OnListChanged),
                                    On::Click(IDC_FINISH, &FinishDlg::OnFinish),
                                    On::Click(IDC_FINISH_ERROR_LINK, &FinishDlg::OnErrorLink),
                                    On::Click(IDC_FINISH_SOFTWARE_LIST_LINK, &FinishDlg::OnSoftwareList),
                                    On::Click(IDC_FINISH_INFORMATION_LINK, &FinishDlg::OnInfoCenterLink),
                                    On::Click(IDC_FINISH_REGISTRATION_LINK, &FinishDlg::OnRegistrationLink),
                                });
    return map;
}

FinishDlg::FinishDlg(const PageContext& context, const wchar_t* name)
    : InstallDialogEx(context, IDD_FINISH, HIDD_FINISH), statusList(context.settings, context.localizer) {
    dialogName = name;
}

bool FinishDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    finishButton.SubclassDlgItem(IDC_FINISH, *this);
    optionalButton.SubclassDlgItem(IDOK, *this);
    helpButton.SubclassDlgItem(IDC_HELP_BUTTON, *this);
    errorLink.SubclassDlgItem(IDC_FINISH_ERROR_LINK, *this);
    infoCenterLink.SubclassDlgItem(IDC_FINISH_INFORMATION_LINK, *this);
    registrationLink.SubclassDlgItem(IDC_FINISH_REGISTRATION_LINK, *this);
    softwareListLink.SubclassDlgItem(IDC_FINISH_SOFTWARE_LIST_LINK, *this);
    const bool reboot = settings.GetBool(Tag::REBOOT);
    SetUpControl(IDC_FINISH, reboot ? TextKey::NEXT_BUTTON : TextKey::FINISH_BUTTON, fontButton);
    SetUpControl(IDC_WEB_LINK, TextKey::REGISTRATION_LINK, fontButton);
    SetUpControl(IDC_FINISH_ERROR_LINK, TextKey::ERROR_LINK, fontButton);
    SetUpControl(IDC_FINISH_INFORMATION_LINK, TextKey::INFOCENTER_LINK_LABEL, fontButton);
    SetUpControl(IDC_FINISH_REGISTRATION_LINK, TextKey::PRODUCT_REGISTRATION_LINK_LABEL, fontButton);
    SetUpControl(IDC_FINISH_SOFTWARE_LIST_LINK, TextKey::LIST_DISPLAY_LINK, fontButton);
    SetControlFont(IDC_OUTCOME_TITLE, fontHeading);
    SetControlFont(IDC_FINISH_SECOND_TEXT, fontBody);
    ShowControl(IDC_STATUS_LIST, false);
    ShowControl(IDC_HELP_BUTTON, false);
    statusList.SubclassDlgItem(IDC_STATUS_LIST, *this);
    statusList.SetUp();
    finishButton.SetPrimary();
    return true;
}

void FinishDlg::OnTextSize(HFONT letters) {
    InstallDialogEx::OnTextSize(letters);
    statusList.LoadPictures();
}

LRESULT FinishDlg::OnShowWindow(WPARAM shown, LPARAM) {
    if (shown != FALSE) {
        HideWhatIsNotOffered();
        FillStatusList();
        ShowOutcome();
        ShowLinks();
    }
    return Default();
}

void FinishDlg::HideWhatIsNotOffered() {
    for (const int id :
         {IDC_FINISH_ERROR_LINK, IDC_FINISH_HIDDEN_TEXT, IDOK, IDC_FINISH_OPTIONAL_TEXT, IDC_WEB_LINK}) {
        ShowControl(id, false);
    }
    EnableControl(IDC_FINISH_HIDDEN_TEXT, false);
    EnableControl(IDOK, false);
}

// The hidden list's lines decide the status of the run; the last one that says anything wins.
void FinishDlg::FillStatusList() {
    allSucceeded = true;
    for (const StatusLine& line : statusList.Fill()) {
        if (line.status == PackageStatus::Failed) allSucceeded = false;
        const std::wstring_view status = InstallStatusOf(line.status);
        if (!status.empty()) settings.SetString(Tag::INSTALL_STATUS, status);
    }
}

RunOutcome FinishDlg::Outcome() const {
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
    ::SetWindowTextW(GetDlgItem(IDC_OUTCOME_TITLE), text.c_str());
    if (IsUsbFinish(outcome)) usbFinish = true;

    const TextId second = FinishSecondText(outcome);
    if (!second.empty()) SetLocalizedText(IDC_FINISH_SECOND_TEXT, second);
    ShowControl(IDC_FINISH_SECOND_TEXT, !second.empty());
}

void FinishDlg::ShowLinks() {
    ShowControl(IDC_FINISH_SOFTWARE_LIST_LINK, settings.IsAmazonSupported());
    if (settings.GetBool(Tag::REBOOT)) SetLocalizedText(IDC_FINISH, TextKey::NEXT_BUTTON);
    ShowControl(IDC_FINISH_INFORMATION_LINK, !settings.GetString(Tag::INFOCENTER_LINK).empty());
    ShowControl(IDC_FINISH_REGISTRATION_LINK, !settings.GetString(Tag::PRODUCT_REGISTRATION_LINK).empty());
    if (!allSucceeded) ShowControl(IDC_FINISH_ERROR_LINK, true);
}

void FinishDlg::PaintGround(HDC context) {
    InstallDialogEx::PaintGround(context);
    const std::wstring status = settings.GetString(Tag::INSTALL_STATUS);
    RECT place{};
    GetWindowRect(GetDlgItem(IDC_FINISH_PICTURE_PLACE), &place);
    MapWindowPoints(nullptr, GetSafeHwnd(), reinterpret_cast<POINT*>(&place), 2);
    ATL::CImage picture;
    picture.LoadToFill(GetPicturePath(std::wstring(FinishPicture(status, usbFinish))),
                       {place.right - place.left, place.bottom - place.top});
    picture.AlphaBlend(context, place.left, place.top);
}

LRESULT FinishDlg::OnSetCursor(WPARAM window, LPARAM) {
    switch (GetDlgCtrlID(reinterpret_cast<HWND>(window))) {
        case IDC_FINISH_SOFTWARE_LIST_LINK:
        case IDC_FINISH_ERROR_LINK:
        case IDC_FINISH_INFORMATION_LINK:
        case IDC_FINISH_REGISTRATION_LINK:
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

// To the page that asks for a restart where one is needed, out of the wizard otherwise.
void FinishDlg::OnFinish() {
    settings.SetBool(Tag::OPTIONAL_INSTALL, false);
    controller.UpdateHideFlags();
    if (settings.GetBool(Tag::REBOOT)) {
        controller.Next({});
    } else {
        controller.Finish(false);
    }
}

void FinishDlg::OnOK() {
    settings.SetBool(Tag::OPTIONAL_INSTALL, true);
    controller.UpdateHideFlags();
    controller.Next({});
}

void FinishDlg::OnErrorLink() {
    if (allSucceeded) return;
    Open(Logger::GetInstance().GetLogFolder());
    ShowControl(IDC_FINISH_ERROR_LINK, true);
}

void FinishDlg::OnSoftwareList() {
    const bool wasEnabled = IsWindowEnabled(GetDlgItem(IDC_FINISH)) != FALSE;
    EnableControl(IDC_FINISH, false);
    CDisplayAppsListDlg(Context(), *this).DoModal();
    if (wasEnabled) EnableControl(IDC_FINISH, true);
}

void FinishDlg::OnInfoCenterLink() {
    const std::wstring base = settings.GetString(Tag::INFOCENTER_LINK);
    if (!base.empty()) {
        Open(settings.GetBool(Tag::INSTALL_FROM_CONFIG) ? settings.GetString(Tag::EXACT_INFOCENTER_LINK)
                                                        : base + L"?loc=" + GetLanguageCode());
    }
    ShowControl(IDC_FINISH_INFORMATION_LINK, !base.empty());
}

void FinishDlg::OnRegistrationLink() {
    const std::wstring target = settings.GetString(Tag::PRODUCT_REGISTRATION_LINK);
    if (!target.empty()) Open(target);
    ShowControl(IDC_FINISH_REGISTRATION_LINK, !target.empty());
}
