#include <gtest/gtest.h>

#include "discovery/DiscoveredDevices.h"

namespace {

class DiscoveredDevicesTest : public testing::Test {
protected:
    ~DiscoveredDevicesTest() override { devices.Assign({}); }

    DiscoveredDevices& devices = DiscoveredDevices::GetInstance();
};

TEST_F(DiscoveredDevicesTest, ReplacesTheWholeListAtEachDelivery) {
    devices.Assign({{.address = L"1"}, {.address = L"2"}});
    devices.Assign({{.address = L"3"}});
    ASSERT_EQ(devices.All().size(), 1u);
    EXPECT_EQ(devices.All().front().address, L"3");
}

TEST_F(DiscoveredDevicesTest, GivesTheColourOfTheFirstOfASeries) {
    devices.Assign({{.series = L"S", .colour = L"mono"}, {.series = L"S", .colour = L"color"}});
    EXPECT_EQ(devices.FindColourBySeries(L"S"), L"mono");
    EXPECT_EQ(devices.FindColourBySeries(L"T"), L"");
}

TEST_F(DiscoveredDevicesTest, FindsNoColourByAModel) {
    devices.Assign({{.model = L"M", .colour = L"color"}});
    EXPECT_EQ(devices.FindColourBySeries(L"M"), L"");
}

TEST_F(DiscoveredDevicesTest, LetsTheLastOfASeriesWin) {
    devices.Assign({{.series = L"S", .address = L"1"}, {.series = L"S", .address = L"2"}});
    EXPECT_EQ(devices.LastOfSeries(L"S").address, L"2");
    EXPECT_EQ(devices.LastOfSeries(L"T").address, L"");
}

TEST_F(DiscoveredDevicesTest, LetsTheLastWithAnAddressWin) {
    devices.Assign({{.address = L"1", .isMultiFunction = true}, {.address = L"1", .hasFax = true}});
    EXPECT_FALSE(devices.LastWithAddress(L"1").isMultiFunction);
    EXPECT_TRUE(devices.LastWithAddress(L"1").hasFax);
    EXPECT_FALSE(devices.LastWithAddress(L"2").hasFax);
}

TEST_F(DiscoveredDevicesTest, GoesByTheFirstWithAHardwareAddress) {
    devices.Assign(
        {{.macAddress = L"A", .isMultiFunction = true}, {.macAddress = L"A"}, {.macAddress = L""}});
    EXPECT_TRUE(devices.IsMultiFunction(L"A"));
    EXPECT_FALSE(devices.IsMultiFunction(L""));
    EXPECT_FALSE(devices.IsMultiFunction(L"B"));
}

}  // namespace
