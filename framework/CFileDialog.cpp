#include "framework/CFileDialog.h"

#include <commdlg.h>

#include <algorithm>
#include <array>
#include <utility>

CFileDialog::CFileDialog(std::wstring extension, const std::wstring& suggestion,
                         const std::wstring& filterPairs, const CWnd& parentWindow)
    : defaultExtension(std::move(extension)), filter(filterPairs), parent(parentWindow) {
    const std::size_t folderLength = suggestion.find_last_of(L'\\') + 1;
    folder = suggestion.substr(0, folderLength);
    pathName = suggestion.substr(folderLength);
    std::replace(filter.begin(), filter.end(), L'|', L'\0');
}

int CFileDialog::DoModal() {
    std::array<wchar_t, MAX_PATH> buffer{};
    pathName.copy(buffer.data(), buffer.size() - 1);
    OPENFILENAMEW request{.lStructSize = sizeof(OPENFILENAMEW),
                          .hwndOwner = parent.GetSafeHwnd(),
                          .lpstrFilter = filter.c_str(),
                          .nFilterIndex = 1,
                          .lpstrFile = buffer.data(),
                          .nMaxFile = static_cast<DWORD>(buffer.size()),
                          .lpstrInitialDir = folder.c_str(),
                          .Flags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR,
                          .lpstrDefExt = defaultExtension.c_str()};
    if (GetOpenFileNameW(&request) == FALSE) return IDCANCEL;
    pathName = buffer.data();
    return IDOK;
}
