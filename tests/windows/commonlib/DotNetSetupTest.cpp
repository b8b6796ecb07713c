#include <windows.h>

#include <filesystem>

#include "CommonLib/DotNetSetup.h"
#include "CommonLib/Utf8.h"
#include "tests/windows/world/ChildProcess.h"
#include "tests/windows/world/LogWorld.h"
#include "tests/windows/world/ScratchFolder.h"

namespace {

using testing::ElementsAre;

// A setup program, and what it does: end with a code, once a file is there.
class SetupProgram {
public:
    explicit SetupProgram(unsigned code, const std::wstring& awaitedFile = {}) {
        std::filesystem::copy_file(CompanionPath(), Path());
        WriteBytes(Path() + L".setup", std::to_string(code) + "\n" + ToUtf8(awaitedFile) + "\n");
    }

    std::wstring Path() const { return folder / L"setup.exe"; }
    std::string CommandLine() const { return ReadBytes(Path() + L".calls"); }

private:
    ScratchFolder folder;
};

class DotNetSetupTest : public LogWorld {};

TEST_F(DotNetSetupTest, RunsTheProgramWithoutARestart) {
    const SetupProgram setup(0);
    EXPECT_EQ(InstallDotNetRuntime(setup.Path()), 0U);
    EXPECT_EQ(setup.CommandLine(), " /norestart ");
    EXPECT_THAT(BasicLog(), ElementsAre(Record(L"", L"Installing .Net Framework"),
                                        Record(L"", L"Installing .Net Framework succeeded")));
    EXPECT_THAT(AdvancedMessages(), ElementsAre(L"Installing .Net Framework", L" /norestart ",
                                                L"Installing .Net Framework succeeded",
                                                L"Installing .Net Framework exitCode = 0"));
    EXPECT_EQ(AdvancedLog().front().application, L"DotNetInstall");
}

TEST_F(DotNetSetupTest, CountsAWantedRestartAsFailedInTheLog) {
    const SetupProgram setup(3010);
    EXPECT_EQ(InstallDotNetRuntime(setup.Path()), 3010U);
    EXPECT_THAT(BasicMessages(),
                ElementsAre(L"Installing .Net Framework", L"Installing .Net Framework failed"));
    EXPECT_THAT(AdvancedMessages(), testing::Contains(L"Installing .Net Framework exitCode = 3010"));
}

TEST_F(DotNetSetupTest, CountsAProgramThatCannotBeStartedAsFailed) {
    EXPECT_EQ(InstallDotNetRuntime(L"C:\\no such folder\\setup.exe"), ERROR_PATH_NOT_FOUND);
    EXPECT_THAT(BasicMessages(),
                ElementsAre(L"Installing .Net Framework", L"Installing .Net Framework failed"));
}

TEST_F(DotNetSetupTest, RunsAPackageByTheSystemsInstaller) {
    EXPECT_NE(InstallDotNetRuntime(L"C:\\no such folder\\setup.msi"), 0U);
    EXPECT_THAT(AdvancedMessages(),
                testing::Contains(L"msiexec.exe /i \"C:\\no such folder\\setup.msi\" /norestart"));
}

TEST(SetupProgramTest, IsKnownByItsExtension) {
    EXPECT_TRUE(IsSetupProgram(L"C:\\a.EXE"));
    EXPECT_TRUE(IsSetupProgram(L"C:\\a.msi"));
    EXPECT_FALSE(IsSetupProgram(L"C:\\a.exe.txt"));
    EXPECT_FALSE(IsSetupProgram(L"C:\\readme"));
    EXPECT_FALSE(IsSetupProgram(L"exe"));
}

// A window that leaves a file when it paints itself, and counts what else is posted to it.
class PaintedWindow {
public:
    explicit PaintedWindow(const std::wstring& file) {
        painted = file;
        posted = 0;
        const WNDCLASSW kind{.lpfnWndProc = &Procedure, .lpszClassName = L"KestrunePaintedWindow"};
        RegisterClassW(&kind);
        window = CreateWindowW(kind.lpszClassName, L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr, nullptr,
                               nullptr, nullptr);
        UpdateWindow(window);
        std::filesystem::remove(painted);
    }
    PaintedWindow(const PaintedWindow&) = delete;
    PaintedWindow& operator=(const PaintedWindow&) = delete;
    ~PaintedWindow() { DestroyWindow(window); }

    HWND window;
    static inline int posted = 0;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_PAINT) WriteBytes(painted);
        if (message == WM_APP || message == WM_KEYDOWN) ++posted;
        return DefWindowProcW(window, message, wParam, lParam);
    }

    static inline std::wstring painted;
};

TEST_F(DotNetSetupTest, KeepsTheWindowPaintedAndDropsTheRest) {
    const ScratchFolder folder;
    const PaintedWindow window(folder / L"painted");
    InvalidateRect(window.window, nullptr, TRUE);
    PostMessageW(window.window, WM_APP, 0, 0);
    PostMessageW(window.window, WM_KEYDOWN, VK_RETURN, 0);
    // The program ends only when the window has been painted.
    const SetupProgram setup(0, folder / L"painted");
    EXPECT_EQ(InstallDotNetRuntime(setup.Path()), 0U);
    EXPECT_EQ(PaintedWindow::posted, 0);
    MSG message{};
    EXPECT_FALSE(PeekMessageW(&message, window.window, WM_APP, WM_APP, PM_REMOVE));
    EXPECT_FALSE(PeekMessageW(&message, window.window, WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE));
}

class DotNetFlagTest : public testing::Test {
protected:
    static constexpr const wchar_t* key = L"SOFTWARE\\Kestrune Test DotNet";
    ~DotNetFlagTest() override { RegDeleteTreeW(HKEY_LOCAL_MACHINE, key); }

    static void Write(const wchar_t* name, DWORD value) {
        RegSetKeyValueW(HKEY_LOCAL_MACHINE, key, name, REG_DWORD, &value, sizeof(value));
    }
};

TEST_F(DotNetFlagTest, IsTheValueOfTheKey) {
    Write(L"Install", 7);
    EXPECT_EQ(IsDotNetInstalled(key), 7U);
}

TEST_F(DotNetFlagTest, IsZeroWithoutTheKey) {
    EXPECT_EQ(IsDotNetInstalled(key), 0U);
}

TEST_F(DotNetFlagTest, IsZeroWithoutTheValue) {
    Write(L"Release", 7);
    EXPECT_EQ(IsDotNetInstalled(key), 0U);
}

}  // namespace
