// What the Finish page says of the run, and where it leads.

#include <windows.h>

#include <commctrl.h>
#include <msi.h>

#include "CommonLib/Files.h"
#include "resources/resource.h"
#include "tests/wizard/PageTest.h"

using testing::Not;

namespace {

namespace fs = std::filesystem;

constexpr COLORREF failureColour = RGB(255, 0, 0);
constexpr COLORREF successColour = RGB(0, 255, 0);
constexpr COLORREF usbColour = RGB(0, 0, 255);

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
        return GetDlgItem(GetParent(wizard.FindControl(IDC_OUTCOME_TITLE)), IDC_FINISH_PICTURE_PLACE);
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
    StartOn(IDC_OUTCOME_TITLE);
    EXPECT_EQ(TextOf(IDC_OUTCOME_TITLE), given.header);
    const std::wstring text = given.text;
    EXPECT_EQ(IsShown(IDC_FINISH_SECOND_TEXT), !text.empty());
    if (!text.empty()) {
        EXPECT_EQ(TextOf(IDC_FINISH_SECOND_TEXT), text);
    }
    EXPECT_TRUE(ShowsColour(PicturePlace(), given.picture));
    EXPECT_EQ(TextOf(IDC_FINISH), L"FINISH_BUTTON");
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
    wizard.WaitForControl(IDC_FINISH_ERROR_LINK);
    EXPECT_EQ(TextOf(IDC_OUTCOME_TITLE), L"INSTALLATION_FAILED_TEXT");
    EXPECT_TRUE(ShowsColour(PicturePlace(), failureColour));
}

TEST_F(FinishPageTest, OffersNoLinkWithoutAReason) {
    StartOn(IDC_OUTCOME_TITLE);
    for (const int link : {IDC_FINISH_ERROR_LINK, IDC_FINISH_INFORMATION_LINK, IDC_FINISH_REGISTRATION_LINK,
                           IDC_FINISH_SOFTWARE_LIST_LINK, IDC_WEB_LINK, IDC_HELP_BUTTON, IDOK}) {
        EXPECT_FALSE(IsShown(link)) << link;
    }
}

TEST_F(FinishPageTest, OffersTheLinksThatHaveAnAddress) {
    Use(L"<INFOCENTER_LINK>http://help.test</INFOCENTER_LINK>"
        L"<PRODUCT_REGISTRATION_LINK>http://register.test</PRODUCT_REGISTRATION_LINK>");
    StartOn(IDC_OUTCOME_TITLE);
    EXPECT_TRUE(IsShown(IDC_FINISH_INFORMATION_LINK));
    EXPECT_TRUE(IsShown(IDC_FINISH_REGISTRATION_LINK));
}

TEST_F(FinishPageTest, ListsTheSoftwareWithItsOutcome) {
    Use(L"<AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED>");
    tree.Add({.path = L"Applications\\a.msi"});
    Fail(L"b.msi");
    wizard.Start();
    wizard.Answer(IDOK);
    wizard.WaitForControl(IDC_OUTCOME_TITLE);
    wizard.Press(IDC_FINISH_SOFTWARE_LIST_LINK);
    const HWND list = wizard.WaitForControl(IDC_STATUS_LIST);
    EXPECT_EQ(WizardDriver::TextOf(wizard.MainWindow()), L"SOFTWARE_LIST_DISPLAY_WINDOW_TITLE");
    EXPECT_EQ(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0), 2);
    EXPECT_EQ(wizard.CellOf(list, 0, 1), L"a");
    EXPECT_EQ(wizard.CellOf(list, 0, 2), L"COMPLETED_TEXT");
    EXPECT_EQ(wizard.CellOf(list, 1, 1), L"b");
    EXPECT_EQ(wizard.CellOf(list, 1, 2), L"FAILED_TEXT");
    wizard.Press(IDOK);
    EXPECT_TRUE(WaitUntil([&] { return !IsWindow(list); }));
    EXPECT_TRUE(WaitUntilEnabled(IDC_FINISH));
}

