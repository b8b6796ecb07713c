// The page on which the user picks the brand.
#pragma once

#include "wizard/InstallDialogEx.h"

class ManufacturerDlg : public InstallDialogEx {
public:
    static constexpr UINT dialogTemplate = 144;

    ManufacturerDlg() : InstallDialogEx(dialogTemplate) {}
};
