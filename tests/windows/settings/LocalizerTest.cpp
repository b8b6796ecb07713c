#include <windows.h>

#include "CommonLib/Files.h"
#include "settings/Localizer.h"
#include "settings/TextExpansion.h"
#include "tests/windows/world/SettingsWorld.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class LocalizerTest : public SettingsWorld {
protected:
    static std::wstring Text(std::wstring_view key) { return Texts().GetString(TextId(key)); }

    // The text of an English file's one element.
    std::wstring TextOf(const std::string& value) const {
        AddTexts("<KEY>" + value + "</KEY>");
        return Text(L"KEY");
    }
    // The records after those of the loading.
    std::vector<LogRecord> RecordsOfTheText() const {
        std::vector<LogRecord> log = AdvancedLog();
        log.erase(log.begin(), log.begin() + 2);
        return log;
    }
};

TEST_F(LocalizerTest, ReadsTheFileOfTheOption) {
    AddTexts("<KEY>English</KEY>");
    AddTexts("<KEY>Deutsch</KEY>", L"de");
    AddOption(L"lang=de");
    EXPECT_EQ(Text(L"KEY"), L"Deutsch");
}

TEST_F(LocalizerTest, ReadsTheEnglishFileWhereTheLanguageHasNone) {
    AddTexts("<KEY>English</KEY>");
    AddOption(L"lang=xx");
    EXPECT_EQ(Text(L"KEY"), L"English");
    // The record names the first choice all the same.
    const std::wstring id = std::to_wstring(GetUserDefaultUILanguage());
    const std::wstring primary = std::to_wstring(GetUserDefaultUILanguage() & 0x3FF);
    EXPECT_THAT(AdvancedMessages(), ElementsAre(L"Localizer::GetXmlFileName(), currentLangId = " + id +
                                                    L" primaryLangId = " + primary,
                                                L"Language resource file being used: xx_strings.xml"));
}

TEST_F(LocalizerTest, TellsThatThereIsNoFileAtAll) {
    EXPECT_EQ(Text(L"KEY"), L"");
    EXPECT_THAT(RecordsOfTheText(),
                ElementsAre(Record(L"ERROR", L"Localizer(), Loading Resource file failed! " +
                                                 GetExeDirectory() + L"\\..\\res\\")));
}

TEST_F(LocalizerTest, GivesAnEmptyTextForAMissingKey) {
    AddTexts("<OTHER>1</OTHER>");
    EXPECT_EQ(Text(L"KEY"), L"");
    EXPECT_THAT(RecordsOfTheText(), IsEmpty());
}

TEST_F(LocalizerTest, ReadsAFileWithAByteOrderMark) {
    AddTexts("\xEF\xBB\xBF<KEY>\xC3\xA4</KEY>");
    EXPECT_EQ(Text(L"KEY"), L"\u00E4");
}

TEST_F(LocalizerTest, ReadsAValueLongerThanOnePieceWithEveryCharacterWhole) {
    std::string value;
    std::wstring expected;
    for (int index = 0; index < 3000; ++index) {
        value += "\xC3\xA4";
        expected += L'\u00E4';
    }
    EXPECT_EQ(TextOf("x" + value), L"x" + expected);
}

TEST_F(LocalizerTest, ReadsLineEndsAsOneCharacter) {
    EXPECT_EQ(TextOf("one\r\ntwo"), L"one\ntwo");
}

TEST_F(LocalizerTest, TakesTheFirstElementOfAKey) {
    AddTexts("<KEY>1</KEY><KEY>2</KEY>");
    EXPECT_EQ(Text(L"KEY"), L"1");
}

TEST_F(LocalizerTest, TurnsAnAccessKeyIntoItsSign) {
    EXPECT_EQ(TextOf("Save &amp;as"), L"Save &as");
    EXPECT_THAT(RecordsOfTheText(), IsEmpty());
}

TEST_F(LocalizerTest, TellsOfASecondAccessKey) {
    EXPECT_EQ(TextOf("&amp;a &amp;b"), L"&a &b");
    EXPECT_THAT(RecordsOfTheText(),
                ElementsAre(Record(L"ERROR", L"Localizer::GetString, multiple access keys found: KEY")));
}

TEST_F(LocalizerTest, DropsWhatFollowsAnAccessKeyWithoutItsEnd) {
    EXPECT_EQ(TextOf("a &amp b"), L"a &");
}

TEST_F(LocalizerTest, DoublesTheSignOfAnAccessKeyWithoutItsEndAtTheStart) {
    EXPECT_EQ(TextOf("&amp"), L"&&");
}

TEST_F(LocalizerTest, PutsSettingsIntoTheText) {
    Settings().SetString(Tag::OEM, L"Printer");
    EXPECT_EQ(TextOf("^OEM^ setup"), L"Printer setup");
}

TEST_F(LocalizerTest, PutsNothingForAnUnsetTag) {
    EXPECT_EQ(TextOf("^OEM^ setup"), L" setup");
}

TEST_F(LocalizerTest, FollowsTheSettingsOfTheMoment) {
    AddTexts("<KEY>^OEM^</KEY>");
    Settings().SetString(Tag::OEM, L"one");
    EXPECT_EQ(Text(L"KEY"), L"one");
    Settings().SetString(Tag::OEM, L"two");
    EXPECT_EQ(Text(L"KEY"), L"two");
}

TEST_F(LocalizerTest, ExpandsAValueInTurn) {
    Settings().SetString(TextTag(L"OUTER"), L"<^INNER^>");
    Settings().SetString(TextTag(L"INNER"), L"x");
    EXPECT_EQ(TextOf("a^OUTER^b"), L"a<x>b");
}

TEST_F(LocalizerTest, TakesASingleSignForATagWithoutAName) {
    EXPECT_EQ(TextOf("100^"), L"100");
}

TEST_F(LocalizerTest, LeavesATextAsItStandsThatWouldNeverEnd) {
    EXPECT_EQ(TextOf("^UNSET"), L"^UNSET");
    EXPECT_THAT(
        RecordsOfTheText(),
        ElementsAre(Record(L"ERROR", L"Localizer::GetString, the settings values in a text never end: KEY")));
}

TEST_F(LocalizerTest, ReadsFromRightToLeftForTheExactWordOnly) {
    AddTexts("<READING_ORDER>RTL</READING_ORDER>");
    EXPECT_TRUE(IsRightToLeft(Texts()));
    ReadTextsAnew();
    AddTexts("<READING_ORDER>rtl</READING_ORDER>");
    EXPECT_FALSE(IsRightToLeft(Texts()));
}

TEST_F(LocalizerTest, NamesTheFileOfAnyLanguage) {
    EXPECT_EQ(Texts().GetXmlFileName(0x0407), L"de_strings.xml");
    EXPECT_EQ(Texts().GetXmlFileName(0x0C04), L"zh_tw_strings.xml");
    EXPECT_EQ(Texts().GetXmlFileName(0x0816), L"pt_br_strings.xml");
    EXPECT_THAT(AdvancedMessages(),
                Contains(L"Localizer::GetXmlFileName(), currentLangId = 2070 primaryLangId = 22"));
}

TEST_F(LocalizerTest, TakesTheOptionForEveryLanguageAsItStands) {
    AddOption(L"lang=..\\odd");
    EXPECT_EQ(Texts().GetXmlFileName(0x0407), L"..\\odd_strings.xml");
}

TEST_F(LocalizerTest, TellsTheSystemsLanguageWhateverTheOptionSays) {
    const std::wstring code = GetLanguageCode();
    AddOption(L"lang=xx");
    EXPECT_EQ(GetLanguageCode(), code);
}

}  // namespace
