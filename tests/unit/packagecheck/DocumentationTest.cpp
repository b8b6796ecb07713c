#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>

#include "tools/PackageCheck/KnownTags.h"
#include "tools/PackageCheck/KnownTexts.h"
#include "tools/PackageCheck/RuleTable.h"
#include "tools/PackageCheck/Utf8.h"

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

TEST(KnownTextsTest, HoldEveryTextOfTheWizard) {
    std::set<std::string> known;
    for (const std::wstring_view key : packagecheck::TextKeys()) known.insert(packagecheck::ToUtf8(key));
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
            const std::wstring wide = packagecheck::FromUtf8(name);
            EXPECT_TRUE(packagecheck::FindSettingsTag(wide) != nullptr || packagecheck::IsDeviceTag(wide))
                << name;
        }
    }
}

TEST(KnownTagsTest, FindTheNearestName) {
    const std::wstring_view names[] = {L"HIDE_START", L"HIDE_EULA"};
    EXPECT_EQ(packagecheck::NearestName(L"HIDE_STRAT", names), L"HIDE_START");
    EXPECT_EQ(packagecheck::NearestName(L"hide_eula", names), L"HIDE_EULA");
    EXPECT_EQ(packagecheck::NearestName(L"COLOUR", names), L"");
    EXPECT_EQ(packagecheck::NearestName(std::wstring(100'000, L'H'), names), L"");
}

}  // namespace
