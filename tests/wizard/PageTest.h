// A walk that a test leads page by page: the ids of the pages' controls and what a page shows.
#pragma once

#include <string>

#include "tests/wizard/WizardTest.h"

class PageTest : public WizardTest {
protected:
    // Lays settings that lead to the page for which the further settings show the way, and hides the others.
    void UseSettings(const std::wstring& further);
    // Starts the program and waits until the page shows this control.
    HWND StartOn(int control);

    bool IsShown(int control) const { return wizard.FindControl(control) != nullptr; }
    bool IsEnabled(int control) const;
    std::wstring TextOf(int control) const;
    // Waits until the control is shown and enabled.
    bool WaitUntilEnabled(int control) const;
    // Waits until the question whether to cancel is on the screen and answers it.
    void AnswerCancel(int button) const;
    bool HasAskedToCancel() const;
    // Lays a picture of one colour into the package's pictures.
    void AddPicture(const std::wstring& name, COLORREF colour);
    // Waits until the screen shows the colour near the window's corner, or for so long.
    static bool HasColour(HWND window, COLORREF colour, std::chrono::milliseconds limit);
    // The same with a limit for what must come, and a word on what has come instead.
    static bool ShowsColour(HWND window, COLORREF colour);
    // Whether the program stays without a question for a moment.
    bool StaysQuiet() const;
};
