#include "settings/LanguageTable.h"

#include <algorithm>
#include <iterator>

namespace {

struct Language {
    unsigned primaryId;
    std::wstring_view code;
};

constexpr std::wstring_view english = L"en";

// Languages with one file for all their regions. Portuguese is among them: every region reads the Brazilian
// one.
constexpr Language languages[] = {
    {1, L"ar"},  {5, L"cs"},     {6, L"da"},  {7, L"de"},  {8, L"el"},  {10, L"es"}, {11, L"fi"},
    {12, L"fr"}, {14, L"hu"},    {16, L"it"}, {17, L"ja"}, {18, L"ko"}, {19, L"nl"}, {20, L"nb"},
    {21, L"pl"}, {22, L"pt_br"}, {24, L"ro"}, {25, L"ru"}, {27, L"sk"}, {29, L"sv"}, {30, L"th"},
    {31, L"tr"}, {33, L"id_ID"}, {36, L"sl"}, {42, L"vi"},
};

std::wstring_view ChineseCode(unsigned sublanguage) {
    return sublanguage == 2 || sublanguage == 4 ? L"zh_cn" : L"zh_tw";
}

// The primary id 26 is shared by Croatian and Serbian; there is no file in Cyrillic letters.
std::wstring_view SerbianOrCroatianCode(unsigned sublanguage) {
    if (sublanguage == 2 || sublanguage == 9) return L"sr_Latn";
    return sublanguage == 1 ? L"hr" : english;
}

std::wstring_view CodeOf(unsigned primaryId, unsigned sublanguage) {
    if (primaryId == 4) return ChineseCode(sublanguage);
    if (primaryId == 26) return SerbianOrCroatianCode(sublanguage);
    const auto found = std::ranges::find(languages, primaryId, &Language::primaryId);
    return found == std::end(languages) ? english : found->code;
}

}  // namespace

std::wstring MapLanguage(unsigned primaryId, unsigned languageId) {
    const unsigned sublanguage = (languageId >> 10U) & 0x3FU;
    return std::wstring(CodeOf(primaryId, sublanguage));
}

std::wstring LanguageFileName(std::wstring_view code) {
    return std::wstring(code) + L"_strings.xml";
}
