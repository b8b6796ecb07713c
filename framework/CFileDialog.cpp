#include "framework/CFileDialog.h"

#include <commdlg.h>

#include <algorithm>
#include <array>
#include <utility>

#include "framework/SystemLibrary.h"

namespace {

// Found by name: the library brings that of the spooler along, which nearly no run needs. Once it has shown a
// dialog, threads of the system may be in it.
auto OpenFileDialog() {
    static const Library dialogs = LoadSystemLibrary(L"comdlg32.dll");
    return dialogs ? FindExport<decltype(&GetOpenFileNameW)>(dialogs.get(), "GetOpenFileNameW") : nullptr;
}

}  // namespace

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
    const auto open = OpenFileDialog();
    if (open == nullptr || open(&request) == FALSE) return IDCANCEL;
    pathName = buffer.data();
    return IDOK;
}
