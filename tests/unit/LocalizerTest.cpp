#include <gmock/gmock.h>

#include "settings/InstallSettings.h"
#include "settings/Localizer.h"
#include "settings/TextKeys.h"
#include "tests/unit/RecordedLog.h"

namespace {

using testing::ElementsAre;
using testing::Field;

class LocalizerTest : public testing::Test {
protected:
    LocalizerTest() { TheLog() = {}; }

    // The texts of a user whose language has that id; every file has this text.
    Localizer Texts(std::uint16_t languageId, const std::wstring& file = {}) {
        return Localizer(settings,
                         {.languageId = languageId, .readFile = [this, file](const std::wstring& name) {
                              readFiles.push_back(name);
                              return file;
                          }});
    }

    InstallSettings settings;
    std::vector<std::wstring> readFiles;
};

TEST_F(LocalizerTest, ReadsTheFileOfTheUsersLanguageWhateverItsCountry) {
    const Localizer texts = Texts(0x0C07);
    texts.GetString(TextKey::READING_ORDER);
    EXPECT_THAT(readFiles, ElementsAre(L"de_strings.xml"));
    EXPECT_EQ(texts.GetSystemLanguageCode(), L"de");
    EXPECT_THAT(
        TheLog().advanced,
        ElementsAre(Field(&RecordedLine::message,
                          L"Localizer::GetXmlFileName(), currentLangId = 3079 primaryLangId = 7"),
                    Field(&RecordedLine::message, L"Language resource file being used: de_strings.xml")));
}

TEST_F(LocalizerTest, KnowsTheReadingOrderByTheOneWord) {
    EXPECT_TRUE(IsRightToLeft(Texts(0x0401, L"<READING_ORDER>RTL</READING_ORDER>")));
    EXPECT_FALSE(IsRightToLeft(Texts(0x0407, L"<READING_ORDER>LTR</READING_ORDER>")));
    EXPECT_FALSE(IsRightToLeft(Texts(0x0407)));
}

}  // namespace
