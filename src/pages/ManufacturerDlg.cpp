#include "pages/ManufacturerDlg.h"

#include <algorithm>

#include "CommonLib/Logger.h"
#include "resources/resource.h"
#include "settings/InstallSettings.h"
#include "settings/Localizer.h"
#include "settings/TagNames.h"
#include "settings/TextKeys.h"
#include "wizard/Controller.h"

const MessageMap& ManufacturerDlg::GetMessageMap() const {
    using On = EventsOf<ManufacturerDlg>;
    static const MessageMap map(
        &Events(), {
                       On::Message(WM_SHOWWINDOW, &ManufacturerDlg::OnShowWindow),
                       On::Control(IDC_MANUFACTURER_LIST, CBN_SELCHANGE, &ManufacturerDlg::OnSelectionChange),
                   });
    return map;
}

ManufacturerDlg::ManufacturerDlg(const PageContext& context)
    : InstallDialogEx(context, IDD_MANUFACTURER, HIDD_MANUFACTURER) {}

bool ManufacturerDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    list.SubclassDlgItem(IDC_MANUFACTURER_LIST, *this);
    nextButton.SubclassDlgItem(IDOK, *this);
    cancelButton.SubclassDlgItem(IDCANCEL, *this);
    helpButton.SubclassDlgItem(IDC_HELP_BUTTON, *this);
    SetUpControl(IDOK, TextKey::NEXT_BUTTON, fontButton);
    SetUpControl(IDCANCEL, TextKey::CANCEL_BUTTON, fontButton);
    SetUpControl(IDC_HELP_BUTTON, TextKey::HELP_BUTTON, fontButton);
    SetUpControl(IDC_MANUFACTURER_TITLE, TextKey::MANUFACTURER_TEXT, fontHeading);
    SetUpControl(IDC_MANUFACTURER_LABEL, TextKey::MANUFACTURER_LABEL, fontBody);
    SetControlFont(IDC_MANUFACTURER_LIST, fontBody);
    if (!settings.GetBool(Tag::SILENT_INSTALL)) BuildList();
    EnableControl(IDOK, false);
    helpButton.SetSign(L"?");
    helpButton.SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(helpIcon.For(GetSafeHwnd())));
    nextButton.SetPrimary();
    return true;
}

void ManufacturerDlg::GetManufacturers() {
    manufacturers = ParseManufacturers(settings.GetString(Tag::MANUFACTURERS));
    for (const Manufacturer& found : manufacturers) {
        LogAdvanced(L"ManufacturerDlg::GetManufacturers:  Found manufacturer: " + found.name + L" OEMByte: " +
                        found.oemByte,
                    LogLevel::Success);
    }
}

// With one entry or none there is nothing to pick, and the page hides itself.
void ManufacturerDlg::BuildList() {
    GetManufacturers();
    list.ResetContent();
    SettleManufacturers(settings, manufacturers);
    if (manufacturers.size() < 2) return;
    const bool rightToLeft = IsRightToLeftLocale();
    for (std::size_t index = 0; index < manufacturers.size(); ++index) {
        const std::wstring& name = manufacturers[index].name;
        if (name.empty()) continue;
        list.SetItemData(list.AddString(rightToLeft ? MarkFinalPoint(name) : name),
                         static_cast<LPARAM>(index));
    }
}

LRESULT ManufacturerDlg::OnShowWindow(WPARAM shown, LPARAM) {
    if (shown != FALSE) {
        FocusControl(IDC_MANUFACTURER_LIST);
        SelectDefault();
    }
    return Default();
}

// By design: the index counts the entries, also those without a name, which the box does not hold.
void ManufacturerDlg::SelectDefault() {
    const std::wstring wanted = settings.GetString(Tag::DEFAULT_MANUFACTURER);
    const auto match = std::ranges::find(manufacturers, wanted, &Manufacturer::name);
    if (match == manufacturers.end()) return;
    list.SetCurSel(static_cast<int>(match - manufacturers.begin()));
    OnSelectionChange();
    EnableControl(IDOK, true);
}

void ManufacturerDlg::OnSelectionChange() {
    const int selected = list.GetCurSel();
    if (selected < 0) return;
    const std::wstring name = manufacturers.at(static_cast<std::size_t>(list.GetItemData(selected))).name;
    ChooseManufacturer(settings, manufacturers, name);
    EnableControl(IDOK, true);
}

void ManufacturerDlg::OnOK() {
    LogBasic(settings.GetString(Tag::OEM_NAME) + L" was chosen for Manufacturer");
    controller.Next({});
}
