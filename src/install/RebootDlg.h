// The page that asks whether to restart now.
#pragma once

#include "wizard/InstallDialogEx.h"

class RebootDlg : public InstallDialogEx {
public:
    static constexpr UINT dialogTemplate = 134;

    RebootDlg() : InstallDialogEx(dialogTemplate) {}
};
