#include <gmock/gmock.h>

#include <algorithm>
#include <sstream>

#include "CommonLib/MsiCodes.h"
#include "CommonLib/Utf8.h"
#include "tests/unit/packagecheck/MemoryTree.h"
#include "tools/PackageCheck/Plan.h"
#include "tools/PackageCheck/PlanJson.h"
#include "tools/PackageCheck/PlanPage.h"
#include "tools/PackageCheck/PlanText.h"
#include "tools/PackageCheck/PlannedInstaller.h"

#include <nlohmann/json.hpp>

using packagecheck::InstalledState;
using packagecheck::PageState;
using packagecheck::Plan;
using packagecheck::PlannedPackage;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

class PlanTest : public testing::Test {
protected:
    Plan Make() const { return packagecheck::MakePlan(packagecheck::Package(tree), options); }

    void AddPackage(const std::string& path, const std::wstring& name,
                    const std::map<std::wstring, std::wstring>& properties = {}) {
        tree.packages[path] = CleanMsi(name);
        for (const auto& [property, value] : properties) tree.packages[path].properties[property] = value;
    }

    static std::string FileAndWords(const PlannedPackage& package) {
        std::string text = package.file.substr(package.file.rfind('/') + 1) + ": ";
        for (const wchar_t letter : WordsFor(package.intention)) text += static_cast<char>(letter);
        return text;
    }

    std::vector<std::string> Packages() const {
        std::vector<std::string> lines;
        for (const PlannedPackage& package : Make().packages) {
            lines.push_back(FileAndWords(package));
            for (const PlannedPackage& dependent : package.dependents)
                lines.push_back("  " + FileAndWords(dependent));
        }
        return lines;
    }

    // The documents of the packages by their places in the plan.
    std::wstring DocumentOf(std::size_t index) const { return Make().packages.at(index).document; }

    static std::vector<std::wstring_view> Titles(const Plan& plan, PageState state) {
        std::vector<std::wstring_view> titles;
        for (const auto& page : plan.pages) {
            if (page.state == state) titles.push_back(page.title);
        }
        return titles;
    }

    static std::string ReasonOf(const Plan& plan, std::wstring_view title) {
        for (const auto& page : plan.pages) {
            if (page.title == title) return page.reason;
        }
        return "no such page";
    }

    MemoryTree tree;
    packagecheck::PlanOptions options;
};

TEST_F(PlanTest, InstallsApplicationsAndThenDriversByFolderAndByNamesInCapitals) {
    AddPackage("Applications/x64/a_b.msi", L"First");
    AddPackage("Applications/x64/aB.msi", L"Second");
    AddPackage("Applications/Z.msi", L"Third");
    AddPackage("Drivers/x86_x64/Scan.msi", L"Scan", {{L"DRIVERID", L"SCAN"}});
    EXPECT_THAT(Packages(), ElementsAre("Z.msi: install", "aB.msi: install", "a_b.msi: install",
                                        "Monitor.msi: install", "Mono.msi: install", "Scan.msi: install"));
}

TEST_F(PlanTest, TakesDependentsWithinTheirParentsTurnAndEachOnce) {
    tree.packages[applicationPath].properties[L"DEPENDENTAPPS"] = L"Shared.msi;Own.msi";
    AddPackage("Applications/x64/Other.msi", L"Other", {{L"DEPENDENTAPPS", L"Shared.msi"}});
    AddPackage("Dependents/x64/Own.msi", L"Own");
    AddPackage("Dependents/x64/Shared.msi", L"Shared");
    EXPECT_THAT(Packages(), ElementsAre("Monitor.msi: install", "  Own.msi: install", "  Shared.msi: install",
                                        "Other.msi: install", "  Shared.msi: pass over, it is up to date",
                                        "Mono.msi: install"));
    EXPECT_EQ(Make().packages.at(1).dependents.at(0).reason, "it has been installed earlier in this run");
}

