// How the dialog comes to a file: by the tool or from the user's own.

#include <windows.h>

#include <commdlg.h>

#include <atomic>
#include <filesystem>
#include <functional>
#include <thread>

#include "CommonLib/Exception.h"
#include "CommonLib/Files.h"
#include "ports/DriverConfigDlg.h"
#include "printer/DriverConfiguration.h"
#include "resources/resource.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/PatchedExport.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/ScratchFolder.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"
#include "tests/wizard/Waiting.h"
#include "wizard/RegisteredMessages.h"

namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr wchar_t returned[] = L"Returning from Driver Configuration";

// A message of the test's own, which nobody waits for.
constexpr UINT otherMessage = WM_APP + 7;

// Counts what reaches the page behind the dialog.
class PageBehind : public CDialogEx {
public:
    std::atomic<int> deliveries = 0;
    int emptyHands = 0;
    int others = 0;

protected:
    LRESULT WindowProc(const WindowMessage& message) override {
        deliveries += message.message == ZVUPDATEDISCOVERYLIST ? 1 : 0;
        emptyHands += message.message == ZVNOPRINTERFOUND ? 1 : 0;
        others += message.message == otherMessage ? 1 : 0;
        return CDialogEx::WindowProc(message);
    }
};

struct ToolRun {
    std::wstring program;
    std::wstring commandLine;
};

// What the tool does from its start on; it runs until the event that stands for it is set.
std::function<void(HANDLE tool)> toolDeed;
std::vector<ToolRun> toolRuns;

