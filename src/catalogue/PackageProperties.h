// What the properties of a package mean. Functions of their arguments, for any thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/MSI_APP.h"

// Returns the megabytes of a text such as "12.5MB"; the unit may be missing. 0 where no number leads.
double InstallSizeInMb(std::wstring_view text);

// Returns the names joined by ",", with blank, word, blank in place of the last ",".
std::wstring JoinDependentNames(const std::vector<std::wstring>& names, std::wstring_view andWord);

// Returns true if the system's name is one of the entries that ";" separates. A text without any ";" is no
// list and admits every system.
bool SupportsSystem(std::wstring_view supportedOs, std::wstring_view systemName);

// Returns true if a record of that device type is wanted: it has no type, or its type is the whole text, or
// one of the pieces that a ";" closes.
bool MatchesDeviceType(std::wstring_view recordType, std::wstring_view wanted);

// Returns true for an identifier that holds the fax driver's anywhere.
bool NamesFaxDriver(std::wstring_view driverId);

// Sets the one flag of scan, fax or printer driver that the record's driverId asks for; none without a
// driverId.
void ClassifyDriver(MSI_APP& app);

// Returns the identifiers of a list separated by ";", nothing trimmed; a closing ";" yields an empty one.
std::vector<std::wstring> AcceptedDriverTypes(std::wstring_view setting);
