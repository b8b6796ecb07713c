#include "tests/windows/world/SearchDialogWorld.h"

#include <commctrl.h>

#include "resources/resource.h"
#include "settings/TagNames.h"
#include "tests/windows/resource.h"

namespace {

std::vector<std::wstring> said;

LRESULT CALLBACK NoteBalloon(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    if (message != EM_SHOWBALLOONTIP) return DefSubclassProc(window, message, wParam, lParam);
    const auto& tip = *reinterpret_cast<const EDITBALLOONTIP*>(lParam);
    EXPECT_EQ(tip.pszTitle, std::wstring());
    EXPECT_EQ(tip.ttiIcon, TTI_NONE);
    said.emplace_back(tip.pszText);
    return TRUE;
}

}  // namespace

SearchDialogWorld::SearchDialogWorld() : balloons(said) {
    std::string texts = "<ADD_NETWORK_PRINTER>Where?</ADD_NETWORK_PRINTER>";
    for (const char* const key : {"MSG_HOSTNAME_LIMIT", "MSG_INVALID_IPHOST_NAME", "MSG_IP_LIMIT",
                                  "MSG_INVALID_IP", "MSG_SUBNET_LIMIT", "MSG_INVALID_SUBNET"}) {
        texts += std::string("<") + key + ">" + key + "</" + key + ">";
    }
    AddTexts(texts);
    said.clear();
    EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
    app.SetMainWnd(&window);
}

void SearchDialogWorld::Open(const std::wstring& search) {
    Settings().SetString(Tag::DISCOVER_PARAMS, search);
    EXPECT_TRUE(dialog.Create(dialog.TemplateId(), &window));
    for (const int field : {IDC_MODIFY_SEARCH_HOST, IDC_MODIFY_SEARCH_ADDRESS, IDC_MODIFY_SEARCH_MASK})
        SetWindowSubclass(At(field), &NoteBalloon, 1, 0);
    dialog.ShowWindow(SW_SHOW);
}

std::wstring SearchDialogWorld::Text(int field) const {
    std::wstring text(600, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(At(field), text.data(), 600)));
    return text;
}

void SearchDialogWorld::TypeHost(const std::wstring& host) const {
    Choose(IDC_MODIFY_SEARCH_BY_HOST);
    Type(IDC_MODIFY_SEARCH_HOST, host);
}

void SearchDialogWorld::TypeSubnet(const std::wstring& address, const std::wstring& mask) const {
    Choose(IDC_MODIFY_SEARCH_BY_SUBNET);
    Type(IDC_MODIFY_SEARCH_ADDRESS, address);
    Type(IDC_MODIFY_SEARCH_MASK, mask);
}

std::wstring SearchDialogWorld::Search() {
    return Settings().GetString(Tag::DISCOVER_PARAMS);
}
