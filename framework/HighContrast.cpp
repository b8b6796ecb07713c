#include "framework/HighContrast.h"

#include <windows.h>

bool IsHighContrastOn() {
    HIGHCONTRASTW setting{.cbSize = sizeof(HIGHCONTRASTW)};
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, setting.cbSize, &setting, 0) != FALSE &&
           (setting.dwFlags & HCF_HIGHCONTRASTON) != 0;
}
