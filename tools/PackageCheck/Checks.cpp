#include "tools/PackageCheck/Checks.h"

#include "tools/PackageCheck/CatalogueRules.h"
#include "tools/PackageCheck/DependentRules.h"
#include "tools/PackageCheck/DeviceRules.h"
#include "tools/PackageCheck/DriverRules.h"
#include "tools/PackageCheck/ElementRules.h"
#include "tools/PackageCheck/FileRules.h"
#include "tools/PackageCheck/LanguageRules.h"
#include "tools/PackageCheck/SettingsRules.h"
#include "tools/PackageCheck/TextRules.h"

namespace packagecheck {

namespace {

using Check = void (*)(const Package& package, Report& report);

constexpr Check checks[] = {
    CheckTextFiles, CheckElements,  CheckSettings,   CheckDevices, CheckDrivers,
    CheckLanguages, CheckCatalogue, CheckDependents, CheckFiles,
};

}  // namespace

std::vector<Finding> CheckPackage(const Package& package) {
    Report report;
    for (const Check check : checks) check(package, report);
    return report.Sorted();
}

}  // namespace packagecheck
