// The language file that the program takes, seen by the language that it asks the library for.

#include "CommonLib/SystemText.h"
#include "tests/wizard/WizardTest.h"

using testing::IsEmpty;

namespace {

class LanguageTest : public WizardTest {
protected:
    void SetUp() override {
        WizardTest::SetUp();
        tree.Add({.path = L"Applications\\a.msi"});
        tree.SetText(L"LANGUAGE_ID", L"1031", L"de");
    }

    std::wstring LanguageAskedFor() const {
        const std::vector<LibraryCall> calls = Calls(L"MsiGetProperties");
        return calls.empty() ? L"none" : calls.front().Argument(L"language");
    }
};

// The language belongs to the user and not to the test, so the suite is run once per language; the runner
// names the one that it has set and the code of the file that follows from it.
TEST_F(LanguageTest, FollowsTheLanguageOfTheUser) {
    const std::wstring language = ExpandEnvironment(L"%KESTRUNE_USER_LANGUAGE%");
    const std::wstring code = ExpandEnvironment(L"%KESTRUNE_LANGUAGE_CODE%");
    const bool named = language.front() != L'%';
    const std::wstring identifier = named ? language : L"1033";
    const std::wstring primary = std::to_wstring(std::stoi(identifier) & 0x3FF);
    tree.SetText(L"LANGUAGE_ID", L"the user's", named ? code : L"en");
    Run();
    EXPECT_EQ(LanguageAskedFor(), L"the user's");
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Localizer::GetXmlFileName(), currentLangId = " + identifier +
                                                  L" primaryLangId = " + primary));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Language resource file being used: " +
                                                  (named ? code : L"en") + L"_strings.xml"));
}

TEST_F(LanguageTest, FollowsTheOptionBeforeTheLanguageOfTheUser) {
    Run(L"-lang=de");
    EXPECT_EQ(LanguageAskedFor(), L"1031");
    // The numbers are those of the user's language all the same.
    EXPECT_THAT(AdvancedLog(),
                HasRecord(L"", L"Localizer::GetXmlFileName(), currentLangId = 1033 primaryLangId = 9"));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Language resource file being used: de_strings.xml"));
}

TEST_F(LanguageTest, FallsBackToEnglishAndNamesTheFirstChoice) {
    Run(L"-lang=xx");
    EXPECT_EQ(LanguageAskedFor(), L"1033");
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Language resource file being used: xx_strings.xml"));
}

TEST_F(LanguageTest, TakesAnEmptyOptionForNone) {
    Run(L"-lang=");
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Language resource file being used: en_strings.xml"));
}

TEST_F(LanguageTest, GoesOnWithoutTextsWhenEvenEnglishIsMissing) {
    tree.RemoveFile(L"Setup\\res\\en_strings.xml");
    Run();
    EXPECT_EQ(LanguageAskedFor(), L"");
    EXPECT_THAT(Installs(), testing::ElementsAre(L"a.msi"));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"ERROR", L"Localizer(), Loading Resource file failed! " +
                                                       tree.ProgramFolder().wstring() + L"\\..\\res\\"));
}

TEST_F(LanguageTest, ReadsALanguageFileWithAByteOrderMark) {
    tree.WriteFile(L"Setup\\res\\en_strings.xml", "\xEF\xBB\xBF<LANGUAGE_ID>2057</LANGUAGE_ID>");
    Run();
    EXPECT_EQ(LanguageAskedFor(), L"2057");
}

TEST_F(LanguageTest, FillsSettingsIntoTexts) {
    tree.SetSettings(std::wstring(Settings::silent) + L"<INNER>10</INNER><OUTER>^INNER^33</OUTER>");
    tree.SetText(L"LANGUAGE_ID", L"^OUTER^^UNSET^");
    Run();
    EXPECT_EQ(LanguageAskedFor(), L"1033");
}

TEST_F(LanguageTest, KeepsTheLinksInTheLanguageOfTheUserWhateverTheOptionSays) {
    tree.SetSettings(std::wstring(Settings::silent) + L"<INFOCENTER_LINK>http://help</INFOCENTER_LINK>");
    tree.SetUserSettings(L"<B>1</B>");
    Run(L"-lang=de");
    EXPECT_EQ(FinalSetting(L"EXACT_INFOCENTER_LINK"), L"http://help?loc=en");
}

}  // namespace
