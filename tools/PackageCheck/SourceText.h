// A text file of a package, as the wizard reads it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tools/PackageCheck/Finding.h"

namespace packagecheck {

// The wizard reads a line in pieces of so many bytes.
inline constexpr std::size_t longestPiece = 2047;

// In front of a text in UTF-8.
inline constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

// How the wizard decodes the lines of a file.
enum class Decoding {
    Pieces,  // the settings: each piece of at most 2,047 bytes by itself
    Whole,   // the language files: all together, without a byte order mark
};

// What of the bytes does not arrive in the text.
enum class FlawKind { NotUtf8, NullCharacter, EndMark, SplitCharacter };

struct Flaw {
    FlawKind kind = FlawKind::NotUtf8;
    Position position;  // of the first one of its kind
};

// Reads the bytes in text mode: a carriage return in front of a line feed goes, U+001A ends the file, and a
// null character ends its piece. Takes time in proportion to the bytes.
class SourceText {
public:
    SourceText() = default;
    SourceText(std::string_view bytes, Decoding decoding);

    const std::wstring& Text() const { return text; }

    // Returns the place in the file of a character of the text, by its offset.
    Position PositionOf(std::size_t offset) const;

    // At most one of each kind.
    const std::vector<Flaw>& Flaws() const { return flaws; }

    // True for bytes that look like UTF-16. No other flaw is looked for in them.
    bool IsUtf16() const { return isUtf16; }

private:
    // A character of the text whose place in the file is known.
    struct Mark {
        std::size_t offset = 0;
        Position position;
    };

    void ReadLine(std::string_view line, std::size_t number, Decoding decoding);
    void Decode(std::string_view bytes, Position position, bool endsAtLimit);
    void Note(FlawKind kind, Position position);

    std::wstring text;
    std::vector<Mark> marks;
    std::vector<Flaw> flaws;
    bool isUtf16 = false;
};

}  // namespace packagecheck
