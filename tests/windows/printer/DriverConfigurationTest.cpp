#include <windows.h>

#include <filesystem>

#include "CommonLib/Files.h"
#include "ports/DriverConfigDlg.h"
#include "printer/DriverConfiguration.h"
#include "printer/MSIExtractService.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/CatalogueWorld.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/ScratchFolder.h"
#include "tests/windows/world/TestApp.h"
#include "tests/wizard/FolderLink.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

constexpr wchar_t older[] = L"HVMONO";
constexpr wchar_t newer[] = L"HVMONOV4";

// A maker of its own, whose tools and files are gone at the end.
class DriverConfigurationTest : public CatalogueWorld {
protected:
    DriverConfigurationTest() {
        RemoveTraces();
        Settings().SetStrings({{Tag::OEM, maker}, {Tag::PRODUCT_NAME, L"Loom 100%"}});
        v4ToolUnpacked = false;
        olderToolUnpacked = false;
    }
    ~DriverConfigurationTest() override { RemoveTraces(); }

    DriverConfiguration configuration{Settings(), AppRecords(), DriverRecords()};

    void AddTool(const std::wstring& appType, const std::wstring& file = L"t.msi") {
        AddPackage(L"Common\\x64", file).properties[L"APPTYPE"] = appType;
        BuildCatalogues();
    }

    static constexpr wchar_t maker[] = L"Veldt & Sons";

private:
    static void RemoveTraces() {
        fs::remove_all(GetTemporaryFolder() + L"TolvaneKit");
        fs::remove_all(GetTemporaryFolder() + L"ArdentisKit");
        fs::remove_all(GetConfigurationFolder());
    }
};

struct ToolCase {
    std::wstring appType;
    std::wstring driver;
    bool available;
};

class ConfigToolInCatalogueTest : public DriverConfigurationTest,
                                  public testing::WithParamInterface<ToolCase> {};

TEST_P(ConfigToolInCatalogueTest, IsOfTheDriversGeneration) {
    AddTool(GetParam().appType);
    EXPECT_EQ(configuration.IsConfigToolAvailable(GetParam().driver), GetParam().available);
}

const ToolCase tools[] = {
    {L"DRIVERCONFIG", older, true},    {L"DRIVERCONFIG", newer, false}, {L"V4DRIVERCONFIG", newer, true},
    {L"V4DRIVERCONFIG", older, false}, {L"DRIVERCONFIG", L"", true},    {L"V4DRIVERCONFIG", L"", true},
    {L"driverconfig", older, false},   {L"NIMBOJET", L"", false},       {L"V4DRIVERCONFIG", L"XV40Y", true},
};

INSTANTIATE_TEST_SUITE_P(Tools, ConfigToolInCatalogueTest, testing::ValuesIn(tools));

class ConfigToolInFolderTest : public DriverConfigurationTest,
                               public testing::WithParamInterface<ToolCase> {};

TEST_P(ConfigToolInFolderTest, IsToldByItsFileName) {
    tree.Add(L"Install\\" + GetParam().appType);
    EXPECT_EQ(configuration.IsConfigToolAvailable(GetParam().driver), GetParam().available);
}

const ToolCase files[] = {
    {L"MakerDriverConfig2.msi", older, true},
    {L"MakerDriverConfig2.msi", newer, false},
    {L"MakerArdentis.msi", newer, true},
    {L"MakerArdentis.msi", older, false},
    {L"MakerDriverConfig2.msi", L"", true},
    {L"MakerArdentis.msi", L"", true},
    {L"Ardentis.exe", newer, false},
    {L"ardentis.msi", newer, false},
    {L"Other.msi", L"", false},
};

INSTANTIATE_TEST_SUITE_P(Files, ConfigToolInFolderTest, testing::ValuesIn(files));

TEST_F(DriverConfigurationTest, LooksForTheToolOfEachGenerationInItsFolder) {
    EXPECT_EQ(GetToolFolder(older, L"A B"), GetTemporaryFolder() + L"TolvaneKit\\A B\\DriverConfig\\");
    EXPECT_EQ(GetToolFolder(newer, L"A B"), GetTemporaryFolder() + L"ArdentisKit\\A B\\ArdentisKit\\");
}

TEST_F(DriverConfigurationTest, FindsTheLastToolInTheMakersFolder) {
    const std::wstring folder = GetToolFolder(older, maker);
    WriteBytes(folder + L"aMorvane.exe");
    WriteBytes(folder + L"bMorvane.exe");
    WriteBytes(folder + L"cOther.exe");
    EXPECT_EQ(configuration.FindConfigTool(older), folder + L"bMorvane.exe");
    EXPECT_EQ(configuration.FindConfigTool(newer), L"");
}

