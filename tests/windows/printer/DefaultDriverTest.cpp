#include <gmock/gmock.h>

#include "CommonLib/SystemVersion.h"
#include "printer/DefaultDriver.h"

namespace {

TEST(DefaultDriverTest, IsThatOfTheColourClass) {
    InstallSettings settings;
    const std::wstring prefix = IsWindowsVersionOrGreater(WindowsVersion::Windows8) ? L"WIN8_" : L"";
    settings.SetString(prefix + L"MONO_DEFAULT", L"m");
    settings.SetString(prefix + L"COLOR_DEFAULT", L"c");
    settings.SetString(prefix + L"NO_COMM_DEFAULT", L"n");
    EXPECT_EQ(GetDefaultDriver(settings, L"mono"), L"m");
    EXPECT_EQ(GetDefaultDriver(settings, L"color"), L"c");
    EXPECT_EQ(GetDefaultDriver(settings, L"Color"), L"n");
    EXPECT_EQ(GetDefaultDriver(settings, L""), L"n");
}

}  // namespace
