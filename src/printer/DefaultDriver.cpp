#include "printer/DefaultDriver.h"

#include "CommonLib/SystemVersion.h"
#include "printer/DerivedNames.h"

std::wstring GetDefaultDriver(const InstallSettings& settings, const std::wstring& colourClass) {
    const std::wstring tag =
        DefaultDriverTag(colourClass, IsWindowsVersionOrGreater(WindowsVersion::Windows8));
    return settings.GetString(TextTag(tag));
}
