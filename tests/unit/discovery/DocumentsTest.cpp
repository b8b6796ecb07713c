#include <gmock/gmock.h>

#include "discovery/NpaReply.h"
#include "standins/discovery/Documents.h"
#include "standins/discovery/FaxPacket.h"

namespace {

using discovery::DeviceFacts;
using discovery::MakeListing;
using discovery::NetworkAddress;
using discovery::ReadEnumerationDocument;
using discovery::ReadSearchDocument;
using testing::HasSubstr;
using testing::Not;

DeviceFacts Loom() {
    return {.addresses = {NetworkAddress::FromText(L"fe80::1%3").value(),
                          NetworkAddress::FromText(L"192.0.2.7").value()},
            .localName = "loom.local",
            .hardwareAddress = {'\2', '\0', '\x5E', '\0', '\0', '\x1F'},
            .name = {.witness = discovery::Witness::DeviceId, .maker = "Halvenny", .model = "Loom 310"}};
}

// The document of a device that is listed alone.
std::wstring DocumentOf(const DeviceFacts& device, bool resolvesLocalNames) {
    std::wstring document = MakeListing({device}, {}, resolvesLocalNames);
    document.pop_back();
    return document;
}

TEST(DocumentsTest, ReadsWhatASearchAsksFor) {
    EXPECT_TRUE(std::holds_alternative<discovery::LocalNetworks>(ReadSearchDocument(L"")));
    const auto host = ReadSearchDocument(L"<UnicastAddress>loom.local</UnicastAddress>");
    EXPECT_EQ(std::get<discovery::OneHost>(host).name, L"loom.local");
    const auto subnets = ReadSearchDocument(
        L"<RemoteSubnets>192.0.2.0:255.255.255.0;bad;10.0.0.0:255.255.240.0;</RemoteSubnets>");
    EXPECT_EQ(std::get<discovery::RemoteSubnets>(subnets).subnets.size(), 2U);
}

TEST(DocumentsTest, DescribesADevice) {
    EXPECT_EQ(DocumentOf(Loom(), true),
              L"<IPADDRESS>192.0.2.7</IPADDRESS><IPNAME>loom.local</IPNAME><MACUAA>02005E00001F</MACUAA>"
              L"<1284STRID>Halvenny Loom 310</1284STRID><SERIESSTRID>Loom 310</SERIESSTRID>");
    EXPECT_THAT(DocumentOf(Loom(), false), HasSubstr(L"<IPNAME>192.0.2.7</IPNAME>"));
}

TEST(DocumentsTest, SaysOfADeviceThatItDoesMoreThanPrint) {
    DeviceFacts device = Loom();
    device.canScan = true;
    EXPECT_THAT(DocumentOf(device, true), HasSubstr(L"<aioModelName>Halvenny Loom 310</aioModelName>"));
    device = Loom();
    device.hasFax = false;
    EXPECT_THAT(DocumentOf(device, true), Not(HasSubstr(L"aioModelName")));
}

TEST(DocumentsTest, WritesAnAddressWithoutColons) {
    DeviceFacts device = Loom();
    device.addresses.pop_back();
    EXPECT_THAT(DocumentOf(device, true), HasSubstr(L"<IPADDRESS>fe80--1s3.ipv6-literal.net</IPADDRESS>"));
    device.addresses.push_back(NetworkAddress::FromText(L"2001:db8::7").value());
    EXPECT_THAT(DocumentOf(device, true), HasSubstr(L"<IPADDRESS>2001-db8--7.ipv6-literal.net</IPADDRESS>"));
}

TEST(DocumentsTest, TakesTheAddressOfVersion4EvenIfOnlyItsNeighboursReachIt) {
    DeviceFacts device = Loom();
    device.addresses = {NetworkAddress::FromText(L"2001:db8::7").value(),
                        NetworkAddress::FromText(L"169.254.3.4").value()};
    EXPECT_THAT(DocumentOf(device, true), HasSubstr(L"<IPADDRESS>169.254.3.4</IPADDRESS>"));
}

TEST(DocumentsTest, NamesADeviceThatDoesNotNameItselfByItsAddress) {
    DeviceFacts device = Loom();
    device.name = {};
    EXPECT_THAT(DocumentOf(device, true), HasSubstr(L"<SERIESSTRID>192.0.2.7</SERIESSTRID>"));
}

TEST(DocumentsTest, CleansWhatADeviceSays) {
    DeviceFacts device = Loom();
    device.name.model = "Loom</1284STRID><IPADDRESS>192.0.2.66;";
    EXPECT_THAT(DocumentOf(device, true),
                HasSubstr(L"<SERIESSTRID>Loom /1284STRID IPADDRESS 192.0.2.66</SERIESSTRID>"));
}

TEST(DocumentsTest, NamesAModelAsAPrinterCanBeCalled) {
    DeviceFacts device = Loom();
    device.name.model = "Loom\\310, colour!";
    EXPECT_THAT(DocumentOf(device, true), HasSubstr(L"<SERIESSTRID>Loom 310 colour</SERIESSTRID>"));
}

TEST(DocumentsTest, ListsTheDevicesThatAreWanted) {
    DeviceFacts other = Loom();
    other.name = {.witness = discovery::Witness::DeviceId, .maker = "Norrlund", .model = "Fjell 12"};
    const discovery::OemTable table{{7, {L"norrlund"}}};
    const auto count = [&](std::wstring_view document) {
        const std::wstring listing =
            MakeListing({Loom(), other}, ReadEnumerationDocument(document, table), true);
        return std::ranges::count(listing, L'\0');
    };
    EXPECT_EQ(count(L"<CPDATTACHED>0</CPDATTACHED>"), 2);
    EXPECT_EQ(count(L"<OEMBYTE>7</OEMBYTE>"), 1);
    EXPECT_EQ(count(L"<OEMBYTE>8</OEMBYTE>"), 2);
    EXPECT_EQ(count(L"<SERIESSTRID>Loom 310;Spindle;</SERIESSTRID>"), 1);
    EXPECT_EQ(count(L"<SERIESSTRID>halvenny loom 310;Fjell 12;</SERIESSTRID>"), 2);
    EXPECT_EQ(count(L"<OEMBYTE>7</OEMBYTE><SERIESSTRID>Loom 310;</SERIESSTRID>"), 0);
}

TEST(DocumentsTest, TellsDevicesOfOneModelApartByTheirSeries) {
    DeviceFacts other = Loom();
    other.localName.clear();
    other.addresses = {NetworkAddress::FromText(L"192.0.2.8").value()};
    DeviceFacts third = other;
    third.name.model = "Loom 320";
    const std::wstring listing = MakeListing({Loom(), other, third}, {}, true);
    EXPECT_THAT(listing, HasSubstr(L"<SERIESSTRID>Loom 310 (loom)</SERIESSTRID>"));
    EXPECT_THAT(listing, HasSubstr(L"<SERIESSTRID>Loom 310 (192.0.2.8)</SERIESSTRID>"));
    EXPECT_THAT(listing, HasSubstr(L"<SERIESSTRID>Loom 320</SERIESSTRID>"));
}

TEST(DocumentsTest, RecallsWhatTheDocumentDoesNotSay) {
    DeviceFacts device = Loom();
    device.isColour = false;
    device.hasFax = true;
    device.ipp = {.port = 8631, .path = "/ipp/print"};
    const DeviceFacts recalled = discovery::ReadRecallDocument(MakeRecallDocument(device));
    EXPECT_EQ(recalled.isColour, false);
    EXPECT_EQ(recalled.hasFax, true);
    EXPECT_EQ(recalled.ipp, device.ipp);
    EXPECT_EQ(discovery::ReadRecallDocument(MakeRecallDocument(Loom())).isColour, std::nullopt);
}

TEST(FaxPacketTest, SaysToTheProgramWhetherThereIsAFax) {
    const auto widen = [](std::string_view text) { return std::wstring(text.begin(), text.end()); };
    for (const bool hasFax : {true, false}) {
        const auto reply = DecodeNpaReply(discovery::MakeFaxPacket(hasFax), widen);
        ASSERT_TRUE(reply);
        EXPECT_EQ(reply->HasFax(), hasFax);
    }
}

}  // namespace
