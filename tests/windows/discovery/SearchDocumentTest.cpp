#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "discovery/DiscoveryService.h"
#include "tests/windows/world/NetworkWorld.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using SearchDocumentTest = NetworkWorld;

TEST_F(SearchDocumentTest, IsWhatTheUserChose) {
    Settings().SetStrings(
        {{Tag::DISCOVER_PARAMS, L"<UnicastAddress>a</UnicastAddress>"}, {Tag::IPADDRESS, L"b"}});
    EXPECT_EQ(BuildSearchDocument(Settings()), L"<UnicastAddress>a</UnicastAddress>");
    EXPECT_THAT(BasicMessages(), IsEmpty());
}

TEST_F(SearchDocumentTest, TakesThePresetAddressAndPassesOverTheSubnet) {
    Settings().SetStrings({{Tag::IPADDRESS, L"10.0.0.7"}, {Tag::SUBNETADDRESS, L"10.1.0.0:255.255.0.0"}});
    EXPECT_EQ(BuildSearchDocument(Settings()), L"<UnicastAddress>10.0.0.7</UnicastAddress>");
    EXPECT_THAT(BasicMessages(), ElementsAre(L"Filter for IP Address: 10.0.0.7"));
}

TEST_F(SearchDocumentTest, TakesThePresetSubnetAndClosesIt) {
    Settings().SetString(Tag::SUBNETADDRESS, L"10.1.0.0:255.255.0.0");
    EXPECT_EQ(BuildSearchDocument(Settings()), L"<RemoteSubnets>10.1.0.0:255.255.0.0;</RemoteSubnets>");
    EXPECT_THAT(BasicMessages(), ElementsAre(L"Filter for Subnet Address: 10.1.0.0:255.255.0.0"));
}

TEST_F(SearchDocumentTest, IsEmptyForTheOwnSubnet) {
    EXPECT_EQ(BuildSearchDocument(Settings()), L"");
}

TEST_F(SearchDocumentTest, TurnsAPresetIntoASearchOnce) {
    Settings().SetString(Tag::IPADDRESS, L"10.0.0.7");
    Start();
    Run();
    EXPECT_EQ(Settings().GetString(Tag::DISCOVER_PARAMS), L"<UnicastAddress>10.0.0.7</UnicastAddress>");
    Settings().SetString(Tag::IPADDRESS, L"10.0.0.8");
    Run();
    EXPECT_EQ(Settings().GetString(Tag::DISCOVER_PARAMS), L"<UnicastAddress>10.0.0.7</UnicastAddress>");
    const std::vector<std::wstring> messages = BasicMessages();
    EXPECT_EQ(std::count(messages.begin(), messages.end(), L"Filter for IP Address: 10.0.0.7"), 1);
}

TEST_F(SearchDocumentTest, TakesAnAddressThatAPageWroteForAPreset) {
    Start();
    Run();
    Settings().SetString(Tag::IPADDRESS, L"10.0.0.7");
    Run();
    const std::vector<LibraryCall> calls = Calls();
    EXPECT_EQ(calls[2].Argument(L"document"), L"");
    EXPECT_EQ(calls[4].Argument(L"document"), L"<UnicastAddress>10.0.0.7</UnicastAddress>");
}

}  // namespace
