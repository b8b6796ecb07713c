// Rules of the packages that others take along.
#pragma once

#include "tools/PackageCheck/Package.h"
#include "tools/PackageCheck/Rule.h"

namespace packagecheck {

namespace rules {

inline constexpr Rule dependentMissing{
    .id = "dependent-missing",
    .severity = Severity::Error,
    .effect = "The application is installed without it.",
    .cure = "Put the file into Dependents/x64 or Dependents/x86_x64, or correct its name in DEPENDENTAPPS.",
    .explanation =
        "DEPENDENTAPPS holds file names. A file of the folder Dependents is taken along if its whole name "
        "occurs "
        "in the text, in the same case of letters."};

inline constexpr Rule dependentByAccident{
    .id = "dependent-by-accident",
    .severity = Severity::Warning,
    .effect = "A further package is installed, whose name is a part of one in the list.",
    .cure = "Rename one of the two files.",
    .explanation =
        "The name of a file is looked for anywhere in DEPENDENTAPPS, so Watch.msi is found in "
        "TonerWatch.msi."};

inline constexpr Rule dependentIgnored{
    .id = "dependent-ignored",
    .severity = Severity::Warning,
    .effect = "The packages are not taken along.",
    .cure = "Put the application into the folder Applications, or install the packages by themselves.",
    .explanation =
        "Only applications of the folder Applications take others along; dependents, drivers and optional "
        "software do not."};

inline constexpr Rule dependentCycle{
    .id = "dependent-cycle",
    .severity = Severity::Error,
    .effect = "The package is left out where it depends on itself, and an error is in the log.",
    .cure = "Take its own name out of DEPENDENTAPPS, or that of the package that names it.",
    .explanation = "A package that leads back to itself, straight or over others, would be read for ever."};

inline constexpr Rule dependentUnused{.id = "dependent-unused",
                                      .severity = Severity::Warning,
                                      .effect = "The package is never installed.",
                                      .cure = "Name it in the DEPENDENTAPPS of an application, or remove it.",
                                      .explanation =
                                          "Packages in the folder Dependents are installed along with an "
                                          "application that names them, and in no "
                                          "other way."};

}  // namespace rules

void CheckDependents(const Package& package, Report& report);

}  // namespace packagecheck
