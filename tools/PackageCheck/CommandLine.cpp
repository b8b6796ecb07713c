#include "tools/PackageCheck/CommandLine.h"

#include <algorithm>
#include <array>

#include "tools/PackageCheck/Manifests.h"

namespace packagecheck {

namespace {

struct TaskOption {
    std::string_view name;
    Task task;
};

constexpr std::array<TaskOption, 8> taskOptions = {{
    {"--help", Task::Help},
    {"-h", Task::Help},
    {"/?", Task::Help},
    {"--rules", Task::Rules},
    {"--tables", Task::Tables},
    {"--new", Task::New},
    {"--fix", Task::Fix},
    {"--plan", Task::Plan},
}};

// What belongs to --plan: its beginning, and the place of its value.
struct PlanOption {
    std::string_view name;
    std::string PlannedRun::*value;
};

constexpr std::array<PlanOption, 5> planOptions = {{
    {"-ip=", &PlannedRun::address},
    {"-p=", &PlannedRun::port},
    {"-lang=", &PlannedRun::language},
    {"--os=", &PlannedRun::system},
    {"--installed=", &PlannedRun::installed},
}};

// Takes the arguments one after the other.
class Reader {
public:
    explicit Reader(const std::vector<std::string>& given) : arguments(given) {}

    CommandLine Read() {
        for (; next < arguments.size() && line.mistake.empty(); ++next) Take(arguments[next]);
        if (line.mistake.empty()) line.mistake = Contradiction();
        return line;
    }

private:
    std::string Contradiction() const {
        const bool needsFolder = line.task == Task::Check || line.task == Task::Fix ||
                                 line.task == Task::Plan || line.task == Task::Manifest ||
                                 line.task == Task::New;
        if (needsFolder && line.folder.empty()) return "which folder is it?";
        if (line.task == Task::Fix && line.format != Format::Text) return "--fix shows its changes as text.";
        if (line.task == Task::Plan && line.format == Format::Sarif)
            return "a plan is written as text, as JSON or as an HTML page.";
        if ((line.task == Task::Manifest) == line.out.empty())
            return "--manifest and --out FOLDER go together.";
        if (isPlanned && line.task != Task::Plan) return "an option says how to plan a run, without --plan.";
        return {};
    }

    // Each of these returns false for an argument of another kind.
    bool TakeTask(const std::string& argument) {
        const auto* const option = std::ranges::find(taskOptions, argument, &TaskOption::name);
        if (option == taskOptions.end()) return false;
        line.task = option->task;
        return true;
    }

    bool TakePlanOption(const std::string& argument) {
        if (argument == "--html") {
            isPlanned = true;
            TakeValue(line.run.page, "--html needs the name of a file.");
            return true;
        }
        for (const auto& [name, value] : planOptions) {
            if (!argument.starts_with(name)) continue;
            isPlanned = true;
            line.run.*value = argument.substr(name.size());
            return true;
        }
        return false;
    }

    bool TakeOptionWithValue(const std::string& argument) {
        if (argument == "--explain") {
            line.task = Task::Explain;
            TakeValue(line.rule, "--explain needs the name of a rule.");
        } else if (argument == "--manifest") {
            line.task = Task::Manifest;
            TakeValue(line.manifest, "--manifest needs a kind.");
            if (line.mistake.empty() && !IsManifestKind(line.manifest))
                line.mistake = "--manifest makes winget, chocolatey or intune.";
        } else if (argument == "--out") {
            TakeValue(line.out, "--out needs a folder.");
        } else {
            return false;
        }
        return true;
    }

    void Take(const std::string& argument) {
        if (TakeTask(argument) || TakePlanOption(argument) || TakeOptionWithValue(argument)) return;
        if (argument == "--yes") {
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
    bool isPlanned = false;  // by an option that makes sense for a plan alone
    CommandLine line;
};

}  // namespace

CommandLine ReadCommandLine(const std::vector<std::string>& arguments) {
    return Reader(arguments).Read();
}

std::string_view HelpText() {
    return "usage: PackageCheck [--json | --sarif] FOLDER\n"
           "       PackageCheck --fix [--yes] FOLDER\n"
           "       PackageCheck --manifest winget|chocolatey|intune --out FOLDER FOLDER\n"
           "       PackageCheck --new FOLDER\n"
           "       PackageCheck --plan [options of a run] [--json] [--html FILE] FOLDER\n"
           "       PackageCheck --explain RULE\n"
           "       PackageCheck --rules | --tables\n"
           "\n"
           "Checks the data of a package: settings, languages, .msi files and what lies beside them.\n"
           "\n"
           "  --json           writes the findings as JSON\n"
           "  --sarif          writes them as SARIF 2.1.0, for build servers\n"
           "  --fix            repairs what has one safe cure; shows the changes and asks first\n"
           "  --yes            repairs without asking\n"
           "  --manifest KIND  writes the manifest of a management engine instead of checking\n"
           "  --out FOLDER     where the manifest goes; no file there is overwritten\n"
           "  --new            lays out the sources of a package to begin with, in a new folder\n"
           "  --plan           says what a run of the wizard would do: pages, packages, programs\n"
           "    -ip=ADDRESS -p=PORT -lang=CODE   as the wizard takes them\n"
           "    --os=SYSTEM                      7, 8, 8.1, 10 (as without it) or 11\n"
           "    --installed=FILE                 a JSON file that says what is installed already\n"
           "    --html FILE                      writes the plan as a page, too\n"
           "  --explain RULE   says what a rule is about, and how to fix what it finds\n"
           "  --rules          lists the rules, in Markdown\n"
           "  --tables         lists tags, texts, languages and properties, in Markdown\n"
           "  --help           prints this\n"
           "\n"
           "Exit code: 0 without findings, 1 with warnings, 2 with errors. A plan ends with 0.\n";
}

}  // namespace packagecheck
