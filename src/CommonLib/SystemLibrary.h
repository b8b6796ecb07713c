// Libraries of the system, and of nobody else.
#pragma once

#include <string>

#include "framework/Handles.h"

// Loads a library from the system's own folder, whatever lies in the search path. Not owning if it is not
// there.
Library LoadSystemLibrary(const std::wstring& name);

// Keeps libraries that lie beside the program or in the working directory out of every later search.
void RestrictLibrarySearch();
