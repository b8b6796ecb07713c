// What the Finish page says of the run, and where it leads.

#include <windows.h>

#include <commctrl.h>

#include "PageTest.h"

using testing::Not;

namespace {

constexpr COLORREF failureColour = RGB(255, 0, 0);
constexpr COLORREF successColour = RGB(0, 255, 0);
constexpr COLORREF usbColour = RGB(0, 0, 255);
constexpr int picturePlace = 1175;

// Each text of the page is its own key.
class FinishPageTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        Use({});
        AddPicture(L"installerror.png", failureColour);
        AddPicture(L"installsuccess.png", successColour);
        AddPicture(L"usbconnect.png", usbColour);
        for (const wchar_t* key :
             {L"INSTALL_CANCELED_TEXT", L"INSTALLATION_FAILED_TEXT", L"AMAZON_INSTALL_COMPLETE_HEADER",
              L"USB_FINAL_TEXT", L"INSTALL_COMPLETE_TEXT", L"DRIVER_INSTALL_COMPLETE_TEXT",
              L"AMAZON_INSTALL_USB_PATH_COMPLETE_TEXT1", L"AMAZON_INSTALL_COMPLETE_TEXT1", L"FINISH_BUTTON",
              L"NEXT_BUTTON", L"COMPLETED_TEXT", L"FAILED_TEXT", L"NOT_SUPPORTED_TEXT",
              L"SOFTWARE_LIST_DISPLAY_WINDOW_TITLE"}) {
            tree.SetText(key, key);
        }
    }

    void Use(const std::wstring& further) {
        tree.SetSettings(std::wstring(Settings::shownFromProgress) +
                         L"<HIDE_CONNECTIVITY>true</HIDE_CONNECTIVITY>" + further);
    }

    // The static that keeps the picture's place is hidden, so it is found by the page.
    HWND PicturePlace() const {
        return GetDlgItem(GetParent(wizard.FindControl(Control::finishHeader)), picturePlace);
    }

    void Fail(const std::wstring& name) {
        tree.Add({.path = L"Applications\\" + name, .install = {.steps = {}, .code = 1623}});
    }
};

struct OutcomeCase {
    const char* name;
    const wchar_t* settings;
    bool fromConfig;
    const wchar_t* header;
    const wchar_t* text;
    COLORREF picture;
};

void PrintTo(const OutcomeCase& given, std::ostream* stream) {
    *stream << given.name;
}

class FinishHeaderTest : public FinishPageTest, public testing::WithParamInterface<OutcomeCase> {};

TEST_P(FinishHeaderTest, SaysHowTheRunWent) {
    const OutcomeCase& given = GetParam();
    Use(given.settings);
    if (given.fromConfig) tree.SetUserSettings(L"<OTHER>x</OTHER>");
    StartOn(Control::finishHeader);
    EXPECT_EQ(TextOf(Control::finishHeader), given.header);
    const std::wstring text = given.text;
    EXPECT_EQ(IsShown(Control::finishText), !text.empty());
    if (!text.empty()) {
        EXPECT_EQ(TextOf(Control::finishText), text);
    }
    EXPECT_TRUE(ShowsColour(PicturePlace(), given.picture));
    EXPECT_EQ(TextOf(Control::finish), L"FINISH_BUTTON");
}

INSTANTIATE_TEST_SUITE_P(
    Runs, FinishHeaderTest,
    testing::Values(OutcomeCase{"Cancelled", L"<INSTALL_STATUS>CANCELED</INSTALL_STATUS>", false,
                                L"INSTALL_CANCELED_TEXT", L"", failureColour},
                    OutcomeCase{"Failed", L"<INSTALL_STATUS>FAILED</INSTALL_STATUS>", false,
                                L"INSTALLATION_FAILED_TEXT", L"", failureColour},
                    OutcomeCase{"UsbInTheSecondVariant",
                                L"<USB>true</USB><AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED>", false,
                                L"AMAZON_INSTALL_COMPLETE_HEADER", L"AMAZON_INSTALL_USB_PATH_COMPLETE_TEXT1",
                                usbColour},
                    OutcomeCase{"Usb", L"<USB>true</USB>", false, L"USB_FINAL_TEXT",
                                L"AMAZON_INSTALL_USB_PATH_COMPLETE_TEXT1", usbColour},
                    OutcomeCase{"FromConfiguration", L"", true, L"INSTALL_COMPLETE_TEXT",
                                L"AMAZON_INSTALL_COMPLETE_TEXT1", successColour},
                    OutcomeCase{"SecondVariant", L"<AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED>", false,
                                L"AMAZON_INSTALL_COMPLETE_HEADER", L"AMAZON_INSTALL_COMPLETE_TEXT1",
                                successColour},
                    OutcomeCase{"Plain", L"", false, L"DRIVER_INSTALL_COMPLETE_TEXT",
                                L"AMAZON_INSTALL_COMPLETE_TEXT1", successColour}),
    [](const testing::TestParamInfo<OutcomeCase>& given) { return std::string(given.param.name); });

