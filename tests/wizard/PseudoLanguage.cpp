#include "tests/wizard/PseudoLanguage.h"

#include <algorithm>
#include <array>
#include <regex>

#include "CommonLib/Utf8.h"
#include "settings/TagDocument.h"

namespace {

constexpr std::array<std::wstring_view, 4> readByTheProgram = {L"LANGUAGE_ID", L"READING_ORDER", L"CODE_PAGE",
                                                               L"INSTALL_TITLE"};

wchar_t Accented(wchar_t letter) {
    static constexpr std::wstring_view plain = L"aceinosuyzACEINOSUYZ";
    static constexpr std::wstring_view accented =
        L"\u00E5\u0107\u0119\u00EF\u0144\u00F8\u0161\u00FC\u00FD\u017E"
        L"\u00C5\u0106\u0118\u00CF\u0143\u00D8\u0160\u00DC\u00DD\u017D";
    const std::size_t place = plain.find(letter);
    return place == std::wstring_view::npos ? letter : accented[place];
}

// Leaves alone what stands between two signs of a setting, after the sign of an access key, and an argument.
std::wstring Pseudo(std::wstring_view text) {
    std::wstring pseudo;
    bool isSetting = false;
    for (std::size_t place = 0; place < text.size(); ++place) {
        const wchar_t letter = text[place];
        if (letter == L'^') isSetting = !isSetting;
        if (!isSetting && text.substr(place).starts_with(L"&amp;")) {
            pseudo += text.substr(place, 6);
            place += 5;
            continue;
        }
        pseudo += isSetting ? letter : Accented(letter);
    }
    const std::size_t more = std::max<std::size_t>(1, text.size() * 2 / 5);
    return L"[" + pseudo + L" " + std::wstring(more, L'\u017C') + L"]";
}

}  // namespace

std::string PseudoLanguage(std::string_view english) {
    const std::wstring document = FromUtf8(english);
    const std::wregex element(L"<([A-Z0-9_]+)>([^<]*)</");
    std::wstring pseudo;
    for (std::wsregex_iterator match(document.begin(), document.end(), element), end; match != end; ++match) {
        const std::wstring key = match->str(1);
        const std::wstring text = match->str(2);
        const bool isForUser = std::ranges::find(readByTheProgram, key) == readByTheProgram.end();
        pseudo += TagDocument::MakeElement(key, isForUser ? Pseudo(text) : text) + L"\r\n";
    }
    return ToUtf8(pseudo);
}
