#include <gmock/gmock.h>

#include <algorithm>
#include <string>

#include "discovery/DiscoveryState.h"
#include "resources/resource.h"

namespace {

ControlState Control(int id, const DiscoveryState& state) {
    const std::vector<ControlState> controls = ControlsFor(state);
    const auto found = std::ranges::find(controls, id, &ControlState::id);
    return found == controls.end() ? ControlState{} : *found;
}

struct StateCase {
    std::string name;
    DiscoveryState state;
    int id;
    bool shown;
    bool enabled;
};

void PrintTo(const StateCase& page, std::ostream* stream) {
    *stream << page.name;
}

class DiscoveryStateTest : public testing::TestWithParam<StateCase> {};

TEST_P(DiscoveryStateTest, DecidesTheControl) {
    const auto& [name, state, id, shown, enabled] = GetParam();
    EXPECT_EQ(Control(id, state), (ControlState{.id = id, .shown = shown, .enabled = enabled}));
}

constexpr DiscoveryState offering{
    .hasNimbojet = true, .supportsUsb = true, .hasDrivers = true, .hasConfigTool = true, .canGoOn = true};

DiscoveryState With(bool DiscoveryState::*field, bool value, DiscoveryState state = offering) {
    state.*field = value;
    return state;
}

const DiscoveryState amazon = With(&DiscoveryState::isAmazon, true);
const DiscoveryState fromConfig = With(&DiscoveryState::fromConfig, true);
const DiscoveryState searchOver = With(&DiscoveryState::isSearchOver, true);
const DiscoveryState withoutDrivers = With(&DiscoveryState::hasDrivers, false);
const DiscoveryState v4 = With(&DiscoveryState::isV4Driver, true);
const DiscoveryState v4OnUsb = With(&DiscoveryState::isUsb, true, v4);

INSTANTIATE_TEST_SUITE_P(
    All, DiscoveryStateTest,
    testing::Values(
        StateCase{"NextWaitsForAChoice", {}, mainButton, true, false},
        StateCase{"NextGoesWithAChoice", offering, mainButton, true, true},
        StateCase{"ListCanBeUsed", offering, IDC_DISCOVERY_LIST, true, true},
        StateCase{"ListRestsAfterTheSearch", searchOver, IDC_DISCOVERY_LIST, true, false},
        StateCase{"RefreshRestsAfterTheSearch", searchOver, IDC_DISCOVERY_REFRESH, true, false},
        StateCase{"ChangeSearchRestsAfterTheSearch", searchOver, IDC_DISCOVERY_MODIFY_SEARCH, true, false},
        StateCase{"AddPortRestsAfterTheSearch", searchOver, IDC_DISCOVERY_ADD_PORT, true, false},
        StateCase{"AddPortCanBeUsed", offering, IDC_DISCOVERY_ADD_PORT, true, true},
        StateCase{"UsbIsOffered", offering, IDC_DISCOVERY_USB, true, true},
        StateCase{"UsbGoesWhereThePackageHasNone", {}, IDC_DISCOVERY_USB, false, false},
        StateCase{"UsbGoesWithAmazon", amazon, IDC_DISCOVERY_USB, false, false},
        StateCase{"NimbojetIsOffered", offering, IDC_DISCOVERY_NIMBOJET, true, true},
        StateCase{"NimbojetGoesWhereThePackageHasNone", {}, IDC_DISCOVERY_NIMBOJET, false, false},
        StateCase{"NimbojetGoesWithAmazon", amazon, IDC_DISCOVERY_NIMBOJET, false, false},
        StateCase{"DriversAreOffered", offering, IDC_DISCOVERY_DRIVER_LIST, true, true},
        StateCase{"DriversGoWhereThereAreNone", withoutDrivers, IDC_DISCOVERY_DRIVER_LIST, false, true},
        StateCase{"DriversGoWithAmazon", amazon, IDC_DISCOVERY_DRIVER_LIST, false, true},
        StateCase{"DriversGoWithAConfiguration", fromConfig, IDC_DISCOVERY_DRIVER_LIST, false, true},
        StateCase{"LabelStaysWithAConfiguration", fromConfig, IDC_DISCOVERY_DRIVER_LABEL, true, true},
        StateCase{"LabelGoesWithAmazon", amazon, IDC_DISCOVERY_DRIVER_LABEL, false, false},
        StateCase{"LabelGoesWithTheDrivers", withoutDrivers, IDC_DISCOVERY_DRIVER_LABEL, false, false},
        StateCase{"FrameStaysWithAConfiguration", fromConfig, IDC_DISCOVERY_DRIVER_FRAME, true, true},
        StateCase{"FrameGoesWithTheDrivers", withoutDrivers, IDC_DISCOVERY_DRIVER_FRAME, false, true},
        StateCase{"ConfigureIsOffered", offering, IDC_DISCOVERY_CONFIGURE, true, true},
        StateCase{"ConfigureGoesWithoutATool", With(&DiscoveryState::hasConfigTool, false),
                  IDC_DISCOVERY_CONFIGURE, false, true},
        StateCase{"ConfigureGoesWithAmazon", amazon, IDC_DISCOVERY_CONFIGURE, false, true},
        StateCase{"ConfigureGoesWithAConfiguration", fromConfig, IDC_DISCOVERY_CONFIGURE, false, true},
        StateCase{"ConfigureRestsForADriverThatTakesNone", With(&DiscoveryState::takesConfiguration, false),
                  IDC_DISCOVERY_CONFIGURE, true, false},
        StateCase{"ConfigureServesANewerDriver", v4, IDC_DISCOVERY_CONFIGURE, true, true},
        StateCase{"ConfigureRestsForANewerDriverOnUsb", v4OnUsb, IDC_DISCOVERY_CONFIGURE, true, false},
        StateCase{"ConfigureServesAnOlderDriverOnUsb", With(&DiscoveryState::isUsb, true),
                  IDC_DISCOVERY_CONFIGURE, true, true},
        StateCase{"FirstNoteIsNeverShown", offering, IDC_DISCOVERY_FIRST_NOTE, false, true},
        StateCase{"HelpIsNeverShown", offering, IDC_HELP_BUTTON, false, true}),
    [](const auto& page) { return page.param.name; });

}  // namespace
