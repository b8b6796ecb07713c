#include <gtest/gtest.h>

#include "settings/DeviceDocument.h"
#include "settings/TagDocument.h"

namespace {

TEST(DeviceDocumentTest, SetsATag) {
    std::wstring device = L"<DRIVER_ID>PS</DRIVER_ID><PORT_TYPE>USB</PORT_TYPE>";
    SetDeviceTag(device, L"PORT_TYPE", L"Local Port");
    EXPECT_EQ(device, L"<DRIVER_ID>PS</DRIVER_ID><PORT_TYPE>Local Port</PORT_TYPE>");
}

TEST(DeviceDocumentTest, SetsTheLocalPortOfAFaxOnUsb) {
    std::wstring device = L"<DRIVER_ID>Fax</DRIVER_ID>";
    SetDeviceTag(device, L"HOST_NAME", L"USB");
    EXPECT_EQ(device,
              L"<DRIVER_ID>Fax</DRIVER_ID><PORT_NAME>LPT1:</PORT_NAME><PORT_TYPE>Local Port</PORT_TYPE>"
              L"<ADD_PORT>false</ADD_PORT>");
}

TEST(DeviceDocumentTest, TakesUsbAsAnyValueForOtherDrivers) {
    for (const std::wstring id : {L"FAX", L"fax", L"PS", L""}) {
        std::wstring device = L"<DRIVER_ID>" + id + L"</DRIVER_ID>";
        SetDeviceTag(device, L"PORT_TYPE", L"USB");
        EXPECT_EQ(TagDocument::ValueOf(device, L"PORT_TYPE"), L"USB");
    }
}

TEST(DeviceDocumentTest, SetsOtherValuesOfAFax) {
    std::wstring device = L"<DRIVER_ID>Fax</DRIVER_ID>";
    SetDeviceTag(device, L"PORT_TYPE", L"usb");
    EXPECT_EQ(TagDocument::ValueOf(device, L"PORT_TYPE"), L"usb");
}

TEST(DeviceDocumentTest, SetsTheTagsOfANetworkPort) {
    std::wstring device = L"<PORT_NAME>old</PORT_NAME>";
    SetNetworkPort(device, L"10.0.0.7", L"IP_10.0.0.7");
    EXPECT_EQ(device,
              L"<PORT_TYPE>Standard TCP/IP Port</PORT_TYPE><HOST_NAME>10.0.0.7</HOST_NAME>"
              L"<IPADDRESS>10.0.0.7</IPADDRESS><PORT_NAME>IP_10.0.0.7</PORT_NAME>");
}

TEST(DeviceDocumentTest, NamesAPortWithoutANameByItsAddress) {
    std::wstring device;
    SetNetworkPort(device, L"10.0.0.7", L"");
    EXPECT_EQ(TagDocument::ValueOf(device, L"PORT_NAME"), L"10.0.0.7");
}

}  // namespace
