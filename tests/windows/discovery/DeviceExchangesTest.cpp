#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/fakes/NpaPacket.h"
#include "tests/windows/world/NetworkWorld.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

class DeviceExchangesTest : public NetworkWorld {
protected:
    // Adds a device that answers with that packet.
    void AddDeviceWith(const std::wstring& address, const Npa::Bytes& packet) const {
        AddDevice(address);
        Script({L"device", address, L"npa", Npa::Hex(packet)});
    }
    std::vector<LibraryCall> CallsOf(const std::wstring& name) const {
        std::vector<LibraryCall> calls = Calls();
        std::erase_if(calls, [&](const LibraryCall& call) { return call.name != name; });
        return calls;
    }
    std::vector<bool> FaxFlags() const {
        std::vector<bool> flags;
        for (const DiscoveredDevice& device : page.delivered) flags.push_back(device.hasFax);
        return flags;
    }
    std::vector<std::wstring> Colours() const {
        std::vector<std::wstring> colours;
        for (const DiscoveredDevice& device : page.delivered) colours.push_back(device.colour);
        return colours;
    }
    void RunOnce() {
        Start();
        EXPECT_EQ(Run(), 0u);
    }
};

TEST_F(DeviceExchangesTest, AskAllDevicesForTheirColourAtOnce) {
    AddDevice(L"10.0.0.1");
    AddDevice(L"10.0.0.2");
    RunOnce();
    const std::vector<LibraryCall> calls = CallsOf(L"BidiExchangeNpaAll");
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].Argument(L"request"), L"<IPLIST>10.0.0.1;10.0.0.2;</IPLIST><TIMEOUT>3000</TIMEOUT>");
    EXPECT_EQ(calls[0].Argument(L"packet"), L"A50003500100");
}

TEST_F(DeviceExchangesTest, AskEachDeviceTwice) {
    AddDeviceWith(L"10.0.0.1", Npa::FaxReply(1));
    AddDeviceWith(L"10.0.0.2", Npa::FaxReply(1));
    RunOnce();
    const std::vector<LibraryCall> calls = CallsOf(L"BidiExchangeNpaW");
    ASSERT_EQ(calls.size(), 4u);
    EXPECT_EQ(calls[0].Argument(L"request"), L"<IPADDRESS>10.0.0.1</IPADDRESS><TIMEOUT>3000</TIMEOUT>");
    EXPECT_EQ(calls[1].Argument(L"request"), calls[0].Argument(L"request"));
    EXPECT_EQ(calls[2].Argument(L"request"), L"<IPADDRESS>10.0.0.2</IPADDRESS><TIMEOUT>3000</TIMEOUT>");
    EXPECT_EQ(calls[0].Argument(L"packet"), L"A5000750E02101000000");
    EXPECT_EQ(calls[0].Argument(L"size"), L"0");
    EXPECT_EQ(calls[1].Argument(L"size"), std::to_wstring(Npa::FaxReply(1).size()));
}

TEST_F(DeviceExchangesTest, MarkADeviceWithFax) {
    AddDeviceWith(L"10.0.0.1", Npa::FaxReply(0));
    AddDeviceWith(L"10.0.0.2", Npa::FaxReply(1));
    RunOnce();
    EXPECT_THAT(FaxFlags(), ElementsAre(false, true));
}

TEST_F(DeviceExchangesTest, LeaveAFaxMarkOfTheListingWhereTheDeviceSaysNo) {
    AddDevice(L"10.0.0.1", L"<FAXINSTALLED>1</FAXINSTALLED>");
    Script({L"device", L"10.0.0.1", L"npa", Npa::Hex(Npa::FaxReply(0))});
    RunOnce();
    EXPECT_THAT(FaxFlags(), ElementsAre(true));
}

TEST_F(DeviceExchangesTest, ChangeTheFirstOfTwoDevicesWithOneAddress) {
    AddDeviceWith(L"10.0.0.1", Npa::FaxReply(1));
    AddDevice(L"10.0.0.1");
    Script({L"reply", L"10.0.0.1:color;"});
    RunOnce();
    EXPECT_THAT(FaxFlags(), ElementsAre(true, false));
    EXPECT_THAT(Colours(), ElementsAre(L"color", L""));
    EXPECT_EQ(CallsOf(L"BidiExchangeNpaW").size(), 4u);
}

TEST_F(DeviceExchangesTest, AskAboutAnEmptyAddressToo) {
    AddDevice(L"");
    RunOnce();
    ASSERT_EQ(CallsOf(L"BidiExchangeNpaW").size(), 1u);
    EXPECT_EQ(CallsOf(L"BidiExchangeNpaW")[0].Argument(L"request"),
              L"<IPADDRESS></IPADDRESS><TIMEOUT>3000</TIMEOUT>");
}

TEST_F(DeviceExchangesTest, PassOverADeviceThatDoesNotAnswer) {
    AddDevice(L"10.0.0.1");
    AddDeviceWith(L"10.0.0.2", Npa::FaxReply(1));
    RunOnce();
    EXPECT_EQ(CallsOf(L"BidiExchangeNpaW").size(), 3u);
    EXPECT_THAT(FaxFlags(), ElementsAre(false, true));
    EXPECT_THAT(BasicLog(),
                Not(Contains(Record(L"ERROR", L"The reply of the device 10.0.0.1 cannot be read"))));
}

