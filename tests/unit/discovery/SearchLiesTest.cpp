// Devices that answer otherwise than they should: the search ends in time, and nobody is found who was not
// asked.

#include <gmock/gmock.h>

#include "tests/unit/discovery/SimulatedNetwork.h"

namespace {

using discovery::Bytes;
using discovery::Datagram;
using discovery::DeviceFacts;
using discovery::NetworkAddress;
using discovery::Search;
using discovery::Time;
using testing::IsEmpty;
using testing::SizeIs;

using Answers = std::vector<Datagram>;

Bytes WithRequestId(const Bytes& packet, std::int32_t requestId) {
    const auto message = discovery::DecodeSnmpResponse(packet);
    wire::SnmpAnswer answer{.version = message->version, .requestId = requestId};
    for (const auto& binding : message->bindings)
        answer.bindings.emplace_back(binding.name, wire::OctetValue("x"));
    return wire::SnmpPacket(answer);
}

class SearchLiesTest : public testing::Test {
protected:
    std::vector<DeviceFacts> SearchWith(std::function<Answers(const Datagram&)> lie, bool isSnmp = true) {
        network.Add({.address = "192.0.2.10",
                     .host = "liar",
                     .answersSnmp = isSnmp,
                     .announcesItself = !isSnmp,
                     .lie = std::move(lie)});
        Search search(SimulatedNetwork::NeighbourPlan());
        auto devices = network.Run(search);
        EXPECT_LE(network.now, Time(5000));
        return devices;
    }

