#include <gmock/gmock.h>

#include <map>
#include <sstream>
#include <string>

#include "tests/unit/packagecheck/MemoryTree.h"
#include "tests/unit/packagecheck/TemporaryFolder.h"
#include "tools/PackageCheck/ManifestTask.h"
#include "tools/PackageCheck/ManifestText.h"
#include "tools/PackageCheck/Manifests.h"
#include "tools/PackageCheck/Program.h"

#include <nlohmann/json.hpp>

using packagecheck::CollectManifestData;
using packagecheck::Manifest;
using packagecheck::ManifestData;
using packagecheck::Package;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr const char* monitorCode = "{00000000-0000-0000-0000-00000000000A}";
constexpr const char* driverCode = "{00000000-0000-0000-0000-00000000000b}";
constexpr const char* familyCode = "{00000000-0000-0000-0000-00000000000C}";

// The clean package, with codes as Windows Installer has them.
class CodedTree : public MemoryTree {
public:
    CodedTree() {
        Set(applicationPath, L"ProductCode", L"{00000000-0000-0000-0000-00000000000A}");
        Set(applicationPath, L"UpgradeCode", L"{00000000-0000-0000-0000-00000000000C}");
        Set(applicationPath, L"ProductVersion", L"2.10.0");
        Set(driverPath, L"ProductCode", L"{00000000-0000-0000-0000-00000000000b}");
        Set(driverPath, L"ProductVersion", L"2.9.1");
        AddSetting("<PRODUCT_NAME>Loom</PRODUCT_NAME>");
        files["Setup/x64/Rollout.exe"] = "MZ";
    }

    void Set(const std::string& path, const std::wstring& property, const std::wstring& value) {
        packages[path].properties[property] = value;
    }
};

ManifestData DataOf(const MemoryTree& tree) {
    return CollectManifestData(Package(tree));
}

std::string FileOf(const Manifest& manifest, const std::string& path) {
    for (const auto& file : manifest.files) {
        if (file.path == path) return file.bytes;
    }
    ADD_FAILURE() << path;
    return {};
}

TEST(ManifestTextTest, MakesOneLineOfAnything) {
    EXPECT_EQ(packagecheck::PlainLine(L"  a\r\n\tb\x202E  c ", 100), "a b c");
    EXPECT_EQ(packagecheck::PlainLine(L"a\x85\x2028"
                                      L"b",
                                      100),
              "a b");
    EXPECT_EQ(packagecheck::PlainLine(L"\xE4\xF6\xFC\xDF", 3), "\xC3\xA4\xC3\xB6\xC3\xBC");
    EXPECT_EQ(packagecheck::PlainLine(L"ab c", 3), "ab");
    EXPECT_EQ(packagecheck::PlainLine(L"a b", 3), "a b");
    EXPECT_EQ(packagecheck::PlainLine(L"a\xFFFE"
                                      L"b\xFFFF"
                                      L"c",
                                      100),
              "a b c");
    EXPECT_EQ(packagecheck::PlainLine(L"\n\n", 3), "");
}

TEST(ManifestTextTest, EscapesForYaml) {
    EXPECT_EQ(packagecheck::YamlText("plain: #1 & {x}"), "\"plain: #1 & {x}\"");
    EXPECT_EQ(packagecheck::YamlText("a\"b\\c"), "\"a\\\"b\\\\c\"");
    EXPECT_EQ(packagecheck::YamlText("a\nb: c"), "\"a\\u000Ab: c\"");
    EXPECT_EQ(packagecheck::YamlText("\xFF"), "\"\xEF\xBF\xBD\"");
}

TEST(ManifestTextTest, EscapesForXml) {
    EXPECT_EQ(packagecheck::XmlText("<a b=\"&amp;\">"), "&lt;a b=&quot;&amp;amp;&quot;&gt;");
    EXPECT_EQ(packagecheck::XmlText(std::string("a\0b\x1B", 4)), "a b ");
}

