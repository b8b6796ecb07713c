#include <gmock/gmock.h>

#include "discovery/SearchCheck.h"

namespace {

constexpr wchar_t ownAddress[] = L"10.0.0.7";

// A system that reads one address.
class SearchCheckTest : public testing::Test {
protected:
    bool canRead = true;
    SearchCheck check{{.isPossible = [this] { return canRead; },
                       .isAddress = [](const std::wstring& text) { return text == ownAddress; }}};
};

TEST_F(SearchCheckTest, AcceptsAHostByNameOrAddress) {
    EXPECT_TRUE(check.CheckHost(L"printer-7.test").accepted);
    EXPECT_TRUE(check.CheckHost(ownAddress).accepted);
}

TEST_F(SearchCheckTest, SaysOnceWhatIsWrongWithAHost) {
    const FieldVerdict verdict = check.CheckHost(L"not a host!");
    EXPECT_FALSE(verdict.accepted);
    EXPECT_EQ(verdict.complaint, TextKey::MSG_INVALID_IPHOST_NAME);
    check.Force();
    EXPECT_TRUE(check.CheckHost(L"not a host!").complaint.empty());
}

TEST_F(SearchCheckTest, SaysItAgainWhereTheSystemCannotReadAddresses) {
    canRead = false;
    check.CheckHost(L"not a host!");
    check.Force();
    EXPECT_EQ(check.CheckHost(L"not a host!").complaint, TextKey::MSG_INVALID_IPHOST_NAME);
}

TEST_F(SearchCheckTest, RefusesAHostThatWasCheckedUntilItChangesOrIsForced) {
    EXPECT_TRUE(check.CheckHost(L"a").accepted);
    EXPECT_FALSE(check.CheckHost(L"a").accepted);
    check.Force();
    EXPECT_TRUE(check.CheckHost(L"a").accepted);
    EXPECT_TRUE(check.CheckHost(L"b").accepted);
}

TEST_F(SearchCheckTest, ForgetsTheForceAtAnEmptyHost) {
    check.CheckHost(L"a");
    check.Force();
    EXPECT_FALSE(check.CheckHost(L"").accepted);
    EXPECT_FALSE(check.CheckHost(L"a").accepted);
}

TEST_F(SearchCheckTest, CutsALongHostOffAndTakesItUntested) {
    const FieldVerdict verdict = check.CheckHost(std::wstring(256, L'!'));
    EXPECT_TRUE(verdict.accepted);
    EXPECT_EQ(verdict.complaint, TextKey::MSG_HOSTNAME_LIMIT);
    EXPECT_EQ(verdict.cutTo, 255U);
    EXPECT_EQ(check.CheckHost(std::wstring(255, L'!')).cutTo, std::nullopt);
}

TEST_F(SearchCheckTest, TakesACutHostUntilItChanges) {
    const std::wstring cut(255, L'!');
    check.CheckHost(cut + L"!");
    EXPECT_TRUE(check.CheckHost(cut).accepted);
    check.Force();
    EXPECT_TRUE(check.CheckHost(cut).accepted);
    EXPECT_FALSE(check.CheckHost(cut.substr(1)).accepted);
    EXPECT_FALSE(check.CheckHost(cut).accepted);
}

TEST_F(SearchCheckTest, TestsAnAddressEachTimeAndComplainsOnce) {
    EXPECT_EQ(check.CheckAddress(L"x").complaint, TextKey::MSG_INVALID_IP);
    EXPECT_EQ(check.CheckMask(L"x").complaint, TextKey::MSG_INVALID_SUBNET);
    const FieldVerdict again = check.CheckAddress(L"x");
    EXPECT_FALSE(again.accepted);
    EXPECT_TRUE(again.complaint.empty());
    EXPECT_TRUE(check.CheckAddress(ownAddress).accepted);
    EXPECT_TRUE(check.CheckAddress(ownAddress).accepted);
}

TEST_F(SearchCheckTest, CutsALongAddressOffAndTakesItUntestedUntilItChanges) {
    const FieldVerdict verdict = check.CheckMask(std::wstring(46, L'1'));
    EXPECT_TRUE(verdict.accepted);
    EXPECT_EQ(verdict.complaint, TextKey::MSG_SUBNET_LIMIT);
    EXPECT_EQ(verdict.cutTo, 45U);
    const FieldVerdict again = check.CheckMask(std::wstring(45, L'1'));
    EXPECT_TRUE(again.accepted);
    EXPECT_TRUE(again.complaint.empty());
    EXPECT_FALSE(check.CheckMask(std::wstring(44, L'1')).accepted);
    EXPECT_FALSE(check.CheckMask(std::wstring(45, L'1')).accepted);
}

TEST_F(SearchCheckTest, TakesEveryAddressWhereTheSystemCannotReadAny) {
    canRead = false;
    EXPECT_TRUE(check.CheckAddress(L"x").accepted);
    EXPECT_FALSE(check.CheckAddress(L"").accepted);
}

TEST_F(SearchCheckTest, SpendsTheForceOnAnAddress) {
    check.CheckHost(L"a");
    check.Force();
    check.CheckAddress(L"x");
    EXPECT_FALSE(check.CheckHost(L"a").accepted);
}

struct DocumentCase {
    std::wstring document;
    ShownSearch search;
};

class SearchDocumentTest : public testing::TestWithParam<DocumentCase> {};

TEST_P(SearchDocumentTest, IsReadIntoTheFields) {
    const ShownSearch search = ReadSearch(GetParam().document);
    EXPECT_EQ(search.kind, GetParam().search.kind);
    EXPECT_EQ(search.host, GetParam().search.host);
    EXPECT_EQ(search.address, GetParam().search.address);
    EXPECT_EQ(search.mask, GetParam().search.mask);
}

const DocumentCase documents[] = {
    {L"", {.kind = SearchKind::OwnSubnet}},
    {L"<UnicastAddress>a</UnicastAddress>", {.kind = SearchKind::Host, .host = L"a"}},
    {L"<RemoteSubnets>10.1.0.0:255.255.0.0;</RemoteSubnets>",
     {.kind = SearchKind::Subnet, .address = L"10.1.0.0", .mask = L"255.255.0.0"}},
    {L"<RemoteSubnets>10.1.0.0:</RemoteSubnets>", {.kind = SearchKind::Subnet, .address = L"10.1.0.0"}},
    {L"<RemoteSubnets>10.1.0.0:24;</RemoteSubnets>",
     {.kind = SearchKind::Subnet, .address = L"10.1.0.0", .mask = L"24"}},
    {L"<RemoteSubnets>a:b:c;</RemoteSubnets>", {.kind = SearchKind::Subnet, .address = L"a", .mask = L"b:c"}},
    {L"<RemoteSubnets>2001:db8::1:24;</RemoteSubnets>",
     {.kind = SearchKind::Subnet, .address = L"2001:db8::1", .mask = L"24"}},
    {L"<RemoteSubnets>10.1.0.0</RemoteSubnets>", {.kind = SearchKind::UnreadableSubnet}},
    {L"<Other>1</Other>", {.kind = SearchKind::Unreadable}},
};

INSTANTIATE_TEST_SUITE_P(Forms, SearchDocumentTest, testing::ValuesIn(documents));

TEST(WriteSearchTest, WritesWhatReadSearchReads) {
    for (const DocumentCase& form : {documents[0], documents[1], documents[2]}) {
        EXPECT_EQ(WriteSearch(form.search), form.document);
    }
}

class SubnetTest : public testing::TestWithParam<std::pair<const wchar_t*, const wchar_t*>> {};

TEST_P(SubnetTest, ReopensAsItWasTyped) {
    const auto [address, mask] = GetParam();
    const ShownSearch search =
        ReadSearch(WriteSearch({.kind = SearchKind::Subnet, .host = {}, .address = address, .mask = mask}));
    EXPECT_EQ(search.kind, SearchKind::Subnet);
    EXPECT_EQ(search.address, address);
    EXPECT_EQ(search.mask, mask);
}

INSTANTIATE_TEST_SUITE_P(
    Addresses, SubnetTest,
    testing::Values(std::pair(L"10.1.0.0", L"255.255.0.0"), std::pair(L"2001:db8::", L"ffff:ffff::"),
                    std::pair(L"2001:db8::1", L"ffff:ffff::"), std::pair(L"2001:db8::1:2", L"ffff::"),
                    std::pair(L"1:2:3:4:5:6:7:8", L"FFFF:FFFF:FFFF:FFFF:0:0:0:0"),
                    std::pair(L"::1", L"ffff:8000::"), std::pair(L"1::2", L"3:ff01::"),
                    std::pair(L"::", L"::"), std::pair(L"1::2", L"3:0::"), std::pair(L"fe80::1%3", L"ffff::"),
                    std::pair(L"::ffff:10.1.0.0", L"255.255.0.0"),
                    std::pair(L"1111:2222:3333:4444:5555:6666:255.255.255.255", L"ffff::"),
                    std::pair(L"2001:db8::1", L""), std::pair(L"", L"")));

TEST(SubnetSizeTest, IsReadThoughItIsAMegabyteOfColons) {
    const std::wstring colons(1'000'000, L':');
    EXPECT_EQ(ReadSearch(L"<RemoteSubnets>" + colons + L"</RemoteSubnets>").mask.size(), colons.size() - 2);
}

}  // namespace
