#include "tests/wizard/ShownRunTest.h"

#include "resources/resource.h"

namespace {

constexpr wchar_t divider = L'|';

std::wstring TakePiece(std::wstring& text) {
    const std::size_t end = text.find(divider);
    std::wstring piece = text.substr(0, end);
    text.erase(0, end == std::wstring::npos ? end : end + 1);
    return piece;
}

}  // namespace

void ShowStatusOnFinishPage(PackageTree& tree) {
    for (const wchar_t* header :
         {L"INSTALL_CANCELED_TEXT", L"INSTALLATION_FAILED_TEXT", L"INSTALL_COMPLETE_TEXT",
          L"DRIVER_INSTALL_COMPLETE_TEXT", L"AMAZON_INSTALL_COMPLETE_HEADER", L"USB_FINAL_TEXT"}) {
        tree.SetText(header, L"^APP_INSTALLATION_STATUS^|^REBOOT^|^INSTALL_STATUS^|");
    }
}

void ShownRunTest::SetUp() {
    WizardTest::SetUp();
    tree.SetSettings(Settings::shownFromProgress);
    ShowStatusOnFinishPage(tree);
}

FinishedRun ShownRunTest::ReadFinishPage() {
    EXPECT_TRUE(WaitForMessage(L"Controller::Next, Moving from 7 to 8"));
    std::wstring header = WizardDriver::TextOf(wizard.WaitForControl(IDC_OUTCOME_TITLE));
    FinishedRun run;
    for (std::wstring* field : {&run.status, &run.reboot, &run.installStatus}) *field = TakePiece(header);
    wizard.CloseMainWindow();
    wizard.WaitForEnd();
    return run;
}

FinishedRun ShownRunTest::RunShown() {
    wizard.Start();
    return ReadFinishPage();
}

std::wstring ShownRunTest::StatusDocument(std::initializer_list<StatusOfPackage> lines) {
    std::wstring document;
    int number = 0;
    for (const StatusOfPackage& line : lines) {
        document += Element(L"App " + std::to_wstring(number++),
                            Element(L"NAME", line.name) + Element(L"STATUS", std::to_wstring(line.status)));
    }
    return document;
}
