// The status document of a run, which says how each package went. Functions of their arguments, for any
// thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/MSI_APP.h"
#include "catalogue/PackageStatus.h"

// How the .NET prerequisite went; name is its text on the screen.
struct DotNetResult {
    bool installed = false;
    bool failed = false;
    std::wstring name;
};

// Returns the document: an element "App N" per line, N from 0, each with NAME and STATUS. The .NET line comes
// first if there is one.
std::wstring BuildStatusDocument(const DotNetResult& dotNet, const std::vector<MSI_APP>& statusList);

// One line of the document. A number that is no status is kept as it is.
struct StatusLine {
    std::wstring name;
    PackageStatus status = PackageStatus::Done;
};

// Returns the lines of a document, 100 at the most.
std::vector<StatusLine> ReadStatusDocument(std::wstring_view document);