TEST_F(PlanTest, TakesADependentWithoutAProductCodeOnceToo) {
    tree.packages[applicationPath].properties[L"DEPENDENTAPPS"] = L"Shared.msi";
    AddPackage("Applications/x64/Other.msi", L"Other", {{L"DEPENDENTAPPS", L"Shared.msi"}});
    AddPackage("Dependents/x64/Shared.msi", L"Shared");
    tree.packages["Dependents/x64/Shared.msi"].properties.erase(L"ProductCode");
    EXPECT_THAT(Packages(), Contains("  Shared.msi: pass over, it is up to date"));
}

TEST_F(PlanTest, GoesByWhatIsInstalled) {
    AddPackage("Applications/x64/Again.msi", L"Again", {{L"FORCEREINSTALL", L"true"}});
    AddPackage("Applications/x64/Minor.msi", L"Minor");
    AddPackage("Applications/x64/Newer.msi", L"Newer");
    AddPackage("Applications/x64/Older.msi", L"Older");
    options.installed.Set("again.msi", InstalledState::UpToDate);
    options.installed.Set("Minor.msi", InstalledState::MinorUpgrade);
    options.installed.Set("Newer.msi", InstalledState::Newer);
    options.installed.Set("Older.msi", InstalledState::Upgradable);
    options.installed.Set("Halvenny Monitor", InstalledState::UpToDate);
    EXPECT_THAT(Packages(), ElementsAre("Again.msi: install again", "Minor.msi: minor upgrade",
                                        "Monitor.msi: pass over, it is up to date",
                                        "Newer.msi: leave, something newer is installed",
                                        "Older.msi: upgrade", "Mono.msi: install"));
    EXPECT_THAT(DocumentOf(1), HasSubstr(L"<TAG_REINSTALL>true</TAG_REINSTALL>"));
    EXPECT_THAT(DocumentOf(2), IsEmpty());
    EXPECT_THAT(DocumentOf(3), IsEmpty());
}

TEST_F(PlanTest, LeavesTheDependentsOfWhatIsPassedOver) {
    tree.packages[applicationPath].properties[L"DEPENDENTAPPS"] = L"Own.msi";
    AddPackage("Dependents/x64/Own.msi", L"Own");
    options.installed.Set("Monitor.msi", InstalledState::UpToDate);
    const Plan plan = Make();
    EXPECT_THAT(plan.packages.at(0).dependents, IsEmpty());
    EXPECT_EQ(plan.packages.at(0).reason, "it is up to date, and its dependents are left with it");
    EXPECT_EQ(plan.leftOut.at(0).file, "Dependents/x64/Own.msi");
}

TEST_F(PlanTest, SaysWhyItDoesWhatItDoes) {
    AddPackage("Applications/x64/Again.msi", L"Again", {{L"FORCEREINSTALL", L"true"}});
    AddPackage("Applications/x64/Minor.msi", L"Minor");
    AddPackage("Applications/x64/Newer.msi", L"Newer");
    options.installed.Set("Again.msi", InstalledState::UpToDate);
    options.installed.Set("Minor.msi", InstalledState::MinorUpgrade);
    options.installed.Set("Monitor.msi", InstalledState::Upgradable);
    options.installed.Set("Newer.msi", InstalledState::Newer);
    std::vector<std::string> reasons;
    for (const PlannedPackage& package : Make().packages) reasons.push_back(package.reason);
    EXPECT_THAT(reasons, ElementsAre("it is installed, and FORCEREINSTALL asks for it",
                                     "an older version of the same product is installed",
                                     "an older version is installed", "something newer is installed",
                                     "it is not installed"));
}

