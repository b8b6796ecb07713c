#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "discovery/DeviceDocuments.h"
#include "settings/TagDocument.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::wstring At(const std::wstring& address) {
    return L"<IPADDRESS>" + address + L"</IPADDRESS>";
}

std::wstring ColourOf(const std::wstring& document) {
    return TagDocument::ValueOf(document, L"COLORTYPE");
}

void Colour(std::vector<std::wstring>& documents, std::wstring_view reply) {
    DeviceIndex index(documents);
    ApplyColours(reply, index);
}

TEST(SplitEnumerationTest, CutsAtEachNul) {
    EXPECT_THAT(SplitEnumeration(std::wstring(L"a\0bc\0", 5)), ElementsAre(L"a", L"bc"));
}

TEST(SplitEnumerationTest, FindsNothingInOneNul) {
    EXPECT_THAT(SplitEnumeration(std::wstring(1, L'\0')), IsEmpty());
}

TEST(SplitEnumerationTest, DropsADocumentThatNothingCloses) {
    EXPECT_THAT(SplitEnumeration(std::wstring(L"a\0b", 3)), ElementsAre(L"a"));
}

TEST(SplitEnumerationTest, PassesOverTheRoomBehindTheListing) {
    EXPECT_THAT(SplitEnumeration(std::wstring(L"a\0\0\0\0", 5)), ElementsAre(L"a"));
}

TEST(SplitEnumerationTest, SplitsADocumentAtASemicolonInAValue) {
    EXPECT_THAT(SplitEnumeration(std::wstring(L"<A>x;y</A>\0", 11)), ElementsAre(L"<A>x", L"y</A>"));
}

TEST(AddressListTest, ClosesEachAddressWithASemicolon) {
    EXPECT_EQ(AddressList({At(L"10.0.0.1"), L"<IPNAME>x</IPNAME>", At(L"10.0.0.2")}), L"10.0.0.1;;10.0.0.2;");
}

TEST(EnumerationDocumentTest, AlwaysAsksForDevicesThatAreNotAttached) {
    EXPECT_EQ(EnumerationDocument({}, {}), L"<CPDATTACHED>0</CPDATTACHED>");
}

TEST(EnumerationDocumentTest, NamesVendorAndSeriesBehindIt) {
    EXPECT_EQ(EnumerationDocument(L"72", L"A;B;"),
              L"<CPDATTACHED>0</CPDATTACHED><OEMBYTE>72</OEMBYTE><SERIESSTRID>A;B;</SERIESSTRID>");
}

TEST(ReadDeviceTest, TakesEachFieldFromItsTag) {
    const DiscoveredDevice device = ReadDevice(
        L"<IPADDRESS>1</IPADDRESS><IPNAME>2</IPNAME><MACUAA>3</MACUAA><1284STRID>4</1284STRID>"
        L"<SERIESSTRID>5</SERIESSTRID><COLORTYPE>mono</COLORTYPE><aioModelName>6</aioModelName>"
        L"<FAXINSTALLED>1</FAXINSTALLED>");
    EXPECT_EQ(device.address, L"1");
    EXPECT_EQ(device.hostName, L"2");
    EXPECT_EQ(device.macAddress, L"3");
    EXPECT_EQ(device.model, L"4");
    EXPECT_EQ(device.series, L"5");
    EXPECT_EQ(device.colour, L"mono");
    EXPECT_TRUE(device.isMultiFunction);
    EXPECT_TRUE(device.hasFax);
}

TEST(ReadDeviceTest, LeavesTheFieldsOfMissingTagsEmpty) {
    const DiscoveredDevice device = ReadDevice(L"");
    EXPECT_EQ(
        device.address + device.hostName + device.macAddress + device.model + device.series + device.colour,
        L"");
    EXPECT_FALSE(device.isMultiFunction);
    EXPECT_FALSE(device.hasFax);
}

TEST(ReadDeviceTest, TakesAnyOtherFaxValueForNone) {
    EXPECT_FALSE(ReadDevice(L"<FAXINSTALLED>true</FAXINSTALLED>").hasFax);
    EXPECT_FALSE(ReadDevice(L"<FAXINSTALLED>11</FAXINSTALLED>").hasFax);
}

