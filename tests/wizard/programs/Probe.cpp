// A program that leaves its command line in a file beside itself and ends with the code that another one
// names. It stands for the programs that a package brings along.

#include <windows.h>

#include <cwchar>

#include "tests/fakes/TextLines.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    wchar_t path[MAX_PATH]{};
    const std::wstring self(path, GetModuleFileNameW(nullptr, path, MAX_PATH));
    AppendText(self + L".calls", JoinFields({GetCommandLineW()}));
    const auto lines = ReadLines(self + L".code");
    return lines.empty() ? 0 : static_cast<int>(std::wcstol(lines.front().front().c_str(), nullptr, 10));
}
