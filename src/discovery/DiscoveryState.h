// What the page of the devices lets its user see and do, as a function of what it knows.
#pragma once

#include <vector>

#include "wizard/ControlState.h"

struct DiscoveryState {
    // Of the package.
    bool isAmazon = false;
    bool fromConfig = false;  // a predefined configuration names the drivers
    bool hasNimbojet = false;
    bool supportsUsb = false;
    // Of the drivers that the page offers, and of the selected one.
    bool hasDrivers = false;
    bool hasConfigTool = false;  // for one of them
    bool takesConfiguration = true;
    bool isV4Driver = false;
    // Of what the user has picked.
    bool isUsb = false;
    bool isSearchOver = false;  // a connection was picked that needs no search
    bool canGoOn = false;
};

// Returns how each control stands that depends on the state. Any thread.
std::vector<ControlState> ControlsFor(const DiscoveryState& state);
