// Whom a search asks, and what it finds.

#include "tests/unit/discovery/SearchWorld.h"

namespace {

using discovery::Bytes;
using discovery::Datagram;
using discovery::NetworkAddress;
using discovery::Search;
using discovery::SearchPlan;
using discovery::Subnet;
using discovery::Time;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

using SearchTest = SearchWorld;

TEST_F(SearchTest, FindsWhoAnnouncesHimself) {
    network.Add(
        {.address = "192.0.2.10", .host = "Loom", .announcesItself = true, .texts = {"Color=T", "Fax=F"}});
    const auto devices = SearchNeighbours();
    ASSERT_THAT(AddressesOf(devices), ElementsAre("192.0.2.10"));
    EXPECT_EQ(devices[0].localName, "loom.local");
    EXPECT_EQ(devices[0].name.maker, "Halvenny");
    EXPECT_EQ(devices[0].name.model, "Loom 310");
    EXPECT_EQ(devices[0].isColour, true);
    EXPECT_EQ(devices[0].hasFax, false);
    EXPECT_EQ(devices[0].ipp, (discovery::IppPlace{.port = 8631, .path = "/ipp/print"}));
}

TEST_F(SearchTest, FindsWhoAnswersSnmp) {
    network.Add({.address = "192.0.2.10",
                 .answersSnmp = true,
                 .hardwareAddress = {2, 0, 0, 0, 0, 7},
                 .colorants = {"black", "cyan"},
                 .deviceIds = {"MFG:Halvenny;MDL:Loom 340c;CLS:PRINTER,SCANNER;"},
                 .hasModem = true});
    const auto devices = SearchNeighbours();
    ASSERT_THAT(AddressesOf(devices), ElementsAre("192.0.2.10"));
    EXPECT_EQ(devices[0].name.model, "Loom 340c");
    EXPECT_EQ(devices[0].hardwareAddress, Bytes({2, 0, 0, 0, 0, 7}));
    EXPECT_EQ(devices[0].isColour, true);
    EXPECT_EQ(devices[0].hasFax, true);
    EXPECT_EQ(devices[0].canScan, true);
}

TEST_F(SearchTest, TakesTheFirstIdOfADeviceThatSaysAnything) {
    network.Add({.address = "192.0.2.10",
                 .answersSnmp = true,
                 .deviceIds = {"", "MFG:Halvenny;MDL:Loom 340c;", "CLS:SCANNER;"}});
    const auto devices = SearchNeighbours();
    ASSERT_THAT(devices, SizeIs(1));
    EXPECT_EQ(devices[0].name.model, "Loom 340c");
    EXPECT_EQ(devices[0].canScan, std::nullopt);
}

TEST_F(SearchTest, TakesNothingButAnAddressForThatOfTheHardware) {
    for (const std::string& bytes : {std::string(6, '\0'), std::string(5, '\2'), std::string(7, '\2')}) {
        network = {};
        network.Add({.address = "192.0.2.10", .answersSnmp = true, .hardwareAddress = bytes});
        const auto devices = AskHost("192.0.2.10");
        ASSERT_THAT(devices, SizeIs(1));
        EXPECT_EQ(devices[0].hardwareAddress, "");
    }
}

TEST_F(SearchTest, KnowsNoColourOfWhoNamesNone) {
    network.Add({.address = "192.0.2.10", .answersSnmp = true, .colorants = {"unknown"}});
    const auto devices = AskHost("192.0.2.10");
    ASSERT_THAT(devices, SizeIs(1));
    EXPECT_EQ(devices[0].isColour, std::nullopt);
}

TEST_F(SearchTest, AsksOnForTheColumnsThatNoErrorNames) {
    network.Add(
        {.address = "192.0.2.10",
         .answersSnmp = true,
         .colorants = {"black", "cyan"},
         .lie = [count = 0](const Datagram& answer) mutable {
             Datagram other = answer;
             const auto message = discovery::DecodeSnmpResponse(answer.bytes);
             if (message && ++count == 2) {
                 other.bytes = wire::SnmpPacket(
                     {.requestId = message->requestId, .errorStatus = 2, .errorIndex = 1, .bindings = {}});
             }
             return std::vector{other};
         }});
    const auto devices = AskHost("192.0.2.10");
    ASSERT_THAT(devices, SizeIs(1));
    EXPECT_EQ(devices[0].isColour, true);
}

TEST_F(SearchTest, FindsWhoKnowsVersion1Only) {
    network.Add({.address = "192.0.2.10", .answersSnmp = true, .knowsVersion2c = false});
    const auto devices = SearchNeighbours();
    ASSERT_THAT(AddressesOf(devices), ElementsAre("192.0.2.10"));
    EXPECT_EQ(devices[0].name.model, "Halvenny Loom 310");
    EXPECT_EQ(devices[0].isColour, false);
    EXPECT_EQ(devices[0].hasFax, std::nullopt);
}

TEST_F(SearchTest, FindsWhoHasAnAddressOfIpV6Alone) {
    network.Add({.address = "fe80::20", .host = "six", .announcesItself = true});
    const auto devices = SearchNeighbours();
    ASSERT_THAT(AddressesOf(devices), ElementsAre("fe80::20%2"));
    network.Add({.address = "2001:db8::20", .host = "seven", .announcesItself = true});
    EXPECT_THAT(AddressesOf(SearchNeighbours()), UnorderedElementsAre("fe80::20%2", "2001:db8::20"));
}

TEST_F(SearchTest, CountsADeviceOnceHoweverManyWaysItAnswersIn) {
    AddOffice(8);
    EXPECT_THAT(SearchNeighbours(), SizeIs(24));
}

TEST_F(SearchTest, TellsOfTheHostThatWasAskedForAlone) {
    const discovery::DnsName other{"Other", "_ipp", "_tcp", "local"};
    network.Add({.address = "192.0.2.20",
                 .host = "asked",
                 .announcesItself = true,
                 .lie = [&](const Datagram& answer) {
                     Datagram more = answer;
                     more.bytes = wire::DnsPacket(wire::DnsQueryId(answer.bytes))
                                      .Pointer({"_ipp", "_tcp", "local"}, other)
                                      .Service(other, {"other", "local"}, 631)
                                      .Address({"other", "local"}, Bytes("\xC0\0\2\x15", 4))
                                      .Packet();
                     return std::vector{answer, more};
                 }});
    EXPECT_THAT(AddressesOf(AskHost("192.0.2.20")), ElementsAre("192.0.2.20"));
    EXPECT_EQ(network.sentTo.count(NetworkAddress(0xC0000215)), 0U);
}

TEST_F(SearchTest, HearsTheHostThatWasAskedForThroughAnyLink) {
    network.Add(
        {.address = "198.51.100.7", .host = "far", .announcesItself = true, .lie = [](Datagram answer) {
             answer.link = 0;
             return std::vector{answer};
         }});
    SearchPlan plan = PlanWithoutSweep();
    plan.asksNeighbours = false;
    plan.hosts = {{.address = NetworkAddress(0xC6336407), .ipp = {}}};
    Search search(plan);
    EXPECT_THAT(AddressesOf(network.Run(search)), ElementsAre("198.51.100.7"));
}

TEST_F(SearchTest, AsksForAllColumnsAtATime) {
    network.Add({.address = "192.0.2.10", .answersSnmp = true});
    AskHost("192.0.2.10");
    // One packet of these is that of multicast DNS.
    EXPECT_EQ(network.sentTo[NetworkAddress(0xC000020A)], 3U);
}

TEST_F(SearchTest, ReadsSixteenRowsOfATable) {
    network.Add(
        {.address = "192.0.2.10", .answersSnmp = true, .colorants = std::vector<std::string>(20, "unknown")});
    AskHost("192.0.2.10");
    EXPECT_EQ(network.sentTo[NetworkAddress(0xC000020A)], 17U);
}

TEST_F(SearchTest, AsksByEachWayWhatAPlanNames) {
    SearchPlan plan = PlanWithoutSweep();
    plan.links.push_back({.zone = 3, .subnets = {Subnet(NetworkAddress(0xC6336400), 24)}});
    // By multicast of both protocols and by a broadcast on each link; nobody's name is asked for.
    EXPECT_THAT(Search(plan).TakeDatagrams(Time(0)), SizeIs(6));
}

TEST_F(SearchTest, SweepsEachOfItsSubnets) {
    SearchPlan plan;
    plan.sweeps = {Subnet(NetworkAddress(0xC0000210), 30), Subnet(NetworkAddress(0xC0000220), 30)};
    Search search(plan);
    network.Run(search);
    std::vector<std::string> asked;
    for (const auto& [peer, count] : network.sentTo) asked.push_back(peer.ToText());
    EXPECT_THAT(asked, ElementsAre("192.0.2.17", "192.0.2.18", "192.0.2.33", "192.0.2.34"));
}

TEST_F(SearchTest, AsksOneHostAlone) {
    AddOffice(8);
    EXPECT_THAT(AddressesOf(AskHost("192.0.2.20")), ElementsAre("192.0.2.20"));
    EXPECT_THAT(network.sentTo, SizeIs(1));
    EXPECT_LE(network.now, Time(700));
}

TEST_F(SearchTest, AsksByIppWhoIsSilentOtherwise) {
    network.Add({.address = "192.0.2.20", .ipp = {{"/ipp/print", IppPrinter()}}});
    const auto devices = AskHost("192.0.2.20");
    ASSERT_THAT(AddressesOf(devices), ElementsAre("192.0.2.20"));
    // A tenth of a second after the answer.
    EXPECT_EQ(network.now, Time(600 + 100));
    EXPECT_EQ(devices[0].name.maker, "Norrlund");
    EXPECT_EQ(devices[0].name.model, "Fjell 40c");
    EXPECT_EQ(devices[0].isColour, true);
    EXPECT_EQ(devices[0].hasFax, true);
}

TEST_F(SearchTest, TriesTheUsualPathsOfIpp) {
    network.Add({.address = "192.0.2.20", .ipp = {{"/ipp", IppPrinter()}}});
    EXPECT_THAT(AskHost("192.0.2.20"), SizeIs(1));
    EXPECT_THAT(network.connections, ElementsAre("192.0.2.20:631", "192.0.2.20:631", "192.0.2.20:631"));
}

TEST_F(SearchTest, LeavesAHostThatSpeaksNoIppAlone) {
    network.Add({.address = "192.0.2.20"});
    EXPECT_THAT(AskHost("192.0.2.20"), IsEmpty());
    EXPECT_THAT(network.connections, SizeIs(1));
}

TEST_F(SearchTest, AsksByIppForTheColourThatSnmpDoesNotTell) {
    network.Add({.address = "192.0.2.20",
                 .answersSnmp = true,
                 .ipp = {{"/ipp/print", IppPrinter()}},
                 .colorants = {}});
    const auto devices = AskHost("192.0.2.20");
    ASSERT_THAT(devices, SizeIs(1));
    EXPECT_EQ(devices[0].isColour, true);
}

TEST_F(SearchTest, DoesNotAskByIppWhatSnmpTells) {
    network.Add({.address = "192.0.2.20", .answersSnmp = true, .ipp = {{"/ipp/print", IppPrinter()}}});
    EXPECT_THAT(AskHost("192.0.2.20"), SizeIs(1));
    EXPECT_THAT(network.connections, IsEmpty());
}

TEST_F(SearchTest, FindsAHostByItsNameAmongNeighbours) {
    AddOffice(2);
    SearchPlan plan = PlanWithoutSweep();
    plan.asksNeighbours = false;
    plan.localName = "PRINTER1.local";
    Search search(plan);
    EXPECT_THAT(AddressesOf(network.Run(search)), ElementsAre("192.0.2.11"));
}

}  // namespace
