// What the program is asked for.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace packagecheck {

enum class Task { Check, Help, Explain, Rules, Fix };

enum class Format { Text, Json, Sarif };

struct CommandLine {
    Task task = Task::Check;
    Format format = Format::Text;
    bool isAgreed = false;  // to every change
    std::string folder;
    std::string rule;     // to explain
    std::string mistake;  // what cannot be understood; empty if all can
};

CommandLine ReadCommandLine(const std::vector<std::string>& arguments);

std::string_view HelpText();

}  // namespace packagecheck
