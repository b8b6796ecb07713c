// The program: the one application object and the entry point of the process.

#include <windows.h>

#include "app/CKestruneApp.h"

namespace {

CKestruneApp application;

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    return AfxWinMain();
}
