#include "tests/windows/world/FakeHighContrast.h"

#include <windows.h>

namespace {

bool isContrastHigh = false;

BOOL WINAPI AnswerForContrast(UINT question, UINT, void* answer, UINT) {
    if (question != SPI_GETHIGHCONTRAST) return FALSE;
    static_cast<HIGHCONTRASTW*>(answer)->dwFlags = isContrastHigh ? HCF_HIGHCONTRASTON : 0;
    return TRUE;
}

}  // namespace

FakeHighContrast::FakeHighContrast() : question("SystemParametersInfoW", &AnswerForContrast) {
    Switch(false);
}

void FakeHighContrast::Switch(bool on) {
    isContrastHigh = on;
}
