#include "standins/discovery/HttpResponse.h"
#include "standins/discovery/IppMessage.h"
#include "tests/fuzz/FuzzInput.h"

using discovery::Bytes;
using discovery::BytesView;

// The input as an IPP message, and as an HTTP answer in one piece and in many.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const BytesView bytes(reinterpret_cast<const char*>(data), size);
    if (const auto attributes = discovery::DecodeIppResponse(1, bytes)) Require(attributes->size() <= size);
    discovery::HttpResponse whole;
    whole.Receive(bytes);
    whole.Close();
    discovery::HttpResponse pieces;
    constexpr std::size_t piece = 3;
    for (std::size_t start = 0; start < size; start += piece) pieces.Receive(bytes.substr(start, piece));
    pieces.Close();
    Require(whole.Body() == pieces.Body());
    if (const auto body = whole.Body()) Require(body->size() <= size);
    return 0;
}
