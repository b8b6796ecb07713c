#include "tools/PackageCheck/Checks.h"

#include "tools/PackageCheck/ElementRules.h"
#include "tools/PackageCheck/SettingsRules.h"
#include "tools/PackageCheck/TextRules.h"

namespace packagecheck {

namespace {

using Check = void (*)(const Package& package, Report& report);

constexpr Check checks[] = {
    CheckTextFiles,
    CheckElements,
    CheckSettings,
};

}  // namespace

std::vector<Finding> CheckPackage(const Package& package) {
    Report report;
    for (const Check check : checks) check(package, report);
    return report.Sorted();
}

}  // namespace packagecheck