// The names of the sample's packages, out of their real files by the library that reads them.
class TranslatedNamesTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        const fs::path library = tree.ProgramFolder() / L"Brevanto.dll";
        fs::remove(library);
        fs::copy_file(BuildFolder() / L"standins" / L"Brevanto.dll", library);
        fs::create_directories(package.parent_path());
        fs::copy_file(fs::path(GetExeDirectory()) / L"packages" / package.filename(), package);
        tree.SetSettings(
            std::wstring(Settings::shownFromProgress) +
            L"<HIDE_CONNECTIVITY>true</HIDE_CONNECTIVITY><AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED>");
    }
    void TearDown() override {
        MsiSetInternalUI(INSTALLUILEVEL_NONE, nullptr);
        MsiInstallProductW(package.c_str(), L"REMOVE=ALL");
        PageTest::TearDown();
    }

    // The name of the only package, in the list of what was installed.
    std::wstring NameIn(const std::wstring& code, const std::wstring& languageId) {
        tree.SetText(L"LANGUAGE_ID", languageId, code);
        wizard.Start(L"-lang=" + code);
        wizard.WaitForControl(IDC_OUTCOME_TITLE);
        wizard.Press(IDC_FINISH_SOFTWARE_LIST_LINK);
        return wizard.CellOf(wizard.WaitForControl(IDC_STATUS_LIST), 0, 1);
    }

private:
    const fs::path package = tree.Root() / L"Applications" / L"x64" / L"HalvennyStatusCenter.msi";
};

TEST_F(TranslatedNamesTest, AreListedInJapanese) {
    EXPECT_EQ(NameIn(L"ja", L"1041"), L"Halvenny \u30b9\u30c6\u30fc\u30bf\u30b9 \u30bb\u30f3\u30bf\u30fc");
}

TEST_F(TranslatedNamesTest, AreListedInVietnamese) {
    EXPECT_EQ(NameIn(L"vi", L"1066"), L"Halvenny Trung t\u00e2m tr\u1ea1ng th\u00e1i");
}

TEST_F(TranslatedNamesTest, AreListedInEnglishWhereNobodyTranslatedThem) {
    EXPECT_EQ(NameIn(L"en", L"1033"), L"Halvenny Status Center");
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
    wizard.WaitForControl(IDC_FINISH_ERROR_LINK);
    EXPECT_EQ(TextOf(IDC_OUTCOME_TITLE), L"DRIVER_INSTALL_COMPLETE_TEXT");
    EXPECT_TRUE(ShowsColour(PicturePlace(), failureColour));
    RegDeleteTreeW(HKEY_CURRENT_USER, versionKey);
}

TEST_F(FinishPageTest, LooksAtAHundredLinesAndNoMore) {
    Use(L"<AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED>");
    for (int number = 100; number < 200; ++number) {
        tree.Add({.path = L"Applications\\" + std::to_wstring(number) + L".msi"});
    }
    Fail(L"200.msi");
    wizard.Start();
    wizard.Answer(IDOK);
    wizard.WaitForControl(IDC_OUTCOME_TITLE);
    EXPECT_EQ(TextOf(IDC_OUTCOME_TITLE), L"AMAZON_INSTALL_COMPLETE_HEADER");
    EXPECT_FALSE(IsShown(IDC_FINISH_ERROR_LINK));
    wizard.Press(IDC_FINISH_SOFTWARE_LIST_LINK);
    EXPECT_EQ(SendMessageW(wizard.WaitForControl(IDC_STATUS_LIST), LVM_GETITEMCOUNT, 0, 0), 100);
}

TEST_F(FinishPageTest, ClosesByItsButton) {
    StartOn(IDC_OUTCOME_TITLE);
    wizard.Press(IDC_FINISH);
    wizard.WaitForEnd();
    EXPECT_EQ(wizard.ExitCode(), 0U);
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"Installation is Finished"));
}

TEST_F(FinishPageTest, ClosesByEscapeWithoutAQuestion) {
    StartOn(IDC_OUTCOME_TITLE);
    wizard.PressKey(VK_ESCAPE);
    wizard.WaitForEnd();
    EXPECT_EQ(wizard.ExitCode(), 0U);
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Controller::Cancel called"));
    EXPECT_THAT(BasicLog(), Not(HasRecord(L"", L"User chose to cancel the installation.")));
}

}  // namespace
