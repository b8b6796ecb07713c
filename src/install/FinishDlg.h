// The page that tells how the run went. The chain holds it twice, under two names.
#pragma once

#include "wizard/InstallDialogEx.h"

class FinishDlg : public InstallDialogEx {
public:
    static constexpr UINT dialogTemplate = 131;

    explicit FinishDlg(const wchar_t* name) : InstallDialogEx(dialogTemplate) { dialogName = name; }
};
