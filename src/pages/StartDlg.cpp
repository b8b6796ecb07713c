#include "pages/StartDlg.h"

#include "resources/resource.h"
#include "settings/InstallSettings.h"
#include "settings/Localizer.h"
#include "settings/TagNames.h"
#include "settings/TextKeys.h"
#include "wizard/Controller.h"

const MessageMap& StartDlg::GetMessageMap() const {
    using On = EventsOf<StartDlg>;
    static const MessageMap map(&Events(), {On::Message(WM_SHOWWINDOW, &StartDlg::OnShowWindow)});
    return map;
}

StartDlg::StartDlg(const PageContext& context) : InstallDialogEx(context, IDD_START) {}

bool StartDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    installButton.SubclassDlgItem(IDOK, *this);
    cancelButton.SubclassDlgItem(IDCANCEL, *this);
    informationLink.SubclassDlgItem(IDC_START_INFORMATION_LINK, *this);
    registrationLink.SubclassDlgItem(IDC_START_REGISTRATION_LINK, *this);
    const bool amazon = settings.IsAmazonSupported();
    SetUpControl(IDOK, TextKey::INSTALL_BUTTON, fontButton);
    SetUpControl(IDC_START_TEXT, amazon ? TextKey::AMAZON_WELCOME_TEXT : TextKey::WELCOME_TEXT, fontBody);
    SetUpControl(IDC_START_TITLE, amazon ? TextKey::AMAZON_WELCOME_HEADER : TextKey::WELCOME_HEADER,
                 fontHeading);
    SetUpControl(IDCANCEL, TextKey::CANCEL_BUTTON, fontButton);
    SetUpControl(IDC_START_INFORMATION_LINK, TextKey::INFOCENTER_LINK_LABEL, fontButton);
    SetUpControl(IDC_START_REGISTRATION_LINK, TextKey::PRODUCT_REGISTRATION_LINK_LABEL, fontButton);
    installButton.SetPrimary();
    return true;
}

LRESULT StartDlg::OnShowWindow(WPARAM, LPARAM) {
    FocusControl(IDC_START_TEXT);
    const std::wstring information = settings.GetString(Tag::INFOCENTER_LINK);
    const std::wstring registration = settings.GetString(Tag::PRODUCT_REGISTRATION_LINK);
    if (!information.empty()) {
        informationLink.SetURL(settings.GetBool(Tag::INSTALL_FROM_CONFIG)
                                   ? settings.GetString(Tag::EXACT_INFOCENTER_LINK)
                                   : information + L"?loc=" + GetLanguageCode());
    }
    if (!registration.empty()) registrationLink.SetURL(registration);
    ShowControl(IDC_START_INFORMATION_LINK, !information.empty());
    ShowControl(IDC_START_REGISTRATION_LINK, !registration.empty());
    return Default();
}

void StartDlg::OnOK() {
    controller.Next({});
}
