#include "tests/wizard/ShownPages.h"

#include <array>

#include "resources/resource.h"

namespace {

constexpr std::array<KnownPage, 10> knownPages = {{
    {L"Welcome", IDC_START_TITLE, IDOK},
    {L"Licence", IDC_LICENCE_TEXT, IDOK},
    {L"Manufacturer", IDC_MANUFACTURER_LIST, IDOK},
    {L"Optional software", IDC_BYPASS_REINSTALL, IDOK},
    {L"Connectivity", IDC_CONNECTIVITY_NETWORK, IDOK},
    {L"Discovered printers", IDC_DISCOVERY_LIST, IDOK},
    {L"Add port", IDC_ADD_PORT_LIST, IDOK},
    {L"Progress", IDC_PROGRESS_BAR, IDOK},
    {L"Finish", IDC_FINISH, IDC_FINISH},
    {L"Restart", IDC_REBOOT_NOW, IDOK},
}};

}  // namespace

PageOnScreen FindPage(const WizardDriver& wizard) {
    for (const KnownPage& page : knownPages) {
        if (const HWND control = wizard.FindControl(page.control)) return {.page = &page, .control = control};
    }
    return {};
}

PageOnScreen FindSettledPage(const WizardDriver& wizard) {
    const PageOnScreen found = FindPage(wizard);
    if (found.page == nullptr) return found;
    wizard.Settle();
    return FindPage(wizard).control == found.control ? found : PageOnScreen{};
}

bool IsBeforeRun(std::wstring_view title) {
    return title != L"Progress" && title != L"Finish" && title != L"Restart";
}

void LeaveByButton(const WizardDriver& wizard, const KnownPage& page) {
    if (page.control == IDC_BYPASS_REINSTALL) wizard.Press(IDC_BYPASS_REINSTALL);
    if (page.control == IDC_REBOOT_NOW) wizard.Press(IDC_REBOOT_LATER);
    wizard.Press(page.button);
}
