// The access keys of the sample's languages: each leads to one control of its dialog.

#include <windows.h>

#include <map>

#include "resources/resource.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/EveryDialog.h"
#include "tests/windows/world/SampleLanguages.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"

namespace {

class AccessKeysTest : public SettingsWorld, public testing::WithParamInterface<std::string> {
protected:
    AccessKeysTest() {
        AddTexts(SampleTexts(GetParam()));
        ReadTextsAnew();
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        window.ShowWindow(SW_SHOW);
    }

    // The keys of the controls that can be seen at a time, each with the texts that have it.
    std::map<wchar_t, std::vector<std::wstring>> Keys(const InstallDialogEx& dialog) const {
        std::map<wchar_t, std::vector<std::wstring>> keys;
        const bool hasKinds = dialog.GetDlgItem(IDC_ADD_PORT_KIND) != nullptr;
        for (HWND control = GetWindow(dialog.GetSafeHwnd(), GW_CHILD); control != nullptr;
             control = GetWindow(control, GW_HWNDNEXT)) {
            if (hasKinds && !IsWindowVisible(control) && GetDlgCtrlID(control) != IDC_ADD_PORT_CONFIGURE)
                continue;
            // A list, a field or a drop-down list has the key of the text before it.
            if ((SendMessageW(control, WM_GETDLGCODE, 0, 0) & (DLGC_BUTTON | DLGC_STATIC)) == 0) continue;
            const std::wstring text = TextOf(control);
            const std::size_t mark = text.find(L'&');
            if (mark != std::wstring::npos && mark + 1 < text.size())
                keys[static_cast<wchar_t>(towupper(text[mark + 1]))].push_back(text);
        }
        return keys;
    }

    void ExpectOneControlPerKey(const InstallDialogEx& dialog) const {
        for (const auto& [key, texts] : Keys(dialog))
            EXPECT_EQ(texts.size(), 1U) << testing::PrintToString(texts);
    }

    void ExpectOneControlPerKeyIn(const DialogCase& dialogCase) {
        SCOPED_TRACE(dialogCase.name);
        const std::unique_ptr<InstallDialogEx> dialog =
            dialogCase.make({context, window, applications, drivers, configuration});
        ASSERT_TRUE(dialog->Create(dialog->TemplateId(), &window));
        dialog->ShowWindow(SW_SHOW);
        InEachView(*dialog, [&] { ExpectOneControlPerKey(*dialog); });
    }

    AppCatalogue applications;
    DriverInfo drivers;
    DriverConfiguration configuration{Settings(), applications, drivers};
    TestApp app;
    CDialogEx window;
};

TEST_P(AccessKeysTest, LeadToOneControlEach) {
    for (const DialogCase& dialog : EveryDialog()) ExpectOneControlPerKeyIn(dialog);
}

INSTANTIATE_TEST_SUITE_P(Languages, AccessKeysTest, testing::ValuesIn(SampleLanguages()),
                         [](const testing::TestParamInfo<std::string>& given) { return given.param; });

}  // namespace
