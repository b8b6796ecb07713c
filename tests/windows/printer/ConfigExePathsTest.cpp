#include <windows.h>

#include <filesystem>
#include <mutex>

#include "CommonLib/Files.h"
#include "printer/DriverConfigPaths.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/ScratchFolder.h"
#include "tests/windows/world/SettingsWorld.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

std::vector<std::wstring> unpackings;
// The processes that were waited for, in the order of their starts.
std::vector<HANDLE> started;
std::vector<HANDLE> awaited;

BOOL WINAPI KeepUnpacking(LPCWSTR, LPWSTR commandLine, LPSECURITY_ATTRIBUTES, LPSECURITY_ATTRIBUTES, BOOL,
                          DWORD, LPVOID, LPCWSTR, LPSTARTUPINFOW, LPPROCESS_INFORMATION information) {
    // One at a time, as Windows Installer wants it.
    EXPECT_EQ(started.size(), awaited.size());
    unpackings.emplace_back(commandLine);
    *information = {.hProcess = CreateEventW(nullptr, TRUE, FALSE, nullptr),
                    .hThread = CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    started.push_back(information->hProcess);
    return TRUE;
}

DWORD WINAPI KeepWait(HANDLE process, DWORD) {
    awaited.push_back(process);
    return WAIT_OBJECT_0;
}

// The unpacking is not run; what it would have left lies in the temporary folder.
class ConfigExePathsTest : public SettingsWorld {
protected:
    ConfigExePathsTest() {
        unpackings.clear();
        started.clear();
        awaited.clear();
        fs::remove_all(Kit());
        Settings().SetString(Tag::OEM, L"Maker");
        Settings().SetDevices({L"<CONFIG_EXE_PATH>Ardentis</CONFIG_EXE_PATH>"});
    }
    ~ConfigExePathsTest() override { fs::remove_all(Kit()); }

    static std::wstring Kit() { return GetTemporaryFolder() + L"ArdentisKit"; }
    static std::wstring Tools() { return Kit() + L"\\Maker\\ArdentisKit\\"; }
    void Resolve() const {
        const PatchedImport starting("CreateProcessW", &KeepUnpacking);
        const PatchedImport waiting("WaitForSingleObject", &KeepWait);
        ResolveConfigExePaths(Settings(), applications);
    }

    AppCatalogue applications;
};

TEST_F(ConfigExePathsTest, UnpackTheLastPackageThatHoldsTheName) {
    tree.Add(L"Setup\\MakerArdentis.msi");
    tree.Add(L"Setup\\Other.msi");
    WriteBytes(Tools() + L"TheArdentis.exe");
    WriteBytes(Tools() + L"Other.exe");
    Resolve();
    ASSERT_EQ(unpackings.size(), 1U);
    EXPECT_THAT(unpackings[0],
                testing::EndsWith(L" /a \"" + GetExeDirectory() +
                                  L"\\..\\MakerArdentis.msi\" /qn TARGETDIR=\"" + Kit() + L"\""));
    EXPECT_EQ(awaited, started);
    EXPECT_THAT(Settings().GetDevices(),
                ElementsAre(L"<CONFIG_EXE_PATH>" + Tools() + L"TheArdentis.exe</CONFIG_EXE_PATH>"));
}

TEST_F(ConfigExePathsTest, UnpackTheNewerToolOfTheCatalogueOnceMore) {
    MSI_APP tool;
    tool.appType = L"V4DRIVERCONFIG";
    tool.msiPath = L"C:\\tool.msi";
    applications.Append(tool);
    Resolve();
    EXPECT_THAT(unpackings, ElementsAre(HasSubstr(L"tool.msi")));
    unpackings.clear();
    tree.Add(L"Setup\\MakerArdentis.msi");
    Settings().SetDevices({L"<CONFIG_EXE_PATH>Ardentis</CONFIG_EXE_PATH>"});
    Resolve();
    EXPECT_THAT(unpackings, ElementsAre(HasSubstr(L"MakerArdentis.msi"), HasSubstr(L"tool.msi")));
}

TEST_F(ConfigExePathsTest, UnpackNothingWhereNoPackageFits) {
    Resolve();
    EXPECT_TRUE(unpackings.empty());
    EXPECT_THAT(Settings().GetDevices(), ElementsAre(L"<CONFIG_EXE_PATH></CONFIG_EXE_PATH>"));
}

TEST_F(ConfigExePathsTest, LeaveADeviceWithoutAToolAlone) {
    Settings().SetDevices({L"<DRIVER_ID>PS</DRIVER_ID>"});
    Resolve();
    EXPECT_TRUE(unpackings.empty());
    EXPECT_THAT(Settings().GetDevices(), ElementsAre(L"<DRIVER_ID>PS</DRIVER_ID>"));
}

}  // namespace
