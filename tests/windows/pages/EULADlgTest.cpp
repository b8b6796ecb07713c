#include <windows.h>

#include <richedit.h>

#include "pages/EULADlg.h"
#include "resources/resource.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"

namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

constexpr LANGID indonesian = 0x0421;

LANGID WINAPI TellIndonesian() {
    return indonesian;
}

class EULADlgTest : public SettingsWorld {
protected:
    EULADlgTest() { EXPECT_TRUE(window.Create(IDD_TEST, nullptr)); }

    void AddLongText() const {
        std::string text;
        for (int line = 0; line < 200; ++line) text += "Be kind.\n";
        tree.Add(L"Notices\\EULA\\eula_en.txt", text);
    }
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
    AddLongText();
    Shown();
    EXPECT_FALSE(IsWindowEnabled(page.GetDlgItem(IDOK)));
}

TEST_F(EULADlgTest, CanBeAgreedToAtTheEndOfALongText) {
    AddLongText();
    Shown();
    SendMessageW(page.GetDlgItem(IDC_LICENCE_TEXT), WM_VSCROLL, SB_BOTTOM, 0);
    PumpMessages();
    EXPECT_TRUE(IsWindowEnabled(page.GetDlgItem(IDOK)));
}

// The thumb brings one event, and that before the text has moved.
TEST_F(EULADlgTest, CanBeAgreedToWhereTheThumbHasComeToTheEnd) {
    AddLongText();
    Shown();
    const HWND text = page.GetDlgItem(IDC_LICENCE_TEXT);
    SCROLLINFO scroll{.cbSize = sizeof(SCROLLINFO), .fMask = SIF_ALL};
    GetScrollInfo(text, SB_VERT, &scroll);
    SendMessageW(text, WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, scroll.nMax - static_cast<int>(scroll.nPage)),
                 0);
    PumpMessages();
    EXPECT_TRUE(IsWindowEnabled(page.GetDlgItem(IDOK)));
}

TEST_F(EULADlgTest, TakesOneUnitInFrontOfTheEndForTheEnd) {
    AddLongText();
    Shown();
    const HWND text = page.GetDlgItem(IDC_LICENCE_TEXT);
    SCROLLINFO scroll{.cbSize = sizeof(SCROLLINFO), .fMask = SIF_ALL};
    GetScrollInfo(text, SB_VERT, &scroll);
    for (const LONG missing : {2, 1}) {
        POINT place{.x = 0, .y = scroll.nMax - static_cast<LONG>(scroll.nPage) - missing};
        SendMessageW(text, EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&place));
        page.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_LICENCE_TEXT, EN_VSCROLL),
                         reinterpret_cast<LPARAM>(text));
        EXPECT_EQ(IsWindowEnabled(page.GetDlgItem(IDOK)) != FALSE, missing == 1);
    }
}

TEST_F(EULADlgTest, LogsNoFailureOfATextThatIsThere) {
    tree.Add(L"Notices\\EULA\\eula_en.txt", "Be kind.\n");
    Shown();
    EXPECT_THAT(AdvancedMessages(), Not(Contains(HasSubstr(L"Loading EULA file"))));
}

TEST_F(EULADlgTest, FallsBackToEnglish) {
    tree.Add(L"Notices\\EULA\\EULA_en.txt", "English");
    const PatchedImport language("GetUserDefaultUILanguage", &TellIndonesian);
    EXPECT_THAT(Shown(), HasSubstr(L"English"));
}

}  // namespace
