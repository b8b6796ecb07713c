// What the program is asked for.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace packagecheck {

enum class Task { Check, Help, Explain, Rules, Tables, Fix, Manifest, New, Plan };

enum class Format { Text, Json, Sarif };

// The run that is to be planned, in the words of the command line.
struct PlannedRun {
    std::string address;
    std::string port;
    std::string language;
    std::string system;     // 7, 8, 8.1, 10 or 11
    std::string installed;  // the path of a JSON file; empty for a system with nothing on it
    std::string page;       // the path of the HTML page to write, if any
};

struct CommandLine {
    Task task = Task::Check;
    Format format = Format::Text;
    bool isAgreed = false;  // to every change
    std::string folder;
    std::string rule;      // to explain
    std::string manifest;  // its kind
    std::string out;       // the folder for it
    PlannedRun run;
    std::string mistake;  // what cannot be understood; empty if all can
};

CommandLine ReadCommandLine(const std::vector<std::string>& arguments);

std::string_view HelpText();

}  // namespace packagecheck
