#include "app/PageRules.h"

void SettleChainTags(InstallSettings& settings, const DriverInfo& drivers) {
    settings.SetBool(settings.IsAmazonSupported() ? Tag::HIDE_SECURITY : Tag::HIDE_CONNECTIVITY, true);
    settings.SetBool(Tag::APPS_ONLY_PACKAGE, false);
    if (drivers.GetDrivers().empty() && !settings.GetBool(Tag::INSTALL_FROM_CONFIG)) {
        settings.SetBool(Tag::APPS_ONLY_PACKAGE, true);
    }
}
