#include <gmock/gmock.h>

#include <algorithm>

#include "settings/TagNames.h"
#include "tests/unit/packagecheck/BinaryFiles.h"
#include "tests/unit/packagecheck/MemoryTree.h"
#include "tools/PackageCheck/Package.h"
#include "tools/PackageCheck/PeExports.h"

using packagecheck::Finding;
using packagecheck::ReadPeLibrary;

namespace {

std::string MessageOf(const MemoryTree& tree, std::string_view rule) {
    for (const Finding& finding : FindingsOf(tree)) {
        if (finding.rule->id == rule) return finding.message;
    }
    return "no finding";
}

TEST(WholePackageTest, FindsAHundredMistakes) {
    MemoryTree tree;
    std::string elements;
    for (int i = 0; i < 40; ++i)
        elements += "<MY_TAG_" + std::to_string(i) + ">1</MY_TAG_" + std::to_string(i) + ">\n";
    for (int i = 0; i < 30; ++i) elements += "<MODEL_NAME>no key " + std::to_string(i) + "</MODEL_NAME>\n";
    tree.AddSetting(elements);
    for (int i = 0; i < 30; ++i)
        tree.packages["Drivers/Lost" + std::to_string(i) + ".msi"] = CleanMsi(L"Lost");
    EXPECT_EQ(FindingsOf(tree).size(), 100U) << testing::PrintToString(Described(FindingsOf(tree)));
}

TEST(WholePackageTest, NamesThePlaceInTheRightFile) {
    MemoryTree tree;
    tree.AddSetting("<HIDE_START>yes</HIDE_START>");
    tree.AddUserElement(
        "<DEVICE><DRIVER_ID>HVMONO</DRIVER_ID><PRINTER_NAME>\xC3\xA4</PRINTER_NAME><X>1</X></DEVICE>");
    EXPECT_THAT(Described(FindingsOf(tree)),
                testing::ElementsAre("device-tag-unknown Setup/PackageUserSettings.xml:2:68",
                                     "flag-value Setup/defaultInstallSettings.xml:14:1"));
}

TEST(WholePackageTest, NamesThePlaceOfAByteThatIsWrong) {
    const std::string licence = "Notices/EULA/EULA_en.txt";
    MemoryTree tree;
    tree.files[licence] = "\xEF\xBB\xBFtext";
    EXPECT_THAT(Described(FindingsOf(tree)), testing::ElementsAre("licence-code-page " + licence + ":1:1"));
    EXPECT_EQ(MessageOf(tree, "licence-code-page"),
              "The file begins with a byte order mark, which is shown as letters.");
    tree.files[licence] = "text\r\nte\x81xt";
    EXPECT_THAT(Described(FindingsOf(tree)), testing::ElementsAre("licence-code-page " + licence + ":2:3"));
    EXPECT_EQ(MessageOf(tree, "licence-code-page"),
              "The byte here is no character of the code page \"1252\".");
}

TEST(WholePackageTest, NamesThePlaceOfAByteOrderMarkThatWasConverted) {
    MemoryTree tree;
    tree.AddText("<OEM>\xC3\xAF\xC2\xBB\xC2\xBF</OEM>");
    const auto line = std::ranges::count(tree.files[englishPath], '\n') - 1;
    EXPECT_THAT(Described(FindingsOf(tree)),
                testing::Contains("file-start-marker " + std::string(englishPath) + ":" +
                                  std::to_string(line) + ":6"));
}

TEST(WholePackageTest, SaysWhatIsWrong) {
    MemoryTree tree;
    tree.AddSetting("<MANUFACTURERS>A:1|B</MANUFACTURERS>");
    EXPECT_EQ(MessageOf(tree, "manufacturer-form"), "MANUFACTURERS has an entry without a number: \"B\".");
    tree.Replace(defaultsPath, "A:1|B<", "A:1|:2<");
    EXPECT_EQ(MessageOf(tree, "manufacturer-form"), "MANUFACTURERS has an entry without a name.");
    tree.Replace(englishPath, "</NEXT_BUTTON>", "</NEXT_BUTON>");
    EXPECT_EQ(MessageOf(tree, "text-unclosed"), "NEXT_BUTTON has no close tag.");
    tree.Replace(englishPath, "<NEXT_BUTTON>", "</NEXT_BUTTON><NEXT_BUTTON>");
    EXPECT_EQ(MessageOf(tree, "text-unclosed"), "NEXT_BUTTON is closed in front of here.");
}

TEST(WholePackageTest, SaysWhichKeyTwoTextsShare) {
    MemoryTree tree;
    tree.Replace(englishPath, "<NEXT_BUTTON>", "<NEXT_BUTTON>&amp;H");
    EXPECT_THAT(MessageOf(tree, "access-key-shared"),
                testing::HasSubstr(" have the access key \"H\" on one page: "));
}

TEST(WholePackageTest, NamesThePlaceOfAValueInADevice) {
    MemoryTree tree;
    tree.AddUserElement("<DEVICE><PRINTER_NAME>a</PRINTER_NAME><DRIVER_ID>NONE</DRIVER_ID></DEVICE>");
    EXPECT_THAT(Described(FindingsOf(tree)),
                testing::Contains("device-driver-unknown Setup/PackageUserSettings.xml:2:50"));
}

TEST(WholePackageTest, ChecksTheValueThatCounts) {
    MemoryTree tree;
    tree.AddSetting("<HIDE_START>yes</HIDE_START>");
    tree.AddUserElement("<DEVICE><DRIVER_ID>HVMONO</DRIVER_ID><PRINTER_NAME>a</PRINTER_NAME></DEVICE>");
    tree.AddUserElement("<HIDE_START>on</HIDE_START>");
    EXPECT_THAT(Described(FindingsOf(tree)),
                testing::ElementsAre("flag-value Setup/PackageUserSettings.xml:3:1"));
}

TEST(WholePackageTest, LaysTheUsersFileOverTheDefaults) {
    MemoryTree tree;
    tree.AddSetting("<HIDE_START>true</HIDE_START>");
    tree.AddUserElement("<HIDE_START>false</HIDE_START>");
    EXPECT_FALSE(packagecheck::Package(tree).Settings().GetBool(Tag::HIDE_START));
}

TEST(WholePackageTest, SurvivesAnEmptyTree) {
    MemoryTree tree;
    tree.files.clear();
    tree.packages.clear();
    EXPECT_FALSE(FindingsOf(tree).empty());
}

TEST(PeExportsTest, ReadsTheNames) {
    const auto library = ReadPeLibrary(MakeLibrary({"DiscoverW", "EnumerateW"}));
    ASSERT_TRUE(library);
    EXPECT_TRUE(library->isFor64Bit);
    EXPECT_TRUE(library->isLibrary);
    EXPECT_THAT(library->exports, testing::ElementsAre("DiscoverW", "EnumerateW"));
}

TEST(PeExportsTest, TellsWhatALibraryIsFor) {
    std::string narrow = MakeLibrary({"DiscoverW"});
    narrow[0x40 + 25] = '\x01';
    EXPECT_FALSE(ReadPeLibrary(narrow)->isFor64Bit);
    EXPECT_FALSE(ReadPeLibrary(MakeLibrary({"DiscoverW"}, 0x14C))->isFor64Bit);
}

TEST(PeExportsTest, ReadsSectionsInAnyOrder) {
    std::string library = MakeLibrary({"DiscoverW"});
    constexpr std::size_t first = 0x40 + 24 + 0xF0;
    constexpr std::size_t length = 40;
    std::swap_ranges(library.begin() + first, library.begin() + first + length,
                     library.begin() + first + length);
    EXPECT_THAT(ReadPeLibrary(library)->exports, testing::ElementsAre("DiscoverW"));
}

TEST(PeExportsTest, TakesNoProgramForALibrary) {
    std::string program = MakeLibrary({"DiscoverW"});
    constexpr std::size_t characteristics = 0x40 + 22;
    // It cannot be moved, and nothing else.
    program.replace(characteristics, 2, std::string("\1\0", 2));
    EXPECT_FALSE(ReadPeLibrary(program)->isLibrary);
}

TEST(PeExportsTest, ReadsASectionThatSaysItsSizeInTheFileAlone) {
    std::string library = MakeLibrary({"DiscoverW"});
    const std::size_t sizeInMemory = library.find(std::string("\0\x10\0\0\0\x10\0\0\0\x10\0\0", 12));
    ASSERT_NE(sizeInMemory, std::string::npos);
    library.replace(sizeInMemory, 4, 4, '\0');
    EXPECT_THAT(ReadPeLibrary(library)->exports, testing::ElementsAre("DiscoverW"));
}

TEST(PeExportsTest, CutsANameThatIsTooLong) {
    const auto library = ReadPeLibrary(MakeLibrary({std::string(300, 'x')}));
    EXPECT_THAT(library->exports, testing::ElementsAre(std::string(256, 'x')));
}

TEST(PeExportsTest, ReadsNoMoreNamesThanALibraryCanHave) {
    std::vector<std::string> names;
    for (int i = 0; i < 70'000; ++i) names.push_back("e" + std::to_string(i));
    EXPECT_EQ(ReadPeLibrary(MakeLibrary(names))->exports.size(), 65'536U);
}

TEST(PeExportsTest, TakesNoOtherFileForALibrary) {
    std::string library = MakeLibrary({"DiscoverW"});
    EXPECT_FALSE(ReadPeLibrary(library.substr(0, 0x40 + 25)));
    library[0x40] = 'X';
    EXPECT_FALSE(ReadPeLibrary(library));
    EXPECT_FALSE(ReadPeLibrary(""));
    EXPECT_FALSE(ReadPeLibrary("MZ"));
    EXPECT_FALSE(ReadPeLibrary(std::string(1000, '\xFF')));
}

TEST(PeExportsTest, SurvivesALibraryThatIsCutAnywhere) {
    const std::string whole = MakeLibrary({"DiscoverW", "EnumerateW"});
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const auto library = ReadPeLibrary(whole.substr(0, length));
        EXPECT_LE(library ? library->exports.size() : 0U, 2U);
    }
}

}  // namespace
