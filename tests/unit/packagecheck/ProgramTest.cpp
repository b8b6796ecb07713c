#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "tests/unit/packagecheck/MemoryTree.h"
#include "tests/unit/packagecheck/TemporaryFolder.h"
#include "tools/PackageCheck/Program.h"

using packagecheck::RunPackageCheck;
using testing::HasSubstr;

namespace fs = std::filesystem;

namespace {

class ProgramTest : public testing::Test {
protected:
    int Run(const std::vector<std::string>& arguments, std::function<bool(const std::string&)> agree = {}) {
        return RunPackageCheck(arguments, {.out = out, .err = err, .agree = std::move(agree)});
    }

    // A package that has no .msi file and does not speak of drivers.
    class BareTree : public MemoryTree {
    public:
        BareTree() { files[defaultsPath] = "<SETTINGS>\n<OEM>Halvenny</OEM>\n</SETTINGS>\n"; }
    };

    void Lay(const MemoryTree& tree) {
        for (const auto& [path, bytes] : tree.files) folder.Write(path, bytes);
    }

    TemporaryFolder folder;
    std::ostringstream out;
    std::ostringstream err;
};

TEST_F(ProgramTest, SaysHowItIsUsed) {
    EXPECT_EQ(Run({"--help"}), 0);
    EXPECT_THAT(out.str(), HasSubstr("usage: PackageCheck"));
}

TEST_F(ProgramTest, EndsWithTwoWhereItIsMisused) {
    EXPECT_EQ(Run({}), 2);
    EXPECT_EQ(Run({"--frobnicate", "a"}), 2);
    EXPECT_EQ(Run({"a", "b"}), 2);
    EXPECT_EQ(Run({"--explain"}), 2);
    EXPECT_EQ(Run({"--explain", "no-such-rule"}), 2);
    EXPECT_EQ(Run({"--fix", "--json", folder.Path()}), 2);
    for (const char* const complaint :
         {"which folder is it?", "there is no option --frobnicate.", "one folder is checked at a time.",
          "--explain needs the name of a rule.", "there is no rule no-such-rule",
          "--fix shows its changes as text."}) {
        EXPECT_THAT(err.str(), HasSubstr(complaint));
    }
    EXPECT_THAT(out.str(), testing::IsEmpty());
}

TEST_F(ProgramTest, ListsItsRulesAndTables) {
    for (const char* const option : {"--rules", "--tables"}) {
        out.str("");
        EXPECT_EQ(Run({option}), 0);
        EXPECT_THAT(out.str(), HasSubstr("| "));
    }
}

// What a terminal gets from the reading of seven packages that takes so long each.
class ProgressTest : public ProgramTest {
protected:
    std::string LinesFor(int milliseconds, bool isErrorTerminal = true) {
        Lay(BareTree());
        for (int number = 0; number < 7; ++number)
            folder.Write("Applications/x64/" + std::to_string(number) + ".msi", "no package");
        std::chrono::steady_clock::time_point now;
        const auto tellTime = [&] { return now += std::chrono::milliseconds(milliseconds); };
        RunPackageCheck({folder.Path()},
                        {.out = out, .err = err, .isErrorTerminal = isErrorTerminal, .now = tellTime});
        return err.str();
    }
};

TEST_F(ProgressTest, IsShownAndTakenAwayAgain) {
    const std::string lines = LinesFor(300);
    EXPECT_THAT(lines,
                testing::StartsWith("\r\x1b[KReading packages, 0 of 7\r\x1b[KReading packages, 1 of 7"));
    EXPECT_THAT(lines, testing::EndsWith("\r\x1b[KReading packages, 7 of 7\r\x1b[K"));
}

TEST_F(ProgressTest, IsShownOfWhatTakesLongAndTenTimesASecondAtMost) {
    EXPECT_EQ(LinesFor(60), "\r\x1b[KReading packages, 4 of 7\r\x1b[KReading packages, 6 of 7\r\x1b[K");
}

TEST_F(ProgressTest, IsNotShownOfWhatIsDoneSoon) {
    EXPECT_EQ(LinesFor(30), "");
}

TEST_F(ProgressTest, IsForATerminalAlone) {
    EXPECT_EQ(LinesFor(300, false), "");
}

TEST_F(ProgramTest, TakesNoOptionOfAPlanWithoutOne) {
    EXPECT_EQ(Run({"--html", "plan.html", folder.Path()}), 2);
    EXPECT_THAT(err.str(), HasSubstr("an option says how to plan a run, without --plan."));
    EXPECT_FALSE(std::filesystem::exists("plan.html"));
}

TEST_F(ProgramTest, ExplainsARule) {
    EXPECT_EQ(Run({"--explain", "tag-unknown"}), 0);
    EXPECT_THAT(out.str(), HasSubstr("tag-unknown (warning)"));
}

TEST_F(ProgramTest, TakesNoOtherFolderForAPackage) {
    EXPECT_EQ(Run({folder.Path() + "/missing"}), 2);
    EXPECT_THAT(err.str(), HasSubstr("is no folder"));
    // A folder of another name, and a file of that one.
    folder.Write("Other/inside.txt", "");
    folder.Write("Setup", "");
    EXPECT_EQ(Run({folder.Path()}), 2);
    EXPECT_THAT(err.str(), HasSubstr("has no folder \"Setup\""));
}

TEST_F(ProgramTest, FindsAFolderInAnyCase) {
    MemoryTree tree;
    for (const auto& [path, bytes] : tree.files) folder.Write("SETUP" + path.substr(path.find('/')), bytes);
    Run({folder.Path()});
    EXPECT_THAT(err.str(), testing::Not(HasSubstr("no folder")));
    EXPECT_THAT(out.str(), testing::Not(HasSubstr("settings-missing")));
}

TEST_F(ProgramTest, EndsWithTheWorstOfItsFindings) {
    BareTree tree;
    Lay(tree);
    EXPECT_EQ(Run({folder.Path()}), 1);
    EXPECT_THAT(out.str(), HasSubstr("[msi-none]"));
    tree.AddSetting("<HIDE_START>yes</HIDE_START>");
    Lay(tree);
    EXPECT_EQ(Run({folder.Path()}), 2);
    EXPECT_THAT(out.str(), HasSubstr("defaultInstallSettings.xml:3:1: error: HIDE_START is \"yes\""));
}

TEST_F(ProgramTest, ChangesNothingWithoutAWord) {
    MemoryTree tree;
    tree.AddSetting("<UPD> 1</UPD>");
    Lay(tree);
    Run({"--fix", folder.Path()});
    EXPECT_THAT(out.str(), HasSubstr("-<UPD> 1</UPD>\n+<UPD>1</UPD>\n"));
    EXPECT_EQ(folder.Read(defaultsPath), tree.files[defaultsPath]);
}

TEST_F(ProgramTest, ChangesNothingWhereThePersonSaysNo) {
    MemoryTree tree;
    tree.AddSetting("<UPD> 1</UPD>");
    Lay(tree);
    Run({"--fix", folder.Path()}, [](const std::string&) { return false; });
    EXPECT_EQ(folder.Read(defaultsPath), tree.files[defaultsPath]);
    EXPECT_THAT(out.str(), HasSubstr("Nothing was changed; --yes makes the changes.\n"));
    EXPECT_THAT(err.str(), testing::Not(HasSubstr("cannot be written")));
}

TEST_F(ProgramTest, ChangesWhatIsAgreedToAndNothingElse) {
    MemoryTree tree;
    tree.AddSetting("<UPD> 1</UPD>");
    Lay(tree);
    Run({"--fix", folder.Path()}, [](const std::string&) { return true; });
    EXPECT_THAT(folder.Read(defaultsPath), HasSubstr("<UPD>1</UPD>"));
    EXPECT_EQ(folder.Read(englishPath), tree.files[englishPath]);
    EXPECT_FALSE(fs::exists(folder.Path() + "/" + defaultsPath + ".unfinished"));
    EXPECT_THAT(out.str(), testing::Not(HasSubstr("value-edges")));
}

TEST_F(ProgramTest, ChangesWithoutAskingWhereItIsTold) {
    MemoryTree tree;
    tree.AddSetting("<UPD> 1</UPD>");
    Lay(tree);
    Run({"--fix", "--yes", folder.Path()});
    EXPECT_THAT(folder.Read(defaultsPath), HasSubstr("<UPD>1</UPD>"));
}

// What is in the way of the new file is a folder. The package itself has warnings alone, whose code is
// another one.
TEST_F(ProgramTest, SaysWhichFileItCannotWrite) {
    BareTree tree;
    tree.AddSetting("<UPD> 1</UPD>");
    Lay(tree);
    folder.Write(std::string(defaultsPath) + ".unfinished/mine.txt", "mine");
    EXPECT_EQ(Run({"--fix", "--yes", folder.Path()}), 2);
    EXPECT_THAT(err.str(), HasSubstr("defaultInstallSettings.xml cannot be written"));
    EXPECT_EQ(folder.Read(defaultsPath), tree.files[defaultsPath]);
}

TEST_F(ProgramTest, SaysWhereThereIsNothingToFix) {
    Lay(BareTree());
    EXPECT_EQ(Run({"--fix", folder.Path()}), 1);
    EXPECT_THAT(out.str(), HasSubstr("There is nothing to fix by itself."));
}

TEST_F(ProgramTest, PlansTheRunThatItIsToldOf) {
    MemoryTree tree;
    tree.AddSetting("<SILENT_INSTALL>true</SILENT_INSTALL>");
    Lay(tree);
    EXPECT_EQ(Run({"--plan", folder.Path()}), 0);
    EXPECT_THAT(out.str(), HasSubstr("the program ends at once"));
    out.str({});
    EXPECT_EQ(Run({"--plan", "-ip=192.0.2.7", "-p=Desk", "-lang=de", "--os=8.1", folder.Path()}), 0);
    EXPECT_THAT(out.str(), testing::Not(HasSubstr("the program ends at once")));
}

TEST_F(ProgramTest, ReadsWhatIsInstalledForAPlan) {
    Lay(MemoryTree());
    folder.Write("state.json", R"({"Broken.msi": "newer"})");
    folder.Write("Applications/x64/Broken.msi", "x");
    const std::string state = folder.Path() + "/state.json";
    EXPECT_EQ(Run({"--plan", "--json", "--installed=" + state, folder.Path()}), 0);
    EXPECT_THAT(out.str(), HasSubstr("\"action\": \"leaveNewer\""));
    folder.Write("state.json", R"({"Broken.msi": "maybe"})");
    EXPECT_EQ(Run({"--plan", "--installed=" + state, folder.Path()}), 2);
    EXPECT_THAT(err.str(), HasSubstr("the state of \"Broken.msi\" is none of"));
    EXPECT_EQ(Run({"--plan", "--installed=" + state + ".missing", folder.Path()}), 2);
    EXPECT_THAT(err.str(), HasSubstr("state.json.missing: it cannot be read."));
}

TEST_F(ProgramTest, WritesThePageOfAPlan) {
    Lay(MemoryTree());
    EXPECT_EQ(Run({"--plan", "--html", folder.Path() + "/plan.html", folder.Path()}), 0);
    EXPECT_THAT(folder.Read("plan.html"), testing::EndsWith("</html>\n"));
    EXPECT_EQ(Run({"--plan", "--html", folder.Path() + "/missing/plan.html", folder.Path()}), 2);
    EXPECT_THAT(err.str(), HasSubstr("plan.html cannot be written"));
}

TEST_F(ProgramTest, PlansNoRunThatItDoesNotUnderstand) {
    Lay(MemoryTree());
    EXPECT_EQ(Run({"--plan", "--os=95", folder.Path()}), 2);
    EXPECT_EQ(Run({"--plan", "--sarif", folder.Path()}), 2);
    EXPECT_EQ(Run({"-ip=192.0.2.7", folder.Path()}), 2);
    EXPECT_EQ(Run({"--plan", "--html"}), 2);
    EXPECT_EQ(Run({"--plan"}), 2);
    for (const char* const complaint :
         {"--os knows 7, 8, 8.1, 10 and 11.", "a plan is written as text", "without --plan.",
          "--html needs the name of a file.", "which folder is it?"}) {
        EXPECT_THAT(err.str(), HasSubstr(complaint));
    }
    EXPECT_THAT(out.str(), testing::IsEmpty());
}

TEST_F(ProgramTest, TakesAnythingCalledMsiForAPackage) {
    Lay(BareTree());
    folder.Write("Applications/x64/Broken.msi", std::string(5000, 'x'));
    EXPECT_EQ(Run({folder.Path()}), 2);
    EXPECT_THAT(out.str(), HasSubstr("Broken.msi: error: The file cannot be read as a package"));
}

}  // namespace
