// The page that greets the user.
#pragma once

#include "wizard/InstallDialogEx.h"

class StartDlg : public InstallDialogEx {
public:
    static constexpr UINT dialogTemplate = 130;

    StartDlg() : InstallDialogEx(dialogTemplate) {}
};