TEST(ManifestTextTest, EscapesForPowerShell) {
    EXPECT_EQ(packagecheck::PowerShellText("$(calc) `n \"x\""), "'$(calc) `n \"x\"'");
    EXPECT_EQ(packagecheck::PowerShellText("O'Hara"), "'O''Hara'");
    EXPECT_EQ(packagecheck::PowerShellText("\xE2\x80\x99;calc"), "'\xE2\x80\x99\xE2\x80\x99;calc'");
    EXPECT_EQ(packagecheck::PowerShellText("a\ncalc"), "'a calc'");
    // Every sign that the shell takes for a quotation mark, and the one on either side.
    for (const char* const sign : {"\xE2\x80\x98", "\xE2\x80\x99", "\xE2\x80\x9A", "\xE2\x80\x9B"})
        EXPECT_EQ(packagecheck::PowerShellText(sign), "'" + std::string(sign) + sign + "'");
    for (const char* const sign : {"\xE2\x80\x97", "\xE2\x80\x9C"})
        EXPECT_EQ(packagecheck::PowerShellText(sign), "'" + std::string(sign) + "'");
}

TEST(ManifestTextTest, MakesIdentifiers) {
    EXPECT_EQ(packagecheck::IdentifierOf("Halvenny & Sons (EU)"), "Halvenny-Sons-EU");
    EXPECT_EQ(packagecheck::IdentifierOf("../.."), "");
    EXPECT_EQ(packagecheck::IdentifierOf("/09:@AZ[`az{"), "09-AZ-az");
    EXPECT_EQ(packagecheck::IdentifierOf(std::string(50, 'a')), std::string(32, 'a'));
}

TEST(ManifestDataTest, TakesWhatThePackageSays) {
    const ManifestData data = DataOf(CodedTree());
    EXPECT_EQ(data.vendor, "Halvenny");
    EXPECT_EQ(data.name, "Halvenny Loom");
    EXPECT_EQ(data.identifier, "Halvenny.Loom");
    EXPECT_EQ(data.version, "2.10.0");
    ASSERT_EQ(data.products.size(), 2U);
    EXPECT_EQ(data.products[0].name, "Halvenny Monitor");
    EXPECT_EQ(data.products[0].productCode, monitorCode);
    EXPECT_EQ(data.products[0].upgradeCode, familyCode);
    EXPECT_EQ(data.products[1].productCode, driverCode);
    EXPECT_EQ(data.products[1].upgradeCode, "");
    ASSERT_EQ(data.locales.size(), 1U);
    EXPECT_EQ(data.locales[0].tag, "en-US");
    EXPECT_EQ(data.locales[0].description, "Welcome to Halvenny");
    EXPECT_THAT(data.notes, ElementsAre(HasSubstr("does not run silently")));
}

TEST(ManifestDataTest, TakesTheHighestVersionWhereverItStands) {
    CodedTree tree;
    tree.Set(applicationPath, L"ProductVersion", L"2.9.1");
    tree.Set(driverPath, L"ProductVersion", L"2.10.0");
    EXPECT_EQ(DataOf(tree).version, "2.10.0");
}

TEST(ManifestDataTest, TakesNumbersWithPointsBetweenThemForAVersion) {
    for (const wchar_t* const version : {L"1..2", L".1", L"1.", L"1.a"}) {
        CodedTree tree;
        tree.Set(applicationPath, L"ProductVersion", version);
        tree.Set(driverPath, L"ProductVersion", L"0.1");
        EXPECT_EQ(DataOf(tree).version, "0.1");
    }
}

TEST(ManifestDataTest, SaysThatNoProductHasAVersion) {
    CodedTree tree;
    for (const char* const path : {applicationPath, driverPath}) tree.Set(path, L"ProductVersion", L"");
    EXPECT_EQ(DataOf(tree).version, "0.0.0");
    EXPECT_THAT(DataOf(tree).notes, testing::Contains(HasSubstr("No product has a version")));
}

