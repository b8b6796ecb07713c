// What the page of the ports lets its user see and do, as a function of what it knows.
#pragma once

#include <vector>

#include "wizard/ControlState.h"

enum class PortKind { Existing, Network, Shared };

struct AddPortState {
    PortKind kind = PortKind::Existing;
    bool isComplete = false;  // what describes a port of that kind is there
    // Of the package.
    bool appsOnly = false;
    bool isAmazon = false;
    bool fromConfig = false;  // a predefined configuration names the drivers
    // Of the drivers that the page offers, and of the selected one.
    bool hasDrivers = false;
    bool withoutDriverList = false;  // who opened the page wants no list
    bool hasConfigTool = false;
};

// Returns how each control stands that depends on the state. Any thread.
std::vector<ControlState> ControlsFor(const AddPortState& state);
