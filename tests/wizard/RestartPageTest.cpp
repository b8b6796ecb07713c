// The question whether to restart, after a run that asks for it.

#include "CommonLib/SystemText.h"
#include "resources/resource.h"
#include "tests/fakes/TextLines.h"
#include "tests/wizard/PageTest.h"
#include "tests/wizard/RealInput.h"

using testing::Not;

namespace {

namespace fs = std::filesystem;

constexpr wchar_t laterText[] =
    L"User chose to not allow the installer to reboot the system. A reboot will be required for all "
    L"applications to function correctly.";

// Where the system's own program for restarts can be replaced, a program that only tells of its start stands
// in its place, and no test ends the session.
class RestartRecorder {
public:
    explicit RestartRecorder(PackageTree& tree) {
        fs::rename(program, original);
        tree.AddProbe(program, 0);
        RegSetKeyValueW(HKEY_CURRENT_USER, overrides, L"wineboot.exe", REG_SZ, L"native", sizeof(L"native"));
    }
    ~RestartRecorder() {
        RegDeleteKeyValueW(HKEY_CURRENT_USER, overrides, L"wineboot.exe");
        WaitUntil([this] {
            std::error_code error;
            fs::remove(program, error);
            return !error;
        });
        fs::rename(original, program);
        for (const wchar_t* trace : {L".calls", L".code"}) fs::remove(program.wstring() + trace);
    }
    RestartRecorder(const RestartRecorder&) = delete;
    RestartRecorder& operator=(const RestartRecorder&) = delete;

    // The command line of the restart, empty as long as there was none.
    std::wstring CommandLine() const {
        const auto lines = ReadLines(program.wstring() + L".calls");
        return lines.empty() ? std::wstring() : lines.front().front();
    }

private:
    static constexpr wchar_t overrides[] = L"Software\\Wine\\DllOverrides";
    const fs::path program = ExpandEnvironment(L"%SystemRoot%\\system32\\wineboot.exe");
    const fs::path original = program.wstring() + L".original";
};

class RestartPageTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        Use({});
        tree.Add({.path = L"Applications\\a.msi",
                  .properties = L"<ProductName>a</ProductName><STARTAPP>one.exe;</STARTAPP>",
                  .install = {.steps = {}, .code = 3010}});
        for (const wchar_t* key : {L"NEXT_BUTTON", L"REBOOT_TEXT", L"USB_REBOOT_TEXT"})
            tree.SetText(key, key);
    }

    void Use(const std::wstring& further) {
        tree.SetSettings(std::wstring(Settings::shownFromProgress) + further);
    }

    void StartOnRestart() {
        wizard.Start();
        wizard.WaitForControl(IDC_OUTCOME_TITLE);
        wizard.Press(IDC_FINISH);
        wizard.WaitForControl(IDC_REBOOT_NOW);
    }
};

TEST_F(RestartPageTest, FollowsTheFinishPage) {
    StartOn(IDC_OUTCOME_TITLE);
    EXPECT_EQ(TextOf(IDC_FINISH), L"NEXT_BUTTON");
    wizard.Press(IDC_FINISH);
    const HWND now = wizard.WaitForControl(IDC_REBOOT_NOW);
    EXPECT_TRUE(wizard.IsRunning());
    EXPECT_EQ(SendMessageW(now, BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_EQ(TextOf(IDC_REBOOT_TEXT), L"REBOOT_TEXT");
    EXPECT_FALSE(IsShown(IDC_WEB_LINK));
}

TEST_F(RestartPageTest, StartsThePackagesProgramsWhereTheRestartComesLater) {
    tree.AddProbe(TargetFolder() + L"one.exe", 0);
    StartOnRestart();
    wizard.Press(IDC_REBOOT_LATER);
    EXPECT_TRUE(WaitUntil([this] {
        return SendMessageW(wizard.FindControl(IDC_REBOOT_LATER), BM_GETCHECK, 0, 0) == BST_CHECKED;
    }));
    wizard.Press(IDOK);
    wizard.WaitForEnd();
    EXPECT_THAT(BasicLog(), HasRecord(L"", laterText));
    EXPECT_THAT(BasicLog(), Not(HasRecordWith(L"", L"Rebooting..")));
    EXPECT_TRUE(WaitUntil([this] { return std::filesystem::exists(TargetFolder() + L"one.exe.calls"); }));
}

TEST_F(RestartPageTest, RestartsTheSystemNow) {
    if (GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") == nullptr) {
        GTEST_SKIP() << "this system's restart cannot be replaced";
    }
    const RestartRecorder recorder(tree);
    tree.AddProbe(TargetFolder() + L"one.exe", 0);
    StartOnRestart();
    wizard.BringToFront();
    PressKeys({VK_RETURN});
    wizard.WaitForEnd();
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"User chose to allow the installer to reboot the system"));
    EXPECT_THAT(BasicLog(), HasRecordWith(L"", L"Rebooting.."));
    EXPECT_TRUE(WaitUntil([&] { return !recorder.CommandLine().empty(); }));
    EXPECT_THAT(recorder.CommandLine(), testing::HasSubstr(L"--end-session --force"));
    EXPECT_FALSE(fs::exists(TargetFolder() + L"one.exe.calls"));
}

TEST_F(RestartPageTest, ClosesByEscapeWithoutARestart) {
    StartOnRestart();
    wizard.PressKey(VK_ESCAPE);
    wizard.WaitForEnd();
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"Installation is Finished"));
    EXPECT_THAT(BasicLog(), Not(HasRecordWith(L"", L"reboot the system")));
    EXPECT_THAT(BasicLog(), Not(HasRecordWith(L"", L"Rebooting..")));
}

TEST_F(RestartPageTest, SpeaksOfTheCableWhereThePrinterIsOnUsb) {
    Use(L"<USB>true</USB>");
    StartOnRestart();
    EXPECT_EQ(TextOf(IDC_REBOOT_TEXT), L"USB_REBOOT_TEXT");
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"User chose to install using USB but is required to reboot"));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"SUCCESS", L"RebootDlg::updateRebootText"));
}

TEST_F(RestartPageTest, ShowsTheRegistrationForTheValueOneOnly) {
    Use(L"<SHOW_REGISTRATION>1</SHOW_REGISTRATION><REGISTRATION_LINK>http://register.test</"
        L"REGISTRATION_LINK>");
    StartOnRestart();
    EXPECT_TRUE(IsShown(IDC_WEB_LINK));
}

TEST_F(RestartPageTest, HidesTheRegistrationForAnotherValue) {
    Use(L"<SHOW_REGISTRATION>0</SHOW_REGISTRATION><REGISTRATION_LINK>http://register.test</"
        L"REGISTRATION_LINK>");
    StartOnRestart();
    EXPECT_FALSE(IsShown(IDC_WEB_LINK));
}

}  // namespace
