#include <gmock/gmock.h>

#include "printer/PrinterChoice.h"
#include "settings/TagNames.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

const ChosenDevice device{.rowName = L"Loom",
                          .hostName = L"host",
                          .address = L"10.0.0.7",
                          .model = L"Loom 5",
                          .isMultiFunction = true,
                          .hasFax = true};
const ChoiceInputs inputs{.driverId = L"HVMONO", .driverPath = L"C:\\d.msi"};
const ChoiceInputs predefinedInputs{.fromConfig = true, .driverId = L"HVMONO", .driverPath = L"C:\\d.msi"};
const ChoiceInputs amazonInputs{.isAmazon = true, .driverId = L"HVMONO", .driverPath = L"C:\\d.msi"};

TEST(ChooseDeviceTest, SetsPortNamesAndDriverInThisOrder) {
    EXPECT_THAT(
        ChooseDevice(device, inputs).tags,
        ElementsAre(TagValue{Tag::USB, L"false"}, TagValue{Tag::NIMBOJET, L"false"},
                    TagValue{Tag::DISCOVERED_DEVICE, L"true"}, TagValue{Tag::PRINTER_NAME, L"Loom"},
                    TagValue{Tag::PORT_NAME, L"host"}, TagValue{Tag::IPADDRESS, L"10.0.0.7"},
                    TagValue{Tag::HOST_NAME, L"host"}, TagValue{Tag::DRIVER_MODEL_NAME, L"Loom 5"},
                    TagValue{Tag::SET_DEFAULT, L"true"}, TagValue{Tag::ADD_PORT, L"true"},
                    TagValue{Tag::PORT_TYPE, L"Standard TCP/IP Port"}, TagValue{Tag::PRINT_DEVICE, L"true"},
                    TagValue{Tag::SELECTED_DRIVER, L"C:\\d.msi"}, TagValue{Tag::DIALOG_ADD_PORT, L"false"}));
}

TEST(ChooseDeviceTest, TellsTheLogOfPortAndDriver) {
    EXPECT_THAT(ChooseDevice(device, inputs).records,
                ElementsAre(L"Selected Port Type: Standard TCP/IP Port", L"Selected Host Name: host",
                            L"Selected Port Name: host", L"Selected Printer Name: Loom",
                            L"Selected driver: C:\\d.msi"));
}

TEST(ChooseDeviceTest, LeavesTheDevicesOfAPackageWithoutAnyAlone) {
    const PrinterChoice choice = ChooseDevice(device, inputs);
    EXPECT_EQ(choice.detectedName, std::nullopt);
    EXPECT_THAT(choice.deviceTags, IsEmpty());
    EXPECT_EQ(choice.links, LinkSource::Settings);
}

TEST(ChooseDeviceTest, NamesTheDevicesOfAPredefinedConfigurationAndPicksNoDriver) {
    const PrinterChoice choice = ChooseDevice(device, predefinedInputs);
    EXPECT_EQ(choice.detectedName, L"Loom");
    EXPECT_THAT(choice.deviceTags,
                ElementsAre(TagValue{Tag::PORT_NAME, L"host"}, TagValue{Tag::IPADDRESS, L"10.0.0.7"},
                            TagValue{Tag::HOST_NAME, L"host"}, TagValue{Tag::ADD_PORT, L"true"},
                            TagValue{Tag::PORT_TYPE, L"Standard TCP/IP Port"},
                            TagValue{Tag::PRINTER_SERIES_NAME, L"Loom"},
                            TagValue{Tag::PRINTER_MODEL_NAME, L"Loom 5"}));
    EXPECT_THAT(choice.drivers, IsEmpty());
    EXPECT_EQ(choice.parts, PartsChange{});
    EXPECT_EQ(choice.tags.back(), (TagValue{Tag::DIALOG_ADD_PORT, L"false"}));
    EXPECT_EQ(choice.links, LinkSource::FirstDevice);
}

TEST(ChooseDeviceTest, WithoutARowSetsNoPort) {
    const PrinterChoice choice = ChooseDevice(std::nullopt, inputs);
    EXPECT_THAT(choice.tags, ElementsAre(TagValue{Tag::USB, L"false"}, TagValue{Tag::NIMBOJET, L"false"},
                                         TagValue{Tag::DISCOVERED_DEVICE, L"true"},
                                         TagValue{Tag::SELECTED_DRIVER, L"C:\\d.msi"},
                                         TagValue{Tag::DIALOG_ADD_PORT, L"false"}));
    EXPECT_THAT(choice.drivers, ElementsAre(DriverChange{L"HVMONO"}));
    EXPECT_THAT(choice.records, ElementsAre(L"Selected driver: C:\\d.msi"));
    EXPECT_EQ(choice.parts, PartsChange{});
}

