// The user's setting for high contrast, which a test switches.
#pragma once

#include "tests/windows/world/PatchedImport.h"

// Off at first. The program that asks the system meets the answer of this object while that lives.
class FakeHighContrast {
public:
    FakeHighContrast();

    static void Switch(bool on);

private:
    PatchedImport question;
};
