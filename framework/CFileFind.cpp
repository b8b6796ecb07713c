#include "framework/CFileFind.h"

bool CFileFind::FindFile(const std::wstring& mask) {
    folder = mask.substr(0, mask.find_last_of(L"\\/") + 1);
    search.reset(FindFirstFileW(mask.c_str(), &following));
    return static_cast<bool>(search);
}

bool CFileFind::FindNextFile() {
    entry = following;
    return search && ::FindNextFileW(search.get(), &following) != FALSE;
}

bool CFileFind::IsDots() const {
    const std::wstring name = entry.cFileName;
    return name == L"." || name == L"..";
}
