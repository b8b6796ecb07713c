#include <gtest/gtest.h>

#include "discovery/DeviceChoice.h"

namespace {

TEST(DeviceChoiceTest, TakesTheLastDeviceOfTheRowsSeries) {
    DiscoveredDevices devices;
    devices.Assign({{.series = L"S", .address = L"192.0.2.1"},
                    {.model = L"M",
                     .series = L"S",
                     .address = L"192.0.2.2",
                     .hostName = L"loom",
                     .macAddress = L"00",
                     .isMultiFunction = true},
                    {.series = L"T", .address = L"192.0.2.3"}});
    const ChosenDevice device = DeviceOfRow(devices, L"S", true);
    EXPECT_EQ(device.rowName, L"S");
    EXPECT_EQ(device.model, L"M");
    EXPECT_EQ(device.address, L"192.0.2.2");
    EXPECT_EQ(device.hostName, L"loom");
    EXPECT_TRUE(device.isMultiFunction);
    EXPECT_TRUE(device.hasFax);
}

TEST(DeviceChoiceTest, KnowsNothingOfARowWithoutADevice) {
    DiscoveredDevices devices;
    devices.Assign({{.series = L"S", .address = L"192.0.2.1", .macAddress = L"00", .isMultiFunction = true}});
    const ChosenDevice device = DeviceOfRow(devices, L"T", false);
    EXPECT_EQ(device.rowName, L"T");
    EXPECT_EQ(device.model + device.address + device.hostName, L"");
    EXPECT_FALSE(device.isMultiFunction);
    EXPECT_FALSE(device.hasFax);
}

}  // namespace