TEST_F(PlanTest, SaysWhyAPackageIsLeftOut) {
    AddPackage("Common/x64/Extra.msi", L"Extra");
    AddPackage("Dependents/x64/Lone.msi", L"Lone");
    AddPackage("Drivers/x64/Foreign.msi", L"Foreign", {{L"DRIVERID", L"OTHER"}});
    AddPackage("Optional/x64/Seven.msi", L"Seven", {{L"SUPPORTEDOS", L"WINDOWS_7;WINDOWS_8"}});
    std::vector<std::string> reasons;
    for (const auto& package : Make().leftOut) reasons.push_back(package.reason);
    EXPECT_THAT(reasons, ElementsAre("it is optional, and a user has to ask for it",
                                     "no package that is installed takes it along",
                                     "its DRIVERID \"OTHER\" is not among WIN8_DRVTYPES",
                                     "its SUPPORTEDOS does not name WINDOWS_BLUE"));
    options.system = {.name = L"WINDOWS_7", .isWindows8OrLater = false};
    EXPECT_EQ(Make().leftOut.at(2).reason, "its DRIVERID \"OTHER\" is not among WINXP_DRVTYPES");
    EXPECT_EQ(Make().leftOut.at(3).reason, "it is optional, and a user has to ask for it");
}

TEST_F(PlanTest, WritesTheDocumentThatTheWizardWrites) {
    // By design: the name's blank stands between the brand and the missing default printer.
    tree.AddSetting("<PORT_NAME>Lab</PORT_NAME>");
    EXPECT_EQ(DocumentOf(1),
              L"<PRINTER_INFO><DEVICE><PRINTER_NAME>Halvenny </PRINTER_NAME>"
              L"<DRIVER_PRODUCT_NAME>Halvenny Loom</DRIVER_PRODUCT_NAME><PORT_NAME>Lab</PORT_NAME>"
              L"<OEM_NAME>Halvenny</OEM_NAME><SET_DEFAULT>false</SET_DEFAULT></DEVICE></PRINTER_INFO>"
              L"<TARGET_DIR>C:\\Program Files\\Halvenny\\</TARGET_DIR><LANGUAGEID>1033</LANGUAGEID>"
              L"<DEVICEFRIENDLYNAME></DEVICEFRIENDLYNAME><INFOCENTER_SHORTCUT></INFOCENTER_SHORTCUT>"
              L"<INFOCENTER_LINK></INFOCENTER_LINK>");
}

TEST_F(PlanTest, TakesThePrinterOfTheCommandLine) {
    options.printer = {.address = L"192.0.2.7", .portName = L"Desk"};
    EXPECT_THAT(DocumentOf(1), HasSubstr(L"<PORT_NAME>Desk</PORT_NAME><HOST_NAME>192.0.2.7</HOST_NAME>"));
    EXPECT_EQ(ReasonOf(Make(), L"Discovered printers"), "HIDE_DISCOVERY is true");
}

TEST_F(PlanTest, GivesADriverItsPredefinedPrinters) {
    tree.AddUserElement("<DEVICE><DRIVER_ID>HVMONO</DRIVER_ID><PORT_NAME>Own</PORT_NAME></DEVICE>");
    EXPECT_THAT(DocumentOf(1), testing::StartsWith(L"<PRINTER_INFO><DEVICE><PORT_NAME>Own</PORT_NAME>"
                                                   L"<ADD_PORT>true</ADD_PORT></DEVICE></PRINTER_INFO>"));
}

TEST_F(PlanTest, ReadsPropertiesAndTextsOfTheLanguage) {
    tree.files["Setup/res/de_strings.xml"] = "<LANGUAGE_ID>1031</LANGUAGE_ID>";
    tree.packages[applicationPath].properties[L"ProductName.1031"] = L"Wächter";
    EXPECT_EQ(Make().packages.at(0).name, L"Halvenny Monitor");
    options.language = L"de";
    EXPECT_EQ(Make().packages.at(0).name, L"Wächter");
    EXPECT_THAT(DocumentOf(0), HasSubstr(L"<LANGUAGEID>1031</LANGUAGEID>"));
    options.language = L"xx";
    EXPECT_EQ(Make().packages.at(0).name, L"Halvenny Monitor");
}

