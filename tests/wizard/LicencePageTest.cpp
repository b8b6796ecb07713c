// The licence: which text it shows, and what the agreement leaves behind.

#include "resources/resource.h"
#include "tests/wizard/PageTest.h"

using testing::HasSubstr;
using testing::Not;

namespace {

class LicencePageTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        UseSettings(L"<HIDE_START>true</HIDE_START>");
    }

    HWND StartWith(const std::string& text) {
        tree.WriteFile(L"Notices\\EULA\\eula_en.txt", text);
        return StartOn(IDC_LICENCE_TEXT);
    }
};

TEST_F(LicencePageTest, CanBeAgreedToAtOnceWhereTheTextIsShort) {
    const HWND licence = StartWith("Be kind.\n");
    EXPECT_TRUE(IsEnabled(IDOK));
    // By design: the shown text begins with an empty line.
    EXPECT_THAT(WizardDriver::TextOf(licence), testing::StartsWith(L"\r"));
    EXPECT_THAT(WizardDriver::TextOf(licence), HasSubstr(L"Be kind."));
}

TEST_F(LicencePageTest, IgnoresEnterInTheText) {
    StartWith("Be kind.\n");
    EXPECT_EQ(wizard.Focus(), wizard.FindControl(IDC_LICENCE_TEXT));
    wizard.PressKey(VK_RETURN);
    EXPECT_TRUE(StaysQuiet());
    EXPECT_TRUE(IsShown(IDC_LICENCE_TEXT));
}

TEST_F(LicencePageTest, ShowsAnEmptyTextWhereNoFileIsThere) {
    StartOn(IDC_LICENCE_TEXT);
    EXPECT_TRUE(IsEnabled(IDOK));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"ERROR", L"EULADlg::ReadEULAFile(), Loading EULA file failed! " +
                                                       tree.ProgramFolder().wstring() +
                                                       L"\\..\\..\\Notices\\EULA\\EULA_en.txt"));
    wizard.Press(IDOK);
    CloseOnFinishPage();
}

TEST_F(LicencePageTest, TakesTheFirstFileOfTheUsersLanguage) {
    tree.WriteFile(L"Notices\\EULA\\1_EULA_en.txt", "first");
    tree.WriteFile(L"Notices\\EULA\\2_eula_english.txt", "second");
    tree.WriteFile(L"Notices\\EULA\\0_eula_de.txt", "other");
    const HWND licence = StartOn(IDC_LICENCE_TEXT);
    EXPECT_THAT(WizardDriver::TextOf(licence), HasSubstr(L"first"));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"EULA path being used: " + tree.ProgramFolder().wstring() +
                                                  L"\\..\\..\\Notices\\EULA\\1_EULA_en.txt"));
}

TEST_F(LicencePageTest, ReadsTheTextInTheLanguagesCodePage) {
    tree.SetText(L"CODE_PAGE", L"1251");
    const HWND licence = StartWith("\xC4\xE0\n");
    EXPECT_THAT(WizardDriver::TextOf(licence), HasSubstr(L"\x0414\x0430"));
}

TEST_F(LicencePageTest, ReadsLettersOfTwoBytes) {
    tree.SetText(L"CODE_PAGE", L"932");
    const HWND licence = StartWith("\x8C\x5F\x96\xF1\n");
    EXPECT_THAT(WizardDriver::TextOf(licence), HasSubstr(L"\x5951\x7D04"));
}

// The page of Vietnamese keeps the tone apart from its letter, and whoever shows the text joins them.
TEST_F(LicencePageTest, ReadsTonesThatFollowTheirLetters) {
    tree.SetText(L"CODE_PAGE", L"1258");
    const std::wstring shown = WizardDriver::TextOf(StartWith("Ti\xEA\xECng Vi\xEA\xF2t\n"));
    std::wstring joined(shown.size() * 2, L'\0');
    const int length = NormalizeString(NormalizationC, shown.c_str(), static_cast<int>(shown.size()),
                                       joined.data(), static_cast<int>(joined.size()));
    ASSERT_GT(length, 0);
    joined.resize(static_cast<std::size_t>(length));
    EXPECT_THAT(joined, HasSubstr(L"Ti\x1EBFng Vi\x1EC7t"));
}

TEST_F(LicencePageTest, LogsTheAgreement) {
    StartWith("Be kind.\n");
    wizard.Press(IDOK);
    CloseOnFinishPage();
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"User agreed to the EULA "));
}

TEST_F(LicencePageTest, LogsNoAgreementWhereItIsHidden) {
    UseSettings(L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA>");
    wizard.Start();
    CloseOnFinishPage();
    EXPECT_THAT(BasicLog(), Not(HasRecordWith(L"", L"User agreed")));
}

}  // namespace