TEST(ManifestDataTest, CutsWhatIsTooLongForACatalogue) {
    CodedTree tree;
    tree.Replace(defaultsPath, "<PRODUCT_NAME>Loom<", "<PRODUCT_NAME>" + std::string(200, 'x') + "<");
    tree.Replace(englishPath, "Welcome to ^OEM^", std::string(300, 'y'));
    tree.Set(applicationPath, L"ProductVersion", std::wstring(200, L'9'));
    const ManifestData data = DataOf(tree);
    EXPECT_THAT(data.name, testing::EndsWith(std::string(128, 'x')));
    EXPECT_THAT(data.name, Not(HasSubstr(std::string(129, 'x'))));
    EXPECT_EQ(data.locales[0].description, std::string(250, 'y'));
    EXPECT_EQ(data.version, std::string(128, '9'));
}

TEST(ManifestDataTest, LeavesOutAPackageThatCannotBeRead) {
    CodedTree tree;
    tree.unreadable.insert(applicationPath);
    const ManifestData data = DataOf(tree);
    EXPECT_EQ(data.products.size(), 1U);
    EXPECT_THAT(data.notes, Not(testing::Contains(HasSubstr("Monitor.msi"))));
}

TEST(ManifestDataTest, NamesTheVendorOnce) {
    CodedTree tree;
    tree.Replace(defaultsPath, "<PRODUCT_NAME>Loom<", "<PRODUCT_NAME>Halvenny Loom<");
    EXPECT_EQ(DataOf(tree).name, "Halvenny Loom");
}

TEST(ManifestDataTest, LeavesOutWhatIsNotSurelyInstalled) {
    CodedTree tree;
    tree.packages["Common/x64/Extra.msi"] = tree.packages[applicationPath];
    tree.Set("Common/x64/Extra.msi", L"ProductCode", L"{00000000-0000-0000-0000-00000000000D}");
    tree.Set(driverPath, L"DRIVERID", L"OTHER");
    EXPECT_EQ(DataOf(tree).products.size(), 1U);
}

TEST(ManifestDataTest, NamesAProductOfTwoFoldersOnce) {
    CodedTree tree;
    tree.packages["Applications/x86_x64/Monitor.msi"] = tree.packages[applicationPath];
    EXPECT_EQ(DataOf(tree).products.size(), 2U);
}

TEST(ManifestDataTest, SaysWhatIsMissing) {
    const ManifestData data = DataOf(MemoryTree());
    EXPECT_TRUE(data.products.empty());
    EXPECT_THAT(data.notes, testing::Contains(HasSubstr("Monitor.msi has no product code")));
    EXPECT_THAT(data.notes, testing::Contains(HasSubstr("Rollout.exe is missing")));
    EXPECT_THAT(data.notes, testing::Contains(HasSubstr("No product has a version")));
}

TEST(ManifestDataTest, HasNothingToSayOfASilentPackage) {
    CodedTree tree;
    tree.AddSetting("<SILENT_INSTALL>true</SILENT_INSTALL><HIDE_DISCOVERY>true</HIDE_DISCOVERY>");
    EXPECT_THAT(DataOf(tree).notes, testing::IsEmpty());
}

TEST(ManifestDataTest, KnowsLanguagesByTheirTags) {
    CodedTree tree;
    for (const std::string code : {"de", "ga_za", "nl_nz", "pt_BR", "sr_Latn", "x y", "x{y", "xx_",
                                   "yy_abcdefghijklm", "yy_abcdefghijklmn"})
        tree.files["Setup/res/" + code + "_strings.xml"] = "<WELCOME_TEXT>^OEM^!</WELCOME_TEXT>";
    const ManifestData data = DataOf(tree);
    std::vector<std::string> tags;
    for (const auto& locale : data.locales) tags.push_back(locale.tag);
    EXPECT_THAT(tags, ElementsAre("en-US", "de", "ga-ZA", "nl-NZ", "pt-BR", "sr-Latn", "yy-abcdefghijklm"));
    EXPECT_EQ(data.locales.back().description, "Halvenny!");
    for (const char* const file :
         {"x y_strings.xml", "x{y_strings.xml", "xx__strings.xml", "yy_abcdefghijklmn_strings.xml"})
        EXPECT_THAT(data.notes, testing::Contains(HasSubstr(file)));
}

