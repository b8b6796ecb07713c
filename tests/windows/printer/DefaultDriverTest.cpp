#include <gmock/gmock.h>

#include "CommonLib/SystemVersion.h"
#include "printer/DefaultDriver.h"

namespace {

TEST(DefaultDriverTest, IsThatOfTheColourClass) {
    InstallSettings settings;
    const auto set = [&](const std::wstring& tag, std::wstring_view driver) {
        settings.SetString(TextTag(tag), driver);
    };
    const std::wstring prefix = IsWindowsVersionOrGreater(WindowsVersion::Windows8) ? L"WIN8_" : L"";
    set(prefix + L"MONO_DEFAULT", L"m");
    set(prefix + L"COLOR_DEFAULT", L"c");
    set(prefix + L"NO_COMM_DEFAULT", L"n");
    EXPECT_EQ(GetDefaultDriver(settings, L"mono"), L"m");
    EXPECT_EQ(GetDefaultDriver(settings, L"color"), L"c");
    EXPECT_EQ(GetDefaultDriver(settings, L"Color"), L"n");
    EXPECT_EQ(GetDefaultDriver(settings, L""), L"n");
}

}  // namespace
