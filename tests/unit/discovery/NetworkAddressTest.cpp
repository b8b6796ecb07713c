#include <gmock/gmock.h>

#include "standins/discovery/NetworkAddress.h"

namespace {

using discovery::Bytes;
using discovery::NetworkAddress;
using discovery::Subnet;

struct Written {
    const wchar_t* text;
    const char* plain;
    const char* host;
};

class WrittenAddressTest : public testing::TestWithParam<Written> {};

TEST_P(WrittenAddressTest, IsReadAndWritten) {
    const auto address = NetworkAddress::FromText(GetParam().text);
    ASSERT_TRUE(address);
    EXPECT_EQ(address->ToText(), GetParam().plain);
    EXPECT_EQ(address->ToHostText(), GetParam().host);
    const std::string host = address->ToHostText();
    EXPECT_EQ(NetworkAddress::FromText(std::wstring(host.begin(), host.end())), address);
}

INSTANTIATE_TEST_SUITE_P(
    Addresses, WrittenAddressTest,
    testing::Values(Written{L"192.0.2.7", "192.0.2.7", "192.0.2.7"},
                    Written{L"2001:DB8:0:0:1:0:0:1", "2001:db8::1:0:0:1",
                            "2001-db8--1-0-0-1.ipv6-literal.net"},
                    Written{L"fe80::1%12", "fe80::1%12", "fe80--1s12.ipv6-literal.net"},
                    Written{L"2001:db8::1%12", "2001:db8::1", "2001-db8--1.ipv6-literal.net"},
                    Written{L"fe80::1%eth0", "fe80::1", "fe80--1.ipv6-literal.net"},
                    Written{L"::1", "::1", "0--1.ipv6-literal.net"},
                    Written{L"2001:db8::", "2001:db8::", "2001-db8--0.ipv6-literal.net"},
                    Written{L"1:0:2:0:3:0:4:0", "1:0:2:0:3:0:4:0", "1-0-2-0-3-0-4-0.ipv6-literal.net"}));

TEST(NetworkAddressTest, IsNothingButAnAddress) {
    for (const wchar_t* const text :
         {L"", L"printer", L"1.2.3", L"1.2.3.4.5", L"a.ipv6-literal.net", L"::1::"}) {
        EXPECT_FALSE(NetworkAddress::FromText(text)) << Bytes(text, text + std::wcslen(text));
    }
    EXPECT_FALSE(NetworkAddress::FromBytes("12345"));
}

TEST(NetworkAddressTest, TellsHostsFromOthers) {
    const auto isHost = [](const wchar_t* text) { return NetworkAddress::FromText(text)->IsHost(); };
    EXPECT_TRUE(isHost(L"192.0.2.7"));
    EXPECT_TRUE(isHost(L"fe80::1"));
    EXPECT_TRUE(isHost(L"::2"));
    EXPECT_TRUE(isHost(L"::101"));
    for (const wchar_t* const text :
         {L"0.0.0.0", L"127.0.0.1", L"224.0.0.251", L"255.255.255.255", L"::", L"::1", L"ff02::fb"}) {
        EXPECT_FALSE(isHost(text));
    }
}

TEST(NetworkAddressTest, TellsAddressesOfALinkFromOthers) {
    const auto isLinkLocal = [](const wchar_t* text) {
        return NetworkAddress::FromText(text)->IsLinkLocal();
    };
    for (const wchar_t* const text : {L"169.254.0.1", L"fe80::1", L"febf::1"}) EXPECT_TRUE(isLinkLocal(text));
    for (const wchar_t* const text :
         {L"169.253.0.1", L"10.254.0.1", L"fec0::1", L"fc80::1", L"2001:db8::1"}) {
        EXPECT_FALSE(isLinkLocal(text));
    }
}

TEST(SubnetTest, ReadsTheFormOfASearchDocument) {
    const auto subnet = Subnet::FromText(L"192.0.2.77:255.255.255.0");
    ASSERT_TRUE(subnet);
    EXPECT_EQ(subnet->PrefixLength(), 24);
    EXPECT_EQ(subnet->HostCount(), 254U);
    EXPECT_EQ(subnet->Host(0).ToText(), "192.0.2.1");
    EXPECT_EQ(subnet->Host(253).ToText(), "192.0.2.254");
    EXPECT_EQ(subnet->Broadcast().ToText(), "192.0.2.255");
    EXPECT_TRUE(subnet->Contains(NetworkAddress(0xC0000201)));
    EXPECT_FALSE(subnet->Contains(NetworkAddress(0xC0000301)));
}

TEST(SubnetTest, TakesBothAddressesOfTheSmallest) {
    const auto pair = Subnet::FromText(L"192.0.2.6:255.255.255.254");
    ASSERT_TRUE(pair);
    EXPECT_EQ(pair->HostCount(), 2U);
    EXPECT_EQ(pair->Host(1).ToText(), "192.0.2.7");
    EXPECT_EQ(Subnet::FromText(L"192.0.2.6:255.255.255.255")->HostCount(), 1U);
}

TEST(SubnetTest, HasAPrefixThatFitsAnAddress) {
    EXPECT_EQ(Subnet(NetworkAddress(0xC0000207), 33).PrefixLength(), 32);
    EXPECT_EQ(Subnet(NetworkAddress(0xC0000207), -1).PrefixLength(), 0);
    EXPECT_FALSE(Subnet(NetworkAddress(0xC0000207), 1).Contains(NetworkAddress(0x01020304)));
    EXPECT_TRUE(Subnet(NetworkAddress(0xC0000207), 0).Contains(NetworkAddress(0x01020304)));
}

TEST(SubnetTest, RefusesWhatIsNoSubnet) {
    for (const wchar_t* const text : {L"192.0.2.7", L"192.0.2.7:255.0.255.0", L"192.0.2.7:",
                                      L":255.255.255.0", L"fe80::1:255.255.255.0"}) {
        EXPECT_FALSE(Subnet::FromText(text));
    }
    EXPECT_EQ(Subnet::FromText(L"10.0.0.0:0.0.0.0")->PrefixLength(), 0);
}

}  // namespace
