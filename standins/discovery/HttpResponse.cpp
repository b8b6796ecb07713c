#include "standins/discovery/HttpResponse.h"

#include <algorithm>
#include <charconv>

#include "standins/discovery/AsciiText.h"

namespace discovery {

namespace {

// The answer of a printer has some hundred kilobytes at most.
constexpr std::size_t longestResponse = std::size_t{1024} * 1024;
constexpr std::size_t longestHead = std::size_t{16} * 1024;
constexpr std::size_t longestChunkLine = 256;
constexpr std::string_view lineEnd = "\r\n";
constexpr std::string_view headEnd = "\r\n\r\n";
constexpr std::string_view interim = "100";
constexpr std::string_view success = "200";

std::string_view WithoutBlanksInFront(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    return text;
}

std::optional<std::size_t> Number(std::string_view text, int base) {
    std::size_t number = 0;
    const std::errc error = std::from_chars(text.data(), text.data() + text.size(), number, base).ec;
    if (error != std::errc() || number > longestResponse) return std::nullopt;
    return number;
}

std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find(lineEnd), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + lineEnd.size(), text.size()));
    return line;
}

std::string_view StatusOf(std::string_view statusLine) {
    constexpr std::size_t digits = 3;
    const std::size_t blank = statusLine.find(' ');
    return blank == std::string_view::npos ? std::string_view() : statusLine.substr(blank + 1, digits);
}

}  // namespace

Bytes MakeHttpPost(std::string_view host, std::string_view path, BytesView message) {
    Bytes request = "POST ";
    request.append(path).append(" HTTP/1.1\r\nHost: ").append(host);
    request += "\r\nContent-Type: application/ipp\r\nConnection: close\r\nContent-Length: ";
    request += std::to_string(message.size());
    request += headEnd;
    return request.append(message);
}

void HttpResponse::Receive(BytesView bytes) {
    received += bytes;
    while (!IsOver() && Step()) {
    }
    if (received.size() > longestResponse && !IsOver()) stage = Stage::Failed;
}

void HttpResponse::Close() {
    if (IsOver()) return;
    if (stage == Stage::UntilClosed) body = received.substr(position);
    stage = stage == Stage::UntilClosed ? Stage::Done : Stage::Failed;
}

bool HttpResponse::Step() {
    switch (stage) {
        case Stage::Head:
            return StepHead();
        case Stage::Counted:
            return StepCounted();
        case Stage::Chunks:
            return StepChunk();
        default:
            return false;
    }
}

bool HttpResponse::StepHead() {
    const BytesView head = BytesView(received).substr(position, longestHead);
    const std::size_t end = head.find(headEnd, searched);
    if (end == BytesView::npos) {
        if (head.size() == longestHead) stage = Stage::Failed;
        searched = std::max(head.size(), headEnd.size()) - headEnd.size();
        return false;
    }
    searched = 0;
    position += end + headEnd.size();
    ReadHead(head.substr(0, end));
    return true;
}

void HttpResponse::ReadHead(BytesView head) {
    const std::string_view status = StatusOf(TakeLine(head));
    if (status == interim) return;
    stage = status == success ? Stage::UntilClosed : Stage::Failed;
    while (!head.empty() && stage != Stage::Failed) {
        const std::string_view line = TakeLine(head);
        const std::size_t colon = std::min(line.find(':'), line.size());
        const std::string_view name = line.substr(0, colon);
        const std::string_view value = WithoutBlanksInFront(line.substr(std::min(colon + 1, line.size())));
        if (EqualsInAnyCase(name, "Content-Length") && stage != Stage::Chunks) {
            const std::optional<std::size_t> number = Number(value, 10);
            length = number.value_or(0);
            stage = number ? Stage::Counted : Stage::Failed;
        }
        // By design: where a length is told as well, the chunks count.
        if (EqualsInAnyCase(name, "Transfer-Encoding")) stage = Stage::Chunks;
    }
}

bool HttpResponse::StepCounted() {
    if (received.size() - position < length) return false;
    body = received.substr(position, length);
    stage = Stage::Done;
    return true;
}

bool HttpResponse::StepChunk() {
    constexpr int hexadecimal = 16;
    const BytesView rest = BytesView(received).substr(position);
    const std::size_t lineLength = rest.substr(0, longestChunkLine).find(lineEnd);
    if (lineLength == BytesView::npos) {
        if (rest.size() >= longestChunkLine) stage = Stage::Failed;
        return false;
    }
    const std::optional<std::size_t> size = Number(rest.substr(0, lineLength), hexadecimal);
    if (!size || *size == 0) {
        stage = size ? Stage::Done : Stage::Failed;
        return true;
    }
    const std::size_t whole = lineLength + lineEnd.size() + *size + lineEnd.size();
    if (rest.size() < whole) return false;
    body += rest.substr(lineLength + lineEnd.size(), *size);
    position += whole;
    return true;
}

}  // namespace discovery
