#include "tests/windows/world/CatalogueWorld.h"

#include <filesystem>

#include "catalogue/MsiInfoService.h"

CatalogueWorld::CatalogueWorld() {
    ClearCatalogues();
    AddTexts("<LANGUAGE_ID>1033</LANGUAGE_ID><LBL_LOCALIZED_AND>and</LBL_LOCALIZED_AND>");
}

CatalogueWorld::~CatalogueWorld() {
    ClearCatalogues();
}

void CatalogueWorld::ClearCatalogues() {
    AppRecords().Clear();
    DriverRecords().Clear();
}

FakePackage& CatalogueWorld::AddPackage(const std::wstring& folder, const std::wstring& name) {
    tree.Add(folder + L"\\" + name);
    FakePackage& package = msi.packages[name];
    package.properties[L"ProductName"] = std::filesystem::path(name).stem().wstring();
    return package;
}

FakePackage& CatalogueWorld::AddDriver(const std::wstring& name, const std::wstring& driverId) {
    const std::wstring accepted = Settings().GetString(Tag::WIN8_DRVTYPES);
    Settings().SetString(Tag::WIN8_DRVTYPES, accepted.empty() ? driverId : accepted + L";" + driverId);
    FakePackage& package = AddPackage(L"Drivers\\x64", name);
    package.properties[L"DRIVERID"] = driverId;
    return package;
}

void CatalogueWorld::BuildCatalogues() {
    MsiInfoService(msi, Settings(), Texts(), AppRecords(), DriverRecords()).DoRun();
}

std::list<MSI_APP> CatalogueWorld::Applications() {
    return AppRecords().Select(L"");
}

MSI_APP CatalogueWorld::Application(const std::wstring& productName) {
    for (const MSI_APP& record : Applications()) {
        if (record.productName == productName) return record;
    }
    ADD_FAILURE() << "no such application";
    return {};
}

std::vector<std::wstring> CatalogueWorld::ApplicationNames() {
    std::vector<std::wstring> names;
    for (const MSI_APP& record : Applications()) names.push_back(record.productName);
    return names;
}

std::vector<std::wstring> CatalogueWorld::DriverNames() {
    std::vector<std::wstring> names;
    for (const MSI_APP& record : DriverRecords().GetDrivers()) names.push_back(record.productName);
    return names;
}
