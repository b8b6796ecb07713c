#include "discovery/DiscoveryState.h"

#include "resources/resource.h"

std::vector<ControlState> ControlsFor(const DiscoveryState& state) {
    const bool offersDrivers = state.hasDrivers && !state.isAmazon;
    const bool offersTool = state.hasConfigTool && !state.isAmazon && !state.fromConfig;
    const bool canConfigure = state.takesConfiguration && !(state.isV4Driver && state.isUsb);
    const bool offersUsb = state.supportsUsb && !state.isAmazon;
    const bool offersNimbojet = state.hasNimbojet && !state.isAmazon;
    const bool canSearch = !state.isSearchOver;
    return {
        {.id = IDC_DISCOVERY_LIST, .enabled = canSearch},
        {.id = IDC_DISCOVERY_REFRESH, .enabled = canSearch},
        {.id = IDC_DISCOVERY_MODIFY_SEARCH, .enabled = canSearch},
        {.id = IDC_DISCOVERY_ADD_PORT, .enabled = canSearch},
        {.id = IDC_DISCOVERY_USB, .shown = offersUsb, .enabled = offersUsb},
        {.id = IDC_DISCOVERY_NIMBOJET, .shown = offersNimbojet, .enabled = offersNimbojet},
        {.id = IDC_DISCOVERY_DRIVER_FRAME, .shown = offersDrivers},
        {.id = IDC_DISCOVERY_DRIVER_LABEL, .shown = offersDrivers, .enabled = offersDrivers},
        // By design: the frame and its label stay where a predefined configuration names the drivers.
        {.id = IDC_DISCOVERY_DRIVER_LIST, .shown = offersDrivers && !state.fromConfig},
        {.id = IDC_DISCOVERY_CONFIGURE, .shown = offersTool, .enabled = canConfigure},
        {.id = IDC_DISCOVERY_FIRST_NOTE, .shown = false},
        {.id = IDC_HELP_BUTTON, .shown = false},
        {.id = mainButton, .enabled = state.canGoOn},
    };
}
