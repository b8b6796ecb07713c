#include <gmock/gmock.h>

#include "standins/discovery/HttpResponse.h"

namespace {

using discovery::Bytes;
using discovery::BytesView;
using discovery::HttpResponse;
using testing::Optional;

std::optional<Bytes> BodyOf(BytesView received, bool isClosed = false) {
    HttpResponse whole;
    whole.Receive(received);
    if (isClosed) whole.Close();
    // The pieces in which it comes change nothing.
    HttpResponse pieces;
    for (const char byte : received) pieces.Receive({&byte, 1});
    if (isClosed) pieces.Close();
    EXPECT_EQ(pieces.Body(), whole.Body());
    EXPECT_EQ(pieces.IsOver(), whole.IsOver());
    return whole.Body();
}

TEST(HttpResponseTest, ReadsABodyOfALengthThatIsTold) {
    EXPECT_THAT(BodyOf("HTTP/1.1 200 OK\r\ncontent-length:  3 \r\n\r\nabcd"), Optional(Bytes("abc")));
    EXPECT_THAT(BodyOf("HTTP/1.1 200 OK\r\nContent-Length: \t3\r\n\r\nabcd"), Optional(Bytes("abc")));
    EXPECT_THAT(BodyOf("HTTP/1.1 200 OK\r\nContent-Length:3\r\n\r\nabcd"), Optional(Bytes("abc")));
    EXPECT_FALSE(BodyOf("HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\nab", true));
}

TEST(HttpResponseTest, PassesOtherHeadersOver) {
    EXPECT_THAT(
        BodyOf("HTTP/1.1 200 OK\r\nContent-Length: 3\r\nContent-Type: application/ipp\r\nAge: 1\r\n\r\nabc"),
        Optional(Bytes("abc")));
}

TEST(HttpResponseTest, ReadsABodyInChunks) {
    EXPECT_THAT(BodyOf("HTTP/1.1 200 OK\r\nContent-Length: 1\r\nTransfer-Encoding: chunked\r\n\r\n"
                       "2\r\nab\r\n0A;note\r\n0123456789\r\n10\r\n0123456789abcdef\r\n0\r\n\r\n"),
                Optional(Bytes("ab01234567890123456789abcdef")));
    EXPECT_FALSE(BodyOf("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2\r\nab\r\n", true));
    EXPECT_FALSE(BodyOf("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nx\r\n", true));
}

TEST(HttpResponseTest, ReadsABodyThatEndsWithTheConnection) {
    EXPECT_FALSE(BodyOf("HTTP/1.0 200 OK\r\n\r\nabc"));
    EXPECT_THAT(BodyOf("HTTP/1.0 200 OK\r\n\r\nabc", true), Optional(Bytes("abc")));
}

TEST(HttpResponseTest, PassesInterimAnswersOver) {
    EXPECT_THAT(BodyOf("HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200 OK\r\nContent-Length: 1\r\n\r\na"),
                Optional(Bytes("a")));
}

TEST(HttpResponseTest, HasNoBodyWhereTheAnswerIsAnother) {
    EXPECT_FALSE(BodyOf("HTTP/1.1 404 Not Found\r\nContent-Length: 1\r\n\r\na"));
    EXPECT_FALSE(BodyOf("HTTP/1.1\r\n\r\na", true));
    EXPECT_FALSE(BodyOf("HTTP/1.1 200 OK\r\nContent-Length: many\r\n\r\na", true));
    EXPECT_FALSE(BodyOf("HTTP/1.1 200 OK\r\nContent-Length: 99999999999999999999\r\n\r\na", true));
    EXPECT_FALSE(BodyOf("HTTP/1.1 200 OK\r\nContent-Length: \r\n\r\na", true));
    EXPECT_FALSE(BodyOf("", true));
}

// Whether an answer is given up that has come so far.
bool IsGivenUp(BytesView received) {
    HttpResponse response;
    response.Receive(received);
    return response.IsOver() && !response.Body();
}

TEST(HttpResponseTest, GivesUpOnWhatIsLongerThanAnAnswerOfAPrinter) {
    const Bytes head = "HTTP/1.1 200 OK\r\n";
    EXPECT_FALSE(IsGivenUp(head + "Content-Length: 1048576\r\n\r\n"));
    EXPECT_TRUE(IsGivenUp(head + "Content-Length: 1048577\r\n\r\n"));
    const Bytes untilClosed = head + "\r\n" + Bytes(1048576 - head.size() - 2, 'x');
    EXPECT_FALSE(IsGivenUp(untilClosed));
    EXPECT_TRUE(IsGivenUp(untilClosed + 'x'));
    const Bytes chunks = head + "Transfer-Encoding: chunked\r\n\r\n";
    EXPECT_FALSE(IsGivenUp(chunks + Bytes(255, '1')));
    EXPECT_TRUE(IsGivenUp(chunks + Bytes(256, '1')));
    EXPECT_FALSE(IsGivenUp(chunks + "1;" + Bytes(252, 'x') + "\r\n"));
    EXPECT_TRUE(IsGivenUp(chunks + "1;" + Bytes(253, 'x') + "\r\n"));
}

TEST(HttpResponseTest, GivesUpOnWhatDoesNotEnd) {
    HttpResponse head;
    for (int piece = 0; piece < 100 && !head.IsOver(); ++piece) head.Receive(Bytes(1000, 'x'));
    EXPECT_TRUE(head.IsOver());
    EXPECT_FALSE(head.Body());
    HttpResponse body;
    body.Receive("HTTP/1.0 200 OK\r\n\r\n");
    for (int piece = 0; piece < 2000 && !body.IsOver(); ++piece) body.Receive(Bytes(1000, 'x'));
    EXPECT_TRUE(body.IsOver());
    EXPECT_FALSE(body.Body());
}

TEST(HttpResponseTest, MakesARequestThatClosesTheConnection) {
    EXPECT_EQ(discovery::MakeHttpPost("192.0.2.7:631", "/ipp/print", "abc"),
              "POST /ipp/print HTTP/1.1\r\nHost: 192.0.2.7:631\r\nContent-Type: application/ipp\r\n"
              "Connection: close\r\nContent-Length: 3\r\n\r\nabc");
}

}  // namespace