TEST_F(FinishPageTest, OffersTheLogsAfterAFailure) {
    Fail(L"a.msi");
    wizard.Start();
    wizard.Answer(IDOK);
    wizard.WaitForControl(Control::errorLink);
    EXPECT_EQ(TextOf(Control::finishHeader), L"INSTALLATION_FAILED_TEXT");
    EXPECT_TRUE(ShowsColour(PicturePlace(), failureColour));
}

TEST_F(FinishPageTest, OffersNoLinkWithoutAReason) {
    StartOn(Control::finishHeader);
    for (const int link : {Control::errorLink, Control::finishHelpLink, Control::finishProductLink,
                           Control::softwareList, Control::webLink, Control::help, Control::next}) {
        EXPECT_FALSE(IsShown(link)) << link;
    }
}

TEST_F(FinishPageTest, OffersTheLinksThatHaveAnAddress) {
    Use(L"<INFOCENTER_LINK>http://help.test</INFOCENTER_LINK>"
        L"<PRODUCT_REGISTRATION_LINK>http://register.test</PRODUCT_REGISTRATION_LINK>");
    StartOn(Control::finishHeader);
    EXPECT_TRUE(IsShown(Control::finishHelpLink));
    EXPECT_TRUE(IsShown(Control::finishProductLink));
}

TEST_F(FinishPageTest, ListsTheSoftwareWithItsOutcome) {
    Use(L"<AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED>");
    tree.Add({.path = L"Applications\\a.msi"});
    Fail(L"b.msi");
    wizard.Start();
    wizard.Answer(IDOK);
    wizard.WaitForControl(Control::finishHeader);
    wizard.Press(Control::softwareList);
    const HWND list = wizard.WaitForControl(Control::statusList);
    EXPECT_EQ(WizardDriver::TextOf(wizard.MainWindow()), L"SOFTWARE_LIST_DISPLAY_WINDOW_TITLE");
    EXPECT_EQ(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0), 2);
    EXPECT_EQ(wizard.CellOf(list, 0, 1), L"a");
    EXPECT_EQ(wizard.CellOf(list, 0, 2), L"COMPLETED_TEXT");
    EXPECT_EQ(wizard.CellOf(list, 1, 1), L"b");
    EXPECT_EQ(wizard.CellOf(list, 1, 2), L"FAILED_TEXT");
    wizard.Press(Control::next);
    EXPECT_TRUE(WaitUntil([&] { return !IsWindow(list); }));
    EXPECT_TRUE(WaitUntilEnabled(Control::finish));
}

// A system that can be told to report another version shows what an old one says of a scanner's driver.
TEST_F(FinishPageTest, ShowsAGoodHeaderWithABadPictureWhereTheLastLineIsNotSupported) {
    if (GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") == nullptr) {
        GTEST_SKIP() << "this system reports its own version alone";
    }
    constexpr wchar_t versionKey[] = L"Software\\Wine\\AppDefaults\\Kestrune.exe";
    RegSetKeyValueW(HKEY_CURRENT_USER, versionKey, L"Version", REG_SZ, L"winxp64", sizeof(L"winxp64"));
    Fail(L"a.msi");
    tree.Add({.path = L"Drivers\\x64\\scan.msi",
              .properties = L"<ProductName>scan</ProductName><DRIVERID>SCAN</DRIVERID>",
              .install = {.steps = {}, .code = 1603}});
    wizard.Start();
    wizard.Answer(IDOK);
    wizard.WaitForControl(Control::errorLink);
    EXPECT_EQ(TextOf(Control::finishHeader), L"DRIVER_INSTALL_COMPLETE_TEXT");
    EXPECT_TRUE(ShowsColour(PicturePlace(), failureColour));
    RegDeleteKeyW(HKEY_CURRENT_USER, versionKey);
}

TEST_F(FinishPageTest, LooksAtAHundredLinesAndNoMore) {
    Use(L"<AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED>");
    for (int number = 100; number < 200; ++number) {
        tree.Add({.path = L"Applications\\" + std::to_wstring(number) + L".msi"});
    }
    Fail(L"200.msi");
    wizard.Start();
    wizard.Answer(IDOK);
    wizard.WaitForControl(Control::finishHeader);
    EXPECT_EQ(TextOf(Control::finishHeader), L"AMAZON_INSTALL_COMPLETE_HEADER");
    EXPECT_FALSE(IsShown(Control::errorLink));
    wizard.Press(Control::softwareList);
    EXPECT_EQ(SendMessageW(wizard.WaitForControl(Control::statusList), LVM_GETITEMCOUNT, 0, 0), 100);
}

TEST_F(FinishPageTest, ClosesByItsButton) {
    StartOn(Control::finishHeader);
    wizard.Press(Control::finish);
    wizard.WaitForEnd();
    EXPECT_EQ(wizard.ExitCode(), 0U);
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"Installation is Finished"));
}

TEST_F(FinishPageTest, ClosesByEscapeWithoutAQuestion) {
    StartOn(Control::finishHeader);
    wizard.PressKey(VK_ESCAPE);
    wizard.WaitForEnd();
    EXPECT_EQ(wizard.ExitCode(), 0U);
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Controller::Cancel called"));
    EXPECT_THAT(BasicLog(), Not(HasRecord(L"", L"User chose to cancel the installation.")));
}

}  // namespace
