#pragma once

#include <string>
#include <vector>

#include "catalogue/MSI_APP.h"

// How the .NET prerequisite went; name is its text on the screen.
struct DotNetResult {
    bool installed = false;
    bool failed = false;
    std::wstring name;
};

// Returns the status document of a run: an element "App N" per line, N from 0, each with NAME and STATUS. The
// .NET line comes first if there is one. May run on any thread.
std::wstring BuildStatusDocument(const DotNetResult& dotNet, const std::vector<MSI_APP>& statusList);
