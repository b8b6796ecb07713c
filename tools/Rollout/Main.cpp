// Starts the silent run of the package in this folder tree and ends with a code that says how it went: lie it
// beside Kestrune.exe and start it there.

#include <windows.h>

#include <string>
#include <vector>

#include "framework/SystemLibrary.h"
#include "tools/PrintLine.h"
#include "tools/Rollout/Answerer.h"
#include "tools/Rollout/Options.h"
#include "tools/Rollout/RolloutRun.h"

namespace {

// Has the console take UTF-8 as long as it lives.
class Utf8Console {
public:
    Utf8Console() : former(GetConsoleOutputCP()) { SetConsoleOutputCP(CP_UTF8); }
    Utf8Console(const Utf8Console&) = delete;
    Utf8Console& operator=(const Utf8Console&) = delete;
    ~Utf8Console() {
        if (former != 0) SetConsoleOutputCP(former);
    }

private:
    UINT former;
};

void PrintHelp() {
    for (const std::wstring& line : rollout::HelpLines()) PrintLine(line);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    RestrictLibrarySearch();
    // A program that crashes is to end and not to show a box; what is started here inherits that.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    const rollout::Options options =
        rollout::ParseOptions(std::vector<std::wstring>(arguments + 1, arguments + count));
    if (options.error.empty() && options.inquire) return rollout::AnswerQuestions(options);
    const Utf8Console console;
    if (options.help) {
        PrintHelp();
        return 0;
    }
    if (!options.error.empty()) {
        PrintLine(options.error);
        PrintHelp();
        return static_cast<int>(rollout::Code::CannotRun);
    }
    return static_cast<int>(rollout::RolloutRun(options).Run());
}
