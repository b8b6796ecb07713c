// A window with the dialogs of the program on it, one after the other, in the texts of the sample.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "catalogue/AppCatalogue.h"
#include "catalogue/DriverInfo.h"
#include "framework/CDialogEx.h"
#include "printer/DriverConfiguration.h"
#include "tests/windows/world/EveryDialog.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"

class DialogsWorld : public SettingsWorld {
protected:
    explicit DialogsWorld(const std::string& language);

    // Shows the dialog, and gives a text to each control that has none in this world.
    std::unique_ptr<InstallDialogEx> Open(const DialogCase& dialog);

    AppCatalogue applications;
    DriverInfo drivers;
    DriverConfiguration configuration{Settings(), applications, drivers};
    TestApp app;
    CDialogEx window;
};

// Lays the pictures of the sample package where the program looks for them.
void AddPictures(const ProgramTree& tree);

// Does it for each control that can be seen and has a size; some labels are for who hears the page, and have
// none.
void ForEachSeen(const InstallDialogEx& dialog, const std::function<void(HWND)>& deed);

LONG_PTR StyleOf(HWND control);
