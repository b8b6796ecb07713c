#include <gmock/gmock.h>

#include <algorithm>

#include "standins/discovery/Documents.h"
#include "standins/discovery/Search.h"
#include "tests/unit/discovery/SimulatedNetwork.h"

namespace {

using discovery::Bytes;
using discovery::Datagram;
using discovery::DeviceFacts;
using discovery::NetworkAddress;
using discovery::Search;
using discovery::SearchPlan;
using discovery::Subnet;
using discovery::Time;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

std::vector<std::string> AddressesOf(const std::vector<DeviceFacts>& devices) {
    std::vector<std::string> texts;
    for (const DeviceFacts& device : devices) texts.push_back(discovery::MainAddress(device).ToText());
    return texts;
}

class SearchTest : public testing::Test {
protected:
    std::vector<DeviceFacts> SearchNeighbours() {
        Search search(SimulatedNetwork::NeighbourPlan());
        return network.Run(search);
    }
    std::vector<DeviceFacts> AskHost(const std::string& address) {
        SearchPlan plan;
        plan.secret = 77;
        plan.hosts = {
            {.address = NetworkAddress::FromText(std::wstring(address.begin(), address.end())).value(),
             .ipp = {}}};
        Search search(plan);
        return network.Run(search);
    }
    static Bytes IppPrinter() {
        return wire::IppAnswer(wire::IppAttribute(0x41, "printer-make-and-model", "Norrlund Fjell 40c") +
                               wire::IppAttribute(0x41, "printer-device-id", "MFG:Norrlund;MDL:Fjell 40c;") +
                               wire::IppAttribute(0x22, "color-supported", "\1") +
                               wire::IppAttribute(0x44, "ipp-features-supported", "faxout"));
    }
    // Three kinds of devices, so many of each.
    void AddOffice(int ofEach) {
        for (int number = 0; number < 3 * ofEach; ++number) {
            const bool isSnmp = number >= ofEach;
            const bool isAnnounced = number < ofEach || number >= 2 * ofEach;
            network.Add({.address = "192.0.2." + std::to_string(number + 10),
                         .host = "printer" + std::to_string(number),
                         .answersSnmp = isSnmp,
                         .announcesItself = isAnnounced,
                         .hardwareAddress = {'\2', 0, 0, 0, 0, static_cast<char>(number)},
                         .delay = Time(2 + number % 7)});
        }
    }

    SimulatedNetwork network;
};

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
                 .deviceId = "MFG:Halvenny;MDL:Loom 340c;CLS:PRINTER,SCANNER;",
                 .hasModem = true});
    const auto devices = SearchNeighbours();
    ASSERT_THAT(AddressesOf(devices), ElementsAre("192.0.2.10"));
    EXPECT_EQ(devices[0].name.model, "Loom 340c");
    EXPECT_EQ(devices[0].hardwareAddress, Bytes({2, 0, 0, 0, 0, 7}));
    EXPECT_EQ(devices[0].isColour, true);
    EXPECT_EQ(devices[0].hasFax, true);
    EXPECT_EQ(devices[0].canScan, true);
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

TEST_F(SearchTest, IsOverSoonAfterTheLastAnswer) {
    AddOffice(8);
    SearchNeighbours();
    EXPECT_LE(network.now, Time(1050));
}

TEST_F(SearchTest, GivesSilentNeighboursTimeToWakeUp) {
    EXPECT_THAT(SearchNeighbours(), IsEmpty());
    EXPECT_GE(network.now, Time(1500));
    EXPECT_LE(network.now, Time(5000));
}

TEST_F(SearchTest, IsOverAtOnceWhereThereIsNobodyToAsk) {
    Search search(SearchPlan{});
    EXPECT_THAT(network.Run(search), IsEmpty());
    EXPECT_EQ(network.now, Time(0));
}

TEST_F(SearchTest, IsOverAtItsLimit) {
    SearchPlan plan = SimulatedNetwork::NeighbourPlan();
    plan.limit = Time(100);
    Search search(plan);
    network.Run(search);
    EXPECT_EQ(network.now, Time(100));
}

