#include "pages/StartDlg.h"

#include "settings/InstallSettings.h"
#include "settings/Localizer.h"
#include "settings/TagNames.h"
#include "wizard/Controller.h"

namespace {

constexpr UINT dialogTemplate = 130;
constexpr int welcomeTextId = 1004;
constexpr int welcomeHeaderId = 1082;
constexpr int informationLinkId = 1136;
constexpr int registrationLinkId = 1144;

}  // namespace

const MessageMap& StartDlg::GetMessageMap() const {
    using On = EventsOf<StartDlg>;
    static const MessageMap map(&Events(), {On::Message(WM_SHOWWINDOW, &StartDlg::OnShowWindow)});
    return map;
}

StartDlg::StartDlg() : InstallDialogEx(dialogTemplate) {}

bool StartDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    installButton.SubclassDlgItem(IDOK, *this);
    cancelButton.SubclassDlgItem(IDCANCEL, *this);
    informationLink.SubclassDlgItem(informationLinkId, *this);
    registrationLink.SubclassDlgItem(registrationLinkId, *this);
    const bool amazon = InstallSettings::GetInstance().IsAmazonSupported();
    SetUpControl(IDOK, TextKey::INSTALL_BUTTON, fontButton);
    SetUpControl(welcomeTextId, amazon ? TextKey::AMAZON_WELCOME_TEXT : TextKey::WELCOME_TEXT, fontBody);
    SetUpControl(welcomeHeaderId, amazon ? TextKey::AMAZON_WELCOME_HEADER : TextKey::WELCOME_HEADER,
                 fontHeading);
    SetUpControl(IDCANCEL, TextKey::CANCEL_BUTTON, fontButton);
    SetUpControl(informationLinkId, TextKey::INFOCENTER_LINK_LABEL, fontButton);
    SetUpControl(registrationLinkId, TextKey::PRODUCT_REGISTRATION_LINK_LABEL, fontButton);
    installButton.SetPrimary();
    return true;
}

LRESULT StartDlg::OnShowWindow(WPARAM, LPARAM) {
    FocusControl(welcomeTextId);
    const InstallSettings& settings = InstallSettings::GetInstance();
    const std::wstring information = settings.GetString(Tag::INFOCENTER_LINK);
    const std::wstring registration = settings.GetString(Tag::PRODUCT_REGISTRATION_LINK);
    if (!information.empty()) {
        informationLink.SetURL(settings.GetBool(Tag::INSTALL_FROM_CONFIG)
                                   ? settings.GetString(Tag::EXACT_INFOCENTER_LINK)
                                   : information + L"?loc=" + GetLanguageCode());
    }
    if (!registration.empty()) registrationLink.SetURL(registration);
    ShowControl(informationLinkId, !information.empty());
    ShowControl(registrationLinkId, !registration.empty());
    return Default();
}

void StartDlg::OnOK() {
    Controller::GetInstance().Next({});
}

void StartDlg::OnCancel() {
    Controller::GetInstance().Cancel(false);
}
