// A driver's configuration, from the button to what the driver's installation is told. The tools are those of
// the sample package and are unpacked by the system's installer.

#include <fstream>

#include "CommonLib/Files.h"
#include "CommonLib/Utf8.h"
#include "resources/resource.h"
#include "settings/TagDocument.h"
#include "tests/fakes/TextLines.h"
#include "tests/wizard/PageTest.h"
#include "tests/wizard/RealInput.h"

using testing::HasSubstr;
using testing::Not;

namespace {

namespace fs = std::filesystem;

constexpr wchar_t maker[] = L"Halvenny";
constexpr wchar_t quietSwitch[] = L"HALVENNY_CONFIG_QUIET";
constexpr wchar_t olderKit[] = L"HalvennyDriverConfig.msi";
constexpr wchar_t newerKit[] = L"HalvennyArdentis.msi";

// Takes the page of the discovered printers, on which nothing is found, to a driver that the user configures.
class DriverConfigPageTest : public PageTest {
protected:
    void SetUp() override {
        RemoveTraces();
        PageTest::SetUp();
        ExpectVendor(maker);
        UseMaker(maker);
        AddDriver(L"mono.msi", L"MONO");
        AddDriver(L"monov4.msi", L"MONOV4");
        tree.Add({.path = L"Common\\x64\\jet.msi",
                  .properties = Element(L"ProductName", L"jet") + Element(L"APPTYPE", L"NIMBOJET")});
        tree.SetText(L"INVALID_PATH_TEXT", L"No such file.");
    }
    void TearDown() override {
        SetEnvironmentVariableW(quietSwitch, nullptr);
        PageTest::TearDown();
        RemoveTraces();
    }

    void UseMaker(const std::wstring& name, const std::wstring& defaultDriver = L"MONO") {
        tree.WriteFile(L"Setup\\defaultInstallSettings.xml",
                       ToUtf8(Element(L"OEM", name) + Element(L"PRODUCT_NAME", L"Loom & \"100%\"") +
                              Element(L"HIDE_START", L"true") + Element(L"HIDE_EULA", L"true") +
                              Element(L"USB_SUPPORTED", L"1") + Element(L"WIN8_DRVTYPES", L"MONO;MONOV4") +
                              Element(L"WIN8_NO_COMM_DEFAULT", defaultDriver)));
    }
    // Adds a kit of the sample, with its real file.
    void AddKit(const std::wstring& kit, const std::wstring& name) {
        tree.Add({.path = L"Common\\x64\\" + name,
                  .properties = Element(L"ProductName", name) +
                                Element(L"APPTYPE", kit == newerKit ? L"V4DRIVERCONFIG" : L"DRIVERCONFIG")});
        fs::copy_file(fs::path(GetExeDirectory()) / L"packages" / kit,
                      tree.Root() / L"Common" / L"x64" / name, fs::copy_options::overwrite_existing);
    }
    void AddKit(const std::wstring& kit) { AddKit(kit, kit); }

    // Presses the radio button of the connection and opens the configuration of its driver.
    void OpenConfiguration(int connection) {
        StartOn(connection);
        wizard.Press(connection);
        wizard.Press(IDC_DISCOVERY_CONFIGURE);
        wizard.WaitForControl(IDC_DRIVER_CONFIG_PATH);
    }
    void OpenOlder() { OpenConfiguration(IDC_DISCOVERY_USB); }
    void OpenNewer() {
        UseMaker(maker, L"MONOV4");
        OpenConfiguration(IDC_DISCOVERY_NIMBOJET);
    }
    // New does nothing until the tool is unpacked, and each press after that starts the tool once more.
    void PressNew(const fs::path& tool) const {
        EXPECT_TRUE(WaitUntil([&] { return CanBeReadAlone(tool.wstring()); }));
        wizard.Press(IDC_DRIVER_CONFIG_NEW);
    }
    void MakeConfiguration(const fs::path& tool) const {
        PressNew(tool);
        EXPECT_TRUE(WaitUntil([this] { return !TextOf(IDC_DRIVER_CONFIG_PATH).empty(); }));
    }
    void EnterPath(const std::wstring& path) const {
        SendMessageW(wizard.FindControl(IDC_DRIVER_CONFIG_PATH), WM_SETTEXT, 0,
                     reinterpret_cast<LPARAM>(path.c_str()));
    }
    void AcceptAndInstall() {
        wizard.Press(IDOK);
        EXPECT_TRUE(WaitUntil([this] { return !IsShown(IDC_DRIVER_CONFIG_PATH); }));
        wizard.Press(IDOK);
        CloseOnFinishPage();
    }
    // The value that the driver's installation is told.
    std::wstring Told(const std::wstring& tag, const std::wstring& driver = L"mono.msi") const {
        return TagDocument::ValueOf(CommandOf(driver), tag);
    }

