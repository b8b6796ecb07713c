#include "settings/VendorName.h"

#include "CommonLib/Vendor.h"
#include "settings/TagNames.h"

bool SettleVendor(InstallSettings& settings) {
    if (!settings.GetString(Tag::OEM).empty()) return true;
    settings.SetString(Tag::OEM, unnamedVendor);
    return false;
}