TEST_F(PlanTest, SaysWhichSettingHidesAPage) {
    tree.AddSetting("<HIDE_EULA>true</HIDE_EULA>");
    const Plan plan = Make();
    EXPECT_THAT(Titles(plan, PageState::Shown),
                ElementsAre(L"Welcome", L"Discovered printers", L"Progress", L"Finish"));
    EXPECT_THAT(Titles(plan, PageState::OnDemand), ElementsAre(L"Add port", L"Restart"));
    EXPECT_EQ(ReasonOf(plan, L"Licence"), "HIDE_EULA is true");
    EXPECT_EQ(ReasonOf(plan, L"Manufacturer"), "SHOW_MANUFACTURERS is not true");
    EXPECT_EQ(ReasonOf(plan, L"Connectivity"), "HIDE_CONNECTIVITY is true");
    EXPECT_EQ(ReasonOf(plan, L"Finish of the optional software"), "the package offers no optional software");
}

TEST_F(PlanTest, ShowsThePagesThatFollowFromThePackage) {
    tree.AddSetting("<MANUFACTURERS>Halvenny:1|Corvish:2</MANUFACTURERS>");
    AddPackage("Common/x64/Extra.msi", L"Extra");
    options.installed.Set("Mono.msi", InstalledState::UpToDate);
    const Plan plan = Make();
    EXPECT_EQ(ReasonOf(plan, L"Manufacturer"), "");
    EXPECT_EQ(ReasonOf(plan, L"Optional software"), "");
    EXPECT_EQ(ReasonOf(plan, L"Finish of the optional software"),
              "where the user has installed optional software");
}

TEST_F(PlanTest, TakesTheBrandThatIsPreselected) {
    std::string& settings = tree.files[defaultsPath];
    settings.erase(settings.find("<OEM>"), std::string_view("<OEM>Halvenny</OEM>").size());
    tree.AddSetting("<MANUFACTURERS>Corvish:2|Brevant:3</MANUFACTURERS>");
    EXPECT_THAT(DocumentOf(1), HasSubstr(L"<OEM_NAME>Halvenny</OEM_NAME>"));
    tree.AddSetting("<DEFAULT_MANUFACTURER>Brevant</DEFAULT_MANUFACTURER>");
    EXPECT_THAT(DocumentOf(1), HasSubstr(L"<OEM_NAME>Brevant</OEM_NAME>"));
}

TEST_F(PlanTest, StepsOnFromThePageAfterAHiddenProgressPage) {
    tree.AddSetting("<HIDE_PROGRESS>true</HIDE_PROGRESS>");
    EXPECT_THAT(Titles(Make(), PageState::Shown), ElementsAre(L"Welcome", L"Licence", L"Discovered printers",
                                                              L"Finish", L"Finish of the optional software"));
    tree.AddSetting("<REBOOT>true</REBOOT>");
    EXPECT_THAT(Titles(Make(), PageState::Shown),
                ElementsAre(L"Welcome", L"Licence", L"Discovered printers", L"Finish", L"Restart"));
    tree.AddSetting("<HIDE_FINAL>true</HIDE_FINAL>");
    EXPECT_THAT(Titles(Make(), PageState::Shown),
                ElementsAre(L"Welcome", L"Licence", L"Discovered printers", L"Restart",
                            L"Restart after the optional software"));
}

TEST_F(PlanTest, HidesAllPagesOfASilentRun) {
    tree.AddSetting("<SILENT_INSTALL>1</SILENT_INSTALL><HIDE_DISCOVERY>true</HIDE_DISCOVERY>");
    const Plan plan = Make();
    EXPECT_EQ(Titles(plan, PageState::Hidden).size(), plan.pages.size());
    EXPECT_EQ(ReasonOf(plan, L"Finish"), "SILENT_INSTALL is true");
    EXPECT_THAT(plan.obstacles, IsEmpty());
}

