// Reads packages into records.
#pragma once

#include <cstdint>
#include <string>

#include "catalogue/CatalogueSource.h"
#include "catalogue/IMsiInterface.h"
#include "catalogue/MSI_APP.h"

// Reads a property of a package into the field; a non-zero code, which it returns, leaves the field as it
// was.
std::uint32_t ReadProperty(IMsiInterface& msi, const std::wstring& path, const std::wstring& language,
                           const wchar_t* name, std::wstring& field);

// The state of the package's product on this system into the record's five flags for it.
void ReadInstalledState(IMsiInterface& msi, MSI_APP& record);

// The record of one application package, with the packages that it takes along. A property that the package
// lacks leaves its field empty.
MSI_APP ReadProperties(const CatalogueSource& source, const std::wstring& path);
