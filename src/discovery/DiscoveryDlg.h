// The page that shows the devices found on the network.
#pragma once

#include "wizard/InstallDialogEx.h"

class DiscoveryDlg : public InstallDialogEx {
public:
    static constexpr UINT dialogTemplate = 136;

    DiscoveryDlg() : InstallDialogEx(dialogTemplate) {}
};