TEST_F(PlanTest, SaysWhatStopsASilentRun) {
    EXPECT_THAT(Make().obstacles, ElementsAre(HasSubstr("SILENT_INSTALL is not true")));
    tree.AddSetting("<SILENT_INSTALL>true</SILENT_INSTALL>");
    EXPECT_THAT(Make().obstacles, ElementsAre(HasSubstr("no printer is named by -ip")));
    EXPECT_TRUE(Make().endsAtOnce);
    EXPECT_THAT(Make().packages, IsEmpty());
    options.printer.address = L"192.0.2.7";
    EXPECT_THAT(Make().obstacles, IsEmpty());
    tree.packages[applicationPath].properties[L"SecureCustomProperties"] = L"A;NETFRAMEWORK40CLIENT";
    EXPECT_THAT(Make().obstacles, ElementsAre(HasSubstr("Monitor.msi wants .NET Framework 4")));
    tree.packages.clear();
    EXPECT_THAT(Make().obstacles, ElementsAre(HasSubstr("there is nothing to install")));
    tree.files.erase(defaultsPath);
    EXPECT_THAT(Make().obstacles, ElementsAre(HasSubstr("the program ends at once")));
}

TEST_F(PlanTest, NamesTheProgramsThatStartAtTheEnd) {
    tree.packages[applicationPath].properties[L"STARTAPP"] = L"Monitor\\Monitor.exe /tray;Tour.exe;lost";
    EXPECT_THAT(Make().programs, ElementsAre(L"Monitor\\Monitor.exe /tray", L"Tour.exe"));
    EXPECT_EQ(Make().programFolder, L"C:\\Program Files\\Halvenny\\");
}

TEST_F(PlanTest, SpeaksEnglishWhateverElseThePackageSpeaks) {
    const std::wstring document = DocumentOf(0);
    std::string& other = tree.files["Setup/res/es_strings.xml"];
    other = tree.files[englishPath];
    tree.Replace("Setup/res/es_strings.xml", "1033", "1034");
    EXPECT_EQ(DocumentOf(0), document);
}

TEST_F(PlanTest, SortsSmallLettersAmongTheCapitals) {
    AddPackage("Applications/x64/b.msi", L"Second");
    AddPackage("Applications/x64/A.msi", L"First");
    AddPackage("Applications/x64/C.msi", L"Third");
    AddPackage("Applications/x64/z.msi", L"Fourth");
    AddPackage("Applications/x64/_.msi", L"Fifth");
    std::vector<std::string> packages = Packages();
    std::erase_if(packages, [](const std::string& line) { return line.find(".msi: ") != 1; });
    EXPECT_THAT(packages, ElementsAre("A.msi: install", "b.msi: install", "C.msi: install", "z.msi: install",
                                      "_.msi: install"));
}

TEST_F(PlanTest, KnowsNoPropertyOfAPackageThatIsNotThereOrCannotBeRead) {
    tree.unreadable.insert(applicationPath);
    const packagecheck::Package package(tree);
    const packagecheck::InstalledStates states;
    packagecheck::PlannedInstaller installer(package, states);
    for (const auto& path : {std::wstring(L"Applications\\x64\\None.msi"), FromUtf8(applicationPath)}) {
        std::wstring asked = path;
        std::ranges::replace(asked, L'/', L'\\');
        std::wstring value = L"as before";
        EXPECT_EQ(installer.GetPropertyValue(asked, L"ProductName", L"1033", value),
                  MsiCode::PropertyNotFound);
        EXPECT_EQ(value, L"as before");
    }
}

TEST_F(PlanTest, PlansAPackageThatCannotBeRead) {
    tree.unreadable.insert(applicationPath);
    EXPECT_THAT(Packages(), ElementsAre("Monitor.msi: install", "Mono.msi: install"));
}

