// A run that shows its Progress page and ends on the first Finish page.
#pragma once

#include <initializer_list>
#include <string>

#include "tests/wizard/WizardTest.h"

// What the Finish page knows of the run.
struct FinishedRun {
    // The status document.
    std::wstring status;
    std::wstring reboot;
    std::wstring installStatus;
};

// One line of the status document.
struct StatusOfPackage {
    std::wstring name;
    int status = 0;
};

// Lets the header of the Finish page show what the page knows. The header is a text of the package, and a
// text can show every setting.
void ShowStatusOnFinishPage(PackageTree& tree);

class ShownRunTest : public WizardTest {
protected:
    void SetUp() override;

    // Waits for the first Finish page, reads it and closes the program there.
    FinishedRun ReadFinishPage();
    // Starts the program and leads a run that asks nothing to its end.
    FinishedRun RunShown();

    static std::wstring StatusDocument(std::initializer_list<StatusOfPackage> lines);
};
