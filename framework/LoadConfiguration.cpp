// A source of each program that somebody may start with more rights than who filled its folder has.

#include <windows.h>

// The record that the linker puts into the program under this name. Its flags have the system look for what
// is imported in its own folder alone, before the first instruction runs. The headers have no name for them
// yet.
extern "C" __attribute__((used))
const IMAGE_LOAD_CONFIG_DIRECTORY64 loadConfiguration __asm__("_load_config_used") = {
    .Size = sizeof(IMAGE_LOAD_CONFIG_DIRECTORY64), .Reserved1 = LOAD_LIBRARY_SEARCH_SYSTEM32};