    static fs::path MadeFile(const std::wstring& name) {
        return fs::path(GetCommonDataFolder()) / L"DriverConfigurations" / name;
    }
    static fs::path OlderTool(const std::wstring& vendor = maker) {
        return fs::path(GetTemporaryFolder()) / L"TolvaneKit" / vendor / L"DriverConfig" / L"Morvane.exe";
    }
    static fs::path NewerTool() {
        return fs::path(GetTemporaryFolder()) / L"ArdentisKit" / maker / L"ArdentisKit" / L"Ardentis.exe";
    }

private:
    void AddDriver(const std::wstring& file, const std::wstring& identifier) {
        tree.Add({.path = L"Drivers\\x64\\" + file,
                  .properties = Element(L"ProductName", identifier) + Element(L"DRIVERID", identifier) +
                                Element(L"DRIVERNAME", identifier) + Element(L"ISOMBRELSUPPORTED", L"TRUE")});
    }
    static void RemoveTraces() {
        for (const fs::path& folder :
             {fs::path(GetTemporaryFolder()) / L"TolvaneKit", fs::path(GetTemporaryFolder()) / L"ArdentisKit",
              fs::path(GetCommonDataFolder()) / L"DriverConfigurations"}) {
            std::error_code error;
            fs::remove_all(folder, error);
        }
    }
};

TEST_F(DriverConfigPageTest, HandsWhatTheOlderToolHasMadeToTheDriver) {
    SetEnvironmentVariableW(quietSwitch, L"1");
    AddKit(olderKit);
    OpenOlder();
    MakeConfiguration(OlderTool());
    EXPECT_EQ(TextOf(IDC_DRIVER_CONFIG_PATH), MadeFile(L"Halvenny.zdc").wstring());
    AcceptAndInstall();
    EXPECT_EQ(Told(L"CONFIG_EXE_PATH"), OlderTool().wstring());
    EXPECT_EQ(Told(L"OMBREL_DESC"), L"Two-sided, saving toner");
    EXPECT_THAT(BasicLog(), HasRecord(L"SUCCESS", L"Driver configuration to use: " +
                                                      MadeFile(L"Halvenny.zdc").wstring()));
}

TEST_F(DriverConfigPageTest, HandsWhatTheNewerToolHasMadeToTheDriver) {
    SetEnvironmentVariableW(quietSwitch, L"1");
    AddKit(olderKit);
    AddKit(newerKit);
    OpenNewer();
    MakeConfiguration(NewerTool());
    EXPECT_EQ(TextOf(IDC_DRIVER_CONFIG_PATH), MadeFile(L"Halvenny.xdc").wstring());
    AcceptAndInstall();
    EXPECT_EQ(Told(L"CONFIG_EXE_PATH", L"monov4.msi"), NewerTool().wstring());
    EXPECT_EQ(Told(L"OMBREL_DESC", L"monov4.msi"), L"");
}

TEST_F(DriverConfigPageTest, KeepsTheFileOnTheWayOverTheHiddenPage) {
    tree.WriteFile(L"presets\\a.zdc", "<x/>");
    AddKit(olderKit);
    OpenOlder();
    EnterPath((tree.Root() / L"presets" / L"a.zdc").wstring());
    AcceptAndInstall();
    EXPECT_EQ(Told(L"DRIVERCONFIG_PATH"), (tree.Root() / L"presets" / L"a.zdc").wstring());
}

TEST_F(DriverConfigPageTest, GivesTheFocusBackToItsButton) {
    const auto hasFocus = [this](int id) {
        return WaitUntil([&] {
            const HWND window = wizard.Focus();
            return window != nullptr && GetDlgCtrlID(window) == id;
        });
    };
    AddKit(olderKit);
    OpenOlder();
    wizard.BringToFront();
    EXPECT_TRUE(hasFocus(IDC_DRIVER_CONFIG_PATH));
    for (const int id : {IDC_DRIVER_CONFIG_NEW, IDC_DRIVER_CONFIG_LOAD, IDC_DRIVER_CONFIG_RESET,
                         IDC_HELP_BUTTON, IDOK, IDCANCEL}) {
        PressKeys({VK_TAB});
        EXPECT_TRUE(hasFocus(id)) << id;
    }
    PressKeys({VK_ESCAPE});
    EXPECT_TRUE(hasFocus(IDC_DISCOVERY_CONFIGURE));
    EXPECT_FALSE(HasAskedToCancel());
}

TEST_F(DriverConfigPageTest, CountsTheNamesOfFilesUp) {
    SetEnvironmentVariableW(quietSwitch, L"1");
    AddKit(olderKit);
    OpenOlder();
    MakeConfiguration(OlderTool());
    EnterPath({});
    MakeConfiguration(OlderTool());
    EXPECT_EQ(TextOf(IDC_DRIVER_CONFIG_PATH), MadeFile(L"Halvenny_1.zdc").wstring());
}

constexpr int profileName = 101;

// The window of the tool, once it shows its proposal, or null.
HWND FindTool() {
    const HWND tool = FindWindowW(nullptr, L"Halvenny driver configuration");
    return tool != nullptr && SendDlgItemMessageW(tool, profileName, WM_GETTEXTLENGTH, 0, 0) > 0 ? tool
                                                                                                 : nullptr;
}

class ToolWindowTest : public DriverConfigPageTest {
protected:
    // Opens the tool's window; the dialog takes no input then.
    HWND OpenTool() {
        AddKit(olderKit);
        OpenOlder();
        PressNew(OlderTool());
        EXPECT_TRUE(WaitUntil([] { return FindTool() != nullptr; }));
        return FindTool();
    }
    static void Click(HWND tool, int button) {
        PostMessageW(tool, WM_COMMAND, static_cast<WPARAM>(button),
                     reinterpret_cast<LPARAM>(GetDlgItem(tool, button)));
    }
};

TEST_F(ToolWindowTest, MakesTheProfileThatTheUserNames) {
    const HWND tool = OpenTool();
    SendDlgItemMessageW(tool, profileName, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"Draft & <grey>"));
    Click(tool, IDOK);
    EXPECT_TRUE(WaitUntil([this] { return !TextOf(IDC_DRIVER_CONFIG_PATH).empty(); }));
    AcceptAndInstall();
    EXPECT_EQ(Told(L"OMBREL_DESC"), L"Draft & <grey>");
}

