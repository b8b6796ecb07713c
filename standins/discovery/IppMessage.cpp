#include "standins/discovery/IppMessage.h"

namespace discovery {

namespace {

constexpr std::uint16_t version = 0x0101;
constexpr std::uint16_t getPrinterAttributes = 0x000B;
// Status codes from here on say that the request was refused.
constexpr std::uint16_t firstFailure = 0x0100;

enum IppTag : std::uint8_t {
    operationAttributes = 0x01,
    endOfAttributes = 0x03,
    printerAttributes = 0x04,
    // Everything from here on begins a value, everything before it a group.
    firstValue = 0x10,
    integer = 0x21,
    boolean = 0x22,
    enumerated = 0x23,
    beginCollection = 0x34,
    endCollection = 0x37,
    textWithLanguage = 0x35,
    nameWithLanguage = 0x36,
    firstText = 0x40,
    keyword = 0x44,
    uri = 0x45,
    charset = 0x47,
    naturalLanguage = 0x48,
    memberName = 0x4A,
};

void AppendCounted(Bytes& bytes, BytesView text) {
    AppendBigEndian(bytes, static_cast<std::uint32_t>(text.size()), 2);
    bytes += text;
}

void AppendAttribute(Bytes& bytes, IppTag tag, BytesView name, BytesView value) {
    bytes += static_cast<char>(tag);
    AppendCounted(bytes, name);
    AppendCounted(bytes, value);
}

BytesView TakeCounted(ByteReader& reader) {
    const std::size_t size = reader.Number16();
    return reader.Take(size);
}

std::string TextOf(std::uint8_t tag, BytesView value) {
    ByteReader reader(value);
    switch (tag) {
        case IppTag::integer:
        case IppTag::enumerated:
            return std::to_string(static_cast<std::int32_t>(reader.Number32()));
        case IppTag::boolean:
            return reader.Byte() != 0 ? "true" : "false";
        case IppTag::textWithLanguage:
        case IppTag::nameWithLanguage:
            TakeCounted(reader);
            return std::string(TakeCounted(reader));
        default:
            return tag >= IppTag::firstText ? std::string(value) : std::string();
    }
}

// Reads the attributes group by group.
class IppReader {
public:
    explicit IppReader(ByteReader& place) : reader(place) {}

    IppAttributes Attributes() {
        for (std::uint8_t tag = reader.Byte(); tag != IppTag::endOfAttributes; tag = reader.Byte()) {
            if (tag < IppTag::firstValue) {
                isPrinterGroup = tag == IppTag::printerAttributes;
                name.clear();
            } else {
                TakeValue(tag);
            }
        }
        return attributes;
    }

private:
    void TakeValue(std::uint8_t tag) {
        const BytesView nextName = TakeCounted(reader);
        const BytesView value = TakeCounted(reader);
        if (tag == IppTag::endCollection && depth > 0) --depth;
        // A value without a name is one more of the attribute before it.
        if (!nextName.empty() && depth == 0) name = nextName;
        const bool isPlain = tag != IppTag::beginCollection && tag != IppTag::endCollection && depth == 0;
        if (tag == IppTag::beginCollection) ++depth;
        if (isPlain && isPrinterGroup && !name.empty()) attributes[name].push_back(TextOf(tag, value));
    }

    ByteReader& reader;
    IppAttributes attributes;
    std::string name;
    std::size_t depth = 0;
    bool isPrinterGroup = false;
};

}  // namespace

Bytes EncodeIppQuestion(std::int32_t requestId, std::string_view printer,
                        const std::vector<std::string_view>& attributes) {
    Bytes bytes;
    AppendBigEndian(bytes, version, 2);
    AppendBigEndian(bytes, getPrinterAttributes, 2);
    AppendBigEndian(bytes, static_cast<std::uint32_t>(requestId), 4);
    bytes += static_cast<char>(IppTag::operationAttributes);
    AppendAttribute(bytes, IppTag::charset, "attributes-charset", "utf-8");
    AppendAttribute(bytes, IppTag::naturalLanguage, "attributes-natural-language", "en");
    AppendAttribute(bytes, IppTag::uri, "printer-uri", printer);
    std::string_view name = "requested-attributes";
    for (const std::string_view attribute : attributes) {
        AppendAttribute(bytes, IppTag::keyword, name, attribute);
        name = {};
    }
    bytes += static_cast<char>(IppTag::endOfAttributes);
    return bytes;
}

std::optional<IppAttributes> DecodeIppResponse(std::int32_t requestId, BytesView message) {
    try {
        ByteReader reader(message);
        reader.Take(2);
        const std::uint16_t status = reader.Number16();
        if (reader.Number32() != static_cast<std::uint32_t>(requestId) || status >= firstFailure)
            return std::nullopt;
        return IppReader(reader).Attributes();
    } catch (const Malformed&) {
        return std::nullopt;
    }
}

std::string FirstValue(const IppAttributes& attributes, std::string_view name) {
    const auto found = attributes.find(name);
    return found == attributes.end() || found->second.empty() ? std::string() : found->second.front();
}

}  // namespace discovery
