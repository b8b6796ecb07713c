// Packages that are broken: the run neither hangs nor crashes, and the logs tell.

#include <algorithm>

#include "CommonLib/Utf8.h"
#include "tests/wizard/ShownRunTest.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr wchar_t noVendorText[] =
    L"Default Settings file does not have Vendor name. Bad configuration found. Ensure UTF-8 file format is "
    L"used.";

class FaultTest : public WizardTest {
protected:
    void SetUp() override {
        WizardTest::SetUp();
        tree.Add({.path = L"Applications\\a.msi"});
    }

    std::string SilentSettings(const std::string& further) const {
        return ToUtf8(Element(L"OEM", tree.Vendor()) + Settings::silent) + further;
    }

    void ExpectUsualRun() const {
        EXPECT_EQ(wizard.ExitCode(), 0U);
        EXPECT_THAT(Installs(), ElementsAre(L"a.msi"));
        EXPECT_THAT(BasicLog(), HasRecord(L"", L"End of silent mode install"));
    }
};

TEST_F(FaultTest, SettingsInTheWrongEncodingLeaveAPackageWithoutAVendor) {
    ExpectVendor(L"Printer");
    std::string bytes = "\xFF\xFE";
    for (const char sign : SilentSettings({})) bytes.append(1, sign).append(1, '\0');
    tree.WriteFile(L"Setup\\defaultInstallSettings.xml", bytes);
    tree.SetUserSettings(Settings::silent);
    Run();
    ExpectUsualRun();
    EXPECT_THAT(BasicLog(), HasRecord(L"ERROR", noVendorText));
}

TEST_F(FaultTest, DefaultSettingsThatCannotBeReadEndTheProgram) {
    const FileHandle owner(CreateFileW((tree.Root() / L"Setup\\defaultInstallSettings.xml").c_str(),
                                       GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                                       nullptr));
    Run();
    EXPECT_EQ(wizard.ExitCode(), 0U);
    EXPECT_THAT(Calls(), IsEmpty());
}

TEST_F(FaultTest, AFileThatIsNoPackageIsLeftToTheLibrary) {
    tree.WriteFile(L"Applications\\broken.msi", "this is no package");
    tree.SetSettings(Settings::shownFromProgress);
    wizard.Start();
    // The library knows no such package and says so, first when it is read and then when it is installed.
    wizard.Answer(IDOK);
    CloseOnFinishPage();
    EXPECT_THAT(Installs(), ElementsAre(L"a.msi", L"broken.msi"));
    EXPECT_THAT(BasicLog(), HasRecord(L"ERROR", L"MSI Installer returned an error"));
    EXPECT_THAT(Removals(), ElementsAre(L"a.msi", L"broken.msi"));
}

TEST_F(FaultTest, ATextThatWouldExpandForEverIsOneErrorInTheLog) {
    tree.SetText(L"INSTALL_TITLE", L"^LOOP^");
    tree.SetSettings(std::wstring(Settings::silent) + L"<LOOP>^LOOP^</LOOP>");
    Run();
    ExpectUsualRun();
    const std::vector<LogRecord> log = AdvancedLog();
    EXPECT_EQ(std::count_if(
                  log.begin(), log.end(),
                  [](const LogRecord& record) {
                      return record.message ==
                             L"Localizer::GetString, the settings values in a text never end: INSTALL_TITLE";
                  }),
              1);
}

TEST_F(FaultTest, ATextThatGrowsForEverIsBoundedToo) {
    tree.SetText(L"INSTALL_TITLE", L"^LOOP^");
    tree.SetSettings(std::wstring(Settings::silent) + L"<LOOP>xx^LOOP^^LOOP^xx</LOOP>");
    Run();
    ExpectUsualRun();
    EXPECT_THAT(AdvancedLog(), HasRecordWith(L"ERROR", L"never end: INSTALL_TITLE"));
}

// A settings file that is too large or broken after its good beginning.
struct BrokenSettings {
    const char* name;
    std::string (*tail)();
};

