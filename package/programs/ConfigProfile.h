// What a configuration of the sample's drivers holds, and how the configuration tool is told where it goes.
#pragma once

#include <string>
#include <string_view>

struct ConfigProfile {
    std::wstring name = L"Two-sided, saving toner";
    bool twoSided = true;
    bool saveToner = true;
    bool shadesOfGrey = false;
};

// Returns the file that the command line asks for, empty if it asks for none. The older generation is called
// with /m, /d and /f and quoted values, the newer one with "save /xdc" and the bare file at the end. The
// program's own path may hold blanks without being quoted.
std::wstring TargetFile(std::wstring_view commandLine);

// Returns the profile as an XML document.
std::wstring ProfileDocument(const ConfigProfile& profile);
