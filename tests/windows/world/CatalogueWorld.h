// A test of packages that lie in the tree and are known to a fake gateway.
#pragma once

#include <list>
#include <string>
#include <vector>

#include "catalogue/AppCatalogue.h"
#include "catalogue/DriverInfo.h"
#include "tests/windows/world/FakeMsi.h"
#include "tests/windows/world/SettingsWorld.h"

// Begins and ends with empty catalogues.
class CatalogueWorld : public SettingsWorld {
protected:
    CatalogueWorld();
    ~CatalogueWorld() override;

    // Lays the package into a folder of the tree, with its file's stem as product name; its properties and
    // its state are the caller's to change.
    FakePackage& AddPackage(const std::wstring& folder, const std::wstring& name);
    // The same for a driver package with that identifier, whose type this system accepts.
    FakePackage& AddDriver(const std::wstring& name, const std::wstring& driverId);
    void BuildCatalogues();

    static std::list<MSI_APP> Applications();
    static MSI_APP Application(const std::wstring& productName);
    // The product names, in catalogue order.
    static std::vector<std::wstring> ApplicationNames();
    static std::vector<std::wstring> DriverNames();

    static AppCatalogue& AppRecords() { return AppCatalogue::GetInstance(); }
    static DriverInfo& DriverRecords() { return DriverInfo::GetInstance(); }

    FakeMsi msi;

private:
    static void ClearCatalogues();
};
