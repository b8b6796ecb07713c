// The page of the devices, in a window as the wizard puts it.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <list>
#include <string>
#include <vector>

#include "catalogue/MSI_APP.h"
#include "discovery/DiscoveredDevice.h"
#include "discovery/DiscoveryDlg.h"
#include "framework/CDialogEx.h"
#include "resources/resource.h"
#include "tests/windows/world/CatalogueWorld.h"
#include "tests/windows/world/TestApp.h"

// A test with the page in a window and the texts of its list.
class DevicesPageWorld : public CatalogueWorld {
protected:
    DevicesPageWorld();
    ~DevicesPageWorld() override;

    // The walk comes to the page, and the service fills the driver list.
    void Show();
    void Deliver(std::list<DiscoveredDevice> devices);
    HWND At(int id) const { return page.GetDlgItem(id); }
    bool IsShown(int id) const { return IsWindowVisible(At(id)) != FALSE; }
    bool IsEnabled(int id) const { return IsWindowEnabled(At(id)) != FALSE; }
    void Click(int id) const { SendMessageW(At(id), BM_CLICK, 0, 0); }
    std::wstring Cell(int row, int column) const;
    std::vector<std::wstring> Column(int column) const;
    std::vector<std::wstring> Headings() const;
    // The numbers of the pictures of the three headings.
    std::vector<int> HeadingImages() const;
    int SelectedRow() const { return ListView_GetNextItem(At(IDC_DISCOVERY_LIST), -1, LVNI_SELECTED); }
    void Select(int row) const;
    void ClickColumn(int column) const;
    // The name of the selected driver; empty without one.
    std::wstring SelectedDriver() const;

    TestApp app;
    CDialogEx window;
    DriverConfiguration configuration{Settings(), AppRecords(), DriverRecords()};
    DiscoveryDlg page{context, AppRecords(), DriverRecords(), configuration,
                      DiscoveredDevices::GetInstance()};
};

// A printer driver with that identifier, named after it.
MSI_APP Driver(const std::wstring& id);
// Two devices with a series and a colour, one with a model alone, which becomes the fourth row, and one of no
// known colour.
std::list<DiscoveredDevice> FourDevices();
