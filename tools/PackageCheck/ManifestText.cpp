#include "tools/PackageCheck/ManifestText.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <string>

#include "CommonLib/Utf8.h"
#include "tools/ShownText.h"

namespace packagecheck {

namespace {

std::string BytesOf(std::uint32_t code) {
    std::string bytes;
    AppendCharacter(bytes, code);
    return bytes;
}

// Calls with the code of each character, U+FFFD for what is none.
template <typename Take>
void ForEachCharacter(std::string_view text, Take take) {
    while (!text.empty()) {
        const TextCharacter character = FirstCharacter(text);
        take(character.code);
        text.remove_prefix(character.length);
    }
}

// Characters that a document does not take, or that a reader would not see.
bool IsUnprintable(std::uint32_t code) {
    return IsHidden(code) || code == 0xFFFE || code == 0xFFFF;
}

std::string YamlEscape(std::uint32_t code) {
    std::array<char, 8> escape{};
    std::snprintf(escape.data(), escape.size(), "\\u%04X", static_cast<unsigned>(code));
    return escape.data();
}

// PowerShell takes each of these for the quote at the end of a literal.
bool IsSingleQuote(std::uint32_t code) {
    return code == '\'' || (code >= 0x2018 && code <= 0x201B);
}

struct XmlEntity {
    std::uint32_t code;
    const char* text;
};

constexpr auto xmlEntities =
    std::to_array<XmlEntity>({{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}});

bool IsLetterOrDigit(char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9');
}

}  // namespace

std::string PlainLine(std::wstring_view text, std::size_t mostCharacters) {
    std::string line;
    std::size_t characters = 0;
    bool isGap = false;
    ForEachCharacter(ToUtf8(text), [&](std::uint32_t code) {
        if (code == ' ' || IsUnprintable(code)) {
            isGap = !line.empty();
            return;
        }
        characters += isGap ? 2 : 1;
        if (characters > mostCharacters) return;
        if (isGap) line += ' ';
        isGap = false;
        line += BytesOf(code);
    });
    return line;
}

std::string YamlText(std::string_view text) {
    std::string scalar = "\"";
    ForEachCharacter(text, [&](std::uint32_t code) {
        if (code == '"' || code == '\\') scalar += '\\';
        scalar += IsUnprintable(code) ? YamlEscape(code) : BytesOf(code);
    });
    return scalar + '"';
}

std::string XmlText(std::string_view text) {
    std::string escaped;
    ForEachCharacter(text, [&](std::uint32_t code) {
        const auto* const entity = std::ranges::find(xmlEntities, code, &XmlEntity::code);
        if (entity != xmlEntities.end()) {
            escaped += entity->text;
        } else {
            escaped += IsUnprintable(code) ? " " : BytesOf(code);
        }
    });
    return escaped;
}

std::string XmlText(std::wstring_view text) {
    return XmlText(ToUtf8(text));
}

std::string PowerShellText(std::string_view text) {
    std::string literal = "'";
    ForEachCharacter(text, [&](std::uint32_t code) {
        if (IsSingleQuote(code)) literal += BytesOf(code);
        literal += IsUnprintable(code) ? " " : BytesOf(code);
    });
    return literal + '\'';
}

std::string IdentifierOf(std::string_view text) {
    constexpr std::size_t longest = 32;
    std::string identifier;
    for (const char letter : text) {
        if (IsLetterOrDigit(letter)) {
            identifier += letter;
        } else if (!identifier.empty() && identifier.back() != '-') {
            identifier += '-';
        }
    }
    identifier.resize(std::min(identifier.size(), longest));
    while (identifier.ends_with('-')) identifier.pop_back();
    return identifier;
}

}  // namespace packagecheck