ChoiceInputs PickedOnly(ChoiceInputs given) {
    given.pickedDriverOnly = true;
    return given;
}

TEST(PickedDriverTest, IsTheOnlyPrinterDriverWhereThePackageSaysSo) {
    const ChosenPort port{.name = L"LPT1:", .type = L"Local Port"};
    EXPECT_EQ(ChooseDevice(device, PickedOnly(inputs)).onlyPrinterDriver, L"HVMONO");
    EXPECT_EQ(ChoosePort(port, PickedOnly(inputs)).onlyPrinterDriver, L"HVMONO");
    EXPECT_EQ(ChooseUsb(PickedOnly(inputs)).onlyPrinterDriver, L"HVMONO");
    EXPECT_EQ(ChooseDevice(device, PickedOnly(amazonInputs)).onlyPrinterDriver, L"HVMONO");
}

TEST(PickedDriverTest, LeavesTheOthersAloneWithoutThat) {
    const ChosenPort port{.name = L"LPT1:", .type = L"Local Port"};
    EXPECT_EQ(ChooseDevice(device, inputs).onlyPrinterDriver, std::nullopt);
    EXPECT_EQ(ChoosePort(port, inputs).onlyPrinterDriver, std::nullopt);
    EXPECT_EQ(ChooseUsb(inputs).onlyPrinterDriver, std::nullopt);
}

TEST(PickedDriverTest, LeavesTheOthersAloneWhereNobodyPicks) {
    EXPECT_EQ(ChooseDevice(device, PickedOnly(predefinedInputs)).onlyPrinterDriver, std::nullopt);
    EXPECT_EQ(ChooseUsb(PickedOnly(predefinedInputs)).onlyPrinterDriver, std::nullopt);
    EXPECT_EQ(ChooseUsb(PickedOnly({})).onlyPrinterDriver, std::nullopt);
}

TEST(ChoosePortTest, SetsAPortOfTheSystemWithoutAHost) {
    const ChosenPort port{.name = L"LPT1:", .type = L"Local Port"};
    EXPECT_THAT(ChoosePort(port, inputs).tags,
                ElementsAre(TagValue{Tag::PORT_NAME, L"LPT1:"}, TagValue{Tag::PORT_TYPE, L"Local Port"},
                            TagValue{Tag::ADD_PORT, L"false"}, TagValue{Tag::SELECTED_DRIVER, L"C:\\d.msi"},
                            TagValue{Tag::SET_DEFAULT, L"true"}));
}

// The flag that adds the port comes last in the settings, and before the type in the devices.
TEST(ChoosePortTest, OrdersTheTagsOfTheDevicesOtherwise) {
    const PrinterChoice choice =
        ChoosePort({.name = L"p", .host = L"h", .type = L"t", .add = true}, predefinedInputs);
    EXPECT_THAT(choice.tags, ElementsAre(TagValue{Tag::PORT_NAME, L"p"}, TagValue{Tag::HOST_NAME, L"h"},
                                         TagValue{Tag::PORT_TYPE, L"t"}, TagValue{Tag::ADD_PORT, L"true"}));
    EXPECT_THAT(choice.deviceTags,
                ElementsAre(TagValue{Tag::PORT_NAME, L"p"}, TagValue{Tag::HOST_NAME, L"h"},
                            TagValue{Tag::ADD_PORT, L"true"}, TagValue{Tag::PORT_TYPE, L"t"}));
    EXPECT_THAT(choice.drivers, ElementsAre(DriverChange{L"SCAN"}));
}

TEST(ChoosePortTest, TellsTheLogNothing) {
    EXPECT_THAT(ChoosePort({.name = L"p"}, inputs).records, IsEmpty());
}

