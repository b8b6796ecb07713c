#include <windows.h>

#include <filesystem>

#include "CommonLib/Files.h"
#include "ports/DriverConfigDlg.h"
#include "printer/DriverConfiguration.h"
#include "resources/resource.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/ScratchFolder.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"

namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr wchar_t restored[] =
    L"DriverConfigDlg::OnShowWindow, previous Driver Configuration path setting restored";

// The dialog beside a window, not modal, so that a test can press its buttons itself.
class DriverConfigDlgTest : public SettingsWorld {
protected:
    DriverConfigDlgTest() {
        AddTexts(
            "<CONFIG_SETTINGS_TEXT>Configure</CONFIG_SETTINGS_TEXT><GEN_ERROR_TITLE>Wrong</GEN_ERROR_TITLE>"
            "<EMPTY_DRIVERCONFIG_PATH>Nothing chosen.</EMPTY_DRIVERCONFIG_PATH>"
            "<INVALID_PATH_TEXT>No such file.</INVALID_PATH_TEXT>");
        fs::remove_all(GetConfigurationFolder());
        Settings().SetString(Tag::OEM, L"Maker");
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        app.SetMainWnd(&window);
    }
    ~DriverConfigDlgTest() override { fs::remove_all(GetConfigurationFolder()); }

    void Open(const std::wstring& driverId = L"HVMONO") {
        dialog.ReceiveMessage(driverId);
        EXPECT_TRUE(dialog.Create(dialog.TemplateId(), &window));
        dialog.ShowWindow(SW_SHOW);
    }
    void Press(int button) const {
        dialog.SendMessage(WM_COMMAND, static_cast<WPARAM>(button),
                           reinterpret_cast<LPARAM>(dialog.GetDlgItem(button)));
    }
    void Enter(const std::wstring& path) const {
        SetDlgItemTextW(dialog.GetSafeHwnd(), IDC_DRIVER_CONFIG_PATH, path.c_str());
    }
    std::wstring Path() const { return TextOf(dialog.GetDlgItem(IDC_DRIVER_CONFIG_PATH)); }
    bool IsApplyFutureChecked() const {
        return IsDlgButtonChecked(dialog.GetSafeHwnd(), IDC_DRIVER_CONFIG_APPLY_FUTURE) == BST_CHECKED;
    }
    // Presses OK and confirms the box that comes; gives what it says.
    std::wstring PressOkAndConfirm() const {
        std::wstring text;
        const DialogUser user(dialog.GetSafeHwnd(), [&](HWND box) {
            constexpr int boxText = 65535;
            text = TextOf(box) + L": " + TextOf(GetDlgItem(box, boxText));
            ClickOn(box, IDOK);
        });
        Press(IDOK);
        return text;
    }
    // A configuration file with this content, chosen with OK; gives the description that came of it.
    std::wstring Describe(const std::string& content, const std::wstring& name = L"a.zdc") {
        WriteBytes(files / name, content);
        Open();
        Enter(files / name);
        Press(IDOK);
        return Settings().GetString(Tag::OMBREL_DESC);
    }

    ScratchFolder files;
    TestApp app;
    CDialogEx window;
    DriverConfiguration configuration{Settings(), AppCatalogue::GetInstance(), DriverInfo::GetInstance()};
    DriverConfigDlg dialog{context, configuration, window};
};

TEST_F(DriverConfigDlgTest, BeginsEmpty) {
    Open();
    EXPECT_EQ(dialog.GetWindowText(), L"Configure");
    EXPECT_EQ(Path(), L"");
    EXPECT_FALSE(IsWindowVisible(dialog.GetDlgItem(IDC_DRIVER_CONFIG_APPLY_FUTURE)));
    EXPECT_FALSE(IsWindowEnabled(dialog.GetDlgItem(IDC_DRIVER_CONFIG_APPLY_FUTURE)));
    EXPECT_EQ(SendMessageW(dialog.GetDlgItem(IDC_DRIVER_CONFIG_PATH), EM_GETLIMITTEXT, 0, 0), 260);
    EXPECT_THAT(BasicMessages(), IsEmpty());
}

