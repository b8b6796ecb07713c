#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>

#include "CommonLib/Utf8.h"
#include "tests/unit/packagecheck/MemoryTree.h"
#include "tools/PackageCheck/FormatEntries.h"
#include "tools/PackageCheck/FormatTables.h"
#include "tools/PackageCheck/KnownTags.h"
#include "tools/PackageCheck/KnownTexts.h"
#include "tools/PackageCheck/RuleTable.h"

namespace {

std::string ReadSource(const std::string& path) {
    std::ifstream file(std::string(KESTRUNE_SOURCE_FOLDER) + "/" + path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    std::string text{std::istreambuf_iterator<char>(file), {}};
    std::erase(text, '\r');
    return text;
}

// The names that the constants of a header stand for.
std::set<std::string> NamesIn(const std::string& path, const std::string& type) {
    const std::string text = ReadSource(path);
    const std::regex form("inline constexpr " + type + "\\s+\\w+\\(\\s*L\"(\\w+)\"");
    std::set<std::string> names;
    for (std::sregex_iterator match(text.begin(), text.end(), form), end; match != end; ++match) {
        names.insert((*match)[1]);
    }
    EXPECT_FALSE(names.empty()) << path;
    return names;
}

TEST(PackageCheckDocumentationTest, ListsTheRulesAsTheyAre) {
    const std::string page = ReadSource("docs/package-check.md");
    const std::string start = "<!-- rules -->\n";
    const std::size_t from = page.find(start) + start.size();
    const std::string table = page.substr(from, page.find("<!-- end of rules -->") - from);
    EXPECT_EQ(table, packagecheck::RuleTable()) << "to repair: put the output of PackageCheck --rules there";
}

// The block of code after a marker such as "<!-- example: user -->".
std::string ExampleIn(const std::string& page, const std::string& name) {
    const std::size_t marker = page.find("<!-- example: " + name + " -->\n```");
    if (marker == std::string::npos) {
        ADD_FAILURE() << "no example " << name;
        return {};
    }
    const std::size_t from = page.find('\n', page.find("```", marker)) + 1;
    return page.substr(from, page.find("```", from) - from);
}

// What a check finds in the examples of the page.
std::vector<std::string> FindingsOfExamples(const std::string& page) {
    MemoryTree tree;
    packagecheck::MsiContents colour = CleanMsi(L"Colour");
    colour.properties[L"DRIVERID"] = L"HVCOLOR";
    colour.properties[L"DRIVERNAME"] = L"Halvenny Colour";
    tree.packages["Drivers/x64/Colour.msi"] = colour;
    tree.files[defaultsPath] = ExampleIn(page, "defaults");
    tree.files[userPath] = ExampleIn(page, "user");
    return Described(FindingsOf(tree));
}

TEST(FormatPageTest, HoldsTheTablesAsTheyAre) {
    const std::string page = ReadSource("docs/package-format.md");
    for (const auto& table : packagecheck::FormatTables()) {
        EXPECT_NE(page.find(packagecheck::MarkedTable(table)), std::string::npos)
            << table.name << "; to repair: put the output of PackageCheck --tables there";
    }
}

TEST(FormatPageTest, LeavesNoCellOfALanguageOrAValueEmpty) {
    for (const auto& table : packagecheck::FormatTables()) {
        if (table.name == "texts") continue;
        EXPECT_THAT(table.text, testing::Not(testing::HasSubstr("|  |"))) << table.name;
    }
}

TEST(FormatPageTest, ShowsSettingsThatTheCheckHasNothingToSayOf) {
    EXPECT_THAT(FindingsOfExamples(ReadSource("docs/package-format.md")), testing::IsEmpty());
}

TEST(FormatPageTest, WouldSeeAMistakeInAnExample) {
    std::string page = ReadSource("docs/package-format.md");
    const std::size_t device = page.find("<DEVICE><DRIVER_ID>", page.find("<!-- example: user -->"));
    ASSERT_NE(device, std::string::npos);
    page.insert(device + 8, "\n");
    EXPECT_THAT(FindingsOfExamples(page), testing::Contains(testing::StartsWith("element-over-lines")));
}

TEST(FormatPageTest, ShowsTextsThatTheCheckHasNothingToSayOf) {
    const std::string example = ExampleIn(ReadSource("docs/package-format.md"), "texts");
    const std::regex element("<(\\w+)>.*</\\1>");
    MemoryTree tree;
    int texts = 0;
    for (std::sregex_iterator match(example.begin(), example.end(), element), end; match != end; ++match) {
        const std::string key = (*match)[1];
        std::string& file = tree.files[englishPath];
        file = std::regex_replace(file, std::regex("<" + key + ">.*</" + key + ">"), match->str());
        EXPECT_THAT(file, testing::HasSubstr(match->str()));
        ++texts;
    }
    EXPECT_GT(texts, 5);
    EXPECT_THAT(Described(FindingsOf(tree)), testing::IsEmpty());
}

TEST(FormatEntriesTest, DescribeEverySettingAndNothingElse) {
    for (const auto& tag : packagecheck::SettingsTags()) {
        const bool isSetting = tag.use != packagecheck::TagUse::Run;
        EXPECT_EQ(packagecheck::FindEntry(packagecheck::SettingsEntries(), tag.name) != nullptr, isSetting)
            << ToUtf8(tag.name);
    }
    for (const auto& entry : packagecheck::SettingsEntries())
        EXPECT_NE(packagecheck::FindSettingsTag(entry.name), nullptr) << ToUtf8(entry.name);
}

TEST(FormatEntriesTest, DescribeEveryTagOfADevice) {
    EXPECT_EQ(packagecheck::DeviceEntries().size(), packagecheck::DeviceTags().size());
    for (const std::wstring_view tag : packagecheck::DeviceTags()) {
        EXPECT_NE(packagecheck::FindEntry(packagecheck::DeviceEntries(), tag), nullptr) << ToUtf8(tag);
    }
}

TEST(FormatEntriesTest, DescribeEveryPropertyThatTheWizardReads) {
    std::set<std::string> described;
    for (const auto& entry : packagecheck::PropertyEntries()) described.insert(ToUtf8(entry.name));
    const std::string text = ReadSource("src/catalogue/PropertyNames.h");
    const std::regex form("inline constexpr wchar_t \\w+\\[\\] = L\"(\\w+)\"");
    std::set<std::string> read;
    for (std::sregex_iterator match(text.begin(), text.end(), form), end; match != end; ++match)
        read.insert((*match)[1]);
    EXPECT_EQ(described, read);
}

TEST(KnownTextsTest, HoldEveryTextOfTheWizard) {
    std::set<std::string> known;
    for (const std::wstring_view key : packagecheck::TextKeys()) known.insert(ToUtf8(key));
    EXPECT_EQ(known, NamesIn("src/settings/TextKeys.h", "TextId"));
}

TEST(KnownTextsTest, PutOnPagesOnlyTextsThatThereAre) {
    for (const auto& page : packagecheck::TextsByPage()) {
        for (const std::wstring_view key : page.keys) EXPECT_TRUE(packagecheck::IsTextKey(key));
    }
}

TEST(KnownTagsTest, HoldEverySettingOfTheWizard) {
    for (const std::string type : {"TextTag", "FlagTag", "StrictFlagTag", "ListTag"}) {
        for (const std::string& name : NamesIn("src/settings/TagNames.h", type)) {
            const std::wstring wide = FromUtf8(name);
            EXPECT_TRUE(packagecheck::FindSettingsTag(wide) != nullptr || packagecheck::IsDeviceTag(wide))
                << name;
        }
    }
}

TEST(KnownTagsTest, TakeTwoLettersThatAreExchangedForOneSlip) {
    const std::wstring_view names[] = {L"START"};
    EXPECT_EQ(packagecheck::NearestName(L"STRAT", names), L"START");
    EXPECT_EQ(packagecheck::NearestName(L"TSART", names), L"START");
    EXPECT_EQ(packagecheck::NearestName(L"STRIT", names), L"");
}

TEST(KnownTagsTest, FindTheNearestName) {
    const std::wstring_view names[] = {L"HIDE_START", L"HIDE_EULA"};
    EXPECT_EQ(packagecheck::NearestName(L"HIDE_STRAT", names), L"HIDE_START");
    EXPECT_EQ(packagecheck::NearestName(L"hide_eula", names), L"HIDE_EULA");
    EXPECT_EQ(packagecheck::NearestName(L"COLOUR", names), L"");
    EXPECT_EQ(packagecheck::NearestName(L"ABCDEF", std::array{std::wstring_view(L"XYABCDGH")}), L"");
    EXPECT_EQ(packagecheck::NearestName(L"XYABCD", std::array{std::wstring_view(L"ABCDGH")}), L"");
    // Letters that are exchanged are one slip, and a name so short may have one.
    EXPECT_EQ(packagecheck::NearestName(L"OME", std::array{std::wstring_view(L"OEM")}), L"OEM");
    EXPECT_EQ(packagecheck::NearestName(L"HIDE_SE", names), L"");
    EXPECT_EQ(packagecheck::NearestName(std::wstring(100'000, L'H'), names), L"");
    for (const std::size_t length : {64U, 65U}) {
        const std::wstring name(length, L'H');
        const std::wstring_view longName[] = {name};
        EXPECT_EQ(packagecheck::NearestName(name + L"H", longName), length == 64 ? name : L"");
    }
}

}  // namespace
