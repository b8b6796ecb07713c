// The pages of the wizard as a walk finds them on the screen, whatever the package.
#pragma once

#include <string_view>

#include "tests/wizard/WizardDriver.h"

struct KnownPage {
    std::wstring_view title;
    int control;  // that no other page has
    int button;   // that leads on
};

struct PageOnScreen {
    const KnownPage* page = nullptr;
    HWND control = nullptr;
};

// The page that is shown, if any.
PageOnScreen FindPage(const WizardDriver& wizard);
// A page on which the wizard has come to rest. While windows are destroyed a hidden one may seem to be shown.
PageOnScreen FindSettledPage(const WizardDriver& wizard);
// The pages that come up while packages are installed, or after it, step on by themselves until the end of
// the installations.
bool IsBeforeRun(std::wstring_view title);
// Leaves the page by its button, with the choices that lead through all pages and do not end the session.
void LeaveByButton(const WizardDriver& wizard, const KnownPage& page);
