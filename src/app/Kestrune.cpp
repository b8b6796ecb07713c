// The program: the one application object and the entry point of the process.

#include <windows.h>

#include <cstdlib>
#include <exception>

#include "app/CKestruneApp.h"

namespace {

CKestruneApp application;

}  // namespace

// The record that the linker puts into the program under this name. Its flags have the system look for what
// is imported in its own folder alone, before the first instruction runs. The headers have no name for them
// yet.
extern "C" __attribute__((used))
const IMAGE_LOAD_CONFIG_DIRECTORY64 loadConfiguration __asm__("_load_config_used") = {
    .Size = sizeof(IMAGE_LOAD_CONFIG_DIRECTORY64), .Reserved1 = LOAD_LIBRARY_SEARCH_SYSTEM32};

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
