// The page that asks how the printer is connected.
#pragma once

#include "wizard/InstallDialogEx.h"

class ConnectivityDlg : public InstallDialogEx {
public:
    static constexpr UINT dialogTemplate = 154;

    ConnectivityDlg() : InstallDialogEx(dialogTemplate) {}
};
