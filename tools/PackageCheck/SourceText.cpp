#include "tools/PackageCheck/SourceText.h"

#include <algorithm>

#include "CommonLib/Utf8.h"

namespace packagecheck {

namespace {

// So many characters at most are counted to find the place of one.
constexpr std::size_t charactersBetweenMarks = 1024;
constexpr char endMark = '\x1A';

bool LooksLikeUtf16(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) return true;
    return bytes.size() >= 4 &&
           ((bytes[0] == '\0' && bytes[2] == '\0') || (bytes[1] == '\0' && bytes[3] == '\0'));
}

// True if the last bytes begin a character that goes on after them.
bool EndsWithinCharacter(std::string_view bytes) {
    for (std::size_t back = 1; back <= std::min<std::size_t>(3, bytes.size()); ++back) {
        const auto byte = static_cast<unsigned char>(bytes[bytes.size() - back]);
        if ((byte & 0xC0U) == 0x80U) continue;
        const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC2 ? 2 : 1;
        return length > back;
    }
    return false;
}

std::size_t CharactersIn(std::string_view bytes) {
    std::size_t count = 0;
    for (std::size_t position = 0; position < bytes.size(); ++count) {
        position += FirstCharacter(bytes.substr(position)).length;
    }
    return count;
}

}  // namespace

SourceText::SourceText(std::string_view bytes, Decoding decoding) : isUtf16(LooksLikeUtf16(bytes)) {
    if (isUtf16) return;
    if (decoding == Decoding::Whole && bytes.starts_with(byteOrderMark))
        bytes.remove_prefix(byteOrderMark.size());
    text.reserve(bytes.size());
    const std::size_t end = bytes.find(endMark);
    std::string line;
    std::size_t number = 1;
    for (std::size_t start = 0; start < std::min(end, bytes.size()); ++number) {
        const std::size_t feed = std::min(bytes.find('\n', start), bytes.size());
        const std::size_t stop = std::min({feed + 1, end, bytes.size()});
        line = bytes.substr(start, stop - start);
        if (line.ends_with("\r\n")) line.erase(line.size() - 2, 1);
        ReadLine(line, number, decoding);
        start = stop;
    }
    if (end != std::string_view::npos) Note(FlawKind::EndMark, PositionOf(text.size()));
}

// The wizard takes a line in pieces, and of each what stands in front of a null character.
void SourceText::ReadLine(std::string_view line, std::size_t number, Decoding decoding) {
    std::string whole;
    std::size_t column = 1;
    for (std::size_t start = 0; start < line.size(); start += longestPiece) {
        const std::string_view piece = line.substr(start, longestPiece);
        const std::string_view taken = piece.substr(0, piece.find('\0'));
        if (taken.size() < piece.size()) {
            Note(FlawKind::NullCharacter, {.line = number, .column = column + CharactersIn(taken)});
        }
        const bool isCut = start + piece.size() < line.size();
        if (decoding == Decoding::Pieces) {
            Decode(taken, {.line = number, .column = column}, isCut);
            column += CharactersIn(piece);
        } else {
            whole += taken;
        }
    }
    if (decoding == Decoding::Whole) Decode(whole, {.line = number, .column = 1}, false);
}

void SourceText::Decode(std::string_view bytes, Position position, bool endsAtLimit) {
    marks.push_back({.offset = text.size(), .position = position});
    const bool isSplit = endsAtLimit && bytes.size() == longestPiece && EndsWithinCharacter(bytes);
    std::size_t sinceMark = 0;
    for (std::size_t start = 0; start < bytes.size(); ++position.column, ++sinceMark) {
        if (sinceMark == charactersBetweenMarks) {
            marks.push_back({.offset = text.size(), .position = position});
            sinceMark = 0;
        }
        const TextCharacter character = FirstCharacter(bytes.substr(start));
        if (!character.isValid) {
            const bool atEnd = isSplit && start + 3 >= bytes.size();
            Note(atEnd ? FlawKind::SplitCharacter : FlawKind::NotUtf8, position);
        }
        AppendCharacter(text, character.code);
        start += character.length;
    }
}

void SourceText::Note(FlawKind kind, Position position) {
    // What follows a character that was split is the rest of it.
    const auto known = [&](FlawKind noted) {
        return std::ranges::find(flaws, noted, &Flaw::kind) != flaws.end();
    };
    const bool isRest = kind == FlawKind::NotUtf8 && known(FlawKind::SplitCharacter);
    if (!known(kind) && !isRest) flaws.push_back({.kind = kind, .position = position});
}

Position SourceText::PositionOf(std::size_t offset) const {
    const auto after = std::ranges::upper_bound(marks, offset, {}, &Mark::offset);
    if (after == marks.begin()) return {.line = 1, .column = 1};
    Position position = std::prev(after)->position;
    for (std::size_t at = std::prev(after)->offset; at < std::min(offset, text.size()); ++at) {
        if (text[at] == L'\n') {
            position = {.line = position.line + 1, .column = 1};
        } else if (!IsSecondUnit(text[at])) {
            ++position.column;
        }
    }
    return position;
}

}  // namespace packagecheck
