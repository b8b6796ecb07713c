// What is asked for again of what devices announce.

#include <gmock/gmock.h>

#include "standins/discovery/MulticastDns.h"
#include "tests/unit/discovery/WirePackets.h"

namespace {

using discovery::Bytes;
using discovery::Datagram;
using discovery::DeviceFacts;
using discovery::DnsName;
using discovery::DnsQuestion;
using discovery::DnsType;
using discovery::FoundDevices;
using discovery::MulticastDns;
using testing::Field;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::UnorderedElementsAre;

const DnsName serviceOfIpp{"_ipp", "_tcp", "local"};
const DnsName loom{"Loom 310", "_ipp", "_tcp", "local"};
const DnsName loomHost{"Loom", "local"};
const Bytes ipV4("\xC0\0\2\7", 4);
const Bytes ipV6("\x20\1\x0D\xB8\0\0\0\0\0\0\0\0\0\0\0\7", 16);

auto Asks(DnsType wanted) {
    return Field(&DnsQuestion::type, wanted);
}

class MulticastDnsTest : public testing::Test {
protected:
    // Returns whether that was news.
    bool Hear(const wire::DnsPacket& packet, std::uint16_t port = discovery::multicastDnsPort,
              std::size_t link = 0) {
        return dns.Receive({.peer = discovery::NetworkAddress(0xC0000207),
                            .port = port,
                            .link = link,
                            .bytes = packet.Packet()});
    }

    // The questions for what is missing, of one of the packets by which they go out.
    std::vector<DnsQuestion> Questions() {
        std::vector<Datagram> sent;
        dns.AskForMissing(sent);
        return sent.empty() ? std::vector<DnsQuestion>() : wire::DnsQuestions(sent.front().bytes);
    }

    std::vector<DeviceFacts> Printers() const {
        FoundDevices found;
        dns.Collect(found);
        return found.Printers();
    }

