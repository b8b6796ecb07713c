// What is read from a package file.
#pragma once

#include <windows.h>

#include <msi.h>

#include <string>
#include <vector>

#include "standins/Brevanto/PropertyDocument.h"

namespace brevanto {

// Reads the whole Property table of the package into the list, in the order of the table. Returns 0 or
// the code of the installer, and then leaves the list empty.
UINT ReadPackage(const std::wstring& packagePath, std::vector<Property>& properties);

// A field of a record as text, empty if it is null. The record stays the caller's.
std::wstring RecordText(MSIHANDLE record, UINT field);

}  // namespace brevanto