TEST(ChooseUsbTest, SetsTheTypeAloneAndNoDriverPath) {
    const PrinterChoice choice = ChooseUsb(inputs);
    EXPECT_THAT(choice.tags,
                ElementsAre(TagValue{Tag::NIMBOJET, L"false"}, TagValue{Tag::USB, L"true"},
                            TagValue{Tag::DISCOVERED_DEVICE, L"false"}, TagValue{Tag::PORT_TYPE, L"USB"}));
    EXPECT_THAT(choice.deviceTags, IsEmpty());
    EXPECT_THAT(choice.records, ElementsAre(L"Selected Port Type: USB"));
    EXPECT_EQ(choice.links, LinkSource::None);
}

TEST(ChooseUsbTest, PutsTheDevicesOfAPredefinedConfigurationOnUsb) {
    EXPECT_THAT(ChooseUsb(predefinedInputs).deviceTags, ElementsAre(TagValue{Tag::PORT_TYPE, L"USB"}));
}

TEST(ChooseAddressTest, PutsSettingsAndDevicesOnTheAddressAndLeavesDiscoveryOut) {
    EXPECT_EQ(ChooseAddress({L"10.0.0.7", L"p"}),
              (PrinterChoice{.tags = {{Tag::HIDE_DISCOVERY, L"true"},
                                      {Tag::PORT_TYPE, L"Standard TCP/IP Port"},
                                      {Tag::HOST_NAME, L"10.0.0.7"},
                                      {Tag::IPADDRESS, L"10.0.0.7"},
                                      {Tag::PORT_NAME, L"p"},
                                      {Tag::ADD_PORT, L"true"}},
                             .devicePort = NetworkAddress{L"10.0.0.7", L"p"}}));
}

TEST(ChooseAddressTest, NamesThePortAfterTheAddressWithoutAName) {
    EXPECT_THAT(ChooseAddress({L"10.0.0.7", L""}).tags, Contains(TagValue{Tag::PORT_NAME, L"10.0.0.7"}));
}

// Which parts and drivers go with a printer differs from choice to choice.
struct PartsCase {
    const char* name;
    PrinterChoice choice;
    PartsChange parts;
    std::vector<DriverChange> drivers;
};

void PrintTo(const PartsCase& parts, std::ostream* stream) {
    *stream << parts.name;
}

const ChosenDevice plain{.rowName = L"Loom"};
const ChosenPort port{.name = L"p"};
constexpr std::optional<bool> untouched;

const PartsCase partsCases[] = {
    {"MultiFunctionDevice",
     ChooseDevice(device, inputs),
     {true, true, untouched, untouched},
     {{L"SCAN"}, {L"HVMONO"}}},
    {"PlainDevice",
     ChooseDevice(plain, inputs),
     {false, false, untouched, untouched},
     {{L"SCAN", false}, {L"HVMONO"}}},
    {"DeviceWithFaxOfAmazon",
     ChooseDevice(device, amazonInputs),
     {untouched, untouched, untouched, true},
     {{L"SCAN"}, {L"HVMONO"}}},
    {"PlainDeviceOfAmazon",
     ChooseDevice(plain, amazonInputs),
     {untouched, untouched, untouched, false},
     {{L"SCAN", false}, {L"HVMONO"}}},
    {"Port", ChoosePort(port, inputs), {true, untouched, untouched, untouched}, {{L"HVMONO"}, {L"SCAN"}}},
    {"PredefinedPort", ChoosePort(port, predefinedInputs), {}, {{L"SCAN"}}},
    {"PortOfAmazon",
     ChoosePort(port, amazonInputs),
     {false, false, untouched, true},
     {{L"HVMONO"}, {L"SCAN"}}},
    {"Usb", ChooseUsb(inputs), {false, false, untouched, true}, {{L"SCAN"}, {L"HVMONO"}}},
    {"PredefinedUsb", ChooseUsb(predefinedInputs), {false, false, false, true}, {{L"SCAN"}, {L"HVMONO"}}},
    {"Network", ChooseNetwork(), {false, false, untouched, untouched}, {}},
    {"Address", ChooseAddress({L"a", L""}), {}, {}},
};

class ChosenPartsTest : public testing::TestWithParam<PartsCase> {};

TEST_P(ChosenPartsTest, AreThoseOfTheTable) {
    EXPECT_EQ(GetParam().choice.parts, GetParam().parts);
    EXPECT_EQ(GetParam().choice.drivers, GetParam().drivers);
}

INSTANTIATE_TEST_SUITE_P(All, ChosenPartsTest, testing::ValuesIn(partsCases),
                         [](const auto& parts) { return std::string(parts.param.name); });

}  // namespace
