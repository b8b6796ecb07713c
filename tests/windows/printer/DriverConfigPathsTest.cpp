#include <filesystem>

#include "CommonLib/Files.h"
#include "printer/DriverConfigPaths.h"
#include "tests/windows/world/ScratchFolder.h"
#include "tests/windows/world/SettingsWorld.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class DriverConfigPathsTest : public SettingsWorld {
protected:
    DriverConfigPathsTest() { fs::remove_all(Folder()); }
    ~DriverConfigPathsTest() override { fs::remove_all(Folder()); }

    static std::wstring Folder() { return GetCommonDataFolder() + L"\\DriverConfigurations\\"; }

    // The paths after the files of these names were put in place.
    static std::vector<std::wstring> Resolve(const std::vector<std::wstring>& names) {
        std::vector<std::wstring> devices;
        for (const std::wstring& name : names) {
            devices.push_back(L"<DRIVERCONFIG_PATH>" + name + L"</DRIVERCONFIG_PATH>");
        }
        Settings().SetDevices(devices);
        ResolveDriverConfigPaths(Settings());
        return Settings().GetDeviceValues(L"DRIVERCONFIG_PATH");
    }
};

TEST_F(DriverConfigPathsTest, CopiesTheFileIntoTheCommonFolder) {
    tree.Add(L"Setup\\a.cfg", "content");
    EXPECT_THAT(Resolve({L"a.cfg"}), ElementsAre(Folder() + L"a.cfg"));
    EXPECT_EQ(ReadBytes(Folder() + L"a.cfg"), "content");
}

TEST_F(DriverConfigPathsTest, CountsUpWhereTheNameIsTaken) {
    tree.Add(L"Setup\\a.b.cfg", "content");
    EXPECT_THAT(Resolve({L"a.b.cfg", L"a.b.cfg", L"a.b.cfg", L"a.b.cfg"}),
                ElementsAre(Folder() + L"a.b.cfg", Folder() + L"a.b_1.cfg", Folder() + L"a.b_1_2.cfg",
                            Folder() + L"a.b_1_2_3.cfg"));
    EXPECT_EQ(ReadBytes(Folder() + L"a.b_1_2.cfg"), "content");
}

TEST_F(DriverConfigPathsTest, LeavesADeviceWithoutAFileAlone) {
    Settings().SetDevices({L"<DRIVER_ID>PS</DRIVER_ID>", L"<DRIVERCONFIG_PATH></DRIVERCONFIG_PATH>"});
    ResolveDriverConfigPaths(Settings());
    EXPECT_THAT(Settings().GetDevices(),
                ElementsAre(L"<DRIVER_ID>PS</DRIVER_ID>", L"<DRIVERCONFIG_PATH></DRIVERCONFIG_PATH>"));
    EXPECT_FALSE(fs::exists(Folder()));
}

TEST_F(DriverConfigPathsTest, NamesTheTargetOfAFileThatIsNotThere) {
    EXPECT_THAT(Resolve({L"missing.cfg"}), ElementsAre(Folder() + L"missing.cfg"));
    EXPECT_FALSE(fs::exists(Folder() + L"missing.cfg"));
}

TEST_F(DriverConfigPathsTest, CreatesNoSubfolderOfTheTarget) {
    tree.Add(L"Setup\\sub\\a.cfg", "content");
    EXPECT_THAT(Resolve({L"sub\\a.cfg"}), ElementsAre(Folder() + L"sub\\a.cfg"));
    EXPECT_FALSE(fs::exists(Folder() + L"sub"));
}

TEST_F(DriverConfigPathsTest, LeavesAFileThatNoNameIsLeftFor) {
    tree.Add(L"Setup\\plain", "new");
    WriteBytes(Folder() + L"plain", "old");
    EXPECT_THAT(Resolve({L"plain"}), ElementsAre(Folder() + L"plain"));
    EXPECT_EQ(ReadBytes(Folder() + L"plain"), "old");
    EXPECT_THAT(BasicLog(),
                ElementsAre(Record(L"ERROR",
                                   L"A driver configuration file has no extension and its name is "
                                   L"taken: plain")));
}

}  // namespace