TEST_F(SearchTest, WaitsForThoseWhoAnswerSlowly) {
    network.Add({.address = "192.0.2.10", .answersSnmp = true, .delay = Time(3)});
    network.Add({.address = "192.0.2.11", .answersSnmp = true, .delay = Time(400)});
    EXPECT_THAT(SearchNeighbours(), SizeIs(2));
}

TEST_F(SearchTest, WaitsLongerWhereTheFirstAnswersAreSlow) {
    network.Add({.address = "192.0.2.11", .host = "b", .announcesItself = true, .delay = Time(200)});
    network.Add({.address = "192.0.2.12", .host = "c", .announcesItself = true, .delay = Time(800)});
    SearchPlan plan = SimulatedNetwork::NeighbourPlan();
    plan.sweeps.clear();
    Search search(plan);
    EXPECT_THAT(network.Run(search), SizeIs(2));
}

TEST_F(SearchTest, WaitsThreeTimesAsLongAsTheSlowestAnswer) {
    network.Add({.address = "192.0.2.10", .host = "a", .announcesItself = true, .delay = Time(200)});
    SearchPlan plan = SimulatedNetwork::NeighbourPlan();
    plan.sweeps.clear();
    Search search(plan);
    network.Run(search);
    // The second pass goes out at 250.
    EXPECT_EQ(network.now, Time(250 + 3 * 200));
}

TEST_F(SearchTest, WantsToBeWokenLaterThanNow) {
    SearchPlan plan;
    plan.hosts = {{.address = NetworkAddress(0xC0000214), .ipp = {}}};
    Search search(plan);
    search.TakeDatagrams(Time(0));
    EXPECT_EQ(search.NextDue(Time(0)), Time(250));
    EXPECT_EQ(search.NextDue(Time(250)), Time(251));
}

TEST_F(SearchTest, IsWokenForTheNextPassAndNotBefore) {
    SearchPlan plan = SimulatedNetwork::NeighbourPlan();
    plan.sweeps.clear();
    Search search(plan);
    for (const Time now : {Time(0), Time(250), Time(750)}) search.TakeDatagrams(now);
    // When the quiet after a pass is over it may end.
    EXPECT_EQ(search.NextDue(Time(750)), Time(750 + 450));
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
    SearchPlan plan = SimulatedNetwork::NeighbourPlan();
    plan.asksNeighbours = false;
    plan.sweeps.clear();
    plan.hosts = {{.address = NetworkAddress(0xC6336407), .ipp = {}}};
    Search search(plan);
    EXPECT_THAT(AddressesOf(network.Run(search)), ElementsAre("198.51.100.7"));
}

TEST_F(SearchTest, FindsNearlyAllInANetworkThatLosesAFifth) {
    for (std::uint32_t seed = 1; seed <= 20; ++seed) {
        network = {};
        AddOffice(8);
        network.Lose(0.2, seed);
        EXPECT_GE(SearchNeighbours().size(), 23U) << "with the losses of " << seed;
    }
}

// Answers from that number on; the answers before it are lost.
std::function<std::vector<Datagram>(const Datagram&)> FromAnswer(int number) {
    return [number, count = 0](const Datagram& answer) mutable {
        return ++count < number ? std::vector<Datagram>{} : std::vector{answer};
    };
}

TEST_F(SearchTest, OnePassWithoutNewsIsNoEvidenceWhereAnswersGetLost) {
    network.Add({.address = "192.0.2.10", .host = "a", .announcesItself = true});
    network.Add({.address = "192.0.2.11", .host = "b", .announcesItself = true, .lie = FromAnswer(2)});
    network.Add({.address = "192.0.2.12", .host = "c", .announcesItself = true, .lie = FromAnswer(4)});
    EXPECT_THAT(SearchNeighbours(), SizeIs(3));
}

TEST_F(SearchTest, TwoPassesWithoutNewsAreEvidenceWhereAnswersGetLost) {
    network.Add({.address = "192.0.2.10", .answersSnmp = true, .lie = FromAnswer(2)});
    SearchPlan plan = SimulatedNetwork::NeighbourPlan();
    plan.sweeps.clear();
    Search search(plan);
    network.Run(search);
    EXPECT_EQ(network.sentTo[NetworkAddress(0xC00002FF)], 4U);
}

