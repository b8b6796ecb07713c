#include "tools/PackageCheck/FormatTables.h"

#include <algorithm>
#include <array>
#include <map>

#include "CommonLib/Utf8.h"
#include "settings/LanguageTable.h"
#include "tools/PackageCheck/FormatEntries.h"
#include "tools/PackageCheck/KnownTags.h"
#include "tools/PackageCheck/KnownTexts.h"

namespace packagecheck {

namespace {

std::string InCode(std::wstring_view text) {
    return "`" + ToUtf8(text) + "`";
}

std::string TableRow(const std::vector<std::string>& cells) {
    std::string row = "|";
    for (const std::string& cell : cells) row += " " + cell + " |";
    return row + "\n";
}

std::string TableHead(const std::vector<std::string>& cells) {
    std::string rule = "|";
    for (std::size_t i = 0; i < cells.size(); ++i) rule += "---|";
    return TableRow(cells) + rule + "\n";
}

std::string EntryRow(const FormatEntry& entry, bool saysWithout) {
    std::vector<std::string> cells = {InCode(entry.name), std::string(entry.value),
                                      std::string(entry.meaning), std::string(entry.reader)};
    if (saysWithout) cells.emplace_back(entry.without);
    return TableRow(cells);
}

std::string SettingsTable() {
    std::string table = TableHead({"tag", "value", "meaning", "read by", "without it"});
    for (const FormatEntry& entry : SettingsEntries()) table += EntryRow(entry, true);
    return table;
}

std::string RunTable() {
    std::string table;
    for (const KnownTag& tag : SettingsTags()) {
        if (tag.use == TagUse::Run) table += (table.empty() ? "" : ",\n") + InCode(tag.name);
    }
    return table + "\n";
}

std::string DeviceTable() {
    std::string table = TableHead({"tag", "value", "meaning", "read by"});
    for (const FormatEntry& entry : DeviceEntries()) table += EntryRow(entry, false);
    return table;
}

std::string PropertyTable() {
    std::string table = TableHead({"property", "value", "meaning", "of", "without it"});
    for (const FormatEntry& entry : PropertyEntries()) table += EntryRow(entry, true);
    return table;
}

std::string PagesWithAccessKey(std::wstring_view key) {
    std::string pages;
    for (const PageTexts& page : TextsByPage()) {
        if (std::ranges::find(page.keys, key) == page.keys.end()) continue;
        pages += (pages.empty() ? "" : ", ") + std::string(page.page);
    }
    return pages;
}

std::string WhenMissing(std::wstring_view key) {
    if (!CanBeMissing(key, false)) return "an empty text";
    return CanBeMissing(key, true) ? "nothing: it is not shown" : "nothing, but with `AMAZON_SUPPORTED`";
}

std::string TextTable() {
    std::string table = TableHead({"key", "access key on", "without it"});
    for (const std::wstring_view key : TextKeys())
        table += TableRow({InCode(key), PagesWithAccessKey(key), WhenMissing(key)});
    return table;
}

struct LanguageName {
    std::wstring_view code;
    std::string_view name;
};

constexpr auto languageNames = std::to_array<LanguageName>({
    {L"ar", "Arabic"},
    {L"cs", "Czech"},
    {L"da", "Danish"},
    {L"de", "German"},
    {L"el", "Greek"},
    {L"en", "English, and every language that is not in this table"},
    {L"es", "Spanish"},
    {L"fi", "Finnish"},
    {L"fr", "French"},
    {L"hr", "Croatian"},
    {L"hu", "Hungarian"},
    {L"id_ID", "Indonesian"},
    {L"it", "Italian"},
    {L"ja", "Japanese"},
    {L"ko", "Korean"},
    {L"nb", "Norwegian"},
    {L"nl", "Dutch"},
    {L"pl", "Polish"},
    {L"pt_br", "Portuguese of every region"},
    {L"ro", "Romanian"},
    {L"ru", "Russian"},
    {L"sk", "Slovak"},
    {L"sl", "Slovenian"},
    {L"sr_Latn", "Serbian in Latin letters"},
    {L"sv", "Swedish"},
    {L"th", "Thai"},
    {L"tr", "Turkish"},
    {L"vi", "Vietnamese"},
    {L"zh_cn", "Chinese of China and Singapore"},
    {L"zh_tw", "Chinese of other regions"},
});

// The identifier of Windows with the smallest sublanguage that leads to each code, by code.
std::map<std::wstring, unsigned> LanguageIds() {
    constexpr unsigned primaryIds = 0x400;
    constexpr unsigned english = 9;
    std::map<std::wstring, unsigned> ids;
    ids.emplace(MapLanguage(english, english), english | (1U << 10U));
    for (unsigned sub = 1; sub < 64; ++sub) {
        for (unsigned primary = 1; primary < primaryIds; ++primary) {
            const unsigned id = primary | (sub << 10U);
            ids.emplace(MapLanguage(primary, id), id);
        }
    }
    return ids;
}

std::string LanguagesTable() {
    std::string table = TableHead({"file", "language", "`LANGUAGE_ID`, as in"});
    for (const auto& [code, id] : LanguageIds()) {
        const auto name = std::ranges::find(languageNames, code, &LanguageName::code);
        const std::string_view language = name == languageNames.end() ? std::string_view() : name->name;
        table += TableRow({InCode(LanguageFileName(code)), std::string(language), std::to_string(id)});
    }
    return table;
}

}  // namespace

std::vector<FormatTable> FormatTables() {
    return {{.name = "settings", .text = SettingsTable()}, {.name = "tags of the run", .text = RunTable()},
            {.name = "devices", .text = DeviceTable()},    {.name = "languages", .text = LanguagesTable()},
            {.name = "texts", .text = TextTable()},        {.name = "properties", .text = PropertyTable()}};
}

std::string MarkedTable(const FormatTable& table) {
    return "<!-- table: " + std::string(table.name) + " -->\n" + table.text + "<!-- end of table -->\n";
}

}  // namespace packagecheck
