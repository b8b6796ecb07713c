#include "tests/unit/ReferenceForms.h"

#include <algorithm>
#include <regex>

#include "settings/TagDocument.h"

std::vector<std::wstring> ElementNamesByRegex(const std::wstring& document) {
    static const std::wregex element(L"<(.+?)>(.+?)</\\1>");
    std::vector<std::wstring> names;
    for (std::wsregex_iterator match(document.begin(), document.end(), element), end; match != end; ++match) {
        const std::wstring text = match->str();
        names.push_back(text.substr(1, text.find(L'>') - 1));
    }
    return names;
}

void MergeBySearch(std::wstring& document, std::wstring& mergedRecord, std::wstring incoming) {
    for (const auto& name : ElementNamesByRegex(incoming)) {
        const auto element = TagDocument::MakeElement(name, TagDocument::ValueOf(incoming, name));
        const bool isFirst = TagDocument::ValueOf(mergedRecord, name).empty();
        if (isFirst && !TagDocument::ValueOf(document, name).empty()) {
            TagDocument::RemoveElement(document, name);
            TagDocument::RemoveElement(mergedRecord, name);
        }
        document += element;
        mergedRecord += element;
        TagDocument::RemoveElement(incoming, name);
    }
}

std::wstring ReduceBySearch(std::wstring value, int& surplus) {
    surplus = -1;
    for (auto key = value.find(L"&amp"); key != std::wstring::npos; key = value.find(L"&amp")) {
        const auto end = value.find(L';', key + 1);
        if (end != std::wstring::npos) value.erase(key, end + 1 - key);
        if (end == std::wstring::npos && key > 0) value.erase(key);
        value.insert(key, L"&");
        ++surplus;
    }
    surplus = std::max(surplus, 0);
    return value;
}

bool ExpandBySearch(std::wstring& text, const std::vector<std::pair<std::wstring, std::wstring>>& tags) {
    for (int step = 0; step < 600 && text.size() < 600; ++step) {
        const std::size_t sign = text.find(L'^');
        if (sign == std::wstring::npos) return true;
        const std::size_t second = text.find(L'^', sign + 1);
        const bool isPair = second != std::wstring::npos;
        const auto name = text.substr(sign + 1, isPair ? second - sign - 1 : second);
        const auto tag =
            std::find_if(tags.begin(), tags.end(), [&](const auto& t) { return t.first == name; });
        if (isPair) text.erase(sign, second + 1 - sign);
        if (!isPair && sign > 0) text.erase(sign);
        if (tag != tags.end()) text.insert(sign, tag->second);
    }
    return false;
}

std::wstring FormatByRegex(const std::wstring& text, const std::wstring& argument) {
    static const std::wregex place(L"([{])(0)([}])");
    return std::regex_replace(text, place, argument);
}

TextMaker::TextMaker(std::vector<std::wstring> textPieces, unsigned seed)
    : pieces(std::move(textPieces)), random(seed) {}

std::wstring TextMaker::Make(std::size_t mostPieces) {
    std::uniform_int_distribution<std::size_t> counts(0, mostPieces);
    std::uniform_int_distribution<std::size_t> choices(0, pieces.size() - 1);
    std::wstring text;
    for (std::size_t rest = counts(random); rest > 0; --rest) text += pieces[choices(random)];
    return text;
}

std::vector<std::wstring> Letters(std::wstring_view alphabet) {
    std::vector<std::wstring> letters;
    for (const wchar_t letter : alphabet) letters.emplace_back(1, letter);
    return letters;
}
