// The whole wizard in a language that is longer than any that is spoken, in which a text that no language
// file gives would stand out.

#include <windows.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>

#include "CommonLib/Utf8.h"
#include "resources/resource.h"
#include "tests/wizard/PageTest.h"
#include "tests/wizard/PseudoLanguage.h"

using testing::IsEmpty;

namespace {

// What a package and not a language calls its things.
const std::set<std::wstring>& NamesOfThePackage() {
    static const std::set<std::wstring> names = {L"Halvenny", L"Norrlund", L"\r\nBe kind."};
    return names;
}

bool IsForPeople(const std::wstring& text) {
    return std::ranges::any_of(text, [](wchar_t letter) { return iswalpha(letter) != 0; });
}

BOOL CALLBACK AddUntranslated(HWND control, LPARAM target) {
    const std::wstring text =
        IsWindowVisible(control) != FALSE ? WizardDriver::TextOf(control) : std::wstring();
    const bool isData = NamesOfThePackage().contains(text);
    if (IsForPeople(text) && text.front() != L'[' && !isData)
        reinterpret_cast<std::set<std::string>*>(target)->insert(ToUtf8(text));
    return TRUE;
}

class PseudoLanguageTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        std::ifstream english(BuildFolder() / L"tests/windows/strings/en_strings.xml", std::ios::binary);
        tree.WriteFile(L"Setup\\res\\xx_strings.xml",
                       PseudoLanguage(std::string(std::istreambuf_iterator<char>(english), {})));
        tree.WriteFile(L"Notices\\EULA\\EULA_en.txt", "Be kind.");
        tree.SetSettings(
            L"<AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED><REBOOT>true</REBOOT>"
            L"<MANUFACTURERS>Halvenny:72|Norrlund:73</MANUFACTURERS>"
            L"<DEFAULT_MANUFACTURER>Halvenny</DEFAULT_MANUFACTURER>");
        tree.Add({.path = L"Applications\\a.msi", .properties = L"<ProductName>[a]</ProductName>"});
    }

    // Sees what the page with that control says, and goes on by the button.
    void SeeAndPress(int control, int button) {
        ASSERT_NE(wizard.WaitForControl(control), nullptr);
        wizard.Settle();
        EnumChildWindows(wizard.MainWindow(), &AddUntranslated, reinterpret_cast<LPARAM>(&untranslated));
        ++pages;
        wizard.Press(button);
    }

    std::set<std::string> untranslated;
    int pages = 0;
};

TEST_F(PseudoLanguageTest, ShowsNoTextThatTheLanguageFileDoesNotGive) {
    wizard.Start(L"-lang=xx");
    SeeAndPress(IDC_START_TITLE, IDOK);
    SeeAndPress(IDC_LICENCE_TEXT, IDOK);
    SeeAndPress(IDC_MANUFACTURER_LIST, IDOK);
    SeeAndPress(IDC_CONNECTIVITY_NETWORK, IDC_CONNECTIVITY_USB);
    SeeAndPress(IDC_CONNECTIVITY_USB, IDOK);
    SeeAndPress(IDC_OUTCOME_TITLE, IDC_FINISH);
    SeeAndPress(IDC_REBOOT_NOW, IDC_REBOOT_LATER);
    wizard.Press(IDOK);
    wizard.WaitForEnd();
    EXPECT_THAT(untranslated, IsEmpty());
    EXPECT_EQ(pages, 7);
}

}  // namespace