std::string Repeated(const std::string& piece, std::size_t count) {
    std::string text;
    text.reserve(piece.size() * count);
    for (std::size_t index = 0; index < count; ++index) text += piece;
    return text;
}

void PrintTo(const BrokenSettings& given, std::ostream* stream) {
    *stream << given.name;
}

class BrokenSettingsTest : public FaultTest, public testing::WithParamInterface<BrokenSettings> {};

TEST_P(BrokenSettingsTest, AreTakenAsFarAsTheyGoInTheDefaults) {
    tree.WriteFile(L"Setup\\defaultInstallSettings.xml", SilentSettings(GetParam().tail()));
    Run();
    ExpectUsualRun();
}

TEST_P(BrokenSettingsTest, AreTakenAsFarAsTheyGoInTheUserSettings) {
    tree.WriteFile(L"Setup\\PackageUserSettings.xml", "<B>1</B>\n" + GetParam().tail());
    Run();
    ExpectUsualRun();
    EXPECT_EQ(FinalSetting(L"B"), L"1");
    EXPECT_EQ(FinalSetting(L"INSTALL_FROM_CONFIG"), L"true");
}

INSTANTIATE_TEST_SUITE_P(
    Files, BrokenSettingsTest,
    testing::Values(
        BrokenSettings{"TenMegabytes",
                       [] { return Repeated("<!-- a line that holds no setting at all -->\n", 230000); }},
        BrokenSettings{"AThousandTagsOfTenKilobytes",
                       [] {
                           std::string text;
                           for (int tag = 0; tag < 1000; ++tag) {
                               const std::string name = "T" + std::to_string(tag);
                               text += "<" + name + ">" + std::string(10000, 'v') + "</" + name + ">\n";
                           }
                           return text;
                       }},
        BrokenSettings{"AValueOfOneMegabyte",
                       [] { return "<BIG>" + std::string(1 << 20, 'v') + "</BIG>\n"; }},
        BrokenSettings{"TagsThatNeverClose", [] { return Repeated("<OPEN>", 100000); }},
        BrokenSettings{"AnUnterminatedTag", [] { return std::string("<UNTERMINATED"); }},
        BrokenSettings{"NullBytes", [] { return Repeated(std::string("x\0y\0\0\n", 6), 1000); }},
        BrokenSettings{"BrokenUtf8", [] { return Repeated("\xC3\x28\xE2\x82\xF0\x9F\xFF\xFE\n", 1000); }},
        BrokenSettings{"NoLineEnds", [] { return Repeated("\xE2\x82\xAC", 100000); }}),
    [](const testing::TestParamInfo<BrokenSettings>& given) { return std::string(given.param.name); });

TEST_F(FaultTest, APropertyDocumentOfAMegabyteIsRead) {
    tree.Add({.path = L"Applications\\b.msi",
              .properties = Element(L"PAD", std::wstring(1 << 20, L'p')) + L"<ProductName>Big</ProductName>",
              .states = {{.installed = true}}});
    Run();
    ExpectUsualRun();
    EXPECT_THAT(BasicLog(), HasRecordWith(L"", L"A newer version of Big is already installed."));
}

TEST_F(FaultTest, ABrokenLanguageFileGivesTheTextsThatItHas) {
    tree.WriteFile(L"Setup\\res\\en_strings.xml",
                   std::string("<LANGUAGE_ID>1033</LANGUAGE_ID>\n\xFF\xFE<INSTALL_TITLE>\0\n</INSTALL", 60));
    Run();
    ExpectUsualRun();
    EXPECT_EQ(Calls(L"MsiGetProperties").front().Argument(L"language"), L"1033");
}

TEST_F(FaultTest, AnOptionOfThirtyThousandSignsIsOnlyAnOption) {
    Run(L"-pkgdir=" + std::wstring(30000, L'p'));
    ExpectUsualRun();
}

}  // namespace
