#include "pages/EULADlg.h"
#include "resources/resource.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"

namespace {

using testing::HasSubstr;

constexpr LANGID indonesian = 0x0421;

LANGID WINAPI TellIndonesian() {
    return indonesian;
}

class EULADlgTest : public SettingsWorld {
protected:
    EULADlgTest() { EXPECT_TRUE(window.Create(IDD_TEST, nullptr)); }

    // The text that the page shows once it is built.
    std::wstring Shown() {
        EXPECT_TRUE(page.Create(IDD_LICENCE, &window));
        return TextOf(page.GetDlgItem(IDC_LICENCE_TEXT));
    }

    TestApp app;
    CDialogEx window;
    EULADlg page{context};
};

TEST_F(EULADlgTest, LooksForTheShortCodeOfIndonesian) {
    tree.Add(L"Notices\\EULA\\eula_en.txt", "English");
    tree.Add(L"Notices\\EULA\\eula_id.txt", "Indonesian");
    const PatchedImport language("GetUserDefaultUILanguage", &TellIndonesian);
    EXPECT_THAT(Shown(), HasSubstr(L"Indonesian"));
    EXPECT_THAT(AdvancedMessages(),
                testing::IsSupersetOf(
                    {std::wstring(L"EULADlg::GetEULAPath(), currentLangId = 1057 primaryLangId = 33"),
                     L"EULA path being used: " + ProgramTree::AsWritten(L"Notices\\EULA\\eula_id.txt")}));
}

TEST_F(EULADlgTest, TakesTheFirstOfTwoFiles) {
    tree.Add(L"Notices\\EULA\\1_eula_id.txt", "First");
    tree.Add(L"Notices\\EULA\\2_eula_id.txt", "Second");
    const PatchedImport language("GetUserDefaultUILanguage", &TellIndonesian);
    EXPECT_THAT(Shown(), HasSubstr(L"First"));
}

TEST_F(EULADlgTest, CanBeAgreedToAtOnceWhereTheTextIsShort) {
    tree.Add(L"Notices\\EULA\\eula_en.txt", "Be kind.\n");
    Shown();
    EXPECT_TRUE(IsWindowEnabled(page.GetDlgItem(IDOK)));
}

TEST_F(EULADlgTest, CannotBeAgreedToAtOnceWhereTheTextIsLong) {
    std::string text;
    for (int line = 0; line < 200; ++line) text += "Be kind.\n";
    tree.Add(L"Notices\\EULA\\eula_en.txt", text);
    Shown();
    EXPECT_FALSE(IsWindowEnabled(page.GetDlgItem(IDOK)));
}

TEST_F(EULADlgTest, FallsBackToEnglish) {
    tree.Add(L"Notices\\EULA\\EULA_en.txt", "English");
    const PatchedImport language("GetUserDefaultUILanguage", &TellIndonesian);
    EXPECT_THAT(Shown(), HasSubstr(L"English"));
}

}  // namespace