TEST_F(ToolWindowTest, LeavesTheFieldAsItWasIfTheUserCancelsIt) {
    const HWND tool = OpenTool();
    EnterPath(L"before");
    Click(tool, IDCANCEL);
    EXPECT_TRUE(WaitForMessage(L"Returning from Driver Configuration"));
    EXPECT_EQ(TextOf(IDC_DRIVER_CONFIG_PATH), L"before");
    EXPECT_THAT(BasicLog(), HasRecord(L"ERROR", L"No Driver Configuration file found: " +
                                                    MadeFile(L"Halvenny.zdc").wstring()));
}

TEST_F(DriverConfigPageTest, SaysNothingWhereTheKitDoesNotUnpack) {
    tree.Add({.path = L"Common\\x64\\broken.msi",
              .properties = Element(L"ProductName", L"broken") + Element(L"APPTYPE", L"DRIVERCONFIG")});
    OpenOlder();
    wizard.Press(IDC_DRIVER_CONFIG_NEW);
    EXPECT_TRUE(WaitForMessage(
        L"DriverConfigDlg::OnBnClickedNewButton(), Creating command line for Driver Configuration"));
    wizard.Press(IDCANCEL);
    EXPECT_TRUE(WaitUntil([this] { return !IsShown(IDC_DRIVER_CONFIG_PATH); }));
    EXPECT_THAT(BasicMessages(L"ERROR"), Not(testing::Contains(HasSubstr(L"Driver Config"))));
    EXPECT_THAT(AdvancedLog(), Not(HasRecord(L"", L"Returning from Driver Configuration")));
}

TEST_F(DriverConfigPageTest, OffersNothingWithoutATool) {
    StartOn(IDC_DISCOVERY_USB);
    wizard.Press(IDC_DISCOVERY_USB);
    EXPECT_TRUE(WaitUntilEnabled(IDOK));
    EXPECT_FALSE(IsShown(IDC_DISCOVERY_CONFIGURE));
}

