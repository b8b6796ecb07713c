// The welcome: its texts, its links and the way on.

#include "PageTest.h"

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
    StartOn(Control::welcomeHeader);
    EXPECT_EQ(TextOf(Control::welcomeHeader), L"WELCOME_HEADER");
    EXPECT_EQ(TextOf(Control::welcomeText), L"WELCOME_TEXT");
    EXPECT_TRUE(IsEnabled(Control::next));
    EXPECT_TRUE(IsEnabled(Control::cancel));
}

TEST_F(StartPageTest, WelcomesTheUserOfThePackagesSecondVariantOtherwise) {
    Use(L"<AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED>");
    StartOn(Control::welcomeHeader);
    EXPECT_EQ(TextOf(Control::welcomeHeader), L"AMAZON_WELCOME_HEADER");
    EXPECT_EQ(TextOf(Control::welcomeText), L"AMAZON_WELCOME_TEXT");
}

TEST_F(StartPageTest, ShowsNoLinkWithoutAnAddress) {
    StartOn(Control::welcomeHeader);
    EXPECT_FALSE(IsShown(Control::informationLink));
    EXPECT_FALSE(IsShown(Control::productLink));
}

TEST_F(StartPageTest, ShowsTheLinksThatHaveAnAddress) {
    Use(L"<INFOCENTER_LINK>http://help.test</INFOCENTER_LINK>"
        L"<PRODUCT_REGISTRATION_LINK>http://register.test</PRODUCT_REGISTRATION_LINK>");
    StartOn(Control::informationLink);
    EXPECT_EQ(TextOf(Control::informationLink), L"Help centre");
    EXPECT_TRUE(IsShown(Control::productLink));
}

TEST_F(StartPageTest, GoesOnByItsButton) {
    tree.Add({.path = L"Applications\\a.msi"});
    StartOn(Control::welcomeHeader);
    wizard.Press(Control::next);
    CloseOnFinishPage();
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Controller::Next, Moving from 0 to 1"));
    EXPECT_THAT(Installs(), Contains(L"a.msi"));
}

TEST_F(StartPageTest, TakesEnterForAClickOnWhatHasTheFocus) {
    StartOn(Control::welcomeHeader);
    wizard.PressKey(VK_RETURN);
    EXPECT_TRUE(StaysQuiet());
    wizard.PressKey(VK_TAB);
    EXPECT_TRUE(WaitUntil([this] { return wizard.Focus() == wizard.FindControl(Control::next); }));
    wizard.PressKey(VK_TAB);
    EXPECT_TRUE(WaitUntil([this] { return wizard.Focus() == wizard.FindControl(Control::cancel); }));
    wizard.PressKey(VK_RETURN);
    AnswerCancel(IDNO);
    wizard.PressKey(VK_TAB);
    EXPECT_TRUE(WaitUntil([this] { return wizard.Focus() == wizard.FindControl(Control::next); }));
    wizard.PressKey(VK_RETURN);
    CloseOnFinishPage();
}

TEST_F(StartPageTest, GoesOnWithoutPicturesHelpAndTexts) {
    tree.SetText(L"LANGUAGE_ID", L"1033");
    tree.RemoveFile(L"Setup\\res\\en_strings.xml");
    tree.WriteFile(L"Setup\\res\\en_strings.xml", "<LANGUAGE_ID>1033</LANGUAGE_ID>");
    StartOn(Control::welcomeHeader);
    EXPECT_EQ(TextOf(Control::next), L"");
    SendMessageW(GetParent(wizard.FindControl(Control::next)), WM_HELP, 0, 0);
    wizard.Press(Control::next);
    CloseOnFinishPage();
    EXPECT_EQ(wizard.ExitCode(), 0U);
}

}  // namespace
