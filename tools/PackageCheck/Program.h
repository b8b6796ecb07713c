// The program as its arguments and streams see it.
#pragma once

#include <chrono>
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace packagecheck {

// The exit code where the program cannot do what it is asked for.
inline constexpr int misused = 2;

// Where the program runs.
struct Surroundings {
    std::ostream& out;
    std::ostream& err;
    bool isTerminal = false;                        // whether a person sees what goes to out
    bool isErrorTerminal = false;                   // and to err
    std::function<bool(const std::string&)> agree;  // asks a person; empty where there is none to ask
    // Tells the time by which a line of progress comes and goes.
    std::function<std::chrono::steady_clock::time_point()> now = std::chrono::steady_clock::now;
};

// Returns the exit code: 0 for no findings, 1 for warnings, 2 for errors, also in the use of the program. The
// arguments are in UTF-8 and without the program's name.
int RunPackageCheck(const std::vector<std::string>& arguments, const Surroundings& surroundings);

}  // namespace packagecheck