TEST_F(DriverConfigurationTest, FindsTheCommonToolWhereTheMakerHasNoFolder) {
    const std::wstring tool = GetToolFolder(newer, L"Printer") + L"Ardentis.exe";
    EXPECT_EQ(configuration.FindConfigTool(newer), L"");
    WriteBytes(tool);
    EXPECT_EQ(configuration.FindConfigTool(newer), tool);
    fs::create_directories(GetToolFolder(newer, maker));
    EXPECT_EQ(configuration.FindConfigTool(newer), L"");
}

TEST_F(DriverConfigurationTest, CountsTheNamesOfNewFilesUp) {
    const std::wstring stem = GetConfigurationFolder() + maker;
    EXPECT_EQ(configuration.MakeConfigFileName(older), stem + L".zdc");
    EXPECT_TRUE(fs::is_directory(GetConfigurationFolder()));
    WriteBytes(stem + L".zdc");
    EXPECT_EQ(configuration.MakeConfigFileName(older), stem + L"_1.zdc");
    WriteBytes(stem + L"_1.zdc");
    EXPECT_EQ(configuration.MakeConfigFileName(older), stem + L"_2.zdc");
    EXPECT_EQ(configuration.MakeConfigFileName(newer), stem + L".xdc");
}

TEST_F(DriverConfigurationTest, NamesAFileOfNoMakerByItsExtension) {
    Settings().SetString(Tag::OEM, L"");
    EXPECT_EQ(configuration.MakeConfigFileName(newer), GetConfigurationFolder() + L".xdc");
}

TEST_F(DriverConfigurationTest, BuildsTheCommandLineFromWhatIsThere) {
    const std::wstring tool = GetToolFolder(older, maker) + L"Morvane.exe";
    WriteBytes(tool);
    EXPECT_EQ(configuration.MakeConfigCommand(older), tool + L" /m \"Veldt & Sons\" /d \"Loom 100%\" /f \"" +
                                                          GetConfigurationFolder() + L"Veldt & Sons.zdc\"");
    EXPECT_EQ(configuration.MakeConfigCommand(newer),
              L" save /xdc " + GetConfigurationFolder() + L"Veldt & Sons.xdc");
}

std::vector<std::wstring> commands;
bool startSucceeds = true;
HANDLE startedProcess = nullptr;
DWORD waitingTime = 0;