TEST(ManifestDataTest, TakesNothingElseForACode) {
    EXPECT_TRUE(packagecheck::IsInstallerCode(driverCode));
    EXPECT_FALSE(packagecheck::IsInstallerCode(""));
    EXPECT_FALSE(packagecheck::IsInstallerCode("{00000000-0000-0000-0000-00000000000G}"));
    EXPECT_FALSE(packagecheck::IsInstallerCode(std::string(driverCode) + "x"));
}

TEST(WingetManifestTest, HasAFileForEachLanguage) {
    CodedTree tree;
    tree.files["Setup/res/de_strings.xml"] = "<WELCOME_TEXT>Willkommen</WELCOME_TEXT>";
    const Manifest manifest = packagecheck::WingetManifest(DataOf(tree));
    EXPECT_EQ(FileOf(manifest, "Halvenny.Loom.yaml"),
              "PackageIdentifier: \"Halvenny.Loom\"\nPackageVersion: \"2.10.0\"\n"
              "DefaultLocale: \"en-US\"\nManifestType: \"version\"\nManifestVersion: \"1.6.0\"\n");
    EXPECT_THAT(FileOf(manifest, "Halvenny.Loom.locale.de.yaml"),
                HasSubstr("ShortDescription: \"Willkommen\"\nManifestType: \"locale\""));
    EXPECT_THAT(FileOf(manifest, "Halvenny.Loom.locale.en-US.yaml"),
                HasSubstr("ManifestType: \"defaultLocale\""));
    EXPECT_THAT(FileOf(manifest, "Halvenny.Loom.installer.yaml"),
                HasSubstr("- ProductCode: \"" + std::string(monitorCode) +
                          "\"\n  DisplayName: \"Halvenny Monitor\"\n"));
    EXPECT_THAT(FileOf(manifest, "Halvenny.Loom.installer.yaml"),
                HasSubstr("  UpgradeCode: \"" + std::string(familyCode) + "\"\n"));
    EXPECT_THAT(FileOf(manifest, "Halvenny.Loom.installer.yaml"), Not(HasSubstr("UpgradeCode: \"\"")));
}

TEST(ChocolateyManifestTest, BeginsItsScriptsWithAByteOrderMark) {
    const Manifest manifest = packagecheck::ChocolateyManifest(DataOf(CodedTree()));
    EXPECT_TRUE(FileOf(manifest, "tools/chocolateyInstall.ps1").starts_with("\xEF\xBB\xBF$"));
    EXPECT_THAT(FileOf(manifest, "tools/chocolateyUninstall.ps1"), HasSubstr("'--uninstall'"));
    EXPECT_THAT(FileOf(manifest, "halvenny-loom.nuspec"), HasSubstr("<title>Halvenny Loom</title>"));
}

TEST(IntuneManifestTest, DetectsEachProduct) {
    const Manifest manifest = packagecheck::IntuneManifest(DataOf(CodedTree()));
    EXPECT_THAT(FileOf(manifest, "Halvenny.Loom.intune.json"), testing::StartsWith("{\n  \""));
    auto app = nlohmann::json::parse(FileOf(manifest, "Halvenny.Loom.intune.json"));
    ASSERT_EQ(app["detectionRules"].size(), 2U);
    EXPECT_EQ(app["detectionRules"][0]["productCode"], monitorCode);
    EXPECT_EQ(app["detectionRules"][0]["productVersion"], "2.10.0");
    std::map<int, std::string> codes;
    for (const auto& code : app["returnCodes"]) codes[code["returnCode"]] = code["type"];
    EXPECT_THAT(codes, ElementsAre(std::pair(0, "success"), std::pair(1602, "retry"),
                                   std::pair(1618, "retry"), std::pair(1641, "hardReboot"),
                                   std::pair(1707, "success"), std::pair(3010, "softReboot")));
    EXPECT_EQ(app["description"], "Welcome to Halvenny");
    EXPECT_EQ(app["uninstallCommandLine"], "Setup\\x64\\Rollout.exe --uninstall");
}

