// The program: the one application object and the entry point of the process.

#include <windows.h>

#include <cstdlib>
#include <exception>

#include "app/CKestruneApp.h"

namespace {

CKestruneApp application;

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    return AfxWinMain();
}

// The C++ library's own names the exception on a console that nobody sees, and brings 45 kB to read such
// names.
namespace __gnu_cxx {

void __verbose_terminate_handler() {  // NOLINT(readability-identifier-naming)
    std::abort();
}

}  // namespace __gnu_cxx