TEST(ReadDeviceTest, TakesAnEmptyNameForASingleFunction) {
    EXPECT_FALSE(ReadDevice(L"<aioModelName></aioModelName>").isMultiFunction);
}

struct KeepCase {
    const wchar_t* message;
    bool isMultiFunction;
    bool isKept;
};

class KeepRuleTest : public testing::TestWithParam<KeepCase> {};

TEST_P(KeepRuleTest, GoesByTheMessage) {
    EXPECT_EQ(IsKept({.isMultiFunction = GetParam().isMultiFunction}, GetParam().message), GetParam().isKept);
}

INSTANTIATE_TEST_SUITE_P(Messages, KeepRuleTest,
                         testing::Values(KeepCase{L"", false, true}, KeepCase{L"", true, true},
                                         KeepCase{L"FAX", false, false}, KeepCase{L"FAX", true, true},
                                         KeepCase{L"a SCANNER", false, false},
                                         KeepCase{L"a SCANNER", true, true}, KeepCase{L"fax", false, true},
                                         KeepCase{L"PRINTER", false, true}, KeepCase{L"SCAN", false, true}));

TEST(ApplyColoursTest, SetsTheColourOfTheNamedDevices) {
    std::vector<std::wstring> documents{At(L"10.0.0.1"), At(L"10.0.0.2")};
    Colour(documents, L"10.0.0.2:color;10.0.0.1:mono;");
    EXPECT_EQ(ColourOf(documents[0]), L"mono");
    EXPECT_EQ(ColourOf(documents[1]), L"color");
}

TEST(ApplyColoursTest, PassesOverWhatMatchesNothing) {
    std::vector<std::wstring> documents{At(L"10.0.0.1")};
    Colour(documents, L"10.0.0.10:color;nonsense;10.0.0:color;");
    EXPECT_THAT(documents, ElementsAre(At(L"10.0.0.1")));
}

TEST(ApplyColoursTest, LosesALastEntryThatNothingCloses) {
    std::vector<std::wstring> documents{At(L"10.0.0.1"), At(L"10.0.0.2")};
    Colour(documents, L"10.0.0.1:mono;10.0.0.2:color");
    EXPECT_EQ(ColourOf(documents[0]), L"mono");
    EXPECT_EQ(documents[1], At(L"10.0.0.2"));
}

TEST(ApplyColoursTest, ChangesTheFirstOfTwoDocumentsWithOneAddress) {
    std::vector<std::wstring> documents{At(L"10.0.0.1"), At(L"10.0.0.1")};
    Colour(documents, L"10.0.0.1:mono;10.0.0.1:color;");
    EXPECT_EQ(ColourOf(documents[0]), L"color");
    EXPECT_EQ(documents[1], At(L"10.0.0.1"));
}

TEST(ApplyColoursTest, CutsAnEntryAtItsFirstColon) {
    std::vector<std::wstring> documents{At(L"a")};
    Colour(documents, L"a:b:c;");
    EXPECT_EQ(ColourOf(documents[0]), L"b:c");
}

TEST(ApplyColoursTest, GoesOnByTheAddressThatAValueBroughtAlong) {
    std::vector<std::wstring> documents{L"<IPNAME>x</IPNAME>", At(L"10.0.0.1")};
    Colour(documents, L":<IPADDRESS>10.0.0.1</IPADDRESS>;10.0.0.1:mono;");
    EXPECT_EQ(ColourOf(documents[0]), L"mono");
    EXPECT_EQ(documents[1], At(L"10.0.0.1"));
}

TEST(ApplyColoursTest, LeavesADocumentThatGotAnotherAddressToThatOne) {
    std::vector<std::wstring> documents{L"<IPNAME>x</IPNAME>", L"<IPNAME>y</IPNAME>"};
    Colour(documents, L":<IPADDRESS>10.0.0.1</IPADDRESS>;:mono;");
    EXPECT_EQ(ColourOf(documents[1]), L"mono");
}

TEST(ApplyColoursTest, FindsNoDocumentWhereTheLastGotAnotherAddress) {
    std::vector<std::wstring> documents{L"<IPNAME>x</IPNAME>"};
    Colour(documents, L":<IPADDRESS>10.0.0.1</IPADDRESS>;:mono;");
    EXPECT_EQ(ColourOf(documents[0]), At(L"10.0.0.1"));
}

}  // namespace