TEST_F(DriverConfigPageTest, AsksAnewForAnotherDriver) {
    tree.WriteFile(L"presets\\a.zdc", "<x/>");
    AddKit(olderKit);
    AddKit(newerKit);
    OpenConfiguration(IDC_DISCOVERY_NIMBOJET);
    EnterPath((tree.Root() / L"presets" / L"a.zdc").wstring());
    wizard.Press(IDOK);
    EXPECT_TRUE(WaitUntil([this] { return !IsShown(IDC_DRIVER_CONFIG_PATH); }));
    wizard.Press(IDC_DISCOVERY_CONFIGURE);
    EXPECT_TRUE(WaitUntil([this] { return !TextOf(IDC_DRIVER_CONFIG_PATH).empty(); }));
    wizard.Press(IDCANCEL);
    // A dialog that is hidden already is not gone yet, so the page's own control is what to wait for.
    EXPECT_TRUE(WaitUntil([this] { return !IsShown(IDC_DRIVER_CONFIG_PATH); }));
    const HWND drivers = wizard.WaitForControl(IDC_DISCOVERY_DRIVER_LIST);
    SendMessageW(drivers, CB_SETCURSEL, 1, 0);
    SendMessageW(GetParent(drivers), WM_COMMAND, MAKEWPARAM(IDC_DISCOVERY_DRIVER_LIST, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(drivers));
    wizard.Press(IDC_DISCOVERY_CONFIGURE);
    wizard.WaitForControl(IDC_DRIVER_CONFIG_PATH);
    EXPECT_EQ(TextOf(IDC_DRIVER_CONFIG_PATH), L"");
}

TEST_F(DriverConfigPageTest, LoadsAFileOfTheUser) {
    tree.WriteFile(L"presets\\my own.zdc", "<x/>");
    const std::wstring path = (tree.Root() / L"presets" / L"my own.zdc").wstring();
    AddKit(olderKit);
    OpenOlder();
    wizard.Press(IDC_DRIVER_CONFIG_LOAD);
    constexpr int fileNameField = 1148;
    const HWND field = wizard.WaitForControl(fileNameField);
    SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
    // The list of files has the same id as the button.
    PostMessageW(GetDlgItem(GetAncestor(field, GA_ROOT), IDOK), BM_CLICK, 0, 0);
    EXPECT_TRUE(WaitUntil([&] { return TextOf(IDC_DRIVER_CONFIG_PATH) == path; }));
    wizard.Press(IDC_DRIVER_CONFIG_RESET);
    EXPECT_TRUE(WaitUntil([&] { return TextOf(IDC_DRIVER_CONFIG_PATH).empty(); }));
}

TEST_F(DriverConfigPageTest, RefusesAFileOfAnotherKind) {
    AddKit(olderKit);
    tree.WriteFile(L"presets\\a.txt", {});
    OpenOlder();
    EnterPath((tree.Root() / L"presets" / L"a.txt").wstring());
    wizard.Press(IDOK);
    EXPECT_EQ(wizard.Answer(IDOK).text, L"No such file.");
    EXPECT_TRUE(IsShown(IDC_DRIVER_CONFIG_PATH));
}

TEST_F(DriverConfigPageTest, UnpacksAKitWhateverItsNameHolds) {
    tree.AddProbe(L"Setup\\x64\\Probe.exe", 0);
    AddKit(olderKit, L"Kit %TEMP% & Probe.exe & ^x (1).msi");
    OpenOlder();
    EXPECT_TRUE(WaitUntil([] { return fs::exists(OlderTool()); }));
    EXPECT_FALSE(fs::exists(tree.ProgramFolder() / L"Probe.exe.calls"));
}

// The programs that were once found beside the program, or by the first word of a path.
TEST_F(DriverConfigPageTest, UnpacksByTheInstallerOfTheSystem) {
    for (const wchar_t* const name : {L"msiexec.exe", L"cmd.exe"}) {
        tree.AddProbe(std::wstring(L"Setup\\x64\\") + name, 0);
    }
    AddKit(olderKit);
    OpenOlder();
    EXPECT_TRUE(WaitUntil([] { return fs::exists(OlderTool()); }));
    EXPECT_FALSE(fs::exists(tree.ProgramFolder() / L"msiexec.exe.calls"));
    EXPECT_FALSE(fs::exists(tree.ProgramFolder() / L"cmd.exe.calls"));
}

// The user's temporary folder has the user's name in its path.
class UserWithBlankTest : public DriverConfigPageTest {
protected:
    void SetUp() override {
        formerFolder = GetTemporaryFolder();
        const fs::path folder = tree.Root() / L"John & 100% Doe" / L"Temp";
        fs::create_directories(folder);
        SetTemporaryFolder(folder.wstring());
        DriverConfigPageTest::SetUp();
    }
    void TearDown() override {
        DriverConfigPageTest::TearDown();
        SetTemporaryFolder(formerFolder);
    }

private:
    static void SetTemporaryFolder(const std::wstring& path) {
        for (const wchar_t* const name : {L"TEMP", L"TMP"}) SetEnvironmentVariableW(name, path.c_str());
    }

    std::wstring formerFolder;
};

TEST_F(UserWithBlankTest, ConfiguresADriver) {
    SetEnvironmentVariableW(quietSwitch, L"1");
    AddKit(olderKit);
    OpenOlder();
    MakeConfiguration(OlderTool());
    EXPECT_EQ(TextOf(IDC_DRIVER_CONFIG_PATH), MadeFile(L"Halvenny.zdc").wstring());
}

// The command line tells the values as they stand; what they hold starts nothing.
TEST_F(DriverConfigPageTest, StartsTheToolAloneWhateverTheMakerIsCalled) {
    const std::wstring brand = L"Veldt & 100% Sons";
    ExpectVendor(brand);
    UseMaker(brand);
    AddKit(olderKit);
    fs::create_directories(OlderTool(brand).parent_path());
    fs::copy_file(fs::path(GetExeDirectory()) / L"Probe.exe", OlderTool(brand));
    OpenOlder();
    wizard.Press(IDC_DRIVER_CONFIG_NEW);
    EXPECT_TRUE(WaitForMessage(L"Returning from Driver Configuration"));
    const auto calls = ReadLines(OlderTool(brand).wstring() + L".calls");
    ASSERT_EQ(calls.size(), 1U);
    EXPECT_EQ(calls[0][0], OlderTool(brand).wstring() + L" /m \"" + brand +
                               L"\" /d \"Loom & \"100%\"\" /f \"" + MadeFile(brand + L".zdc").wstring() +
                               L"\"");
}

// A program whose name is the first word of the tool's path must not be taken for the tool.
TEST_F(DriverConfigPageTest, StartsTheToolAndNotTheFirstWordOfItsPath) {
    const std::wstring brand = L"Veldt Sons";
    ExpectVendor(brand);
    UseMaker(brand);
    AddKit(olderKit);
    const fs::path decoy = OlderTool(brand).parent_path().parent_path().parent_path() / L"Veldt.exe";
    fs::create_directories(OlderTool(brand).parent_path());
    fs::copy_file(fs::path(GetExeDirectory()) / L"Probe.exe", OlderTool(brand));
    fs::copy_file(fs::path(GetExeDirectory()) / L"Probe.exe", decoy);
    OpenOlder();
    wizard.Press(IDC_DRIVER_CONFIG_NEW);
    EXPECT_TRUE(WaitForMessage(L"Returning from Driver Configuration"));
    EXPECT_TRUE(fs::exists(OlderTool(brand).wstring() + L".calls"));
    EXPECT_FALSE(fs::exists(decoy.wstring() + L".calls"));
}

// A run of a predefined configuration, with what it brings along.
class PredefinedConfigTest : public DriverConfigPageTest {
protected:
    void RunWith(const std::wstring& devices) {
        tree.SetUserSettings(Element(L"SILENT_INSTALL", L"true") + L"\r\n" +
                             Element(L"HIDE_DISCOVERY", L"true") + L"\r\n" + devices);
        Run();
    }
};

TEST_F(PredefinedConfigTest, CopiesTheFilesToFreeNames) {
    tree.WriteFile(L"Setup\\a.xdc", "first");
    fs::create_directories(MadeFile(L"").parent_path());
    std::ofstream(MadeFile(L"a.xdc")) << "somebody else's";
    RunWith(Element(L"DEVICE", Element(L"DRIVER_ID", L"MONOV4") + Element(L"DRIVERCONFIG_PATH", L"a.xdc")));
    EXPECT_EQ(Told(L"DRIVERCONFIG_PATH", L"monov4.msi"), MadeFile(L"a_1.xdc").wstring());
    EXPECT_EQ(fs::file_size(MadeFile(L"a_1.xdc")), 5U);
    EXPECT_EQ(fs::file_size(MadeFile(L"a.xdc")), 15U);
}

TEST_F(PredefinedConfigTest, UnpacksTheToolThatADeviceNames) {
    fs::copy_file(fs::path(GetExeDirectory()) / L"packages" / newerKit, tree.Root() / L"Setup" / newerKit);
    RunWith(Element(L"DEVICE", Element(L"DRIVER_ID", L"MONOV4") + Element(L"CONFIG_EXE_PATH", L"Ardentis")));
    EXPECT_EQ(Told(L"CONFIG_EXE_PATH", L"monov4.msi"), NewerTool().wstring());
}

TEST_F(PredefinedConfigTest, EmptiesAToolThatThePackageLacks) {
    RunWith(Element(L"DEVICE", Element(L"DRIVER_ID", L"MONOV4") + Element(L"CONFIG_EXE_PATH", L"Ardentis")));
    EXPECT_THAT(CommandOf(L"monov4.msi"), HasSubstr(L"<CONFIG_EXE_PATH></CONFIG_EXE_PATH>"));
}

}  // namespace