TEST(IntuneManifestTest, DescribesAPackageWithoutATextByItsName) {
    ManifestData data = DataOf(CodedTree());
    data.locales.front().description.clear();
    const Manifest manifest = packagecheck::IntuneManifest(data);
    const auto app = nlohmann::json::parse(FileOf(manifest, "Halvenny.Loom.intune.json"));
    EXPECT_EQ(app["description"], "Halvenny Loom");
}

TEST(WingetManifestTest, NamesTheAddressForQuestionsWhereThereIsOne) {
    ManifestData data = DataOf(CodedTree());
    data.link.clear();
    const std::string path = "Halvenny.Loom.locale.en-US.yaml";
    EXPECT_THAT(FileOf(packagecheck::WingetManifest(data), path), Not(HasSubstr("PublisherSupportUrl")));
    data.link = "https://help.test";
    EXPECT_THAT(FileOf(packagecheck::WingetManifest(data), path),
                HasSubstr("PublisherSupportUrl: \"https://help.test\"\n"));
}

// A package whose texts try to be more than texts.
class HostileTree : public CodedTree {
public:
    HostileTree() {
        Replace(defaultsPath, "<OEM>Halvenny</OEM>",
                "<OEM>O'Neill \"&\" <b>\n$(calc): \xE2\x80\x99;calc#</OEM>");
        Replace(defaultsPath, "<PRODUCT_NAME>Loom<", "<PRODUCT_NAME>../Lo'om\\${x}\n- a: b<");
        Set(applicationPath, L"ProductName", L"a\"\nInstallers: []\n#<c>&'$x`");
        Set(applicationPath, L"ProductVersion", L"9\"; calc");
    }
};

TEST(HostileManifestTest, TakesNoLineOverFromThePackage) {
    const ManifestData data = DataOf(HostileTree());
    for (const std::string& text :
         {data.vendor, data.name, data.identifier, data.version, data.products[0].name})
        EXPECT_THAT(text, Not(HasSubstr("\n")));
}

// As if the lines of the texts had come through: each kind of manifest escapes them by itself, too.
TEST(HostileManifestTest, HasNoLineOfThePackagesOwn) {
    ManifestData data = DataOf(HostileTree());
    const std::string lines = "x\nInstallers: []\n- a: b\n$(calc)";
    data.vendor = data.name = data.products[0].name = data.locales[0].description = lines;
    for (const std::string kind : {"winget", "chocolatey", "intune"}) {
        for (const auto& file : packagecheck::MakeManifest(kind, data).files) {
            EXPECT_THAT(file.bytes, Not(HasSubstr("\nInstallers: []"))) << file.path;
            EXPECT_THAT(file.bytes, Not(HasSubstr("\n- a: b"))) << file.path;
            EXPECT_THAT(file.bytes, Not(HasSubstr("\n$(calc)"))) << file.path;
            EXPECT_THAT(file.path, Not(HasSubstr(".."))) << file.path;
        }
    }
}

TEST(HostileManifestTest, StaysWithinItsQuotes) {
    const ManifestData data = DataOf(HostileTree());
    EXPECT_EQ(data.version, "2.9.1");
    const Manifest winget = packagecheck::WingetManifest(data);
    EXPECT_THAT(FileOf(winget, winget.files[1].path),
                HasSubstr("DisplayName: \"a\\\" Installers: [] #<c>&'$x`\"\n"));
    const Manifest chocolatey = packagecheck::ChocolateyManifest(data);
    EXPECT_THAT(FileOf(chocolatey, "tools/chocolateyInstall.ps1"),
                HasSubstr("-PackageName 'O''Neill \"&\" <b> $(calc): \xE2\x80\x99\xE2\x80\x99;calc#"));
    EXPECT_THAT(FileOf(chocolatey, chocolatey.files[0].path),
                HasSubstr("O'Neill &quot;&amp;&quot; &lt;b&gt;"));
    const Manifest intune = packagecheck::IntuneManifest(data);
    const auto app = nlohmann::json::parse(intune.files[0].bytes);
    EXPECT_EQ(app["publisher"], data.vendor);
}

