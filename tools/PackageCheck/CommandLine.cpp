#include "tools/PackageCheck/CommandLine.h"

namespace packagecheck {

namespace {

// Takes the arguments one after the other.
class Reader {
public:
    explicit Reader(const std::vector<std::string>& given) : arguments(given) {}

    CommandLine Read() {
        for (; next < arguments.size() && line.mistake.empty(); ++next) Take(arguments[next]);
        const bool needsFolder = line.task == Task::Check || line.task == Task::Fix;
        if (line.mistake.empty() && needsFolder && line.folder.empty())
            line.mistake = "which folder is to be checked?";
        if (line.task == Task::Fix && line.format != Format::Text)
            line.mistake = "--fix shows its changes as text.";
        return line;
    }

private:
    void Take(const std::string& argument) {
        if (argument == "--help" || argument == "-h" || argument == "/?") {
            line.task = Task::Help;
        } else if (argument == "--explain") {
            line.task = Task::Explain;
            TakeValue(line.rule, "--explain needs the name of a rule.");
        } else if (argument == "--rules") {
            line.task = Task::Rules;
        } else if (argument == "--fix") {
            line.task = Task::Fix;
        } else if (argument == "--yes") {
            line.isAgreed = true;
        } else if (argument == "--json") {
            line.format = Format::Json;
        } else if (argument == "--sarif") {
            line.format = Format::Sarif;
        } else if (argument.starts_with("--")) {
            line.mistake = "there is no option " + argument + ".";
        } else if (line.folder.empty()) {
            line.folder = argument;
        } else {
            line.mistake = "one folder is checked at a time.";
        }
    }

    void TakeValue(std::string& value, const char* complaint) {
        if (next + 1 < arguments.size()) {
            value = arguments[++next];
        } else {
            line.mistake = complaint;
        }
    }

    const std::vector<std::string>& arguments;
    std::size_t next = 0;
    CommandLine line;
};

}  // namespace

CommandLine ReadCommandLine(const std::vector<std::string>& arguments) {
    return Reader(arguments).Read();
}

std::string_view HelpText() {
    return "usage: PackageCheck [--json | --sarif] FOLDER\n"
           "       PackageCheck --fix [--yes] FOLDER\n"
           "       PackageCheck --explain RULE\n"
           "       PackageCheck --rules\n"
           "\n"
           "Checks the data of a package: settings, languages, .msi files and what lies beside them.\n"
           "\n"
           "  --json           writes the findings as JSON\n"
           "  --sarif          writes them as SARIF 2.1.0, for build servers\n"
           "  --fix            repairs what has one safe cure; shows the changes and asks first\n"
           "  --yes            repairs without asking\n"
           "  --explain RULE   says what a rule is about, and how to fix what it finds\n"
           "  --rules          lists the rules, in Markdown\n"
           "  --help           prints this\n"
           "\n"
           "Exit code: 0 without findings, 1 with warnings, 2 with errors.\n";
}

}  // namespace packagecheck
