#include "pages/ManufacturerDlg.h"

#include <algorithm>

#include "CommonLib/Logger.h"
#include "settings/InstallSettings.h"
#include "settings/Localizer.h"
#include "settings/TagNames.h"
#include "wizard/Controller.h"

namespace {

constexpr UINT dialogTemplate = 144;
constexpr DWORD topic = 1625;
constexpr int helpId = 1057;
constexpr int headingId = 1068;
constexpr int labelId = 1128;
constexpr int listId = 1069;

void ApplyBrand(const std::wstring& chosen) {
    InstallSettings& settings = InstallSettings::GetInstance();
    settings.SetString(Tag::OEM_NAME, BrandFor(settings.GetString(Tag::OEM), chosen));
}

}  // namespace

const MessageMap& ManufacturerDlg::GetMessageMap() const {
    using On = EventsOf<ManufacturerDlg>;
    static const MessageMap map(&Events(),
                                {
                                    On::Message(WM_SHOWWINDOW, &ManufacturerDlg::OnShowWindow),
                                    On::Control(listId, CBN_SELCHANGE, &ManufacturerDlg::OnSelectionChange),
                                });
    return map;
}

ManufacturerDlg::ManufacturerDlg() : InstallDialogEx(dialogTemplate) {}

bool ManufacturerDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    nextButton.SubclassDlgItem(IDOK, *this);
    cancelButton.SubclassDlgItem(IDCANCEL, *this);
    helpButton.SubclassDlgItem(helpId, *this);
    SetUpControl(IDOK, TextKey::NEXT_BUTTON, fontButton);
    SetUpControl(IDCANCEL, TextKey::CANCEL_BUTTON, fontButton);
    SetUpControl(helpId, TextKey::HELP_BUTTON, fontButton);
    SetUpControl(headingId, TextKey::MANUFACTURER_TEXT, fontHeading);
    SetUpControl(labelId, TextKey::MANUFACTURER_LABEL, fontBody);
    SetControlFont(listId, fontBody);
    if (!InstallSettings::GetInstance().GetBool(Tag::SILENT_INSTALL)) BuildList();
    EnableControl(IDOK, false);
    helpButton.SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(helpIcon.get()));
    nextButton.SetPrimary();
    return true;
}

void ManufacturerDlg::GetManufacturers() {
    manufacturers = ParseManufacturers(InstallSettings::GetInstance().GetString(Tag::MANUFACTURERS));
    for (const Manufacturer& found : manufacturers) {
        LogAdvanced(L"ManufacturerDlg::GetManufacturers:  Found manufacturer: " + found.name + L" OEMByte: " +
                        found.oemByte,
                    LogLevel::Success);
    }
}

// With one entry or none there is nothing to pick, and the page hides itself.
void ManufacturerDlg::BuildList() {
    InstallSettings& settings = InstallSettings::GetInstance();
    GetManufacturers();
    ::SendMessageW(GetDlgItem(listId), CB_RESETCONTENT, 0, 0);
    settings.SetBool(Tag::SHOW_MANUFACTURERS, manufacturers.size() > 1);
    if (manufacturers.empty()) {
        ApplyBrand({});
        return;
    }
    if (manufacturers.size() == 1) {
        ApplyBrand(manufacturers.front().name);
        settings.SetString(Tag::OEMBYTE, manufacturers.front().oemByte);
        return;
    }
    const bool rightToLeft = IsRightToLeftLocale();
    for (Manufacturer& entry : manufacturers) {
        if (rightToLeft) entry.name = MarkFinalPoint(entry.name);
        if (entry.name.empty()) continue;
        ::SendMessageW(GetDlgItem(listId), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.name.c_str()));
    }
}

LRESULT ManufacturerDlg::OnShowWindow(WPARAM shown, LPARAM) {
    if (shown != FALSE) {
        helpTopic = topic;
        FocusControl(listId);
        SelectDefault();
    }
    return Default();
}

// The index counts the entries, also those without a name, which the box does not hold; this is meant.
void ManufacturerDlg::SelectDefault() {
    const std::wstring wanted = InstallSettings::GetInstance().GetString(Tag::DEFAULT_MANUFACTURER);
    const auto match = std::find_if(manufacturers.begin(), manufacturers.end(),
                                    [&](const Manufacturer& entry) { return entry.name == wanted; });
    if (match == manufacturers.end()) return;
    ::SendMessageW(GetDlgItem(listId), CB_SETCURSEL, static_cast<WPARAM>(match - manufacturers.begin()), 0);
    OnSelectionChange();
    EnableControl(IDOK, true);
}

void ManufacturerDlg::OnSelectionChange() {
    const HWND list = GetDlgItem(listId);
    const LRESULT selected = ::SendMessageW(list, CB_GETCURSEL, 0, 0);
    if (selected == CB_ERR) return;
    std::wstring name(
        static_cast<size_t>(::SendMessageW(list, CB_GETLBTEXTLEN, static_cast<WPARAM>(selected), 0)), L'\0');
    ::SendMessageW(list, CB_GETLBTEXT, static_cast<WPARAM>(selected), reinterpret_cast<LPARAM>(name.data()));
    ApplyBrand(name);
    const auto match = std::find_if(manufacturers.begin(), manufacturers.end(),
                                    [&](const Manufacturer& entry) { return entry.name == name; });
    if (match != manufacturers.end()) InstallSettings::GetInstance().SetString(Tag::OEMBYTE, match->oemByte);
    EnableControl(IDOK, true);
}

void ManufacturerDlg::OnOK() {
    LogBasic(InstallSettings::GetInstance().GetString(Tag::OEM_NAME) + L" was chosen for Manufacturer");
    Controller::GetInstance().Next({});
}

void ManufacturerDlg::OnCancel() {
    Controller::GetInstance().Cancel(false);
}
