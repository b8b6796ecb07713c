// Libraries of the system, and of nobody else.
#pragma once

#include <string>

#include "framework/Handles.h"

// Returns the system's own folder without a closing backslash; empty if the system does not say.
std::wstring GetSystemFolder();

// Loads a library from the system's own folder, whatever lies in the search path. Not owning if it is not
// there.
Library LoadSystemLibrary(const std::wstring& name);

// Keeps libraries that lie beside the program or in the working directory out of every later search.
void RestrictLibrarySearch();
