// What every page of the wizard works with.
#pragma once

#include "settings/InstallSettings.h"
#include "settings/Localizer.h"

class Controller;

// All three outlive the pages.
struct PageContext {
    Controller& controller;
    InstallSettings& settings;
    const Localizer& localizer;
};
