// Every dialog of the program, for tests that look at all of them.
#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <vector>

#include "catalogue/AppCatalogue.h"
#include "catalogue/DriverInfo.h"
#include "printer/DriverConfiguration.h"
#include "wizard/InstallDialogEx.h"

// What dialogs are made with.
struct DialogWorld {
    const PageContext& context;
    CWnd& window;
    AppCatalogue& applications;
    DriverInfo& drivers;
    DriverConfiguration& configuration;
};

struct DialogCase {
    const char* name;
    std::function<std::unique_ptr<InstallDialogEx>(const DialogWorld& world)> make;
};

void PrintTo(const DialogCase& dialog, std::ostream* stream);

// The pages in their order, and the dialogs over them.
std::vector<DialogCase> EveryDialog();

// Does it for each state that an open dialog has: most have one, the page of the ports one for each kind.
void InEachView(const InstallDialogEx& dialog, const std::function<void()>& deed);