TEST_F(SearchTest, MakesNoMoreThanEightPassesThoughEachBringsNews) {
    for (int number = 1; number < 12; ++number) {
        network.Add(
            {.address = "192.0.2." + std::to_string(number), .answersSnmp = true, .lie = FromAnswer(number)});
    }
    SearchPlan plan = SimulatedNetwork::NeighbourPlan();
    plan.sweeps.clear();
    Search search(plan);
    network.Run(search);
    EXPECT_EQ(network.sentTo[NetworkAddress(0xC00002FF)], 8U);
}

TEST_F(SearchTest, AsksOthersOnThoughItsHostHasAnswered) {
    SearchPlan neighbours = SimulatedNetwork::NeighbourPlan();
    neighbours.sweeps.clear();
    SearchPlan sweep;
    sweep.sweeps = {Subnet(NetworkAddress(0xC000020B), 32)};
    for (SearchPlan plan : {neighbours, sweep}) {
        network = {};
        network.Add({.address = "192.0.2.10", .answersSnmp = true});
        network.Add({.address = "192.0.2.11", .answersSnmp = true, .lie = FromAnswer(2)});
        plan.hosts = {{.address = NetworkAddress(0xC000020A), .ipp = {}}};
        Search search(plan);
        network.Run(search);
        EXPECT_NE(search.Devices().Find(NetworkAddress(0xC000020B)), nullptr);
    }
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

TEST_F(SearchTest, AsksAQuestionOfAConversationEightTimes) {
    network.Add({.address = "192.0.2.10",
                 .answersSnmp = true,
                 .lie = [isFirst = true](const Datagram& answer) mutable {
                     return std::exchange(isFirst, false) ? std::vector{answer} : std::vector<Datagram>{};
                 }});
    AskHost("192.0.2.10");
    EXPECT_EQ(network.sentTo[NetworkAddress(0xC000020A)], 2U + 8U);
}

TEST_F(SearchTest, RepeatsAQuestionOfAConversation) {
    // The first answer begins the conversation, and the next ones to its second question are lost.
    int count = 0;
    network.Add({.address = "192.0.2.10",
                 .answersSnmp = true,
                 .hasModem = true,
                 .lie = [&count](const Datagram& answer) {
                     ++count;
                     return count > 1 && count < 8 ? std::vector<Datagram>{} : std::vector{answer};
                 }});
    const auto devices = AskHost("192.0.2.10");
    ASSERT_THAT(devices, SizeIs(1));
    EXPECT_EQ(devices[0].hasFax, true);
}

TEST_F(SearchTest, ConversesThoughItsQuestionsToNobodyWait) {
    network.Add({.address = "192.0.2.10", .answersSnmp = true, .hasModem = true, .delay = Time(250)});
    SearchPlan plan = SimulatedNetwork::NeighbourPlan();
    plan.asksNeighbours = false;
    Search search(plan);
    const auto devices = network.Run(search);
    ASSERT_THAT(devices, SizeIs(1));
    EXPECT_EQ(devices[0].hasFax, true);
}

TEST_F(SearchTest, SweepsALargeSubnetWithinItsPace) {
    for (int number = 0; number < 200; ++number) {
        network.Add(
            {.address = "198.18." + std::to_string(number / 20) + "." + std::to_string(number % 20 + 1),
             .answersSnmp = true});
    }
    SearchPlan plan;
    plan.sweeps = {Subnet(NetworkAddress(0xC6120000), 20)};
    plan.limit = Time(30000);
    Search search(plan);
    EXPECT_EQ(network.Run(search).size(), 200U);
    EXPECT_LE(network.mostPerSecond(), 1100U);
    EXPECT_LE(network.now, Time(12000));
}

TEST_F(SearchTest, AsksASilentHostInFourPassesByBothVersions) {
    SearchPlan plan;
    plan.hosts = {{.address = NetworkAddress(0xC0000214), .ipp = {}}};
    Search search(plan);
    std::vector<std::pair<Time, discovery::SnmpVersion>> asked;
    std::vector<Time> connected;
    Time now{};
    for (; !search.IsOver(now); now = search.NextDue(now)) {
        for (const Datagram& sent : search.TakeDatagrams(now)) {
            if (sent.port == discovery::snmpPort)
                asked.emplace_back(now, wire::ReadSnmpQuestion(sent.bytes).version);
        }
        for (const auto& stream : search.TakeStreams()) {
            connected.push_back(now);
            search.CloseStream(stream.number, now);
        }
    }
    using discovery::SnmpVersion;
    EXPECT_THAT(asked,
                ElementsAre(std::pair(Time(0), SnmpVersion::V2c), std::pair(Time(250), SnmpVersion::V1),
                            std::pair(Time(750), SnmpVersion::V2c), std::pair(Time(1250), SnmpVersion::V1)));
    EXPECT_THAT(connected, ElementsAre(Time(600)));
    EXPECT_EQ(now, Time(1700));
}

TEST_F(SearchTest, WaitsTwoSecondsForAHostThatTakesAConnectionAndSaysNothing) {
    SearchPlan plan;
    plan.hosts = {{.address = NetworkAddress(0xC0000214), .ipp = {}}};
    Search search(plan);
    Time now{};
    for (; !search.IsOver(now); now = search.NextDue(now)) {
        search.TakeDatagrams(now);
        search.TakeStreams();
    }
    EXPECT_EQ(now, Time(600 + 2000));
}

TEST_F(SearchTest, AsksByEachWayWhatAPlanNames) {
    SearchPlan plan = SimulatedNetwork::NeighbourPlan();
    plan.sweeps.clear();
    plan.links.push_back({.zone = 3, .subnets = {Subnet(NetworkAddress(0xC6336400), 24)}});
    // By multicast of both protocols and by a broadcast on each link; nobody's name is asked for.
    EXPECT_THAT(Search(plan).TakeDatagrams(Time(0)), SizeIs(6));
}

TEST_F(SearchTest, SendsNoMoreThanItsShare) {
    SearchPlan plan;
    plan.sweeps = {Subnet(NetworkAddress(0x0A000000), 16)};
    Search search(plan);
    EXPECT_THAT(search.TakeDatagrams(Time(0)), SizeIs(64));
    EXPECT_THAT(search.TakeDatagrams(Time(1000)), SizeIs(1000));
    EXPECT_THAT(search.TakeDatagrams(Time(1000)), IsEmpty());
}

TEST_F(SearchTest, IsNotOverWhereItsSweepWasHeldUp) {
    SearchPlan plan;
    plan.sweeps = {Subnet(NetworkAddress(0x0A000000), 16)};
    Search search(plan);
    search.TakeDatagrams(Time(0));
    EXPECT_FALSE(search.IsOver(Time(4000)));
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

TEST_F(SearchTest, AsksANeighbourAgainThatStaysSilentInSnmp) {
    network.Add({.address = "192.0.2.10", .host = "loom", .announcesItself = true});
    SearchPlan plan = SimulatedNetwork::NeighbourPlan();
    plan.sweeps.clear();
    Search search(plan);
    EXPECT_THAT(network.Run(search), SizeIs(1));
    EXPECT_EQ(network.sentTo[NetworkAddress(0xC000020A)], 2U);
}

TEST_F(SearchTest, AsksOneHostAlone) {
    AddOffice(8);
    EXPECT_THAT(AddressesOf(AskHost("192.0.2.20")), ElementsAre("192.0.2.20"));
    EXPECT_THAT(network.sentTo, SizeIs(1));
    EXPECT_LE(network.now, Time(700));
}

TEST_F(SearchTest, IsOverATenthOfASecondAfterItsHostHasToldAll) {
    network.Add({.address = "192.0.2.20", .answersSnmp = true});
    AskHost("192.0.2.20");
    // Two questions of SNMP, each answered after three milliseconds.
    EXPECT_EQ(network.now, Time(2 * 3 + 100));
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
    SearchPlan plan = SimulatedNetwork::NeighbourPlan();
    plan.asksNeighbours = false;
    plan.sweeps.clear();
    plan.localName = "PRINTER1.local";
    Search search(plan);
    EXPECT_THAT(AddressesOf(network.Run(search)), ElementsAre("192.0.2.11"));
}

}  // namespace
