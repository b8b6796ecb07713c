#include "tools/Rollout/Options.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "CommonLib/TextUtilities.h"

namespace rollout {
namespace {

constexpr std::array<std::wstring_view, 4> wizardNames = {L"ip", L"p", L"lang", L"pkgdir"};
// A day: whoever gives more has mixed up the units.
constexpr std::int32_t longestWait = 86400;

struct NamedValue {
    std::wstring_view name;
    std::wstring_view value;
};

// The name and value of a switch of the wizard, which begins with one sign; nothing for any other text.
std::optional<NamedValue> WizardSwitch(std::wstring_view argument) {
    if (argument.empty() || (argument.front() != L'-' && argument.front() != L'/')) return std::nullopt;
    const std::size_t sign = argument.find(L'=');
    if (sign == std::wstring_view::npos) return std::nullopt;
    const NamedValue found{.name = argument.substr(1, sign - 1), .value = argument.substr(sign + 1)};
    const auto known = std::ranges::find(wizardNames, found.name);
    return known == wizardNames.end() ? std::nullopt : std::optional(found);
}

class Parser {
public:
    explicit Parser(const std::vector<std::wstring>& given) : arguments(given) {}

    Options Parse() {
        while (place < arguments.size() && options.error.empty()) Take(arguments[place++]);
        if (options.error.empty() && options.dryRun && options.uninstall) {
            options.error = L"--dry-run and --uninstall exclude each other";
        }
        return options;
    }

private:
    void Take(const std::wstring& argument) {
        if (WizardSwitch(argument)) {
            options.wizardSwitches.push_back(argument);
            return;
        }
        const std::size_t sign = argument.find(L'=');
        inlineValue.reset();
        if (sign != std::wstring::npos) inlineValue = argument.substr(sign + 1);
        const std::wstring name = argument.substr(0, sign);
        if (!TakeFlag(name) && !TakeValue(name)) options.error = L"unknown: " + argument;
    }

    bool TakeFlag(const std::wstring& name) {
        if (inlineValue) return false;
        bool* const flag = FlagOf(name);
        if (flag != nullptr) *flag = true;
        return flag != nullptr;
    }

    bool* FlagOf(const std::wstring& name) {
        if (name == L"--help") return &options.help;
        if (name == L"--dry-run") return &options.dryRun;
        if (name == L"--uninstall") return &options.uninstall;
        return name == L"--inquire" ? &options.inquire : nullptr;
    }

    bool TakeValue(const std::wstring& name) {
        if (name == L"--wait") {
            options.wait = Seconds(name);
        } else if (name == L"--timeout") {
            options.timeout = Seconds(name);
        } else if (name == L"--on-question") {
            options.onQuestion = Policy(name);
        } else if (name == L"--report") {
            options.reportPath = Value(name);
        } else if (name == L"--collect") {
            options.collectFolder = Value(name);
        } else {
            return false;
        }
        return true;
    }

    std::wstring Value(const std::wstring& name) {
        if (!inlineValue && place < arguments.size()) inlineValue = arguments[place++];
        if (!inlineValue || inlineValue->empty()) options.error = name + L" wants a value";
        return inlineValue.value_or(L"");
    }

    std::chrono::seconds Seconds(const std::wstring& name) {
        const std::wstring value = Value(name);
        const bool isNumber = !value.empty() && std::ranges::all_of(value, &IsDigit);
        const std::int32_t number = isNumber ? LeadingInteger(value) : -1;
        if (options.error.empty() && (number < 0 || number > longestWait)) {
            options.error = name + L" wants seconds, at most " + std::to_wstring(longestWait);
        }
        return std::chrono::seconds(number);
    }

    QuestionPolicy Policy(const std::wstring& name) {
        const std::wstring value = Value(name);
        if (options.error.empty() && value != L"answer" && value != L"fail") {
            options.error = name + L" wants answer or fail";
        }
        return value == L"fail" ? QuestionPolicy::Fail : QuestionPolicy::Answer;
    }

    const std::vector<std::wstring>& arguments;
    std::size_t place = 0;
    std::optional<std::wstring> inlineValue;
    Options options;
};

}  // namespace

std::wstring Options::SwitchValue(const std::wstring& name) const {
    std::wstring value;
    for (const std::wstring& given : wizardSwitches) {
        const auto found = WizardSwitch(given);
        if (found && found->name == name) value = found->value;
    }
    return value;
}

Options ParseOptions(const std::vector<std::wstring>& arguments) {
    return Parser(arguments).Parse();
}

std::vector<std::wstring> HelpLines() {
    return {L"Rollout [OPTION]... [-ip=ADDRESS] [-p=NAME] [-lang=CODE] [-pkgdir=FOLDER]",
            L"",
            L"Runs the package silently and ends with a code that management engines know.",
            L"",
            L"  --dry-run                  print what a run would do, and change nothing",
            L"  --uninstall                remove the products of the package",
            L"  --wait SECONDS             how long to wait for another installation to end (300)",
            L"  --timeout SECONDS          how long the run may take (3600)",
            L"  --on-question answer|fail  answer a box that comes up, or count it as a failure too (answer)",
            L"  --report FILE              write a report as JSON",
            L"  --collect FOLDER           copy the logs and the report there",
            L"",
            L"The switches with one sign are the wizard's.",
            L"",
            L"Codes: 0 done, 3010 done and a restart is wanted, 1602 cancelled, 1603 a package failed,",
            L"1618 another installation is running, 1638 something newer is installed, 1460 time is up,",
            L"87 the command line is wrong or the package cannot run silently, 740 no administrator."};
}

std::wstring QuoteArgument(const std::wstring& argument) {
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t sign : argument) {
        // Backslashes count twice where a quotation mark follows, and nowhere else.
        if (sign == L'"') quoted.append(backslashes + 1, L'\\');
        backslashes = sign == L'\\' ? backslashes + 1 : 0;
        quoted += sign;
    }
    return quoted.append(backslashes, L'\\') + L"\"";
}

}  // namespace rollout