BOOL WINAPI StartTool(LPCWSTR program, LPWSTR commandLine, LPSECURITY_ATTRIBUTES, LPSECURITY_ATTRIBUTES, BOOL,
                      DWORD, LPVOID, LPCWSTR, LPSTARTUPINFOW, LPPROCESS_INFORMATION information) {
    toolRuns.push_back({.program = program == nullptr ? L"" : program, .commandLine = commandLine});
    if (!toolDeed) return FALSE;
    *information = {.hProcess = CreateEventW(nullptr, TRUE, FALSE, nullptr),
                    .hThread = CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    toolDeed(information->hProcess);
    return TRUE;
}

class DriverConfigFileTest : public SettingsWorld {
protected:
    DriverConfigFileTest() {
        RemoveTraces();
        toolRuns.clear();
        toolDeed = [](HANDLE tool) { SetEvent(tool); };
        Settings().SetStrings({{Tag::OEM, L"Maker"}, {Tag::PRODUCT_NAME, L"Loom"}});
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        app.SetMainWnd(&window);
    }
    ~DriverConfigFileTest() override { RemoveTraces(); }

    void AddTool() const { WriteBytes(Tool()); }
    static std::wstring Tool() { return GetToolFolder(driver, L"Maker") + L"Morvane.exe"; }
    static std::wstring NewFile() { return GetConfigurationFolder() + L"Maker.zdc"; }

    void Open(const std::wstring& driverId = driver) {
        dialog.ReceiveMessage(driverId);
        EXPECT_TRUE(dialog.Create(dialog.TemplateId(), &window));
        dialog.ShowWindow(SW_SHOW);
    }
    void Press(int button) const {
        const PatchedImport starting("CreateProcessW", &StartTool);
        dialog.SendMessage(WM_COMMAND, static_cast<WPARAM>(button),
                           reinterpret_cast<LPARAM>(dialog.GetDlgItem(button)));
    }
    std::wstring Path() const { return TextOf(dialog.GetDlgItem(IDC_DRIVER_CONFIG_PATH)); }

    static constexpr wchar_t driver[] = L"HVMONO";

    TestApp app;
    PageBehind window;
    DriverConfiguration configuration{Settings(), AppCatalogue::GetInstance(), DriverInfo::GetInstance()};
    DriverConfigDlg dialog{context, configuration, window};

private:
    static void RemoveTraces() {
        fs::remove_all(GetTemporaryFolder() + L"TolvaneKit");
        fs::remove_all(GetConfigurationFolder());
    }
};

TEST_F(DriverConfigFileTest, TakesTheFileThatTheToolHasMade) {
    AddTool();
    toolDeed = [](HANDLE tool) {
        WriteBytes(NewFile());
        SetEvent(tool);
    };
    Open();
    Press(IDC_DRIVER_CONFIG_NEW);
    EXPECT_EQ(Path(), NewFile());
    ASSERT_EQ(toolRuns.size(), 1U);
    EXPECT_EQ(toolRuns[0].program, Tool());
    EXPECT_EQ(toolRuns[0].commandLine, Tool() + L" /m \"Maker\" /d \"Loom\" /f \"" + NewFile() + L"\"");
    EXPECT_THAT(BasicLog(), Contains(Record(L"SUCCESS", L"Driver configuration to use: " + NewFile())));
    EXPECT_THAT(AdvancedMessages(),
                Contains(L"DriverConfigDlg::OnBnClickedNewButton(), Creating command line for Driver "
                         L"Configuration"));
}

TEST_F(DriverConfigFileTest, NamesTheNextFileAnew) {
    AddTool();
    WriteBytes(NewFile());
    Open();
    Press(IDC_DRIVER_CONFIG_NEW);
    ASSERT_EQ(toolRuns.size(), 1U);
    EXPECT_THAT(toolRuns[0].commandLine, HasSubstr(L"Maker_1.zdc\""));
}

TEST_F(DriverConfigFileTest, SaysNothingAsLongAsThereIsNoTool) {
    Open();
    Press(IDC_DRIVER_CONFIG_NEW);
    EXPECT_THAT(toolRuns, IsEmpty());
    EXPECT_THAT(BasicMessages(), IsEmpty());
    EXPECT_THAT(AdvancedMessages(), Not(Contains(returned)));
}

TEST_F(DriverConfigFileTest, SaysNothingAsLongAsTheToolIsBeingUnpacked) {
    AddTool();
    const FileHandle unpacking(
        CreateFileW(Tool().c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(unpacking);
    Open();
    Press(IDC_DRIVER_CONFIG_NEW);
    EXPECT_THAT(toolRuns, IsEmpty());
    EXPECT_THAT(BasicMessages(), IsEmpty());
}

TEST_F(DriverConfigFileTest, TellsOfAToolThatDoesNotStart) {
    AddTool();
    toolDeed = nullptr;
    Open();
    Press(IDC_DRIVER_CONFIG_NEW);
    ASSERT_EQ(toolRuns.size(), 1U);
    EXPECT_THAT(BasicLog(), Contains(Record(L"ERROR", L"Failure launching Driver Configuration: " +
                                                          toolRuns[0].commandLine)));
    EXPECT_THAT(AdvancedMessages(), Not(Contains(returned)));
}

TEST_F(DriverConfigFileTest, TellsOfAToolThatEndsWithoutAFile) {
    AddTool();
    Open();
    SetDlgItemTextW(dialog.GetSafeHwnd(), IDC_DRIVER_CONFIG_PATH, L"before");
    Press(IDC_DRIVER_CONFIG_NEW);
    EXPECT_EQ(Path(), L"before");
    EXPECT_THAT(AdvancedMessages(), Contains(returned));
    EXPECT_THAT(BasicLog(), Contains(Record(L"ERROR", L"No Driver Configuration file found: " + NewFile())));
}

TEST_F(DriverConfigFileTest, KeepsAnExceptionInItsSettledForm) {
    AddTool();
    toolDeed = [](HANDLE) { throw Exception(L"broken", 5); };
    Open();
    Press(IDC_DRIVER_CONFIG_NEW);
    EXPECT_THAT(
        BasicLog(),
        Contains(Record(L"ERROR", L"tion in DriverConfigDlg::OnBnClickedConfigNewButton error code = ")));
    EXPECT_THAT(app.Exceptions(), IsEmpty());
}

TEST_F(DriverConfigFileTest, LetsTheListFillAndDropsInputWhileTheToolRuns) {
    AddTool();
    Open();
    std::thread toolUser;
    toolDeed = [&](HANDLE tool) {
        window.PostMessage(otherMessage);
        window.PostMessage(ZVNOPRINTERFOUND);
        dialog.PostMessage(WM_COMMAND, IDCANCEL);
        window.PostMessage(ZVUPDATEDISCOVERYLIST);
        // The tool stays until the last message has come through.
        toolUser = std::thread([this, tool] {
            EXPECT_TRUE(WaitUntil([this] { return window.deliveries > 0; }));
            SetEvent(tool);
        });
    };
    Press(IDC_DRIVER_CONFIG_NEW);
    toolUser.join();
    PumpMessages();
    EXPECT_EQ(window.deliveries, 1);
    EXPECT_EQ(window.emptyHands, 1);
    EXPECT_EQ(window.others, 0);
}

struct Request {
    std::wstring filter;
    std::wstring extension;
    std::wstring folder;
    std::wstring file;
    DWORD flags;
    HWND owner;
};

Request request;
std::wstring choice;

BOOL WINAPI ChooseFile(LPOPENFILENAMEW dialog) {
    const wchar_t* end = dialog->lpstrFilter;
    while (end[0] != L'\0' || end[1] != L'\0') ++end;
    request = {.filter = {dialog->lpstrFilter, end},
               .extension = dialog->lpstrDefExt,
               .folder = dialog->lpstrInitialDir,
               .file = dialog->lpstrFile,
               .flags = dialog->Flags,
               .owner = dialog->hwndOwner};
    if (choice.empty()) return FALSE;
    choice.copy(dialog->lpstrFile, dialog->nMaxFile);
    return TRUE;
}

class LoadTest : public DriverConfigFileTest {
protected:
    void Load(const std::wstring& chosen) {
        choice = chosen;
        const PatchedExport choosing("GetOpenFileNameW", &ChooseFile);
        Press(IDC_DRIVER_CONFIG_LOAD);
    }
};

TEST_F(LoadTest, TakesTheFileOfTheUser) {
    Open();
    Load(L"C:\\presets\\a.zdc");
    EXPECT_EQ(Path(), L"C:\\presets\\a.zdc");
    EXPECT_THAT(BasicLog(), Contains(Record(L"SUCCESS", L"Driver configuration to use: C:\\presets\\a.zdc")));
    EXPECT_THAT(AdvancedMessages(),
                Contains(L"DriverConfigDlg::OnBnClickedConfigLoadButton(), Launching file dialog"));
}

TEST_F(LoadTest, KeepsTheFieldIfTheUserCancels) {
    Open();
    SetDlgItemTextW(dialog.GetSafeHwnd(), IDC_DRIVER_CONFIG_PATH, L"before");
    Load({});
    EXPECT_EQ(Path(), L"before");
    EXPECT_THAT(BasicMessages(), IsEmpty());
}

TEST_F(LoadTest, OffersTheOlderFilesOfTheMachine) {
    Open();
    Load({});
    EXPECT_EQ(request.filter, std::wstring(L"(*.zdc)\0*.zdc", 13));
    EXPECT_EQ(request.extension, L"zdc");
    EXPECT_EQ(request.folder, GetCommonDataFolder() + L"\\DriverConfigurations\\");
    EXPECT_EQ(request.file, L"");
    EXPECT_EQ(request.owner, dialog.GetSafeHwnd());
    EXPECT_NE(request.flags & OFN_FILEMUSTEXIST, 0U);
}

TEST_F(LoadTest, OffersTheNewerFilesForANewerDriver) {
    Open(L"HVMONOV4");
    Load({});
    EXPECT_EQ(request.filter, std::wstring(L"(*.xdc)\0*.xdc", 13));
    EXPECT_EQ(request.extension, L"xdc");
}

BOOL WINAPI FailToChoose(LPOPENFILENAMEW) {
    throw Exception(L"broken", 5);
}

TEST_F(LoadTest, KeepsTheFieldWhereTheSystemHasNoSuchDialog) {
    Open();
    Load(L"C:\\presets\\a.zdc");
    const PatchedImport missing(
        "GetProcAddress", +[](HMODULE, const char*) -> FARPROC { return nullptr; });
    Press(IDC_DRIVER_CONFIG_LOAD);
    EXPECT_EQ(Path(), L"C:\\presets\\a.zdc");
    EXPECT_THAT(app.Exceptions(), IsEmpty());
}

TEST_F(LoadTest, TellsOfAnException) {
    Open();
    const PatchedExport choosing("GetOpenFileNameW", &FailToChoose);
    Press(IDC_DRIVER_CONFIG_LOAD);
    EXPECT_THAT(BasicLog(), Contains(Record(L"ERROR", L"Driver Configuration load exception: broken: 5")));
    EXPECT_THAT(app.Exceptions(), IsEmpty());
}

}  // namespace
