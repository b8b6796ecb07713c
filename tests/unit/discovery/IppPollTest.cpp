#include <gmock/gmock.h>

#include "standins/discovery/IppPoll.h"
#include "tests/unit/discovery/WirePackets.h"

namespace {

using discovery::Bytes;
using discovery::DeviceFacts;
using discovery::FoundDevices;
using discovery::NetworkAddress;
using discovery::StreamQuestion;
using testing::IsEmpty;
using testing::SizeIs;

class IppPollTest : public testing::Test {
protected:
    std::vector<StreamQuestion> Due() {
        std::vector<StreamQuestion> questions;
        poll.TakeDue(questions);
        return questions;
    }
    // Answers a question with those attributes; returns whether that was an answer of a printer.
    bool Answer(std::size_t number, const Bytes& attributes) {
        Bytes message = wire::IppAnswer(attributes);
        message[7] = static_cast<char>(number);
        return poll.Receive(number, "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(message.size()) +
                                        "\r\n\r\n" + message);
    }
    std::vector<DeviceFacts> Printers() const {
        FoundDevices found;
        poll.Collect(found);
        return found.Printers();
    }

    const NetworkAddress host{0xC0000207};
    discovery::IppPoll poll;
};

TEST_F(IppPollTest, TellsThatAPrinterHasAnswered) {
    poll.Ask(host, {});
    const std::vector<StreamQuestion> due = Due();
    ASSERT_THAT(due, SizeIs(1));
    EXPECT_FALSE(poll.HasAnswered(host));
    EXPECT_TRUE(Answer(due.front().number, wire::IppAttribute(0x45, "printer-uuid", "urn:uuid:a-b")));
    EXPECT_TRUE(poll.HasAnswered(host));
    EXPECT_TRUE(poll.IsIdle());
    ASSERT_THAT(Printers(), SizeIs(1));
    EXPECT_EQ(Printers().front().uuid, "a-b");
}

TEST_F(IppPollTest, TakesThePrintersWordForWhatElseItCanDo) {
    poll.Ask(host, {});
    EXPECT_TRUE(Answer(Due().front().number, wire::IppAttribute(0x44, "ipp-features-supported", "scan")));
    ASSERT_THAT(Printers(), SizeIs(1));
    EXPECT_EQ(Printers().front().canScan, true);
    EXPECT_EQ(Printers().front().hasFax, std::nullopt);
}

TEST_F(IppPollTest, SpeaksOfAnAddressOfIpV6InBracketsAndWithoutItsZone) {
    poll.Ask(NetworkAddress::FromText(L"fe80::7%2").value(), {});
    EXPECT_THAT(Due().front().request, testing::HasSubstr("Host: [fe80::7]:631\r\n"));
}

TEST_F(IppPollTest, KeepsAnIdentityThatIsSaidWithoutItsKind) {
    poll.Ask(host, {});
    EXPECT_TRUE(Answer(Due().front().number, wire::IppAttribute(0x45, "printer-uuid", "a-b-c-d-e-f")));
    EXPECT_EQ(Printers().front().uuid, "a-b-c-d-e-f");
}

TEST_F(IppPollTest, TakesNoRefusalForAnAnswer) {
    poll.Ask(host, discovery::IppPlace{.port = 631, .path = "/"});
    EXPECT_FALSE(poll.Receive(Due().front().number, "HTTP/1.1 404 Not Found\r\n\r\n"));
    EXPECT_TRUE(poll.IsIdle());
    EXPECT_THAT(Printers(), IsEmpty());
}

TEST_F(IppPollTest, AsksEachHostOnceAndAFewAtATime) {
    for (std::uint32_t number = 1; number <= 20; ++number) poll.Ask(NetworkAddress(number), {});
    poll.Ask(NetworkAddress(1), {});
    const std::vector<StreamQuestion> due = Due();
    EXPECT_THAT(due, SizeIs(16));
    for (const StreamQuestion& question : due) EXPECT_FALSE(poll.Close(question.number));
    EXPECT_THAT(Due(), SizeIs(4));
}

TEST_F(IppPollTest, KnowsNothingOfAConnectionThatIsOver) {
    EXPECT_FALSE(poll.Receive(1, "HTTP/1.1 200 OK\r\n\r\n"));
    EXPECT_FALSE(poll.Close(1));
    EXPECT_FALSE(poll.IsOpen(1));
}

}  // namespace