TEST_F(DeviceExchangesTest, TellOfAReplyThatCannotBeRead) {
    Npa::Bytes broken = Npa::FaxReply(1);
    broken[0] = 0;
    AddDeviceWith(L"10.0.0.1", broken);
    AddDeviceWith(L"10.0.0.2", Npa::FaxReply(1));
    RunOnce();
    EXPECT_THAT(FaxFlags(), ElementsAre(false, true));
    EXPECT_THAT(BasicLog(),
                Contains(Record(L"ERROR", L"The reply of the device 10.0.0.1 cannot be read")).Times(1));
}

TEST_F(DeviceExchangesTest, TellOfAReplyThatIsShorterThanItSays) {
    AddDeviceWith(L"10.0.0.1", Npa::FaxReply(1));
    Script({L"device", L"10.0.0.1", L"required", L"60000"});
    RunOnce();
    EXPECT_THAT(FaxFlags(), ElementsAre(false));
    EXPECT_THAT(BasicLog(), Contains(Record(L"ERROR", L"The reply of the device 10.0.0.1 cannot be read")));
}

TEST_F(DeviceExchangesTest, ReadNoFaxFromAByteThatTheLibraryHasNotWritten) {
    Npa::Bytes reply = Npa::FaxReply(1);
    const std::wstring whole = std::to_wstring(reply.size());
    reply.pop_back();
    AddDeviceWith(L"10.0.0.1", reply);
    Script({L"device", L"10.0.0.1", L"required", whole});
    RunOnce();
    EXPECT_THAT(FaxFlags(), ElementsAre(false));
    EXPECT_THAT(BasicLog(),
                Not(Contains(Record(L"ERROR", L"The reply of the device 10.0.0.1 cannot be read"))));
}

TEST_F(DeviceExchangesTest, AskForRoomForAReplyOnce) {
    AddDeviceWith(L"10.0.0.1", Npa::FaxReply(1));
    Script({L"device", L"10.0.0.1", L"again"});
    RunOnce();
    EXPECT_EQ(CallsOf(L"BidiExchangeNpaW").size(), 2u);
    EXPECT_THAT(FaxFlags(), ElementsAre(false));
}

TEST_F(DeviceExchangesTest, RefuseAReplyThatNoPacketCanBe) {
    AddDeviceWith(L"10.0.0.1", Npa::FaxReply(1));
    Script({L"device", L"10.0.0.1", L"required", L"4000000000"});
    RunOnce();
    EXPECT_EQ(CallsOf(L"BidiExchangeNpaW").size(), 1u);
    EXPECT_THAT(
        BasicLog(),
        Contains(Record(L"ERROR", L"Quelmar.dll asks for a reply of 4000000000 bytes from 10.0.0.1")));
}

TEST_F(DeviceExchangesTest, LeaveTheColoursWhenTheQuestionFails) {
    AddDevice(L"10.0.0.1");
    Script({L"reply", L"10.0.0.1:color;"});
    Script({L"colours", L"return", L"5"});
    RunOnce();
    EXPECT_THAT(Colours(), ElementsAre(L""));
    EXPECT_EQ(CallsOf(L"BidiExchangeNpaW").size(), 1u);
}

TEST_F(DeviceExchangesTest, ReadNoMoreOfAReplyThanItHas) {
    AddDevice(L"10.0.0.1");
    Script({L"reply", L"10.0.0.1:color;"});
    Script({L"colours", L"required", L"4000000000"});
    RunOnce();
    EXPECT_THAT(Colours(), ElementsAre(L"color"));
}

TEST_F(DeviceExchangesTest, ReadNoMoreOfAReplyThanItsLengthSays) {
    AddDevice(L"10.0.0.1");
    AddDevice(L"10.0.0.2");
    Script({L"reply", L"10.0.0.1:color;10.0.0.2:mono;"});
    Script({L"colours", L"required", L"16"});
    RunOnce();
    EXPECT_THAT(Colours(), ElementsAre(L"color", L""));
}

TEST_F(DeviceExchangesTest, TakeAReplyWithoutLengthForNone) {
    AddDevice(L"10.0.0.1");
    Script({L"reply", L"10.0.0.1:color;"});
    Script({L"colours", L"required", L"0"});
    RunOnce();
    EXPECT_THAT(Colours(), ElementsAre(L""));
    EXPECT_THAT(BasicMessages(), Not(Contains(L"The reply of Quelmar.dll lies in foreign memory")));
}

TEST_F(DeviceExchangesTest, ReadNothingFromMemoryThatIsNotTheProgramsOwn) {
    AddDevice(L"10.0.0.1");
    Script({L"reply", L"10.0.0.1:color;"});
    Script({L"colours", L"foreign"});
    RunOnce();
    EXPECT_THAT(Colours(), ElementsAre(L""));
    EXPECT_THAT(BasicLog(), Contains(Record(L"ERROR", L"The reply of Quelmar.dll lies in foreign memory")));
}

}  // namespace
