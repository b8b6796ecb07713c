// The command line.
#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace rollout {

// What becomes of a box that comes up in the run: it is answered and the run counts by its outcome, or it is
// answered and the run counts as failed.
enum class QuestionPolicy { Answer, Fail };

struct Options {
    bool help = false;
    bool dryRun = false;
    bool uninstall = false;
    // Asked for by this program itself: to answer questions about the package on its standard input.
    bool inquire = false;
    std::chrono::seconds wait{300};
    std::chrono::seconds timeout{3600};
    QuestionPolicy onQuestion = QuestionPolicy::Answer;
    std::wstring reportPath;
    std::wstring collectFolder;
    // What the wizard is given, each as it stood.
    std::vector<std::wstring> wizardSwitches;
    // Why the command line is wrong; empty if it is not.
    std::wstring error;

    // The value of a switch of the wizard, such as "ip"; empty without it. Of several the last counts.
    std::wstring SwitchValue(const std::wstring& name) const;
};

// Reads the arguments after the program's name. A value stands after "=" or as the next argument.
Options ParseOptions(const std::vector<std::wstring>& arguments);

// The lines that --help prints.
std::vector<std::wstring> HelpLines();

// The argument as it must stand in a command line to be read back as it is.
std::wstring QuoteArgument(const std::wstring& argument);

}  // namespace rollout
