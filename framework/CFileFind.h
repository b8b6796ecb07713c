// Walks the entries of a folder that fit a mask, in the order in which the file system gives them.
#pragma once

#include <windows.h>

#include <string>

#include "framework/Handles.h"

// FindFile opens the walk, each FindNextFile moves to the next entry and says whether there is one more
// after it; so the entry of the call that returned false still counts, if FindFile has found anything at
// all.
class CFileFind {
public:
    // False if nothing fits the mask. The first entry is taken up by the first FindNextFile.
    bool FindFile(const std::wstring& mask);
    bool FindNextFile();

    // Of the entry that the last FindNextFile moved to.
    bool IsDots() const;
    std::wstring GetFileName() const { return entry.cFileName; }
    // The folder of the mask as it was written, then the name.
    std::wstring GetFilePath() const { return folder + entry.cFileName; }

private:
    FindHandle search;
    std::wstring folder;
    WIN32_FIND_DATAW entry{};
    WIN32_FIND_DATAW following{};
};
