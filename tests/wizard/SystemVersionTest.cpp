// What depends on the version of the system. Only where the system can be told to report another one.

#include <windows.h>

#include "CommonLib/Utf8.h"
#include "tests/wizard/ShownRunTest.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr wchar_t versionKey[] = L"Software\\Wine\\AppDefaults\\Kestrune.exe";

class SystemVersionTest : public ShownRunTest {
protected:
    void SetUp() override {
        ShownRunTest::SetUp();
        if (GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") == nullptr) {
            GTEST_SKIP() << "this system reports its own version alone";
        }
        tree.SetSettings(std::wstring(Settings::shownFromProgress) +
                         L"<WIN8_DRVTYPES>NEW</WIN8_DRVTYPES><WINXP_DRVTYPES>OLD</WINXP_DRVTYPES>");
    }

    void TearDown() override {
        RegDeleteTreeW(HKEY_CURRENT_USER, versionKey);
        ShownRunTest::TearDown();
    }

    static void Report(const std::wstring& version) {
        RegSetKeyValueW(HKEY_CURRENT_USER, versionKey, L"Version", REG_SZ, version.c_str(),
                        static_cast<DWORD>((version.size() + 1) * sizeof(wchar_t)));
    }

    void AddDriver(const std::wstring& file, const std::wstring& identifier, std::uint32_t code = 0) {
        tree.Add({.path = L"Drivers\\x64\\" + file,
                  .properties = Element(L"ProductName", identifier) + Element(L"DRIVERID", identifier),
                  .install = {.steps = {}, .code = code}});
    }
};

// A version and the tag that lists the drivers for it.
struct VersionCase {
    const wchar_t* version;
    const wchar_t* message;
    const wchar_t* installed;
};

void PrintTo(const VersionCase& given, std::ostream* stream) {
    *stream << ToUtf8(given.version);
}

class DriverListTest : public SystemVersionTest, public testing::WithParamInterface<VersionCase> {};

TEST_P(DriverListTest, IsThatOfTheSystem) {
    Report(GetParam().version);
    AddDriver(L"new.msi", L"NEW");
    AddDriver(L"old.msi", L"OLD");
    RunShown();
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", GetParam().message));
    EXPECT_THAT(Installs(), ElementsAre(GetParam().installed));
}

INSTANTIATE_TEST_SUITE_P(Versions, DriverListTest,
                         testing::Values(VersionCase{L"vista", L"Using WINXP_DRVTYPES: OLD", L"old.msi"},
                                         VersionCase{L"win2008r2", L"Using WINXP_DRVTYPES: OLD", L"old.msi"},
                                         VersionCase{L"win8", L"Using WIN8_DRVTYPES: NEW", L"new.msi"},
                                         VersionCase{L"win81", L"Using WIN8_DRVTYPES: NEW", L"new.msi"},
                                         VersionCase{L"win10", L"Using WIN8_DRVTYPES: NEW", L"new.msi"}),
                         [](const testing::TestParamInfo<VersionCase>& given) {
                             return ToUtf8(given.param.version);
                         });

TEST_F(SystemVersionTest, AScanDriverThatFailsOnAnOldSystemIsNotSupportedThereAndStopsNothing) {
    Report(L"winxp64");
    AddDriver(L"scan.msi", L"SCAN", 1603);
    AddDriver(L"z.msi", L"OLD");
    const FinishedRun run = RunShown();
    EXPECT_EQ(run.status, StatusDocument({{L"SCAN", 4}, {L"OLD", 0}}));
    EXPECT_EQ(run.installStatus, L"NOT_SUPPORTED");
    EXPECT_THAT(BasicLog(), HasRecord(L"ERROR", L"MSI Installer returned an error"));
    EXPECT_THAT(Removals(), IsEmpty());
}

TEST_F(SystemVersionTest, AScanDriverThatFailsOnANewerSystemStopsTheRun) {
    Report(L"vista");
    AddDriver(L"scan.msi", L"SCAN", 1603);
    wizard.Start();
    EXPECT_EQ(wizard.Answer(IDOK).title, L"Error");
    EXPECT_EQ(ReadFinishPage().status, StatusDocument({{L"SCAN", 1}}));
}

TEST_F(SystemVersionTest, AnotherDriverThatFailsOnAnOldSystemStopsTheRun) {
    Report(L"winxp64");
    AddDriver(L"old.msi", L"OLD", 1603);
    wizard.Start();
    EXPECT_EQ(wizard.Answer(IDOK).title, L"Error");
    EXPECT_EQ(ReadFinishPage().status, StatusDocument({{L"OLD", 1}}));
}

}  // namespace
