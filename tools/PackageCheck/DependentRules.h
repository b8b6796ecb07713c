// Rules of the packages that others take along.
#pragma once

#include "tools/PackageCheck/Package.h"
#include "tools/PackageCheck/Rule.h"

namespace packagecheck {

namespace rules {

inline constexpr Rule dependentMissing{
    "dependent-missing",
    Severity::Error,
    "The application is installed without it.",
    "Put the file into Dependents/x64 or Dependents/x86_x64, or correct its name in DEPENDENTAPPS.",
    "DEPENDENTAPPS holds file names. A file of the folder Dependents is taken along if its whole name occurs "
    "in the text, in the same case of letters.",
};

inline constexpr Rule dependentByAccident{
    "dependent-by-accident",
    Severity::Warning,
    "A further package is installed, whose name is a part of one in the list.",
    "Rename one of the two files.",
    "The name of a file is looked for anywhere in DEPENDENTAPPS, so Watch.msi is found in TonerWatch.msi.",
};

inline constexpr Rule dependentIgnored{
    "dependent-ignored",
    Severity::Warning,
    "The packages are not taken along.",
    "Put the application into the folder Applications, or install the packages by themselves.",
    "Only applications of the folder Applications take others along; dependents, drivers and optional "
    "software do not.",
};

inline constexpr Rule dependentCycle{
    "dependent-cycle",
    Severity::Error,
    "The package is left out where it depends on itself, and an error is in the log.",
    "Take its own name out of DEPENDENTAPPS, or that of the package that names it.",
    "A package that leads back to itself, straight or over others, would be read for ever.",
};

inline constexpr Rule dependentUnused{
    "dependent-unused",
    Severity::Warning,
    "The package is never installed.",
    "Name it in the DEPENDENTAPPS of an application, or remove it.",
    "Packages in the folder Dependents are installed along with an application that names them, and in no "
    "other way.",
};

}  // namespace rules

void CheckDependents(const Package& package, Report& report);

}  // namespace packagecheck