    MulticastDns dns{7, {2}};
};

TEST_F(MulticastDnsTest, AsksForWhatDidNotComeAlong) {
    Hear(wire::DnsPacket(7).Pointer(serviceOfIpp, loom));
    EXPECT_THAT(Questions(), UnorderedElementsAre(Asks(DnsType::Srv), Asks(DnsType::Txt)));
    Hear(wire::DnsPacket(7).Service(loom, loomHost, 631).Texts(loom, {"rp=ipp/print"}));
    EXPECT_THAT(Questions(), UnorderedElementsAre(Asks(DnsType::A), Asks(DnsType::Aaaa)));
    Hear(wire::DnsPacket(7).Address(loomHost, ipV4));
    EXPECT_THAT(Questions(), IsEmpty());
}

TEST_F(MulticastDnsTest, AsksForTheOtherAddressOfWhomItKnowsByIpV6) {
    Hear(wire::DnsPacket(7).Pointer(serviceOfIpp, loom).Service(loom, loomHost, 631).Address(loomHost, ipV6));
    EXPECT_THAT(Questions(), UnorderedElementsAre(Asks(DnsType::Txt), Asks(DnsType::A)));
    Hear(wire::DnsPacket(7).Address(loomHost, ipV4));
    EXPECT_THAT(Questions(), UnorderedElementsAre(Asks(DnsType::Txt)));
}

TEST_F(MulticastDnsTest, AsksForTheOtherAddressWhereThatOfIpV6CameFirst) {
    Hear(wire::DnsPacket(7).Address(loomHost, ipV6));
    Hear(wire::DnsPacket(7).Pointer(serviceOfIpp, loom).Service(loom, loomHost, 631));
    EXPECT_THAT(Questions(), UnorderedElementsAre(Asks(DnsType::Txt), Asks(DnsType::A)));
}

TEST_F(MulticastDnsTest, TellsNewsFromWhatItKnows) {
    for (const wire::DnsPacket& packet :
         {wire::DnsPacket(7).Pointer(serviceOfIpp, loom), wire::DnsPacket(7).Service(loom, loomHost, 631),
          wire::DnsPacket(7).Texts(loom, {"rp=ipp/print"}), wire::DnsPacket(7).Address(loomHost, ipV4)}) {
        EXPECT_TRUE(Hear(packet));
        EXPECT_FALSE(Hear(packet));
    }
    EXPECT_FALSE(Hear(wire::DnsPacket(7).Address(loomHost, Bytes(4, '\0'))));
    EXPECT_FALSE(Hear(wire::DnsPacket(7).Service({"Other", "_ipp", "_tcp", "local"}, loomHost, 631)));
    EXPECT_FALSE(Hear(wire::DnsPacket(7).Texts({"Other", "_ipp", "_tcp", "local"}, {})));
}

TEST_F(MulticastDnsTest, HearsOfTheServicesOfPrintersAlone) {
    for (const DnsName& other :
         {DnsName{"Loom", "_web", "_tcp", "local"}, DnsName{"Loom_ipp", "_tcp", "local"},
          DnsName{"_ipp", "_tcp", "local"}, DnsName{"._ipp", "_tcp", "local"}, DnsName{"Loom", "local"}}) {
        EXPECT_FALSE(Hear(wire::DnsPacket(7).Pointer(serviceOfIpp, other)));
    }
}

TEST_F(MulticastDnsTest, AsksOnEachLink) {
    std::vector<Datagram> sent;
    MulticastDns(7, {2, 3}).Browse(sent);
    EXPECT_THAT(sent, testing::ElementsAre(Field(&Datagram::link, 0U), Field(&Datagram::link, 0U),
                                           Field(&Datagram::link, 1U), Field(&Datagram::link, 1U)));
}

TEST_F(MulticastDnsTest, KnowsTheLinkOfAnAddressByThatOfTheAnswer) {
    const Bytes neighbour("\xFE\x80\0\0\0\0\0\0\0\0\0\0\0\0\0\7", 16);
    Hear(wire::DnsPacket(7).Address(loomHost, neighbour));
    Hear(wire::DnsPacket(7).Address({"far", "local"}, neighbour), discovery::multicastDnsPort, 1);
    EXPECT_EQ(dns.AddressesOf("loom.local").front().ToText(), "fe80::7%2");
    EXPECT_EQ(dns.AddressesOf("far.local").front().ToText(), "fe80::7");
}

TEST_F(MulticastDnsTest, KeepsNoMoreHostsThanANetworkCanHave) {
    for (int number = 0; number < 5000; ++number) {
        Hear(wire::DnsPacket(7).Address({"host" + std::to_string(number), "local"}, ipV4));
    }
    EXPECT_EQ(dns.TakeNewAddresses().size(), 4096U);
}

TEST_F(MulticastDnsTest, TellsAFaxByItsService) {
    const DnsName fax{"Loom 310", "_fax-ipp", "_tcp", "local"};
    Hear(wire::DnsPacket(7).Pointer(serviceOfIpp, loom).Service(loom, loomHost, 631).Address(loomHost, ipV4));
    ASSERT_EQ(Printers().size(), 1U);
    EXPECT_EQ(Printers().front().hasFax, std::nullopt);
    EXPECT_EQ(Printers().front().canScan, std::nullopt);
    Hear(wire::DnsPacket(7).Pointer({"_fax-ipp", "_tcp", "local"}, fax).Service(fax, loomHost, 631));
    ASSERT_EQ(Printers().size(), 1U);
    EXPECT_EQ(Printers().front().hasFax, true);
}

TEST_F(MulticastDnsTest, ReadsAPathWithItsSlashAndWithout) {
    for (const std::string path : {"rp=ipp/print", "rp=/ipp/print"}) {
        Hear(wire::DnsPacket(7).Pointer(serviceOfIpp, loom).Service(loom, loomHost, 631).Texts(loom, {path}));
        Hear(wire::DnsPacket(7).Address(loomHost, ipV4));
        ASSERT_EQ(Printers().size(), 1U);
        EXPECT_EQ(Printers().front().ipp, (discovery::IppPlace{.port = 631, .path = "/ipp/print"}));
        dns = MulticastDns(7, {2});
    }
}

TEST_F(MulticastDnsTest, AnotherPortCountsForNothing) {
    EXPECT_FALSE(Hear(wire::DnsPacket(7).Pointer(serviceOfIpp, loom), 4711));
    EXPECT_THAT(Questions(), IsEmpty());
}

TEST_F(MulticastDnsTest, AnAddressThatIsNoHostsCountsForNothing) {
    Hear(wire::DnsPacket(7).Address(loomHost, Bytes("\xE0\0\0\xFB", 4)).Address(loomHost, Bytes(4, '\0')));
    EXPECT_THAT(dns.AddressesOf("loom.local"), IsEmpty());
    Hear(wire::DnsPacket(7).Address(loomHost, ipV4));
    EXPECT_EQ(dns.AddressesOf("loom.local").size(), 1U);
}

TEST_F(MulticastDnsTest, WhatScansAloneIsNoPrinter) {
    const DnsName scanner{"Loom 310", "_uscan", "_tcp", "local"};
    Hear(wire::DnsPacket(7)
             .Pointer({"_uscan", "_tcp", "local"}, scanner)
             .Service(scanner, loomHost, 8080)
             .Address(loomHost, ipV4));
    EXPECT_THAT(Printers(), IsEmpty());
    Hear(wire::DnsPacket(7).Pointer(serviceOfIpp, loom).Service(loom, loomHost, 631));
    ASSERT_EQ(Printers().size(), 1U);
    EXPECT_EQ(Printers().front().canScan, true);
}

TEST_F(MulticastDnsTest, KeepsNoMoreServicesThanANetworkCanHave) {
    for (int number = 0; number < 5000; ++number) {
        Hear(wire::DnsPacket(7).Pointer(serviceOfIpp,
                                        {"Queue " + std::to_string(number), "_ipp", "_tcp", "local"}));
    }
    std::vector<Datagram> sent;
    dns.AskForMissing(sent);
    // Two records of each service are missing; eight questions go into a packet, by both protocols.
    EXPECT_EQ(sent.size(), 2U * 2 * 4096 / 8);
}

TEST_F(MulticastDnsTest, GivesUpWhatDoesNotComeAfterSixTimes) {
    Hear(wire::DnsPacket(7).Pointer(serviceOfIpp, loom));
    for (int time = 0; time < 6; ++time) EXPECT_THAT(Questions(), IsSupersetOf({Asks(DnsType::Srv)})) << time;
    EXPECT_THAT(Questions(), IsEmpty());
}

}  // namespace
