// The program: the one application object and the entry point of the process.

#include <windows.h>

#include "wizard/CKestruneApp.h"

namespace {

CKestruneApp application;

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    return AfxWinMain();
}
