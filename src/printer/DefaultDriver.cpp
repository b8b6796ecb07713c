#include "printer/DefaultDriver.h"

#include "CommonLib/SystemVersion.h"
#include "printer/DerivedNames.h"

namespace {

constexpr std::uint16_t windows8 = 2;

}  // namespace

std::wstring GetDefaultDriver(const InstallSettings& settings, const std::wstring& colourClass) {
    return settings.GetString(DefaultDriverTag(colourClass, IsWindowsVersionOrGreater(windows8)));
}
