// The libraries that find devices and ask them, by their exports. What goes over a network goes to this
// machine alone.

#include <gmock/gmock.h>

#include <array>
#include <thread>

#include "CommonLib/Files.h"
#include "CommonLib/PackageLibraries.h"
#include "discovery/NpaReply.h"
#include "framework/SystemLibrary.h"
#include "standins/network/Recall.h"

namespace {

constexpr std::uint32_t success = 0;
constexpr auto question = std::to_array<std::uint8_t>({0xA5, 0x00, 0x03, 0x50, 0x01, 0x00});

wchar_t* Allocate(std::uint32_t count, wchar_t** memory) {
    *memory = new wchar_t[count];
    return *memory;
}

class DiscoveryLibrariesTest : public testing::Test {
protected:
    DiscoveryLibrariesTest() {
        EXPECT_TRUE(sondrix);
        EXPECT_TRUE(quelmar);
        Call<decltype(&Initialize)>(sondrix, "Initialize")();
        Call<decltype(&BidiInitialize)>(quelmar, "BidiInitialize")();
    }

    template <typename Function>
    static Function Call(const Library& library, const char* name) {
        const auto function = FindExport<Function>(library.get(), name);
        EXPECT_NE(function, nullptr) << name;
        return function;
    }
    void EndSearch() { Call<decltype(&Uninitialize)>(sondrix, "Uninitialize")(); }
    std::uint32_t Discover(const wchar_t* document) {
        return Call<decltype(&DiscoverW)>(sondrix, "DiscoverW")(document);
    }
    std::uint32_t AskColours(const wchar_t* document, wchar_t** reply, std::uint32_t* length) {
        return Call<decltype(&BidiExchangeNpaAll)>(quelmar, "BidiExchangeNpaAll")(
            document, question.data(), question.size(), reply, length, &Allocate);
    }

    Library sondrix = LoadPackageLibrary(GetExeDirectory() + L"\\Sondrix.dll");
    Library quelmar = LoadPackageLibrary(GetExeDirectory() + L"\\Quelmar.dll");
};

TEST_F(DiscoveryLibrariesTest, ListNothingBeforeASearch) {
    const auto enumerate = Call<decltype(&EnumerateW)>(sondrix, "EnumerateW");
    std::array<wchar_t, 1> buffer{};
    std::uint32_t required = 7;
    EXPECT_EQ(enumerate(buffer.data(), 1, &required, L""), success);
    EXPECT_EQ(required, 0U);
    EXPECT_EQ(enumerate(nullptr, 0, nullptr, nullptr), success);
}

TEST_F(DiscoveryLibrariesTest, RecallNobodyBeforeASearch) {
    const auto recall = Call<decltype(&RecallW)>(sondrix, "RecallW");
    std::uint32_t required = 0;
    EXPECT_EQ(recall(L"127.0.0.1", nullptr, 0, &required), std::uint32_t{ERROR_NOT_FOUND});
    EXPECT_EQ(recall(nullptr, nullptr, 0, nullptr), std::uint32_t{ERROR_NOT_FOUND});
}

TEST_F(DiscoveryLibrariesTest, FindNobodyInASubnetThatCannotBeRead) {
    EXPECT_EQ(Discover(L"<RemoteSubnets>nowhere;</RemoteSubnets>"), success);
}

// By itself the search would take more than a minute.
TEST_F(DiscoveryLibrariesTest, EndASearchFromAnotherThread) {
    std::uint32_t code = success;
    std::thread search([&] { code = Discover(L"<RemoteSubnets>127.0.0.0:255.255.0.0;</RemoteSubnets>"); });
    EndSearch();
    search.join();
    EXPECT_EQ(code, std::uint32_t{ERROR_CANCELLED});
}

TEST_F(DiscoveryLibrariesTest, SearchAgainAfterTheNextBeginning) {
    EndSearch();
    EXPECT_EQ(Discover(L"<RemoteSubnets>127.0.0.1:255.255.255.255;</RemoteSubnets>"),
              std::uint32_t{ERROR_CANCELLED});
    Call<decltype(&Initialize)>(sondrix, "Initialize")();
    EXPECT_EQ(Discover(L"<RemoteSubnets>127.0.0.1:255.255.255.255;</RemoteSubnets>"), success);
}

TEST_F(DiscoveryLibrariesTest, TellNoColourOfDevicesThatCannotBeAsked) {
    wchar_t* reply = nullptr;
    std::uint32_t length = 7;
    EXPECT_EQ(AskColours(L"<IPLIST>;no address;</IPLIST><TIMEOUT>3000</TIMEOUT>", &reply, &length), success);
    EXPECT_EQ(length, 0U);
    EXPECT_EQ(reply, nullptr);
}

TEST_F(DiscoveryLibrariesTest, RefuseAQuestionThatIsNone) {
    const auto ask = Call<decltype(&BidiExchangeNpaAll)>(quelmar, "BidiExchangeNpaAll");
    wchar_t* reply = nullptr;
    std::uint32_t length = 0;
    EXPECT_EQ(ask(L"", nullptr, 0, &reply, &length, &Allocate), std::uint32_t{ERROR_INVALID_PARAMETER});
    EXPECT_EQ(ask(L"", question.data(), question.size(), nullptr, &length, &Allocate),
              std::uint32_t{ERROR_INVALID_PARAMETER});
}

TEST_F(DiscoveryLibrariesTest, SayTheSizeOfAPacketFirst) {
    const auto ask = Call<decltype(&BidiExchangeNpaW)>(quelmar, "BidiExchangeNpaW");
    const wchar_t* const request = L"<IPADDRESS>no address</IPADDRESS><TIMEOUT>3000</TIMEOUT>";
    std::uint32_t length = 0;
    EXPECT_EQ(ask(request, question.data(), question.size(), nullptr, 0, &length),
              std::uint32_t{ERROR_INSUFFICIENT_BUFFER});
    std::vector<std::uint8_t> packet(length);
    EXPECT_EQ(ask(request, question.data(), question.size(), packet.data(), length, &length), success);
    const auto widen = [](std::string_view text) { return std::wstring(text.begin(), text.end()); };
    const auto info = DecodeNpaReply(packet, widen);
    ASSERT_TRUE(info);
    EXPECT_FALSE(info->HasFax());
}

}  // namespace
