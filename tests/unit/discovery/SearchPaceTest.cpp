// When a search asks, how often, and when it is over.

#include "tests/unit/discovery/SearchWorld.h"

namespace {

using discovery::Datagram;
using discovery::NetworkAddress;
using discovery::Search;
using discovery::SearchPlan;
using discovery::Subnet;
using discovery::Time;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using SearchPaceTest = SearchWorld;

TEST_F(SearchPaceTest, IsOverSoonAfterTheLastAnswer) {
    AddOffice(8);
    SearchNeighbours();
    EXPECT_LE(network.now, Time(1050));
}

TEST_F(SearchPaceTest, GivesSilentNeighboursTimeToWakeUp) {
    EXPECT_THAT(SearchNeighbours(), IsEmpty());
    EXPECT_GE(network.now, Time(1500));
    EXPECT_LE(network.now, Time(5000));
}

TEST_F(SearchPaceTest, IsOverAtOnceWhereThereIsNobodyToAsk) {
    Search search(SearchPlan{});
    EXPECT_THAT(network.Run(search), IsEmpty());
    EXPECT_EQ(network.now, Time(0));
}

TEST_F(SearchPaceTest, IsOverAtItsLimit) {
    SearchPlan plan = SimulatedNetwork::NeighbourPlan();
    plan.limit = Time(100);
    Search search(plan);
    network.Run(search);
    EXPECT_EQ(network.now, Time(100));
}

TEST_F(SearchPaceTest, WaitsForThoseWhoAnswerSlowly) {
    network.Add({.address = "192.0.2.10", .answersSnmp = true, .delay = Time(3)});
    network.Add({.address = "192.0.2.11", .answersSnmp = true, .delay = Time(400)});
    EXPECT_THAT(SearchNeighbours(), SizeIs(2));
}

TEST_F(SearchPaceTest, WaitsLongerWhereTheFirstAnswersAreSlow) {
    network.Add({.address = "192.0.2.11", .host = "b", .announcesItself = true, .delay = Time(200)});
    network.Add({.address = "192.0.2.12", .host = "c", .announcesItself = true, .delay = Time(800)});
    EXPECT_THAT(SearchWithoutSweep(), SizeIs(2));
}

TEST_F(SearchPaceTest, WaitsThreeTimesAsLongAsTheSlowestAnswer) {
    network.Add({.address = "192.0.2.10", .host = "a", .announcesItself = true, .delay = Time(200)});
    SearchWithoutSweep();
    // The second pass goes out at 250.
    EXPECT_EQ(network.now, Time(250 + 3 * 200));
}

TEST_F(SearchPaceTest, WantsToBeWokenLaterThanNow) {
    SearchPlan plan;
    plan.hosts = {{.address = NetworkAddress(0xC0000214), .ipp = {}}};
    Search search(plan);
    search.TakeDatagrams(Time(0));
    EXPECT_EQ(search.NextDue(Time(0)), Time(250));
    EXPECT_EQ(search.NextDue(Time(250)), Time(251));
}

TEST_F(SearchPaceTest, IsWokenForTheNextPassAndNotBefore) {
    Search search(PlanWithoutSweep());
    for (const Time now : {Time(0), Time(250), Time(750)}) search.TakeDatagrams(now);
    // When the quiet after a pass is over it may end.
    EXPECT_EQ(search.NextDue(Time(750)), Time(750 + 450));
}

TEST_F(SearchPaceTest, FindsNearlyAllInANetworkThatLosesAFifth) {
    for (std::uint32_t seed = 1; seed <= 20; ++seed) {
        network = {};
        AddOffice(8);
        network.Lose(0.2, seed);
        EXPECT_GE(SearchNeighbours().size(), 23U) << "with the losses of " << seed;
    }
}

TEST_F(SearchPaceTest, OnePassWithoutNewsIsNoEvidenceWhereAnswersGetLost) {
    network.Add({.address = "192.0.2.10", .host = "a", .announcesItself = true});
    network.Add({.address = "192.0.2.11", .host = "b", .announcesItself = true, .lie = FromAnswer(2)});
    network.Add({.address = "192.0.2.12", .host = "c", .announcesItself = true, .lie = FromAnswer(4)});
    EXPECT_THAT(SearchNeighbours(), SizeIs(3));
}

TEST_F(SearchPaceTest, TwoPassesWithoutNewsAreEvidenceWhereAnswersGetLost) {
    network.Add({.address = "192.0.2.10", .answersSnmp = true, .lie = FromAnswer(2)});
    SearchWithoutSweep();
    EXPECT_EQ(network.sentTo[NetworkAddress(0xC00002FF)], 4U);
}

TEST_F(SearchPaceTest, MakesNoMoreThanEightPassesThoughEachBringsNews) {
    for (int number = 1; number < 12; ++number) {
        network.Add(
            {.address = "192.0.2." + std::to_string(number), .answersSnmp = true, .lie = FromAnswer(number)});
    }
    SearchWithoutSweep();
    EXPECT_EQ(network.sentTo[NetworkAddress(0xC00002FF)], 8U);
}

TEST_F(SearchPaceTest, AsksOthersOnThoughItsHostHasAnswered) {
    SearchPlan sweep;
    sweep.sweeps = {Subnet(NetworkAddress(0xC000020B), 32)};
    for (SearchPlan plan : {PlanWithoutSweep(), sweep}) {
        network = {};
        network.Add({.address = "192.0.2.10", .answersSnmp = true});
        network.Add({.address = "192.0.2.11", .answersSnmp = true, .lie = FromAnswer(2)});
        plan.hosts = {{.address = NetworkAddress(0xC000020A), .ipp = {}}};
        Search search(plan);
        network.Run(search);
        EXPECT_NE(search.Devices().Find(NetworkAddress(0xC000020B)), nullptr);
    }
}

TEST_F(SearchPaceTest, AsksAQuestionOfAConversationEightTimes) {
    network.Add({.address = "192.0.2.10",
                 .answersSnmp = true,
                 .lie = [isFirst = true](const Datagram& answer) mutable {
                     return std::exchange(isFirst, false) ? std::vector{answer} : std::vector<Datagram>{};
                 }});
    AskHost("192.0.2.10");
    EXPECT_EQ(network.sentTo[NetworkAddress(0xC000020A)], 2U + 8U);
}

TEST_F(SearchPaceTest, RepeatsAQuestionOfAConversation) {
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

TEST_F(SearchPaceTest, ConversesThoughItsQuestionsToNobodyWait) {
    network.Add({.address = "192.0.2.10", .answersSnmp = true, .hasModem = true, .delay = Time(250)});
    SearchPlan plan = SimulatedNetwork::NeighbourPlan();
    plan.asksNeighbours = false;
    Search search(plan);
    const auto devices = network.Run(search);
    ASSERT_THAT(devices, SizeIs(1));
    EXPECT_EQ(devices[0].hasFax, true);
}

TEST_F(SearchPaceTest, SweepsALargeSubnetWithinItsPace) {
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

TEST_F(SearchPaceTest, AsksASilentHostInFourPassesByBothVersions) {
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

TEST_F(SearchPaceTest, WaitsTwoSecondsForAHostThatTakesAConnectionAndSaysNothing) {
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

TEST_F(SearchPaceTest, SendsNoMoreThanItsShare) {
    SearchPlan plan;
    plan.sweeps = {Subnet(NetworkAddress(0x0A000000), 16)};
    Search search(plan);
    EXPECT_THAT(search.TakeDatagrams(Time(0)), SizeIs(64));
    EXPECT_THAT(search.TakeDatagrams(Time(1000)), SizeIs(1000));
    EXPECT_THAT(search.TakeDatagrams(Time(1000)), IsEmpty());
}

TEST_F(SearchPaceTest, IsNotOverWhereItsSweepWasHeldUp) {
    SearchPlan plan;
    plan.sweeps = {Subnet(NetworkAddress(0x0A000000), 16)};
    Search search(plan);
    search.TakeDatagrams(Time(0));
    EXPECT_FALSE(search.IsOver(Time(4000)));
}

TEST_F(SearchPaceTest, AsksANeighbourAgainThatStaysSilentInSnmp) {
    network.Add({.address = "192.0.2.10", .host = "loom", .announcesItself = true});
    EXPECT_THAT(SearchWithoutSweep(), SizeIs(1));
    EXPECT_EQ(network.sentTo[NetworkAddress(0xC000020A)], 2U);
}

TEST_F(SearchPaceTest, IsOverATenthOfASecondAfterItsHostHasToldAll) {
    network.Add({.address = "192.0.2.20", .answersSnmp = true});
    AskHost("192.0.2.20");
    // Two questions of SNMP, each answered after three milliseconds.
    EXPECT_EQ(network.now, Time(2 * 3 + 100));
}

}  // namespace