TEST_F(PlanTest, IsWrittenAsText) {
    tree.packages[applicationPath].properties[L"STARTAPP"] = L"Monitor.exe;";
    std::ostringstream out;
    packagecheck::WritePlanText(out, Make());
    EXPECT_THAT(out.str(), testing::StartsWith("A run with pages\n"));
    EXPECT_THAT(out.str(), HasSubstr("  Welcome                               shown\n"));
    EXPECT_THAT(out.str(),
                HasSubstr("  Manufacturer                          hidden, since SHOW_MANUFACTURERS"));
    EXPECT_THAT(out.str(), HasSubstr("  Applications/x64/Monitor.msi  Halvenny Monitor 1.0.0\n"
                                     "      install (it is not installed)\n"));
    EXPECT_THAT(out.str(),
                testing::EndsWith("\nPrograms at the end\n  C:\\Program Files\\Halvenny\\Monitor.exe\n"));
}

TEST_F(PlanTest, SaysFirstThatARunIsSilent) {
    tree.AddSetting("<SILENT_INSTALL>true</SILENT_INSTALL><HIDE_DISCOVERY>true</HIDE_DISCOVERY>");
    std::ostringstream text;
    packagecheck::WritePlanText(text, Make());
    EXPECT_THAT(text.str(), testing::StartsWith("A silent run\n"));
    EXPECT_THAT(text.str(), Not(HasSubstr("What stops a silent run")));
    EXPECT_THAT(text.str(), Not(HasSubstr("Packages, in their order\n  none\n")));
    std::ostringstream page;
    packagecheck::WritePlanPage(page, Make(), "folder");
    EXPECT_THAT(page.str(), HasSubstr("<h1>A silent run</h1>"));
}

TEST_F(PlanTest, SaysWhatStopsASilentRunAndThatThereIsNothingToInstall) {
    tree.packages.clear();
    std::ostringstream text;
    packagecheck::WritePlanText(text, Make());
    EXPECT_THAT(text.str(), HasSubstr("\nWhat stops a silent run\n"));
    EXPECT_THAT(text.str(), HasSubstr("\nPackages, in their order\n  none\n"));
    EXPECT_THAT(text.str(), HasSubstr("\nPrograms at the end\n  none\n"));
}

std::size_t CountOf(std::string_view text, std::string_view part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++count;
    return count;
}

TEST_F(PlanTest, ClosesEveryListOfItsPage) {
    for (const bool isSilent : {false, true}) {
        if (isSilent)
            tree.AddSetting("<SILENT_INSTALL>true</SILENT_INSTALL><HIDE_DISCOVERY>true</HIDE_DISCOVERY>");
        const Plan plan = Make();
        EXPECT_EQ(plan.obstacles.empty(), isSilent);
        std::ostringstream out;
        packagecheck::WritePlanPage(out, plan, "folder");
        EXPECT_EQ(CountOf(out.str(), "<ul"), CountOf(out.str(), "</ul>")) << out.str();
        EXPECT_EQ(CountOf(out.str(), "<ol"), CountOf(out.str(), "</ol>"));
        EXPECT_EQ(CountOf(out.str(), "What stops a silent run"), isSilent ? 0U : 1U);
    }
}

TEST_F(PlanTest, WritesOutWhatATerminalWouldObey) {
    tree.packages[applicationPath].properties[L"ProductName"] = L"a\x1b[2J\u202E";
    std::ostringstream out;
    packagecheck::WritePlanText(out, Make());
    EXPECT_THAT(out.str(), HasSubstr("Monitor.msi  a\\u001B[2J\\u202E 1.0.0\n"));
}

