// The welcome: its texts, its links and the way on.

#include "resources/resource.h"
#include "tests/wizard/PageTest.h"

using testing::Contains;

namespace {

class StartPageTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        Use({});
        for (const wchar_t* key :
             {L"WELCOME_HEADER", L"WELCOME_TEXT", L"AMAZON_WELCOME_HEADER", L"AMAZON_WELCOME_TEXT"}) {
            tree.SetText(key, key);
        }
    }

    void Use(const std::wstring& further) { UseSettings(L"<HIDE_EULA>true</HIDE_EULA>" + further); }
};

TEST_F(StartPageTest, WelcomesTheUser) {
    StartOn(IDC_START_TITLE);
    EXPECT_EQ(TextOf(IDC_START_TITLE), L"WELCOME_HEADER");
    EXPECT_EQ(TextOf(IDC_START_TEXT), L"WELCOME_TEXT");
    EXPECT_TRUE(IsEnabled(IDOK));
    EXPECT_TRUE(IsEnabled(IDCANCEL));
}

TEST_F(StartPageTest, WelcomesTheUserOfThePackagesSecondVariantOtherwise) {
    Use(L"<AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED>");
    StartOn(IDC_START_TITLE);
    EXPECT_EQ(TextOf(IDC_START_TITLE), L"AMAZON_WELCOME_HEADER");
    EXPECT_EQ(TextOf(IDC_START_TEXT), L"AMAZON_WELCOME_TEXT");
}

TEST_F(StartPageTest, ShowsNoLinkWithoutAnAddress) {
    StartOn(IDC_START_TITLE);
    EXPECT_FALSE(IsShown(IDC_START_INFORMATION_LINK));
    EXPECT_FALSE(IsShown(IDC_START_REGISTRATION_LINK));
}

TEST_F(StartPageTest, ShowsTheLinksThatHaveAnAddress) {
    Use(L"<INFOCENTER_LINK>http://help.test</INFOCENTER_LINK>"
        L"<PRODUCT_REGISTRATION_LINK>http://register.test</PRODUCT_REGISTRATION_LINK>");
    StartOn(IDC_START_INFORMATION_LINK);
    EXPECT_EQ(TextOf(IDC_START_INFORMATION_LINK), L"Help centre");
    EXPECT_TRUE(IsShown(IDC_START_REGISTRATION_LINK));
}

TEST_F(StartPageTest, GoesOnByItsButton) {
    tree.Add({.path = L"Applications\\a.msi"});
    StartOn(IDC_START_TITLE);
    wizard.Press(IDOK);
    CloseOnFinishPage();
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Controller::Next, Moving from 0 to 1"));
    EXPECT_THAT(Installs(), Contains(L"a.msi"));
}

TEST_F(StartPageTest, TakesEnterForAClickOnWhatHasTheFocus) {
    StartOn(IDC_START_TITLE);
    wizard.PressKey(VK_RETURN);
    EXPECT_TRUE(StaysQuiet());
    wizard.PressKey(VK_TAB);
    EXPECT_TRUE(WaitUntil([this] { return wizard.Focus() == wizard.FindControl(IDOK); }));
    wizard.PressKey(VK_TAB);
    EXPECT_TRUE(WaitUntil([this] { return wizard.Focus() == wizard.FindControl(IDCANCEL); }));
    wizard.PressKey(VK_RETURN);
    AnswerCancel(IDNO);
    wizard.PressKey(VK_TAB);
    EXPECT_TRUE(WaitUntil([this] { return wizard.Focus() == wizard.FindControl(IDOK); }));
    wizard.PressKey(VK_RETURN);
    CloseOnFinishPage();
}

TEST_F(StartPageTest, GoesOnWithoutPicturesHelpAndTexts) {
    tree.SetText(L"LANGUAGE_ID", L"1033");
    tree.RemoveFile(L"Setup\\res\\en_strings.xml");
    tree.WriteFile(L"Setup\\res\\en_strings.xml", "<LANGUAGE_ID>1033</LANGUAGE_ID>");
    StartOn(IDC_START_TITLE);
    EXPECT_EQ(TextOf(IDOK), L"");
    SendMessageW(GetParent(wizard.FindControl(IDOK)), WM_HELP, 0, 0);
    wizard.Press(IDOK);
    CloseOnFinishPage();
    EXPECT_EQ(wizard.ExitCode(), 0U);
}

}  // namespace
