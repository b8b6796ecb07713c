// The page that offers the way past an installation that is up to date.
#pragma once

#include "wizard/InstallDialogEx.h"

class OptionalSoftwareBypassDlg : public InstallDialogEx {
public:
    static constexpr UINT dialogTemplate = 5;

    OptionalSoftwareBypassDlg() : InstallDialogEx(dialogTemplate) {}
};
