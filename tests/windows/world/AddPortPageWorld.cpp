#include "tests/windows/world/AddPortPageWorld.h"

#include <commctrl.h>

#include "resources/resource.h"
#include "settings/Localizer.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/DialogUser.h"

AddPortPageWorld::AddPortPageWorld() {
    EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
    window.ShowWindow(SW_SHOW);
    app.SetMainWnd(&window);
}

void AddPortPageWorld::Open(const std::string& direction) {
    AddTexts(
        "<READING_ORDER>" + direction +
        "</READING_ORDER><LANGUAGE_ID>1033</LANGUAGE_ID><LBL_LOCALIZED_AND>and</LBL_LOCALIZED_AND>"
        "<DISCOVERED_PORTS>Existing</DISCOVERED_PORTS><IP_PORT>Network</IP_PORT><UNC_PORT>Shared</UNC_PORT>"
        "<PORT_NAME_TEXT>Port &name:</PORT_NAME_TEXT><PORT_TYPE_TEXT>Type</PORT_TYPE_TEXT>"
        "<CONFIG_SETTINGS_BUTTON>Configure</CONFIG_SETTINGS_BUTTON>"
        "<DUP_PORT_TEXT>There is one.</DUP_PORT_TEXT><GEN_ERROR_TITLE>Wrong</GEN_ERROR_TITLE>"
        "<INVALID_NET_PATH_TEXT>No such printer.</INVALID_NET_PATH_TEXT>");
    // The catalogues may have asked for texts already.
    ReadTextsAnew();
    EXPECT_TRUE(page.Create(page.TemplateId(), &window));
}

void AddPortPageWorld::Choose(int kind) const {
    SendMessageW(At(IDC_ADD_PORT_KIND), CB_SETCURSEL, static_cast<WPARAM>(kind), 0);
    page.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_ADD_PORT_KIND, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(At(IDC_ADD_PORT_KIND)));
}

void AddPortPageWorld::Enter(int field, const std::wstring& text) const {
    SendMessageW(At(field), EM_SETSEL, 0, -1);
    SendMessageW(At(field), WM_CLEAR, 0, 0);
    for (const wchar_t character : text) SendMessageW(At(field), WM_CHAR, character, 1);
}

void AddPortPageWorld::SelectPort(int row) const {
    ListView_SetItemState(At(IDC_ADD_PORT_LIST), row, LVIS_SELECTED, LVIS_SELECTED);
}

std::wstring AddPortPageWorld::Cell(int row, int column) const {
    std::wstring text(300, L'\0');
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    text.resize(static_cast<std::size_t>(SendMessageW(
        At(IDC_ADD_PORT_LIST), LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item))));
    return text;
}

int AddPortPageWorld::Rows() const {
    return ListView_GetItemCount(At(IDC_ADD_PORT_LIST));
}

std::vector<std::wstring> AddPortPageWorld::Drivers() const {
    const HWND list = At(IDC_ADD_PORT_DRIVER_LIST);
    const LRESULT selected = SendMessageW(list, CB_GETCURSEL, 0, 0);
    std::vector<std::wstring> names;
    for (LRESULT entry = 0; entry < SendMessageW(list, CB_GETCOUNT, 0, 0); ++entry) {
        std::wstring name(100, L'\0');
        const LRESULT length = SendMessageW(list, CB_GETLBTEXT, static_cast<WPARAM>(entry),
                                            reinterpret_cast<LPARAM>(name.data()));
        name.resize(static_cast<std::size_t>(length));
        names.push_back(entry == selected ? L"[" + name + L"]" : name);
    }
    return names;
}

std::wstring AddPortPageWorld::PressNextAndConfirm() const {
    std::wstring text;
    const DialogUser user(window.GetSafeHwnd(), [&](HWND box) {
        constexpr int boxText = 65535;
        text = TextOf(box) + L": " + TextOf(GetDlgItem(box, boxText));
        ClickOn(box, IDOK);
    });
    PressNext();
    return text;
}
