#include <windows.h>

#include <shellapi.h>

#include <filesystem>
#include <mutex>

#include "CommonLib/Files.h"
#include "printer/DriverConfigPaths.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/ScratchFolder.h"
#include "tests/windows/world/SettingsTest.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

std::vector<std::wstring> unpackings;
DWORD paused = 0;

HINSTANCE WINAPI KeepUnpacking(HWND, LPCWSTR verb, LPCWSTR program, LPCWSTR parameters, LPCWSTR, INT) {
    unpackings.push_back(std::wstring(verb) + L" " + program + L" " + parameters);
    return reinterpret_cast<HINSTANCE>(INT_PTR{42});
}

void WINAPI KeepPause(DWORD milliseconds) {
    paused += milliseconds;
}

// The unpacking is not run; what it would have left lies in the temporary folder.
class ConfigExePathsTest : public SettingsTest {
protected:
    ConfigExePathsTest() {
        unpackings.clear();
        paused = 0;
        fs::remove_all(Kit());
        Settings().SetString(Tag::OEM, L"Maker");
        Settings().SetDevices({L"<CONFIG_EXE_PATH>Ardentis</CONFIG_EXE_PATH>"});
    }
    ~ConfigExePathsTest() override { fs::remove_all(Kit()); }

    static std::wstring Kit() { return GetTemporaryFolder() + L"ArdentisKit"; }
    static std::wstring Tools() { return Kit() + L"\\Maker\\ArdentisKit\\"; }
    static void Resolve() {
        const PatchedImport shell("ShellExecuteW", &KeepUnpacking);
        const PatchedImport sleep("Sleep", &KeepPause);
        ResolveConfigExePaths(Settings(), AppCatalogue::GetInstance());
    }
    static std::wstring Unpacking(const std::wstring& package) {
        return L"runas cmd.exe CMD /c msiexec /a \"" + package + L"\" /qn TARGETDIR=%temp%\\";
    }
};

TEST_F(ConfigExePathsTest, UnpackTheLastPackageThatHoldsTheName) {
    tree.Add(L"Setup\\MakerArdentis.msi");
    tree.Add(L"Setup\\Other.msi");
    WriteBytes(Tools() + L"TheArdentis.exe");
    WriteBytes(Tools() + L"Other.exe");
    Resolve();
    const std::wstring package = GetExeDirectory() + L"\\..\\MakerArdentis.msi";
    ASSERT_EQ(unpackings.size(), 2U);
    EXPECT_EQ(unpackings[0], Unpacking(package) + L"ArdentisKit");
    EXPECT_EQ(paused, 5000U);
    EXPECT_THAT(Settings().GetDevices(),
                ElementsAre(L"<CONFIG_EXE_PATH>" + Tools() + L"TheArdentis.exe</CONFIG_EXE_PATH>"));
}

TEST_F(ConfigExePathsTest, HandTheFolderOverWhereNoPackageFits) {
    Resolve();
    ASSERT_FALSE(unpackings.empty());
    EXPECT_EQ(unpackings[0], Unpacking(GetExeDirectory() + L"\\..\\") + L"ArdentisKit");
    EXPECT_THAT(Settings().GetDevices(), ElementsAre(L"<CONFIG_EXE_PATH></CONFIG_EXE_PATH>"));
}

TEST_F(ConfigExePathsTest, LeaveADeviceWithoutAToolAlone) {
    Settings().SetDevices({L"<DRIVER_ID>PS</DRIVER_ID>"});
    Resolve();
    EXPECT_TRUE(unpackings.empty());
    EXPECT_THAT(Settings().GetDevices(), ElementsAre(L"<DRIVER_ID>PS</DRIVER_ID>"));
}

}  // namespace