class ManifestTaskTest : public testing::Test {
protected:
    bool Write(const std::string& kind) {
        return packagecheck::WriteManifest(kind, Package(CodedTree()), folder.Path() + "/new", out,
                                           complaint);
    }

    TemporaryFolder folder;
    std::ostringstream out;
    std::string complaint;
};

TEST_F(ManifestTaskTest, WritesFilesAndSaysWhatIsLeft) {
    EXPECT_TRUE(Write("chocolatey"));
    EXPECT_THAT(folder.Read("new/tools/chocolateyInstall.ps1"), HasSubstr("Install-ChocolateyZipPackage"));
    EXPECT_THAT(out.str(), HasSubstr("To be filled in:\n  projectUrl"));
    EXPECT_THAT(out.str(), HasSubstr("To know:\n  The package does not run silently"));
}

TEST_F(ManifestTaskTest, WritesNothingOverAFile) {
    folder.Write("new/tools/chocolateyUninstall.ps1", "mine");
    EXPECT_FALSE(Write("chocolatey"));
    EXPECT_THAT(complaint, HasSubstr("tools/chocolateyUninstall.ps1 is in that folder already"));
    EXPECT_EQ(folder.Read("new/tools/chocolateyUninstall.ps1"), "mine");
    EXPECT_EQ(folder.Read("new/halvenny-loom.nuspec"), "");
}

TEST_F(ManifestTaskTest, SaysWhereItCannotWrite) {
    folder.Write("new", "a file");
    EXPECT_FALSE(Write("intune"));
    EXPECT_THAT(complaint, HasSubstr("cannot be written"));
}

TEST(ManifestCommandTest, NeedsAKindAndAFolder) {
    std::ostringstream out;
    std::ostringstream err;
    const packagecheck::Surroundings surroundings{.out = out, .err = err};
    EXPECT_EQ(packagecheck::RunPackageCheck({"--manifest", "winget", "a"}, surroundings), 2);
    EXPECT_EQ(packagecheck::RunPackageCheck({"--manifest", "other", "--out", "b", "a"}, surroundings), 2);
    EXPECT_THAT(err.str(), HasSubstr("--manifest makes winget, chocolatey or intune."));
    EXPECT_THAT(err.str(), HasSubstr("--manifest and --out FOLDER go together."));
    err.str({});
    EXPECT_EQ(packagecheck::RunPackageCheck({"--out", "b", "a"}, surroundings), 2);
    EXPECT_THAT(err.str(), HasSubstr("--manifest and --out FOLDER go together."));
}

TEST(ManifestCommandTest, MakesAManifestOfAFolder) {
    TemporaryFolder folder;
    for (const auto& [path, bytes] : MemoryTree().files) folder.Write("package/" + path, bytes);
    std::ostringstream out;
    std::ostringstream err;
    const std::vector<std::string> arguments = {"--manifest", "intune", "--out", folder.Path() + "/made",
                                                folder.Path() + "/package"};
    EXPECT_EQ(packagecheck::RunPackageCheck(arguments, {.out = out, .err = err}), 0);
    EXPECT_THAT(folder.Read("made/Halvenny.Printer-Software.intune.json"), HasSubstr("win32LobApp"));
    EXPECT_EQ(packagecheck::RunPackageCheck(arguments, {.out = out, .err = err}), 2);
    EXPECT_THAT(err.str(), HasSubstr("already"));
}

}  // namespace
