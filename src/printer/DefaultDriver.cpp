#include "printer/DefaultDriver.h"

#include "CommonLib/SystemVersion.h"
#include "printer/DerivedNames.h"

std::wstring GetDefaultDriver(const InstallSettings& settings, const std::wstring& colourClass) {
    return settings.GetString(
        DefaultDriverTag(colourClass, IsWindowsVersionOrGreater(WindowsVersion::Windows8)));
}
