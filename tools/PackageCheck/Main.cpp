// PackageCheck: says what is wrong with the data of a package before a user finds out.
#ifdef _WIN32
#include <windows.h>

#include <io.h>
#else
#include <unistd.h>
#endif

#include <iostream>
#include <string>
#include <vector>

#include "CommonLib/Utf8.h"
#ifdef _WIN32
#include "framework/SystemLibrary.h"
#endif
#include "tools/PackageCheck/Program.h"

namespace {

bool IsAgreed(const std::string& question) {
    std::cout << question << " [y/N] " << std::flush;
    std::string answer;
    return std::getline(std::cin, answer) && (answer == "y" || answer == "Y" || answer == "yes");
}

int Run(const std::vector<std::string>& arguments, bool out, bool err, bool in) {
    packagecheck::Surroundings surroundings{
        .out = std::cout, .err = std::cerr, .isTerminal = out, .isErrorTerminal = err};
    if (in && out) surroundings.agree = IsAgreed;
    return packagecheck::RunPackageCheck(arguments, surroundings);
}

}  // namespace

#ifdef _WIN32

namespace {

// True for a terminal that takes the colours of other systems.
bool IsColourTerminal(DWORD stream) {
    const HANDLE handle = GetStdHandle(stream);
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != FALSE &&
           SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != FALSE;
}

}  // namespace

int wmain(int count, wchar_t** values) {
    RestrictLibrarySearch();
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) arguments.push_back(ToUtf8(values[i]));
    SetConsoleOutputCP(CP_UTF8);
    return Run(arguments, IsColourTerminal(STD_OUTPUT_HANDLE), IsColourTerminal(STD_ERROR_HANDLE),
               _isatty(0) != 0);
}

#else

int main(int count, char** values) {
    const std::vector<std::string> arguments(values + 1, values + count);
    return Run(arguments, isatty(STDOUT_FILENO) != 0, isatty(STDERR_FILENO) != 0, isatty(STDIN_FILENO) != 0);
}

#endif
