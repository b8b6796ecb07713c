#include <gmock/gmock.h>

#include "settings/Localizer.h"
#include "settings/TagNames.h"
#include "settings/TextKeys.h"
#include "tests/unit/RecordedLog.h"

namespace {

using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

// The texts of one language file, for a user with an English system.
class LocalizerInMemoryTest : public testing::Test {
protected:
    LocalizerInMemoryTest() { TheLog() = {}; }

    std::wstring TextOf(std::wstring_view value) {
        file.append(L"<KEY>").append(value).append(L"</KEY>");
        return localizer.GetString(TextId(L"KEY"));
    }

    // The errors in the advanced log.
    static std::vector<std::wstring> Errors() {
        std::vector<std::wstring> errors;
        for (const RecordedLine& line : TheLog().advanced) {
            if (line.level == L"ERROR") errors.push_back(line.message);
        }
        return errors;
    }

    std::wstring file;
    std::vector<std::wstring> filesRead;
    InstallSettings settings;
    Localizer localizer{settings, {.languageId = 0x409, .readFile = [this](const std::wstring& name) {
                                       filesRead.push_back(name);
                                       return file;
                                   }}};
};

TEST_F(LocalizerInMemoryTest, ReadsOneFileOnce) {
    EXPECT_EQ(TextOf(L"one"), L"one");
    EXPECT_EQ(TextOf(L"two"), L"one");
    EXPECT_THAT(filesRead, ElementsAre(L"en_strings.xml"));
}

TEST_F(LocalizerInMemoryTest, ReadsTheFileOfTheUsersLanguageWhateverItsCountry) {
    const Localizer austrian(settings, {.languageId = 0x0C07, .readFile = [this](const std::wstring& name) {
                                            filesRead.push_back(name);
                                            return std::wstring();
                                        }});
    austrian.GetString(TextKey::READING_ORDER);
    EXPECT_THAT(filesRead, ElementsAre(L"de_strings.xml"));
    EXPECT_EQ(austrian.GetSystemLanguageCode(), L"de");
    EXPECT_THAT(
        TheLog().advanced,
        ElementsAre(Field(&RecordedLine::message,
                          L"Localizer::GetXmlFileName(), currentLangId = 3079 primaryLangId = 7"),
                    Field(&RecordedLine::message, L"Language resource file being used: de_strings.xml")));
}

TEST_F(LocalizerInMemoryTest, AsksForTheFileOfTheOption) {
    localizer.SetLanguageOption(L"de");
    TextOf(L"eins");
    EXPECT_THAT(filesRead, ElementsAre(L"de_strings.xml"));
    EXPECT_EQ(localizer.GetSystemLanguageCode(), L"en");
}

TEST_F(LocalizerInMemoryTest, TellsOfEachAccessKeyTooMany) {
    const std::wstring error = L"Localizer::GetString, multiple access keys found: KEY";
    EXPECT_EQ(TextOf(L"&amp;a &amp;b &amp;c"), L"&a &b &c");
    EXPECT_THAT(Errors(), ElementsAre(error, error));
}

TEST_F(LocalizerInMemoryTest, TellsOfATextThatWouldNeverEnd) {
    EXPECT_EQ(TextOf(L"^UNSET"), L"^UNSET");
    EXPECT_THAT(Errors(), ElementsAre(L"Localizer::GetString, the settings values in a text never end: KEY"));
}

TEST_F(LocalizerInMemoryTest, PutsSettingsIntoATextWithoutAWord) {
    settings.SetString(Tag::OEM, L"Halvenny");
    EXPECT_EQ(TextOf(L"^OEM^ &amp;setup"), L"Halvenny &setup");
    EXPECT_THAT(Errors(), IsEmpty());
}

TEST_F(LocalizerInMemoryTest, ReadsFromRightToLeftForTheExactWordOnly) {
    file = L"<READING_ORDER>RTL</READING_ORDER>";
    EXPECT_TRUE(IsRightToLeft(localizer));
    const Localizer other(settings, {.languageId = 0x409, .readFile = [](const std::wstring&) {
                                         return std::wstring(L"<READING_ORDER>rtl</READING_ORDER>");
                                     }});
    EXPECT_FALSE(IsRightToLeft(other));
}

}  // namespace