    SimulatedNetwork network;
};

TEST_F(SearchLiesTest, OtherPeoplesRequestIdsCountForNothing) {
    EXPECT_THAT(SearchWith([](const Datagram& answer) {
                    Datagram other = answer;
                    other.bytes = WithRequestId(answer.bytes, 4711);
                    return Answers{other};
                }),
                IsEmpty());
}

TEST_F(SearchLiesTest, AnotherCommunityCountsForNothing) {
    EXPECT_THAT(SearchWith([](const Datagram& answer) {
                    Datagram other = answer;
                    other.bytes.replace(other.bytes.find("public"), 6, "secret");
                    return Answers{other};
                }),
                IsEmpty());
}

TEST_F(SearchLiesTest, AnotherAddressCountsForNothing) {
    EXPECT_THAT(SearchWith([](const Datagram& answer) {
                    Datagram other = answer;
                    other.peer = NetworkAddress(0xC6336401);
                    return Answers{other};
                }),
                IsEmpty());
}

TEST_F(SearchLiesTest, AnotherPortCountsForNothing) {
    EXPECT_THAT(SearchWith([](const Datagram& answer) {
                    Datagram other = answer;
                    other.port = 4711;
                    return Answers{other};
                }),
                IsEmpty());
}

TEST_F(SearchLiesTest, AnotherIdOfMulticastDnsCountsForNothing) {
    EXPECT_THAT(SearchWith(
                    [](const Datagram& answer) {
                        Datagram other = answer;
                        other.bytes[0] = static_cast<char>(other.bytes[0] ^ 1);
                        return Answers{other};
                    },
                    false),
                IsEmpty());
}

TEST_F(SearchLiesTest, AnAnswerOfMulticastDnsFromElsewhereCountsForNothing) {
    EXPECT_THAT(SearchWith(
                    [](const Datagram& answer) {
                        Datagram other = answer;
                        other.peer = NetworkAddress(0xC6336401);
                        return Answers{other};
                    },
                    false),
                IsEmpty());
}

TEST_F(SearchLiesTest, AnAnswerOfMulticastDnsByALinkThatIsNotThereCountsForNothing) {
    EXPECT_THAT(SearchWith(
                    [](const Datagram& answer) {
                        Datagram other = answer;
                        other.link = SimulatedNetwork::NeighbourPlan().links.size();
                        return Answers{other};
                    },
                    false),
                IsEmpty());
}

TEST_F(SearchLiesTest, WhatIsCutOffCountsForNothing) {
    EXPECT_THAT(SearchWith([](const Datagram& answer) {
                    Datagram other = answer;
                    other.bytes.resize(other.bytes.size() - 1);
                    return Answers{other};
                }),
                IsEmpty());
}

TEST_F(SearchLiesTest, AnAnswerTwiceIsOneDevice) {
    EXPECT_THAT(SearchWith([](const Datagram& answer) { return Answers{answer, answer}; }), SizeIs(1));
}

TEST_F(SearchLiesTest, ATableThatGoesInCirclesEnds) {
    // Whatever is asked for, the first row is what follows.
    const std::vector<DeviceFacts> devices = SearchWith([](const Datagram& answer) {
        const auto message = discovery::DecodeSnmpResponse(answer.bytes);
        wire::SnmpAnswer circle{.version = message->version, .requestId = message->requestId};
        circle.bindings.emplace_back(discovery::Oid{1, 3, 6, 1, 2, 1, 25, 3, 2, 1, 2, 1},
                                     wire::OidValue({1, 3, 6, 1, 2, 1, 25, 3, 1, 5}));
        Datagram other = answer;
        other.bytes = wire::SnmpPacket(circle);
        return Answers{other};
    });
    EXPECT_THAT(devices, SizeIs(1));
    EXPECT_LE(network.sentTo[NetworkAddress(0xC000020A)], 10U);
}

TEST_F(SearchLiesTest, ATableWithoutEndEnds) {
    std::uint32_t row = 0;
    SearchWith([&row](const Datagram& answer) {
        const auto message = discovery::DecodeSnmpResponse(answer.bytes);
        wire::SnmpAnswer endless{.version = message->version, .requestId = message->requestId};
        ++row;
        endless.bindings.emplace_back(discovery::Oid{1, 3, 6, 1, 2, 1, 25, 3, 2, 1, 2, row},
                                      wire::NumberValue(1));
        Datagram other = answer;
        other.bytes = wire::SnmpPacket(endless);
        return Answers{other};
    });
    EXPECT_LE(network.sentTo[NetworkAddress(0xC000020A)], 30U);
}

TEST_F(SearchLiesTest, AnErrorWithoutAPlaceEndsTheQuestions) {
    SearchWith([](const Datagram& answer) {
        const auto message = discovery::DecodeSnmpResponse(answer.bytes);
        Datagram other = answer;
        other.bytes = wire::SnmpPacket({.version = message->version,
                                        .requestId = message->requestId,
                                        .errorStatus = 5,
                                        .errorIndex = 99,
                                        .bindings = {}});
        return Answers{other};
    });
    EXPECT_LE(network.sentTo[NetworkAddress(0xC000020A)], 3U);
}

TEST_F(SearchLiesTest, ADeviceThatVanishesIsStillFound) {
    int answers = 0;
    EXPECT_THAT(SearchWith([&answers](const Datagram& answer) {
                    return ++answers == 1 ? Answers{answer} : Answers{};
                }),
                SizeIs(1));
}

TEST_F(SearchLiesTest, ManyServicesOfOneHostAreOneDevice) {
    const std::vector<DeviceFacts> devices = SearchWith(
        [](const Datagram& answer) {
            Answers answers;
            for (int number = 0; number < 10000; ++number) {
                const discovery::DnsName instance{"Queue " + std::to_string(number), "_ipp", "_tcp", "local"};
                Datagram other = answer;
                other.bytes = wire::DnsPacket(wire::DnsQueryId(answer.bytes))
                                  .Pointer({"_ipp", "_tcp", "local"}, instance)
                                  .Service(instance, {"liar", "local"}, 631)
                                  .Address({"liar", "local"}, Bytes("\xC0\0\2\x0A", 4))
                                  .Packet();
                answers.push_back(other);
            }
            return answers;
        },
        false);
    EXPECT_THAT(devices, SizeIs(1));
}

}  // namespace
