#include "standins/discovery/DnsMessage.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "standins/discovery/AsciiText.h"

namespace discovery {

namespace {

constexpr std::uint16_t isResponse = 0x8000;
constexpr std::uint16_t responseCode = 0x000F;
constexpr std::uint16_t internetClass = 1;
// The top bit of a question's class asks for an answer to the sender alone, that of a record's has another
// use.
constexpr std::uint16_t unicastAnswer = 0x8000;
constexpr std::uint16_t classBits = 0x7FFF;
constexpr std::uint8_t pointer = 0xC0;
constexpr std::size_t longestLabel = 63;
constexpr std::size_t longestName = 255;
constexpr std::size_t sizeOfA = 4;
constexpr std::size_t sizeOfAaaa = 16;
constexpr std::size_t mostPointers = 16;

class DnsReader {
public:
    explicit DnsReader(BytesView wholePacket) : packet(wholePacket), reader(wholePacket) {}

    DnsResponse Response();

private:
    DnsName Name(ByteReader& place) const;
    void SkipQuestion();
    DnsRecord Record(bool& isKnown);
    DnsData Data(DnsType type, BytesView contents, std::size_t start) const;
    static DnsTexts Texts(BytesView contents);

    BytesView packet;
    ByteReader reader;
};

// By design: a pointer leads backward only, and to few others, so a name is read in bounded time.
DnsName DnsReader::Name(ByteReader& place) const {
    DnsName name;
    ByteReader* current = &place;
    ByteReader jumped{{}};
    std::size_t limit = packet.size();
    std::size_t length = 0;
    for (std::size_t pointers = 0;;) {
        const std::uint8_t size = current->Byte();
        if (size == 0) return name;
        if ((size & pointer) == pointer) {
            const std::size_t target = std::size_t{size & 0x3FU} << 8 | current->Byte();
            if (target >= limit || ++pointers > mostPointers) throw Malformed();
            limit = target;
            jumped = ByteReader(packet);
            jumped.Take(target);
            current = &jumped;
            continue;
        }
        length += size + std::size_t{1};
        if (size > longestLabel || length > longestName) throw Malformed();
        name.emplace_back(current->Take(size));
    }
}

void DnsReader::SkipQuestion() {
    Name(reader);
    reader.Take(4);
}

DnsTexts DnsReader::Texts(BytesView contents) {
    DnsTexts texts;
    ByteReader place(contents);
    while (!place.IsAtEnd()) texts.strings.emplace_back(place.Take(place.Byte()));
    return texts;
}

DnsData DnsReader::Data(DnsType type, BytesView contents, std::size_t start) const {
    // A name in the data may point into the packet in front of it.
    ByteReader place(packet.substr(0, start + contents.size()));
    place.Take(start);
    switch (type) {
        case DnsType::A:
        case DnsType::Aaaa:
            if (contents.size() != (type == DnsType::A ? sizeOfA : sizeOfAaaa)) throw Malformed();
            return Bytes(contents);
        case DnsType::Ptr:
            return Name(place);
        case DnsType::Txt:
            return Texts(contents);
        case DnsType::Srv: {
            place.Take(4);
            const std::uint16_t port = place.Number16();
            return DnsService{.host = Name(place), .port = port};
        }
    }
    return {};
}

DnsRecord DnsReader::Record(bool& isKnown) {
    DnsRecord record;
    record.name = Name(reader);
    record.type = static_cast<DnsType>(reader.Number16());
    const bool isInternet = (reader.Number16() & classBits) == internetClass;
    reader.Take(4);
    const std::size_t size = reader.Number16();
    const std::size_t start = reader.Position();
    const BytesView contents = reader.Take(size);
    if (isInternet) record.data = Data(record.type, contents, start);
    isKnown = !std::holds_alternative<std::monostate>(record.data);
    return record;
}

DnsResponse DnsReader::Response() {
    DnsResponse response;
    response.id = reader.Number16();
    const std::uint16_t flags = reader.Number16();
    if ((flags & isResponse) == 0 || (flags & responseCode) != 0) throw Malformed();
    const std::uint16_t questions = reader.Number16();
    const std::size_t records = std::size_t{reader.Number16()} + reader.Number16() + reader.Number16();
    for (std::uint16_t question = 0; question < questions; ++question) SkipQuestion();
    for (std::size_t count = 0; count < records; ++count) {
        bool isKnown = false;
        DnsRecord record = Record(isKnown);
        if (isKnown) response.records.push_back(std::move(record));
    }
    return response;
}

void AppendName(Bytes& bytes, const DnsName& name) {
    for (const std::string& label : name) {
        const std::string_view cut = std::string_view(label).substr(0, longestLabel);
        bytes += static_cast<char>(cut.size());
        bytes += cut;
    }
    bytes += '\0';
}

}  // namespace

DnsName DnsNameOf(std::string_view text) {
    DnsName name;
    while (!text.empty()) {
        const std::size_t point = std::min(text.find('.'), text.size());
        if (point > 0) name.emplace_back(text.substr(0, point));
        text.remove_prefix(std::min(point + 1, text.size()));
    }
    return name;
}

std::string KeyOf(const DnsName& name) {
    std::string key;
    for (const std::string& label : name) {
        if (!key.empty()) key += '.';
        std::ranges::transform(label, std::back_inserter(key), SmallLetter);
    }
    return key;
}

Bytes EncodeDnsQuery(std::uint16_t id, const std::vector<DnsQuestion>& questions) {
    Bytes bytes;
    AppendBigEndian(bytes, id, 2);
    AppendBigEndian(bytes, 0, 2);
    AppendBigEndian(bytes, static_cast<std::uint32_t>(questions.size()), 2);
    // No answers, no authorities, nothing that comes along.
    bytes.append(6, '\0');
    for (const DnsQuestion& question : questions) {
        AppendName(bytes, question.name);
        AppendBigEndian(bytes, static_cast<std::uint32_t>(question.type), 2);
        AppendBigEndian(bytes, unicastAnswer | internetClass, 2);
    }
    return bytes;
}

std::optional<DnsResponse> DecodeDnsResponse(BytesView packet) {
    try {
        return DnsReader(packet).Response();
    } catch (const Malformed&) {
        return std::nullopt;
    }
}

}  // namespace discovery