TEST_F(PlanTest, IsWrittenAsJson) {
    tree.packages[applicationPath].properties[L"DEPENDENTAPPS"] = L"Own.msi";
    tree.packages[applicationPath].properties[L"STARTAPP"] = L"Monitor.exe;";
    AddPackage("Dependents/x64/Own.msi", L"Own");
    AddPackage("Common/x64/Extra.msi", L"Extra");
    options.installed.Set("Mono.msi", InstalledState::Newer);
    std::ostringstream out;
    packagecheck::WritePlanJson(out, Make(), "folder");
    const auto json = nlohmann::json::parse(out.str());
    EXPECT_EQ(json["package"], "folder");
    EXPECT_EQ(json["silent"], false);
    EXPECT_EQ(json["pages"][2]["state"], "hidden");
    EXPECT_FALSE(json["pages"][0].contains("reason"));
    EXPECT_EQ(json["pages"][9]["state"], "onDemand");
    EXPECT_EQ(json["packages"][0]["dependents"][0]["file"], "Dependents/x64/Own.msi");
    EXPECT_THAT(json["packages"][0]["document"].get<std::string>(), testing::StartsWith("<PRINTER_INFO>"));
    EXPECT_EQ(json["packages"][1]["kind"], "driver");
    EXPECT_EQ(json["packages"][1]["action"], "leaveNewer");
    EXPECT_FALSE(json["packages"][1].contains("document"));
    EXPECT_EQ(json["leftOut"][0]["name"], "Halvenny Extra");
    EXPECT_EQ(json["programs"][0], "C:\\Program Files\\Halvenny\\Monitor.exe");
}

TEST_F(PlanTest, IsWrittenAsAPageThatNeedsNothingElse) {
    tree.packages[applicationPath].properties[L"ProductName"] = L"<script>\"R&D\"</script>";
    std::ostringstream out;
    packagecheck::WritePlanPage(out, Make(), "a<b");
    const std::string page = out.str();
    EXPECT_THAT(page, HasSubstr("&lt;script&gt;&quot;R&amp;D&quot;&lt;/script&gt;"));
    EXPECT_THAT(page, HasSubstr("<p>a&lt;b</p>"));
    EXPECT_THAT(page, Not(HasSubstr("<script")));
    EXPECT_THAT(page, Not(HasSubstr("http:")));
    EXPECT_THAT(page, HasSubstr("@media (prefers-color-scheme: dark)"));
    EXPECT_THAT(page, HasSubstr("<strong>Welcome</strong><br><span class=\"quiet\">shown</span>"));
    EXPECT_THAT(page, HasSubstr("<pre>&lt;PRINTER_INFO&gt;"));
}

TEST(InstalledStatesTest, AreReadFromAnObject) {
    std::string mistake;
    const auto states = packagecheck::ReadInstalledStates(R"({"A.msi": "newer", "B": "upToDate"})", mistake);
    ASSERT_TRUE(states) << mistake;
    EXPECT_EQ(states->StateOf("a.MSI", "Something"), InstalledState::Newer);
    EXPECT_EQ(states->StateOf("c.msi", "B"), InstalledState::UpToDate);
    EXPECT_EQ(states->StateOf("c.msi", "C"), InstalledState::NotInstalled);
}

TEST(InstalledStatesTest, GoByThePathBeforeTheNameOfTheFileAndByThatBeforeTheProduct) {
    packagecheck::InstalledStates states;
    states.Set("Common/x64/A.msi", InstalledState::Upgradable);
    states.Set("A.msi", InstalledState::Newer);
    states.Set("Halvenny A", InstalledState::UpToDate);
    EXPECT_EQ(states.StateOf("common/X64/a.msi", "Halvenny A"), InstalledState::Upgradable);
    EXPECT_EQ(states.StateOf("Applications/A.msi", "Halvenny A"), InstalledState::Newer);
    EXPECT_EQ(states.StateOf("Applications/B.msi", "Halvenny A"), InstalledState::UpToDate);
}

TEST(InstalledStatesTest, AreNotReadFromAnythingElse) {
    for (const char* text : {"", "[]", "{", R"({"A": 1})", R"({"A": "Newer"})", "\xFF"}) {
        std::string mistake;
        EXPECT_FALSE(packagecheck::ReadInstalledStates(text, mistake)) << text;
        EXPECT_THAT(mistake, Not(IsEmpty())) << text;
    }
}

}  // namespace
