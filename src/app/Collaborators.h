// The objects that the whole program shares, in one place, to be handed to whoever works with them.
#pragma once

#include "catalogue/AppCatalogue.h"
#include "catalogue/DriverInfo.h"
#include "discovery/DiscoveredDevices.h"
#include "printer/DriverConfiguration.h"
#include "settings/InstallSettings.h"
#include "settings/Localizer.h"
#include "wizard/CmdLineHelper.h"
#include "wizard/Controller.h"
#include "wizard/PageContext.h"

// All live until the end of the program.
struct Collaborators {
    InstallSettings& settings;
    Localizer& localizer;
    AppCatalogue& applications;
    DriverInfo& drivers;
    DriverConfiguration& configuration;
    DiscoveredDevices& devices;
    Controller& controller;
    CmdLineHelper& commandLine;

    PageContext ForPages() const { return {controller, settings, localizer}; }
};

// Makes those that do not exist yet.
inline Collaborators TheCollaborators() {
    static DriverConfiguration configuration(InstallSettings::GetInstance(), AppCatalogue::GetInstance(),
                                             DriverInfo::GetInstance());
    return {.settings = InstallSettings::GetInstance(),
            .localizer = Localizer::GetInstance(),
            .applications = AppCatalogue::GetInstance(),
            .drivers = DriverInfo::GetInstance(),
            .configuration = configuration,
            .devices = DiscoveredDevices::GetInstance(),
            .controller = Controller::GetInstance(),
            .commandLine = CmdLineHelper::GetInstance()};
}
