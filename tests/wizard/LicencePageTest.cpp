// The licence: which text it shows and when it can be agreed to.

#include "PageTest.h"

using testing::HasSubstr;
using testing::Not;

namespace {

std::string LongLicence() {
    std::string text;
    for (int line = 1; line <= 200; ++line) text += "Clause " + std::to_string(line) + "\n";
    return text;
}

class LicencePageTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        UseSettings(L"<HIDE_START>true</HIDE_START>");
    }

    HWND StartWith(const std::string& text) {
        tree.WriteFile(L"Notices\\EULA\\eula_en.txt", text);
        return StartOn(Control::licence);
    }

    // The control can be asked while the wizard waits for messages only, so a sent message comes behind it.
    void Scroll(WPARAM how) const { SendMessageW(wizard.FindControl(Control::licence), WM_VSCROLL, how, 0); }

    bool StaysDisabled() const {
        return !WaitUntil([this] { return IsEnabled(Control::next); }, std::chrono::milliseconds(300));
    }
};

TEST_F(LicencePageTest, CanBeAgreedToAtOnceWhereTheTextIsShort) {
    const HWND licence = StartWith("Be kind.\n");
    EXPECT_TRUE(IsEnabled(Control::next));
    // The shown text begins with an empty line, and this is meant.
    EXPECT_THAT(WizardDriver::TextOf(licence), testing::StartsWith(L"\r"));
    EXPECT_THAT(WizardDriver::TextOf(licence), HasSubstr(L"Be kind."));
}

TEST_F(LicencePageTest, WaitsForTheEndOfALongText) {
    StartWith(LongLicence());
    EXPECT_FALSE(IsEnabled(Control::next));
    Scroll(SB_PAGEDOWN);
    EXPECT_TRUE(StaysDisabled());
    Scroll(SB_BOTTOM);
    EXPECT_TRUE(WaitUntilEnabled(Control::next));
}

TEST_F(LicencePageTest, StaysAgreeableWhenTheUserScrollsBack) {
    StartWith(LongLicence());
    Scroll(SB_BOTTOM);
    EXPECT_TRUE(WaitUntilEnabled(Control::next));
    Scroll(SB_TOP);
    EXPECT_EQ(SendMessageW(wizard.FindControl(Control::licence), EM_GETFIRSTVISIBLELINE, 0, 0), 0);
    EXPECT_TRUE(IsEnabled(Control::next));
}

TEST_F(LicencePageTest, FollowsTheWheel) {
    const HWND licence = StartWith(LongLicence());
    for (int turn = 0; turn < 100; ++turn) {
        SendMessageW(licence, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0);
    }
    EXPECT_TRUE(WaitUntilEnabled(Control::next));
}

TEST_F(LicencePageTest, FollowsTheKeys) {
    StartWith(LongLicence());
    EXPECT_TRUE(StaysDisabled());
    for (int page = 0; page < 40; ++page) wizard.PressKey(VK_NEXT);
    EXPECT_TRUE(WaitUntilEnabled(Control::next));
}

TEST_F(LicencePageTest, IgnoresEnterInTheText) {
    StartWith("Be kind.\n");
    EXPECT_EQ(wizard.Focus(), wizard.FindControl(Control::licence));
    wizard.PressKey(VK_RETURN);
    EXPECT_TRUE(StaysQuiet());
    EXPECT_TRUE(IsShown(Control::licence));
}

TEST_F(LicencePageTest, ShowsAnEmptyTextWhereNoFileIsThere) {
    StartOn(Control::licence);
    EXPECT_TRUE(IsEnabled(Control::next));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"ERROR", L"EULADlg::ReadEULAFile(), Loading EULA file failed! " +
                                                       tree.ProgramFolder().wstring() +
                                                       L"\\..\\..\\Notices\\EULA\\EULA_en.txt"));
    wizard.Press(Control::next);
    CloseOnFinishPage();
}

TEST_F(LicencePageTest, TakesTheFirstFileOfTheUsersLanguage) {
    tree.WriteFile(L"Notices\\EULA\\1_EULA_en.txt", "first");
    tree.WriteFile(L"Notices\\EULA\\2_eula_english.txt", "second");
    tree.WriteFile(L"Notices\\EULA\\0_eula_de.txt", "other");
    const HWND licence = StartOn(Control::licence);
    EXPECT_THAT(WizardDriver::TextOf(licence), HasSubstr(L"first"));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"EULA path being used: " + tree.ProgramFolder().wstring() +
                                                  L"\\..\\..\\Notices\\EULA\\1_EULA_en.txt"));
}

TEST_F(LicencePageTest, ReadsTheTextInTheLanguagesCodePage) {
    tree.SetText(L"CODE_PAGE", L"1251");
    const HWND licence = StartWith("\xC4\xE0\n");
    EXPECT_THAT(WizardDriver::TextOf(licence), HasSubstr(L"\x0414\x0430"));
}

TEST_F(LicencePageTest, LogsTheAgreement) {
    StartWith("Be kind.\n");
    wizard.Press(Control::next);
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
