#include <gmock/gmock.h>

#include <string>

#include "ports/AddPortState.h"
#include "resources/resource.h"

namespace {

using testing::Contains;

struct PortPageCase {
    std::string name;
    AddPortState state;
    int id;
    bool shown;
    bool enabled;
};

void PrintTo(const PortPageCase& page, std::ostream* stream) {
    *stream << page.name;
}

class AddPortStateTest : public testing::TestWithParam<PortPageCase> {};

TEST_P(AddPortStateTest, DecidesTheControl) {
    const auto& [name, state, id, shown, enabled] = GetParam();
    EXPECT_THAT(ControlsFor(state), Contains(ControlState{.id = id, .shown = shown, .enabled = enabled}));
}

constexpr AddPortState existing{.isComplete = true, .hasDrivers = true, .hasConfigTool = true};

template <typename Value>
AddPortState Having(Value AddPortState::*field, Value value) {
    AddPortState state = existing;
    state.*field = value;
    return state;
}

const AddPortState network = Having(&AddPortState::kind, PortKind::Network);
const AddPortState shared = Having(&AddPortState::kind, PortKind::Shared);
const AddPortState noDrivers = Having(&AddPortState::hasDrivers, false);
const AddPortState noList = Having(&AddPortState::withoutDriverList, true);
const AddPortState predefined = Having(&AddPortState::fromConfig, true);
const AddPortState secondVariant = Having(&AddPortState::isAmazon, true);
const AddPortState noTool = Having(&AddPortState::hasConfigTool, false);

INSTANTIATE_TEST_SUITE_P(
    All, AddPortStateTest,
    testing::Values(
        PortPageCase{"NextWaitsForAPort", {}, mainButton, true, false},
        PortPageCase{"NextGoesWithAPort", existing, mainButton, true, true},
        PortPageCase{"PortsAreListed", existing, IDC_ADD_PORT_LIST, true, true},
        PortPageCase{"PortsGoWithTheAddress", network, IDC_ADD_PORT_LIST, false, true},
        PortPageCase{"PortsGoWithThePath", shared, IDC_ADD_PORT_LIST, false, true},
        PortPageCase{"NameIsAskedForANewPort", network, IDC_ADD_PORT_NAME, true, true},
        PortPageCase{"NameLabelComesAlong", network, IDC_ADD_PORT_NAME_LABEL, true, true},
        PortPageCase{"NameGoesWithAnExistingPort", existing, IDC_ADD_PORT_NAME, false, true},
        PortPageCase{"NameGoesWithThePath", shared, IDC_ADD_PORT_NAME_LABEL, false, true},
        PortPageCase{"AddressIsAskedForANewPort", network, IDC_ADD_PORT_ADDRESS, true, true},
        PortPageCase{"AddressLabelComesAlong", network, IDC_ADD_PORT_ADDRESS_LABEL, true, true},
        PortPageCase{"AddressGoesWithAnExistingPort", existing, IDC_ADD_PORT_ADDRESS_LABEL, false, true},
        PortPageCase{"AddressGoesWithThePath", shared, IDC_ADD_PORT_ADDRESS, false, true},
        PortPageCase{"PathIsAskedForASharedPrinter", shared, IDC_ADD_PORT_PATH, true, true},
        PortPageCase{"PathLabelComesAlong", shared, IDC_ADD_PORT_PATH_LABEL, true, true},
        PortPageCase{"PathGoesWithTheAddress", network, IDC_ADD_PORT_PATH, false, true},
        PortPageCase{"PathGoesWithAnExistingPort", existing, IDC_ADD_PORT_PATH_LABEL, false, true},
        PortPageCase{"DriversAreOffered", existing, IDC_ADD_PORT_DRIVER_LIST, true, true},
        PortPageCase{"DriversGoWhereThereAreNone", noDrivers, IDC_ADD_PORT_DRIVER_LIST, false, true},
        PortPageCase{"DriversGoWhereNobodyWantsThem", noList, IDC_ADD_PORT_DRIVER_LIST, false, true},
        PortPageCase{"DriversGoWithAConfiguration", predefined, IDC_ADD_PORT_DRIVER_LIST, false, true},
        PortPageCase{"DriversGoInTheSecondVariant", secondVariant, IDC_ADD_PORT_DRIVER_LIST, false, true},
        PortPageCase{"FrameGoesWithTheDrivers", noDrivers, IDC_ADD_PORT_DRIVER_FRAME, false, true},
        PortPageCase{"FrameGoesWhereNobodyWantsDrivers", noList, IDC_ADD_PORT_DRIVER_FRAME, false, true},
        PortPageCase{"FrameStaysWithAConfiguration", predefined, IDC_ADD_PORT_DRIVER_FRAME, true, true},
        PortPageCase{"FrameGoesInTheSecondVariant", secondVariant, IDC_ADD_PORT_DRIVER_FRAME, false, true},
        PortPageCase{"LabelGoesWithTheDrivers", noDrivers, IDC_ADD_PORT_DRIVER_LABEL, false, true},
        PortPageCase{"LabelStaysWhereNobodyWantsDrivers", noList, IDC_ADD_PORT_DRIVER_LABEL, true, true},
        PortPageCase{"LabelStaysWithAConfiguration", predefined, IDC_ADD_PORT_DRIVER_LABEL, true, true},
        PortPageCase{"LabelGoesInTheSecondVariant", secondVariant, IDC_ADD_PORT_DRIVER_LABEL, false, false},
        PortPageCase{"ConfigureServesADriverWithATool", existing, IDC_ADD_PORT_CONFIGURE, true, true},
        PortPageCase{"ConfigureGoesWithoutATool", noTool, IDC_ADD_PORT_CONFIGURE, false, false},
        PortPageCase{"ConfigureGoesWithTheList", noList, IDC_ADD_PORT_CONFIGURE, false, true},
        PortPageCase{"ConfigureGoesWithAConfiguration", predefined, IDC_ADD_PORT_CONFIGURE, false, true},
        PortPageCase{"ConfigureGoesInTheSecondVariant", secondVariant, IDC_ADD_PORT_CONFIGURE, false, true},
        PortPageCase{"TitleIsNeverShown", existing, IDC_ADD_PORT_TITLE, false, true},
        PortPageCase{"TitleRestsWhereThereAreApplicationsAlone", Having(&AddPortState::appsOnly, true),
                     IDC_ADD_PORT_TITLE, false, false},
        PortPageCase{"HelpIsNeverShown", existing, IDC_HELP_BUTTON, false, true}),
    [](const auto& page) { return page.param.name; });

}  // namespace
