// A user whose locale is Arabic, whatever the language of the process is.
#pragma once

#include "tests/windows/world/PatchedImport.h"

// Answers for the system's newer locale functions until the end of this object's life; one at a time.
class ArabicUser {
public:
    ArabicUser();

private:
    PatchedImport exports;
};
