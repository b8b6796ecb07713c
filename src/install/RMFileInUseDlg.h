// Asks whether the system may close the programs that hold files open.
#pragma once

#include <string>

#include "wizard/CQorFlatButton.h"
#include "wizard/InstallDialogEx.h"

// DoModal returns IDOK if it may, else IDCANCEL. Runs on the library's thread.
class RMFileInUseDlg : public InstallDialogEx {
public:
    explicit RMFileInUseDlg(const PageContext& context);

    // The programs to name; kept from question to question.
    void SetApplicationName(const std::wstring& name) { applicationName = name; }

protected:
    bool OnInitDialog() override;
    void OnOK() override;

private:
    std::wstring applicationName;
    CQorFlatButton okButton;
};
