// Makes the choice of a printer count.
#pragma once

#include <string>

#include "catalogue/AppCatalogue.h"
#include "catalogue/DriverInfo.h"
#include "printer/PrinterChoice.h"
#include "settings/InstallSettings.h"
#include "settings/Localizer.h"

// What a choice changes, and the texts for the label of its help link.
struct ChoiceTargets {
    InstallSettings& settings;
    AppCatalogue& applications;
    DriverInfo& drivers;
    const Localizer& localizer;
};

// Writes the settings and the records of the choice, selects its drivers and parts, and builds its help link.
// Main thread.
void ApplyChoice(const PrinterChoice& choice, const ChoiceTargets& targets);

// Returns what the makers of choices need to know, with that driver for the printer.
ChoiceInputs MakeChoiceInputs(const InstallSettings& settings, const DriverInfo& drivers,
                              const std::wstring& driverId);
