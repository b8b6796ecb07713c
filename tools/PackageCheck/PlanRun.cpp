#include "tools/PackageCheck/PlanRun.h"

#include <array>
#include <fstream>
#include <iterator>
#include <optional>
#include <ostream>
#include <utility>

#include "CommonLib/Utf8.h"
#include "tools/PackageCheck/FolderTree.h"
#include "tools/PackageCheck/Plan.h"
#include "tools/PackageCheck/PlanJson.h"
#include "tools/PackageCheck/PlanPage.h"
#include "tools/PackageCheck/PlanText.h"

namespace packagecheck {

namespace {

// A list of everything on a machine is shorter.
constexpr std::streamsize longestStates = std::streamsize{1} << 20U;

struct KnownSystem {
    std::string_view word;
    const wchar_t* name;
    bool isWindows8OrLater;
};

// By the words of the command line; the first one stands for none.
constexpr std::array<KnownSystem, 5> knownSystems = {{
    {"10", L"WINDOWS_BLUE", true},
    {"11", L"WINDOWS_BLUE", true},
    {"8.1", L"WINDOWS_BLUE", true},
    {"8", L"WINDOWS_8", true},
    {"7", L"WINDOWS_7", false},
}};

std::optional<TargetSystem> SystemNamed(std::string_view word) {
    if (word.empty()) word = knownSystems.front().word;
    for (const KnownSystem& system : knownSystems) {
        if (system.word == word)
            return TargetSystem{.name = system.name, .isWindows8OrLater = system.isWindows8OrLater};
    }
    return std::nullopt;
}

std::optional<InstalledStates> StatesIn(const std::string& path, std::string& mistake) {
    std::ifstream file(PathOf(path), std::ios::binary);
    std::string text(static_cast<std::size_t>(longestStates), '\0');
    file.read(text.data(), longestStates);
    text.resize(static_cast<std::size_t>(file.gcount()));
    if (text.empty()) {
        mistake = "it cannot be read";
        return std::nullopt;
    }
    return ReadInstalledStates(text, mistake);
}

// Returns nothing, and why, for a run that cannot be planned.
std::optional<PlanOptions> OptionsOf(const PlannedRun& run, std::string& mistake) {
    PlanOptions options{.printer = {.address = FromUtf8(run.address), .portName = FromUtf8(run.port)},
                        .language = FromUtf8(run.language)};
    const auto system = SystemNamed(run.system);
    if (!system) {
        mistake = "--os knows 7, 8, 8.1, 10 and 11.";
        return std::nullopt;
    }
    options.system = *system;
    if (run.installed.empty()) return options;
    auto states = StatesIn(run.installed, mistake);
    if (!states) {
        mistake = run.installed + ": " + mistake + ".";
        return std::nullopt;
    }
    options.installed = std::move(*states);
    return options;
}

bool WritePageFile(const std::string& path, const Plan& plan, const std::string& folder) {
    std::ofstream file(PathOf(path), std::ios::binary);
    WritePlanPage(file, plan, folder);
    file.close();
    return !file.fail();
}

}  // namespace

int WritePlan(const CommandLine& line, const Package& package, const Surroundings& surroundings) {
    std::string mistake;
    const auto options = OptionsOf(line.run, mistake);
    if (!options) {
        surroundings.err << "PackageCheck: " << mistake << "\n";
        return misused;
    }
    const Plan plan = MakePlan(package, *options);
    if (line.format == Format::Json) {
        WritePlanJson(surroundings.out, plan, line.folder);
    } else {
        WritePlanText(surroundings.out, plan);
    }
    if (line.run.page.empty() || WritePageFile(line.run.page, plan, line.folder)) return 0;
    surroundings.err << "PackageCheck: " << line.run.page << " cannot be written.\n";
    return misused;
}

}  // namespace packagecheck
