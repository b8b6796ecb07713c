// The chain of pages as the walk sees it.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "wizard/InstallDialogEx.h"
#include "wizard/PageRole.h"
#include "wizard/Service.h"

// One page of the chain. The makers are called once, in the order of the chain, on the main thread.
struct ChainRow {
    PageRole role = PageRole::Ordinary;
    std::function<std::unique_ptr<InstallDialogEx>()> makePage;
    // Called after the page's window is made, also where that has failed. Empty for a page without a service.
    std::function<std::unique_ptr<Service>(InstallDialogEx& page)> makeService;
    bool hiddenAtFirst = false;
    // Asked again whenever tags have changed. Empty where the page stays as it was at first.
    std::function<bool()> isHidden;
    // The record of a page that cannot be made.
    const wchar_t* failure = L"";
};

// What the walk asks of the parts of the program that it does not know. Empty functions do nothing.
struct WalkEnds {
    // The first page is there: brings up the window that it is in. Not called where that page is passed over.
    std::function<void()> showWindow;
    // Whether a package of the core run is selected, for the question before a cancel.
    std::function<bool()> isCoreSoftwareSelected;
    // The prerequisite has failed: puts the log where an administrator looks for it.
    std::function<void()> copyLogToPackage;
    // The two ends of a run.
    std::function<void()> startPrograms;
    std::function<void()> restart;
};

struct Chain {
    std::vector<ChainRow> rows;
    WalkEnds ends;
};