TEST_F(DriverConfigDlgTest, RestoresWhatWasChosenBefore) {
    WriteBytes(files / L"a.zdc");
    Settings().SetString(Tag::DRIVERCONFIG_PATH, files / L"a.zdc");
    Settings().SetBool(Tag::CONFIG_APPLY_FUTURE, true);
    Open();
    EXPECT_EQ(Path(), files / L"a.zdc");
    EXPECT_TRUE(IsApplyFutureChecked());
    EXPECT_THAT(AdvancedMessages(),
                AllOf(Contains(restored), Contains(L"DriverConfigDlg::OnShowWindow, previous Driver "
                                                   L"Configuration Apply to Future checkbox restored")));
    dialog.ShowWindow(SW_HIDE);
    EXPECT_THAT(AdvancedMessages(), Contains(restored).Times(2));
}

TEST_F(DriverConfigDlgTest, DropsAFormerFileThatIsGone) {
    Settings().SetString(Tag::DRIVERCONFIG_PATH, files / L"gone.zdc");
    Settings().SetBool(Tag::CONFIG_APPLY_FUTURE, true);
    Open();
    EXPECT_EQ(Path(), L"");
    EXPECT_FALSE(IsApplyFutureChecked());
    EXPECT_THAT(BasicLog(),
                Contains(Record(L"ERROR", L"No Driver Configuration file found: " + (files / L"gone.zdc"))));
}

TEST_F(DriverConfigDlgTest, EmptiesTheFieldAndKeepsTheTagsOnReset) {
    WriteBytes(files / L"a.zdc");
    Settings().SetString(Tag::DRIVERCONFIG_PATH, files / L"a.zdc");
    Settings().SetBool(Tag::CONFIG_APPLY_FUTURE, true);
    Open();
    Press(IDC_DRIVER_CONFIG_RESET);
    EXPECT_EQ(Path(), L"");
    EXPECT_FALSE(IsApplyFutureChecked());
    EXPECT_EQ(Settings().GetString(Tag::DRIVERCONFIG_PATH), files / L"a.zdc");
}

TEST_F(DriverConfigDlgTest, AsksForAFile) {
    Open();
    EXPECT_EQ(PressOkAndConfirm(), L"Wrong: Nothing chosen.");
    EXPECT_EQ(Settings().GetString(Tag::OMBREL_DESC), L"");
}

class UnfitFileTest : public DriverConfigDlgTest, public testing::WithParamInterface<std::wstring> {};

TEST_P(UnfitFileTest, IsRefused) {
    for (const wchar_t* name : {L"capitals.XDC", L"mixed.Zdc", L"other.txt", L"zdc"})
        WriteBytes(files / name);
    Open();
    Enter(files / GetParam());
    EXPECT_EQ(PressOkAndConfirm(), L"Wrong: No such file.");
    EXPECT_THAT(Settings().StripMarker(), Not(HasSubstr(L"DRIVERCONFIG_PATH")));
    EXPECT_EQ(Path(), files / GetParam());
}

INSTANTIATE_TEST_SUITE_P(Names, UnfitFileTest,
                         testing::Values(L"capitals.XDC", L"mixed.Zdc", L"other.txt", L"zdc",
                                         L"missing.zdc"));

TEST_F(DriverConfigDlgTest, WritesDownWhatWasChosen) {
    const std::wstring tool = GetToolFolder(L"HVMONO", L"Maker") + L"Morvane.exe";
    WriteBytes(tool);
    EXPECT_EQ(Describe("<ConfigurationProfiles><PrinterProfiles><PrinterProfile name='Two-sided'/>"
                       "<PrinterProfile name='Second'/></PrinterProfiles></ConfigurationProfiles>"),
              L"Two-sided");
    EXPECT_EQ(Settings().GetString(Tag::DRIVERCONFIG_PATH), files / L"a.zdc");
    EXPECT_EQ(Settings().GetString(Tag::CONFIG_EXE_PATH), tool);
    EXPECT_EQ(Settings().GetString(TextTag(L"CONFIG_APPLY_FUTURE")), L"false");
    fs::remove_all(GetTemporaryFolder() + L"TolvaneKit");
}

