// What the tools say, in UTF-8. What others have written into it cannot steer the terminal.
#pragma once

#include <windows.h>

#include <cstdio>
#include <string>

#include "tools/ShownText.h"

inline void PrintLine(const std::wstring& line) {
    const std::wstring text = ShownText(line);
    std::string bytes(text.size() * 3 + 1, '\0');
    const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                           bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr);
    std::printf("%.*s\n", length, bytes.c_str());
    // A program that reads along sees each line at once.
    std::fflush(stdout);
}
