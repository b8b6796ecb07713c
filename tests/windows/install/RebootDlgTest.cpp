#include "install/RebootDlg.h"
#include "resources/resource.h"
#include "settings/TagNames.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"

namespace {

using testing::Contains;
using testing::Not;
using testing::StartsWith;

// A walk that has come to the page.
class RebootDlgTest : public SettingsWorld {
protected:
    RebootDlgTest() {
        AddTexts(
            "<REBOOT_TEXT>Restart.</REBOOT_TEXT><USB_REBOOT_TEXT>Restart, then plug in.</USB_REBOOT_TEXT>");
        Settings().SetString(Tag::REGISTRATION_LINK, L"http://register.test");
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        window.ShowWindow(SW_SHOW);
        app.SetMainWnd(&window);
    }
    // The message that ends the program must not reach the next test.
    ~RebootDlgTest() override { PumpMessages(); }

    void Show() {
        Chain chain;
        chain.rows.push_back(
            {.role = PageRole::Reboot, .makePage = [this] { return std::make_unique<RebootDlg>(context); }});
        chain.ends.startPrograms = [this] { ++starts; };
        chain.ends.restart = [this] { ++restarts; };
        EXPECT_TRUE(controller.Start(std::move(chain), false));
    }
    void ShowAnew() const {
        Page().ShowWindow(SW_HIDE);
        Page().ShowWindow(SW_SHOW);
    }
    void Finish() const { Page().SendMessage(WM_COMMAND, IDOK); }

    InstallDialogEx& Page() const { return *controller.CurrentPage(); }
    bool OffersTheRegistration() const { return IsWindowVisible(Page().GetDlgItem(IDC_WEB_LINK)) != FALSE; }
    std::wstring Text() const { return TextOf(Page().GetDlgItem(IDC_REBOOT_TEXT)); }
    bool IsChosen(int control) const {
        return IsDlgButtonChecked(Page().GetSafeHwnd(), control) == BST_CHECKED;
    }

    TestApp app;
    CDialogEx window;
    int starts = 0;
    int restarts = 0;
};

TEST_F(RebootDlgTest, ProposesToRestartNow) {
    Show();
    EXPECT_TRUE(IsChosen(IDC_REBOOT_NOW));
    EXPECT_FALSE(IsChosen(IDC_REBOOT_LATER));
}

TEST_F(RebootDlgTest, RestartsAndStartsNoPrograms) {
    Show();
    Finish();
    EXPECT_EQ(restarts, 1);
    EXPECT_EQ(starts, 0);
    EXPECT_THAT(BasicMessages(), Contains(L"User chose to allow the installer to reboot the system"));
}

TEST_F(RebootDlgTest, StartsTheProgramsWhereTheRestartComesLater) {
    Show();
    CheckRadioButton(Page().GetSafeHwnd(), IDC_REBOOT_NOW, IDC_REBOOT_LATER, IDC_REBOOT_LATER);
    Finish();
    EXPECT_EQ(restarts, 0);
    EXPECT_EQ(starts, 1);
    EXPECT_THAT(BasicMessages(), Contains(StartsWith(L"User chose to not allow the installer to reboot")));
}

TEST_F(RebootDlgTest, OffersTheRegistrationByOneExactWord) {
    Settings().SetString(TextTag(L"SHOW_REGISTRATION"), L"1");
    Show();
    EXPECT_TRUE(OffersTheRegistration());
}

TEST_F(RebootDlgTest, OffersNoRegistrationForAnyOtherWord) {
    Show();
    for (const wchar_t* word : {L"", L"0", L"true"}) {
        Settings().SetString(TextTag(L"SHOW_REGISTRATION"), word);
        ShowAnew();
        EXPECT_FALSE(OffersTheRegistration()) << word;
    }
}

TEST_F(RebootDlgTest, SpeaksOfTheCableOnUsb) {
    Settings().SetBool(Tag::USB, true);
    Show();
    EXPECT_EQ(Text(), L"Restart, then plug in.");
    EXPECT_THAT(BasicMessages(), Contains(L"User chose to install using USB but is required to reboot"));
    EXPECT_THAT(AdvancedLog(), Contains(Record(L"SUCCESS", L"RebootDlg::updateRebootText")));
}

TEST_F(RebootDlgTest, SpeaksOfNoCableOtherwise) {
    Show();
    EXPECT_EQ(Text(), L"Restart.");
    EXPECT_THAT(AdvancedMessages(), Not(Contains(L"RebootDlg::updateRebootText")));
}

}  // namespace