BOOL WINAPI KeepCommand(LPCWSTR program, LPWSTR commandLine, LPSECURITY_ATTRIBUTES, LPSECURITY_ATTRIBUTES,
                        BOOL, DWORD flags, LPVOID, LPCWSTR, LPSTARTUPINFOW,
                        LPPROCESS_INFORMATION information) {
    commands.push_back(std::wstring(program) + L": " + commandLine);
    EXPECT_EQ(flags, DWORD{CREATE_NO_WINDOW});
    if (!startSucceeds) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    *information = {.hProcess = CreateEventW(nullptr, TRUE, FALSE, nullptr),
                    .hThread = CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    startedProcess = information->hProcess;
    return TRUE;
}

class UnpackingTest : public DriverConfigurationTest {
protected:
    UnpackingTest() {
        commands.clear();
        startSucceeds = true;
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        app.SetMainWnd(&window);
    }
    // Presses the button for that driver and cancels the dialog that comes.
    void Open(const std::wstring& driverId) {
        const DialogUser user(window.GetSafeHwnd(), [](HWND opened) { ClickOn(opened, IDCANCEL); });
        OpenDriverConfiguration(window, context, configuration, driverId, dialog);
    }
    static std::wstring Unpacking(const std::wstring& package, const std::wstring& kit) {
        const std::wstring installer = L"C:\\windows\\system32\\msiexec.exe";
        return installer + L": \"" + installer + L"\" /a \"" + package + L"\" /qn TARGETDIR=\"" +
               GetTemporaryFolder() + kit + L"\"";
    }

    TestApp app;
    CDialogEx window;
    std::unique_ptr<DriverConfigDlg> dialog;
    PatchedImport starting{"CreateProcessW", &KeepCommand};
};

TEST_F(UnpackingTest, TakesTheFirstPackageOfTheGeneration) {
    AddTool(L"V4DRIVERCONFIG", L"b & 100%.msi");
    AddTool(L"V4DRIVERCONFIG", L"c.msi");
    AddTool(L"DRIVERCONFIG", L"a.msi");
    Open(newer);
    Open(older);
    EXPECT_THAT(commands,
                ElementsAre(Unpacking(ProgramTree::AsWritten(L"Common\\x64\\b & 100%.msi"), L"ArdentisKit"),
                            Unpacking(ProgramTree::AsWritten(L"Common\\x64\\a.msi"), L"TolvaneKit")));
}

TEST_F(UnpackingTest, IsTriedOncePerGenerationEvenIfItFailed) {
    AddTool(L"V4DRIVERCONFIG", L"b.msi");
    AddTool(L"DRIVERCONFIG", L"a.msi");
    startSucceeds = false;
    Open(older);
    Open(newer);
    Open(older);
    Open(newer);
    EXPECT_THAT(commands,
                ElementsAre(Unpacking(ProgramTree::AsWritten(L"Common\\x64\\a.msi"), L"TolvaneKit"),
                            Unpacking(ProgramTree::AsWritten(L"Common\\x64\\b.msi"), L"ArdentisKit")));
}

TEST_F(UnpackingTest, StartsNothingForAToolThatThePackageLacks) {
    AddTool(L"V4DRIVERCONFIG", L"b.msi");
    Open(older);
    EXPECT_THAT(commands, testing::IsEmpty());
}

TEST_F(UnpackingTest, KeepsTheDialogWithThePage) {
    Open(older);
    ASSERT_NE(dialog, nullptr);
    const DriverConfigDlg* const first = dialog.get();
    Open(older);
    EXPECT_NE(dialog.get(), first);
}

TEST_F(UnpackingTest, SaysWhetherItHasStarted) {
    MSIExtractService service(AppRecords(), L"C:\\given.msi");
    EXPECT_FALSE(service.Launched());
    EXPECT_EQ(service.DoRun(), 1U);
    EXPECT_TRUE(service.Launched());
    EXPECT_EQ(service.DoRun(), 1U);
    EXPECT_FALSE(service.Launched());
}

TEST_F(UnpackingTest, LogsAStartThatFails) {
    startSucceeds = false;
    MSIExtractService service(AppRecords(), L"C:\\given.msi");
    service.DoRun();
    EXPECT_FALSE(service.Launched());
    EXPECT_THAT(BasicLog(), testing::Contains(Record(
                                L"ERROR", L"The unpacking of C:\\given.msi cannot be started, error 5")));
}

TEST_F(UnpackingTest, IsLeftAloneWhereItDoesNotEnd) {
    const PatchedImport waiting(
        "WaitForSingleObject", +[](HANDLE handle, DWORD milliseconds) -> DWORD {
            if (handle != startedProcess) return WaitForSingleObjectEx(handle, milliseconds, FALSE);
            waitingTime = milliseconds;
            return WAIT_TIMEOUT;
        });
    MSIExtractService service(AppRecords(), L"C:\\given.msi");
    service.DoRun();
    service.WaitForEnd();
    EXPECT_LT(waitingTime, INFINITE);
    EXPECT_THAT(BasicLog(), testing::Contains(Record(
                                L"ERROR", L"The unpacking of C:\\given.msi takes longer than 300 seconds")));
}

TEST_F(UnpackingTest, TakesAGivenPackageOnce) {
    AddTool(L"DRIVERCONFIG", L"a.msi");
    MSIExtractService service(AppRecords(), L"C:\\given.msi");
    service.SetDriverId(older);
    service.DoRun();
    service.DoRun();
    EXPECT_THAT(commands,
                ElementsAre(Unpacking(L"C:\\given.msi", L"ArdentisKit"),
                            Unpacking(ProgramTree::AsWritten(L"Common\\x64\\a.msi"), L"TolvaneKit")));
}

TEST_F(DriverConfigurationTest, UnpacksNothingThroughALink) {
    const ScratchFolder target;
    const FolderLink link(GetTemporaryFolder() + L"ArdentisKit", target.Path());
    commands.clear();
    const PatchedImport starting("CreateProcessW", &KeepCommand);
    MSIExtractService service(AppRecords(), L"C:\\given.msi");
    service.DoRun();
    EXPECT_THAT(commands, testing::IsEmpty());
    EXPECT_THAT(BasicLog(), testing::Contains(Record(L"ERROR", L"Nothing is unpacked through the link " +
                                                                   GetTemporaryFolder() + L"ArdentisKit")));
}

}  // namespace
