// Removes the folders that packages were unpacked into.
#pragma once

#include <string>

// Removes the folder of that full path with all in it, read-only entries included. A link or a junction is
// removed as such, be it an entry or the folder itself: what it leads to is never touched. An entry that
// somebody has open is tried again a few times; what then still stays is left, with one record of level
// ERROR. True if no such folder is there afterwards. A file of that name is no such folder and stays.
bool RemoveFolder(const std::wstring& folder);
