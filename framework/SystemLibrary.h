// Libraries by their full paths, with nobody else's in the search for what they import.
#pragma once

#include <string>

#include "framework/Handles.h"

// Returns the system's own folder without a closing backslash; empty if the system does not say.
std::wstring GetSystemFolder();

// Loads a library from the system's own folder, whatever lies in the search path. Not owning if it is not
// there.
Library LoadSystemLibrary(const std::wstring& name);

// Loads a library of that full path which is not the system's. What it imports comes from the system's own
// folder, and only where that does not hold it all also from the folder of the library. Not owning if that
// fails.
Library LoadPackageLibrary(const std::wstring& path);

// Keeps libraries that lie beside the program or in the working directory out of every later search.
void RestrictLibrarySearch();
