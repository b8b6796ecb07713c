// What a run of the wizard would do with a package, before it does.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/CatalogueSource.h"
#include "printer/PrinterChoice.h"
#include "tools/Intention.h"
#include "tools/PackageCheck/InstalledStates.h"
#include "tools/PackageCheck/Package.h"

namespace packagecheck {

// The run that is planned.
struct PlanOptions {
    NetworkAddress printer;  // of the command line
    std::wstring language;   // the code of the language file
    TargetSystem system{.name = L"WINDOWS_BLUE", .isWindows8OrLater = true};
    InstalledStates installed;
};

enum class PageState { Shown, Hidden, OnDemand };

struct PlannedPage {
    std::wstring_view title;
    PageState state = PageState::Shown;
    std::string reason;  // empty for a page that is shown
};

// A package that the run comes to.
struct PlannedPackage {
    std::string file;
    std::wstring name;
    std::wstring version;
    bool isDriver = false;
    Intention intention = Intention::Install;
    std::string reason;
    std::wstring document;  // of its installation; empty where it is not installed
    std::vector<PlannedPackage> dependents;
};

// A package that the run does not come to.
struct LeftOutPackage {
    std::string file;
    std::wstring name;
    std::string reason;
};

struct Plan {
    bool isSilent = false;
    bool endsAtOnce = false;
    std::vector<std::string> obstacles;  // what stops a silent run, or keeps it from being one
    std::vector<PlannedPage> pages;
    std::vector<PlannedPackage> packages;  // in the order of their installation
    std::vector<LeftOutPackage> leftOut;
    std::wstring programFolder;
    std::vector<std::wstring> programs;  // with their arguments, as STARTAPP names them
};

// Plans the run as it goes where the user changes nothing on the pages and every installation succeeds.
// Computed by the logic of the wizard itself.
Plan MakePlan(const Package& package, const PlanOptions& options);

// Returns true for a package that the run installs, in whatever way.
bool IsInstalled(const PlannedPackage& package);

}  // namespace packagecheck
