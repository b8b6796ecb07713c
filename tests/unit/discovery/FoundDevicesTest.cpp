#include <gmock/gmock.h>

#include "standins/discovery/FoundDevices.h"

namespace {

using discovery::Bytes;
using discovery::DeviceFacts;
using discovery::FoundDevices;
using discovery::NetworkAddress;
using testing::IsEmpty;
using testing::SizeIs;

const NetworkAddress first(0xC0000207);
const NetworkAddress second(0xC0000208);
const NetworkAddress six = NetworkAddress::FromText(L"fe80::7%2").value();
const Bytes hardware("\2\0\0\0\0\7", 6);

TEST(FoundDevicesTest, KnowsADeviceByEachOfItsAddresses) {
    FoundDevices devices;
    devices.Add({.addresses = {six}, .isColour = true, .isPrinter = true});
    devices.Add({.addresses = {first}, .hasFax = true, .isPrinter = true});
    EXPECT_THAT(devices.Printers(), SizeIs(2));
    devices.Add({.addresses = {first, six}});
    ASSERT_THAT(devices.Printers(), SizeIs(1));
    EXPECT_EQ(devices.Find(six)->hasFax, true);
    EXPECT_EQ(devices.Find(first)->isColour, true);
}

TEST(FoundDevicesTest, KnowsADeviceByItsIdentities) {
    FoundDevices devices;
    devices.Add({.addresses = {six}, .hardwareAddress = hardware, .isPrinter = true});
    devices.Add({.addresses = {first}, .hardwareAddress = hardware, .isPrinter = true});
    EXPECT_THAT(devices.Printers(), SizeIs(1));
    FoundDevices named;
    named.Add({.addresses = {six}, .uuid = "a-b", .isPrinter = true});
    named.Add({.addresses = {first}, .uuid = "a-b", .isPrinter = true});
    EXPECT_THAT(named.Printers(), SizeIs(1));
}

TEST(FoundDevicesTest, JoinsDevicesWhoseCommonIdentityIsToldLater) {
    FoundDevices devices;
    devices.Add({.addresses = {six}, .hardwareAddress = hardware, .isPrinter = true});
    devices.Add({.addresses = {first}, .isPrinter = true});
    devices.Add({.addresses = {first}, .hardwareAddress = hardware});
    EXPECT_THAT(devices.Printers(), SizeIs(1));
}

TEST(FoundDevicesTest, KeepsDevicesApartThatWereSoldWithOneIdentity) {
    FoundDevices devices;
    devices.Add({.addresses = {first}, .hardwareAddress = hardware, .uuid = "a-b", .isPrinter = true});
    devices.Add({.addresses = {second}, .hardwareAddress = hardware, .uuid = "a-b", .isPrinter = true});
    EXPECT_THAT(devices.Printers(), SizeIs(2));
}

TEST(FoundDevicesTest, KeepsDevicesOfOneIdentityApartByTheirNames) {
    FoundDevices devices;
    devices.Add({.addresses = {first}, .localName = "loom", .hardwareAddress = hardware, .isPrinter = true});
    devices.Add({.addresses = {six}, .localName = "loom", .hardwareAddress = hardware, .isPrinter = true});
    EXPECT_THAT(devices.Printers(), SizeIs(1));
    const NetworkAddress otherSix = NetworkAddress::FromText(L"fe80::8%2").value();
    devices.Add(
        {.addresses = {otherSix}, .localName = "fjell", .hardwareAddress = hardware, .isPrinter = true});
    EXPECT_THAT(devices.Printers(), SizeIs(2));
}

TEST(FoundDevicesTest, ListsPrintersAlone) {
    FoundDevices devices;
    devices.Add({.addresses = {first}});
    devices.Add({.isPrinter = true});
    EXPECT_THAT(devices.Printers(), IsEmpty());
    EXPECT_NE(devices.Find(first), nullptr);
    EXPECT_EQ(devices.Find(second), nullptr);
}

TEST(FoundDevicesTest, KeepsABoundedNumber) {
    FoundDevices devices;
    for (std::uint32_t number = 0; number < 20000; ++number) {
        devices.Add({.addresses = {NetworkAddress(0x0A000000 + number)}, .isPrinter = true});
    }
    EXPECT_THAT(devices.Printers(), SizeIs(10000));
}

}  // namespace
