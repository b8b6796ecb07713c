#include "tools/PackageCheck/CommandLine.h"

namespace packagecheck {

namespace {

// Takes the arguments one after the other.
class Reader {
public:
    explicit Reader(const std::vector<std::string>& given) : arguments(given) {}

    CommandLine Read() {
        for (; next < arguments.size() && line.mistake.empty(); ++next) Take(arguments[next]);
        if (line.mistake.empty() && line.task == Task::Check && line.folder.empty()) {
            line.mistake = "which folder is to be checked?";
        }
        return line;
    }

private:
    void Take(const std::string& argument) {
        if (argument == "--help" || argument == "-h" || argument == "/?") {
            line.task = Task::Help;
        } else if (argument == "--explain") {
            line.task = Task::Explain;
            TakeValue(line.rule, "--explain needs the name of a rule.");
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
    return "usage: PackageCheck FOLDER\n"
           "       PackageCheck --explain RULE\n"
           "\n"
           "Checks the data of a package: settings, languages, .msi files and what lies beside them.\n"
           "\n"
           "  --explain RULE   says what a rule is about, and how to fix what it finds\n"
           "  --help           prints this\n"
           "\n"
           "Exit code: 0 without findings, 1 with warnings, 2 with errors.\n";
}

}  // namespace packagecheck
