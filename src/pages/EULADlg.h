// The page with the licence text.
#pragma once

#include "wizard/InstallDialogEx.h"

class EULADlg : public InstallDialogEx {
public:
    static constexpr UINT dialogTemplate = 137;

    EULADlg() : InstallDialogEx(dialogTemplate) {}
};
