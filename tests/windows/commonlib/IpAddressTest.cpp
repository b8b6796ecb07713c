#include <windows.h>

#include "CommonLib/IpAddress.h"
#include "tests/windows/world/LogWorld.h"
#include "tests/windows/world/PatchedImport.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class IpAddressTest : public LogWorld {};

TEST_F(IpAddressTest, AcceptsTheFourNumbersOfVersion4) {
    for (const wchar_t* text : {L"0.0.0.0", L"127.0.0.1", L"255.255.255.255"}) {
        EXPECT_EQ(IsValidIpAddress(text), 1) << text;
    }
}

TEST_F(IpAddressTest, AcceptsVersion6) {
    for (const wchar_t* text : {L"::", L"::1", L"fe80::1", L"2001:db8:0:0:0:0:0:1", L"::ffff:10.0.0.1"}) {
        EXPECT_EQ(IsValidIpAddress(text), 1) << text;
    }
}

TEST_F(IpAddressTest, RefusesEverythingElse) {
    for (const wchar_t* text : {L"", L"printer", L"256.0.0.1", L"10.0.0", L"10.0.0.1.2", L":::", L"1::2::3",
                                L"10.0.0.1 ", L"fe80::12345"}) {
        EXPECT_NE(IsValidIpAddress(text), 1) << text;
    }
    EXPECT_THAT(AdvancedLog(), IsEmpty());
}

TEST_F(IpAddressTest, TellsOfASystemWithoutTheLibrary) {
    const PatchedImport patch(
        "LoadLibraryW", +[](const wchar_t*) -> HMODULE { return nullptr; });
    EXPECT_EQ(IsValidIpAddress(L"10.0.0.1"), 0);
    EXPECT_THAT(BasicLog(), ElementsAre(Record(L"", L"Ws2_32.dll not found in the system")));
}

TEST_F(IpAddressTest, TellsOfASystemWithoutTheFunction) {
    const PatchedImport patch(
        "GetProcAddress", +[](HMODULE, const char*) -> FARPROC { return nullptr; });
    EXPECT_EQ(IsValidIpAddress(L"10.0.0.1"), 0);
    EXPECT_THAT(BasicLog(), ElementsAre(Record(L"", L"InetPtonW was not found in Ws2_32.dll")));
}

}  // namespace