TEST_F(DriverConfigDlgTest, KeepsTheStateOfTheHiddenChoice) {
    WriteBytes(files / L"a.xdc");
    Settings().SetString(Tag::DRIVERCONFIG_PATH, files / L"a.xdc");
    Settings().SetBool(Tag::CONFIG_APPLY_FUTURE, true);
    Open();
    Press(IDOK);
    EXPECT_EQ(Settings().GetString(TextTag(L"CONFIG_APPLY_FUTURE")), L"true");
    EXPECT_EQ(Settings().GetString(Tag::CONFIG_EXE_PATH), L"");
}

TEST_F(DriverConfigDlgTest, ReadsNoDescriptionFromANewerFile) {
    Settings().SetString(Tag::OMBREL_DESC, L"before");
    EXPECT_EQ(Describe("<ConfigurationProfiles><PrinterProfiles><PrinterProfile name='Two-sided'/>"
                       "</PrinterProfiles></ConfigurationProfiles>",
                       L"a.xdc"),
              L"");
    EXPECT_EQ(Settings().GetString(Tag::DRIVERCONFIG_PATH), files / L"a.xdc");
}

struct FileCase {
    std::string content;
    std::wstring description;
};

class OlderFileTest : public DriverConfigDlgTest, public testing::WithParamInterface<FileCase> {};

TEST_P(OlderFileTest, IsTakenWhateverItTells) {
    EXPECT_EQ(Describe(GetParam().content), GetParam().description);
    EXPECT_EQ(Settings().GetString(Tag::DRIVERCONFIG_PATH), files / L"a.zdc");
    EXPECT_THAT(app.Exceptions(), IsEmpty());
}

std::string Profile(const std::string& attributes, const std::string& head = {}) {
    return head + "<ConfigurationProfiles><PrinterProfiles><PrinterProfile " + attributes +
           "/></PrinterProfiles></ConfigurationProfiles>";
}

const FileCase olderFiles[] = {
    {Profile("name='a &amp; b'"), L"a & b"},
    {Profile("title='a'"), L""},
    {"<ConfigurationProfiles/>", L""},
    {"<PrinterProfiles><PrinterProfile name='a'/></PrinterProfiles>", L""},
    {Profile("name='a") + "<", L""},
    {"", L""},
    {"no document", L""},
    {Profile("name='a'", "<!--" + std::string(3'000'000, 'x') + "-->"), L"a"},
    {Profile("name='inner &e;'", "<!DOCTYPE x [<!ENTITY e 'text'>]>"), L"inner text"},
};

INSTANTIATE_TEST_SUITE_P(Contents, OlderFileTest, testing::ValuesIn(olderFiles));

TEST_F(DriverConfigDlgTest, ReadsOneCharacterLessThanCanBeTyped) {
    const std::wstring name = files / (std::wstring(255 - files.Path().size(), L'n') + L".zdc");
    ASSERT_EQ(name.size(), 259U);
    WriteBytes(name);
    Open();
    Enter(name + L"x");
    Press(IDOK);
    EXPECT_EQ(Settings().GetString(Tag::DRIVERCONFIG_PATH), name);
}

TEST_F(DriverConfigDlgTest, LeavesEverythingAsItWasOnCancel) {
    const std::wstring before = Settings().StripMarker();
    const DialogUser user(window.GetSafeHwnd(), [](HWND opened) {
        SetDlgItemTextW(opened, IDC_DRIVER_CONFIG_PATH, L"C:\\a.zdc");
        ClickOn(opened, IDCANCEL);
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(Settings().StripMarker(), before);
}

TEST_F(DriverConfigDlgTest, EndsWithOk) {
    WriteBytes(files / L"a.xdc");
    const DialogUser user(window.GetSafeHwnd(), [this](HWND opened) {
        SetDlgItemTextW(opened, IDC_DRIVER_CONFIG_PATH, (files / L"a.xdc").c_str());
        ClickOn(opened, IDOK);
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

}  // namespace
