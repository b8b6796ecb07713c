// Settings that somebody has written to lead the program astray: each value stands in every tag that becomes
// a path or a part of a command line.

#include "tests/wizard/WizardTest.h"

using testing::ElementsAre;

namespace {

namespace fs = std::filesystem;

class HostileSettingsTest : public WizardTest, public testing::WithParamInterface<std::wstring> {
protected:
    // Programs under the names that a bare name, or a path that is cut at a blank, would find.
    void SetUp() override {
        WizardTest::SetUp();
        decoys = {tree.ProgramFolder() / L"cmd.exe", tree.ProgramFolder() / L"msiexec.exe",
                  fs::path(TargetFolder()).root_path() / L"Program.exe"};
        for (const fs::path& decoy : decoys) {
            fs::copy_file(BuildFolder() / L"tests" / L"wizard" / L"Probe.exe", decoy,
                          fs::copy_options::overwrite_existing);
        }
    }
    void TearDown() override {
        std::error_code ignored;
        fs::remove(decoys.back(), ignored);
        WizardTest::TearDown();
    }

    static std::wstring Everywhere(const std::wstring& value) {
        std::wstring document;
        for (const wchar_t* const tag :
             {L"PRINTER_NAME", L"PORT_NAME", L"HOST_NAME", L"PORT_TYPE", L"NETWORK_PATH", L"IPADDRESS",
              L"DRIVERCONFIG_PATH", L"CONFIG_EXE_PATH", L"OMBREL_DESC", L"PRINTER_SERIES_NAME",
              L"PRINTER_MODEL_NAME"}) {
            document += Element(tag, value);
        }
        return document;
    }

    std::vector<fs::path> decoys;
};

TEST_P(HostileSettingsTest, StartNothingAndLeaveNothingUndone) {
    tree.Add({.path = L"Applications\\a.msi",
              .properties = Element(L"ProductName", L"a") + Element(L"STARTAPP", GetParam() + L";")});
    tree.SetSettings(Settings::silent + Everywhere(GetParam()) + Element(L"INFOCENTER_LINK", GetParam()) +
                     Element(L"PRODUCT_REGISTRATION_LINK", GetParam()) + Element(L"TARGET_DIR", GetParam()));
    tree.SetUserSettings(Settings::silent +
                         Element(L"DEVICE", Element(L"DRIVER_ID", L"MONOV4") + Everywhere(GetParam())));
    Run();
    EXPECT_EQ(wizard.ExitCode(), 0U);
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi"));
    for (const fs::path& decoy : decoys) EXPECT_FALSE(fs::exists(decoy.wstring() + L".calls")) << decoy;
}

INSTANTIATE_TEST_SUITE_P(Values, HostileSettingsTest,
                         testing::Values(L"cmd.exe", L"cmd.exe /c echo", L"..\\..\\..\\x", L"C:\\Program",
                                         L"\\\\?\\C:\\Program.exe", L"\\\\localhost\\share\\x.exe", L"CON",
                                         L"NUL", L"\\\\.\\NUL", L"%COMSPEC%", L"a\" /qn \"b", L"a & cmd.exe",
                                         L"a | cmd.exe > x", L"\"", L" ", L"."));

}  // namespace
