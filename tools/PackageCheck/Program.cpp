#include "tools/PackageCheck/Program.h"

#include <chrono>
#include <filesystem>
#include <ostream>
#include <system_error>

#include "tools/PackageCheck/Checks.h"
#include "tools/PackageCheck/CommandLine.h"
#include "tools/PackageCheck/Fixes.h"
#include "tools/PackageCheck/FolderTree.h"
#include "tools/PackageCheck/FormatTables.h"
#include "tools/PackageCheck/JsonOutput.h"
#include "tools/PackageCheck/ManifestTask.h"
#include "tools/PackageCheck/NewPackage.h"
#include "tools/PackageCheck/PlanRun.h"
#include "tools/PackageCheck/Rule.h"
#include "tools/PackageCheck/RuleTable.h"
#include "tools/PackageCheck/TextDiff.h"
#include "tools/PackageCheck/TextOutput.h"
#include "tools/ShownText.h"

namespace packagecheck {

namespace {

namespace fs = std::filesystem;

// A line on the terminal that is written over again.
class ProgressLine {
public:
    explicit ProgressLine(const Surroundings& surroundings)
        : err(surroundings.err), tellTime(surroundings.now) {}
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    ~ProgressLine() {
        if (isShown) err << "\r\x1b[K" << std::flush;
    }

    void Show(std::size_t done, std::size_t all) {
        const auto now = tellTime();
        if (now < next) return;
        next = now + std::chrono::milliseconds(100);
        isShown = true;
        err << "\r\x1b[KReading packages, " << done << " of " << all << std::flush;
    }

private:
    std::ostream& err;
    const std::function<std::chrono::steady_clock::time_point()>& tellTime;
    bool isShown = false;
    // What is done soon needs no line.
    std::chrono::steady_clock::time_point next = tellTime() + std::chrono::milliseconds(300);
};

// Why the folder cannot be checked; empty if it can.
std::string ReasonAgainst(const std::string& folder) {
    std::error_code error;
    if (!fs::is_directory(PathOf(folder), error)) return folder + " is no folder that can be read.";
    for (const auto& entry : fs::directory_iterator(PathOf(folder), error)) {
        const std::u8string name = entry.path().filename().u8string();
        if (Folded(std::string(name.begin(), name.end())) == "setup" && entry.is_directory(error)) return {};
    }
    return folder + " is no package: it has no folder \"Setup\".";
}

int Explain(const std::string& id, const Surroundings& surroundings) {
    const Rule* rule = FindRule(id);
    if (rule == nullptr) {
        surroundings.err << "PackageCheck: there is no rule " << id << "; --help says how to list them.\n";
        return misused;
    }
    surroundings.out << rule->id << " (" << NameOf(rule->severity) << ")\n\n"
                     << rule->effect << "\n\nTo fix it: " << rule->cure << "\n\n"
                     << rule->explanation << "\n";
    return 0;
}

std::vector<Finding> FindingsIn(const FolderTree& tree, const Surroundings& surroundings) {
    ProgressLine progress(surroundings);
    const Package package(tree, [&](std::size_t done, std::size_t all) {
        if (surroundings.isErrorTerminal) progress.Show(done, all);
    });
    return CheckPackage(package);
}

void WriteFindings(const CommandLine& line, const std::vector<Finding>& findings,
                   const Surroundings& surroundings) {
    switch (line.format) {
        case Format::Text:
            WriteText(surroundings.out, findings, line.folder, surroundings.isTerminal);
            return;
        case Format::Json:
            WriteJson(surroundings.out, findings, line.folder);
            return;
        case Format::Sarif:
            WriteSarif(surroundings.out, findings);
            return;
    }
}

// Shows what would change, and changes it where that is agreed to. Returns false where a file cannot be
// written.
bool FixFolder(const CommandLine& line, const FolderTree& tree, const Surroundings& surroundings) {
    const std::vector<FileFix> fixes = FindFixes(Package(tree));
    for (const FileFix& fix : fixes)
        surroundings.out << ShownText(UnifiedDiff(fix.path, fix.before, fix.after));
    if (fixes.empty()) {
        surroundings.out << "There is nothing to fix by itself.\n";
        return true;
    }
    const bool isAgreed = line.isAgreed || (surroundings.agree && surroundings.agree("Make these changes?"));
    if (!isAgreed) {
        surroundings.out << "Nothing was changed; --yes makes the changes.\n";
        return true;
    }
    for (const FileFix& fix : fixes) {
        if (tree.Write(fix.path, fix.after)) continue;
        surroundings.err << "PackageCheck: " << fix.path << " cannot be written.\n";
        return false;
    }
    return true;
}

int MakeManifestOf(const CommandLine& line, const FolderTree& tree, const Surroundings& surroundings) {
    std::string complaint;
    if (WriteManifest(line.manifest, Package(tree), PathOf(line.out), surroundings.out, complaint)) return 0;
    surroundings.err << "PackageCheck: " << complaint << "\n";
    return misused;
}

int LayOut(const std::string& folder, const Surroundings& surroundings) {
    std::string complaint;
    if (!LayOutNewPackage(PathOf(folder), complaint)) {
        surroundings.err << "PackageCheck: " << folder << ": " << complaint << ".\n";
        return misused;
    }
    surroundings.out << "The sources of a package are in " << folder
                     << "; README.md there says what to do.\n";
    return 0;
}

int WorkOnFolder(const CommandLine& line, const Surroundings& surroundings) {
    if (const std::string reason = ReasonAgainst(line.folder); !reason.empty()) {
        surroundings.err << "PackageCheck: " << reason << "\n";
        return misused;
    }
    const FolderTree tree(PathOf(line.folder));
    if (line.task == Task::Plan) return WritePlan(line, Package(tree), surroundings);
    if (line.task == Task::Manifest) return MakeManifestOf(line, tree, surroundings);
    if (line.task == Task::Fix && !FixFolder(line, tree, surroundings)) return misused;
    const std::vector<Finding> findings = FindingsIn(tree, surroundings);
    WriteFindings(line, findings, surroundings);
    return ExitCodeFor(findings);
}

}  // namespace

int RunPackageCheck(const std::vector<std::string>& arguments, const Surroundings& surroundings) {
    const CommandLine line = ReadCommandLine(arguments);
    if (!line.mistake.empty()) {
        surroundings.err << "PackageCheck: " << line.mistake << "\n" << HelpText();
        return misused;
    }
    switch (line.task) {
        case Task::Help:
            surroundings.out << HelpText();
            return 0;
        case Task::Explain:
            return Explain(line.rule, surroundings);
        case Task::Rules:
            surroundings.out << RuleTable();
            return 0;
        case Task::Tables:
            for (const FormatTable& table : FormatTables()) surroundings.out << MarkedTable(table) << "\n";
            return 0;
        case Task::New:
            return LayOut(line.folder, surroundings);
        case Task::Check:
        case Task::Fix:
        case Task::Plan:
        case Task::Manifest:
            break;
    }
    return WorkOnFolder(line, surroundings);
}

}  // namespace packagecheck
