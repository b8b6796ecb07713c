#include "ports/AddPortState.h"

#include "resources/resource.h"

std::vector<ControlState> ControlsFor(const AddPortState& state) {
    const bool isExisting = state.kind == PortKind::Existing;
    const bool isNetwork = state.kind == PortKind::Network;
    const bool isShared = state.kind == PortKind::Shared;
    const bool mayOfferDrivers = state.hasDrivers && !state.isAmazon;
    const bool hasList = mayOfferDrivers && !state.withoutDriverList;
    const bool offersDrivers = hasList && !state.fromConfig;
    return {
        {.id = IDC_ADD_PORT_TITLE, .shown = false, .enabled = !state.appsOnly},
        {.id = IDC_ADD_PORT_LIST, .shown = isExisting},
        {.id = IDC_ADD_PORT_NAME_LABEL, .shown = isNetwork},
        {.id = IDC_ADD_PORT_NAME, .shown = isNetwork},
        {.id = IDC_ADD_PORT_ADDRESS_LABEL, .shown = isNetwork},
        {.id = IDC_ADD_PORT_ADDRESS, .shown = isNetwork},
        {.id = IDC_ADD_PORT_PATH_LABEL, .shown = isShared},
        {.id = IDC_ADD_PORT_PATH, .shown = isShared},
        // By design: the frame stays where a configuration decides about the drivers, and the label also
        // where the list is not wanted.
        {.id = IDC_ADD_PORT_DRIVER_FRAME, .shown = hasList},
        {.id = IDC_ADD_PORT_DRIVER_LABEL, .shown = mayOfferDrivers, .enabled = !state.isAmazon},
        {.id = IDC_ADD_PORT_DRIVER_LIST, .shown = offersDrivers},
        {.id = IDC_ADD_PORT_CONFIGURE,
         .shown = offersDrivers && state.hasConfigTool,
         .enabled = state.hasConfigTool},
        {.id = IDC_HELP_BUTTON, .shown = false},
        {.id = mainButton, .enabled = state.isComplete},
    };
}
