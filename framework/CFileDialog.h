// The system's dialog for opening a file.
#pragma once

#include <string>

#include "framework/CWnd.h"

class CFileDialog {
public:
    // The suggestion is a path; one that ends in a backslash names the folder in which the dialog begins. The
    // filter holds pairs of a name and a mask, each closed by "|", and one more "|" at its end. The parent
    // must outlive the dialog.
    CFileDialog(std::wstring defaultExtension, const std::wstring& suggestion, const std::wstring& filter,
                const CWnd& parent);

    // Runs the dialog for a file that must exist. Returns IDOK, or IDCANCEL if the user or the system
    // refuses. The working directory stays as it is.
    int DoModal();
    // The full path of the chosen file, once DoModal has returned IDOK.
    const std::wstring& GetPathName() const { return pathName; }

private:
    std::wstring defaultExtension;
    std::wstring folder;
    std::wstring pathName;
    std::wstring filter;
    const CWnd& parent;
};
