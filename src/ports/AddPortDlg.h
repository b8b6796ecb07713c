// The page on which a port is described by hand.
#pragma once

#include "wizard/InstallDialogEx.h"

class AddPortDlg : public InstallDialogEx {
public:
    static constexpr UINT dialogTemplate = 139;

    AddPortDlg() : InstallDialogEx(dialogTemplate) { dialogName = L"Add Port Dialog"; }
};
