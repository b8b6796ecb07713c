#include <windows.h>

#include <gtest/gtest.h>

#include "CommonLib/SystemVersion.h"
#include "framework/Handles.h"
#include "tests/windows/world/ChildProcess.h"

namespace {

// Where the system lets its reported version be set for one program.
constexpr wchar_t seam[] = L"Software\\Wine";
constexpr wchar_t companionKey[] = L"Software\\Wine\\AppDefaults\\Companion.exe";

struct ReportedVersion {
    std::wstring setting;
    std::string answer;
};

class SystemVersionTest : public testing::TestWithParam<ReportedVersion> {
protected:
    void SetUp() override {
        RegistryKey key;
        if (RegOpenKeyExW(HKEY_CURRENT_USER, seam, 0, KEY_READ, key.put()) != ERROR_SUCCESS) {
            GTEST_SKIP() << "this system reports its own version alone";
        }
    }
    void TearDown() override { RegDeleteTreeW(HKEY_CURRENT_USER, companionKey); }
};

TEST_P(SystemVersionTest, HasItsIdAndName) {
    const std::wstring& setting = GetParam().setting;
    RegSetKeyValueW(HKEY_CURRENT_USER, companionKey, L"Version", REG_SZ, setting.c_str(),
                    static_cast<DWORD>((setting.size() + 1) * sizeof(wchar_t)));
    ChildProcess companion(CompanionPath(), L"tell-version");
    EXPECT_EQ(companion.ReadLine(), GetParam().answer);
}

const ReportedVersion versions[] = {
    {L"winxp64", "0 WINDOWS_UNKNOWN"}, {L"win2003", "0 WINDOWS_UNKNOWN"}, {L"vista", "8 WINDOWS_VISTA"},
    {L"win7", "9 WINDOWS_7"},          {L"win8", "10 WINDOWS_8"},         {L"win81", "11 WINDOWS_BLUE"},
    {L"win10", "11 WINDOWS_BLUE"},
};

INSTANTIATE_TEST_SUITE_P(Systems, SystemVersionTest, testing::ValuesIn(versions), [](const auto& version) {
    return std::string(version.param.setting.begin(), version.param.setting.end());
});

TEST(WindowsVersionNameTest, FollowsTheTable) {
    const std::wstring names[] = {L"WINDOWS_UNKNOWN", L"WINDOWS_95",   L"WINDOWS_98", L"WINDOWS_ME",
                                  L"WINDOWS_NT4",     L"WINDOWS_2000", L"WINDOWS_XP", L"WINDOWS_SERVER_2003",
                                  L"WINDOWS_VISTA",   L"WINDOWS_7",    L"WINDOWS_8",  L"WINDOWS_BLUE",
                                  L"WINDOWS_UNKNOWN"};
    for (int id = 0; id <= 12; ++id) EXPECT_EQ(GetWindowsVersionName(id), names[id]);
    EXPECT_EQ(GetWindowsVersionName(-1), L"WINDOWS_UNKNOWN");
}

TEST(WindowsVersionTest, IsNeverOlderThanItself) {
    bool isNewer = false;
    for (const auto version : {WindowsVersion::Windows8_1, WindowsVersion::Windows8, WindowsVersion::Windows7,
                               WindowsVersion::Vista}) {
        EXPECT_TRUE(!isNewer || IsWindowsVersionOrGreater(version));
        isNewer = IsWindowsVersionOrGreater(version);
    }
}

}  // namespace
