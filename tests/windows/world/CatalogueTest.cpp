#include "CatalogueTest.h"

#include <filesystem>

#include "catalogue/MsiInfoService.h"

CatalogueTest::CatalogueTest() {
    ClearCatalogues();
    AddTexts("<LANGUAGE_ID>1033</LANGUAGE_ID><LBL_LOCALIZED_AND>and</LBL_LOCALIZED_AND>");
}

CatalogueTest::~CatalogueTest() {
    ClearCatalogues();
}

void CatalogueTest::ClearCatalogues() {
    AppRecords().Clear();
    DriverRecords().Clear();
}

FakePackage& CatalogueTest::AddPackage(const std::wstring& folder, const std::wstring& name) {
    tree.Add(folder + L"\\" + name);
    FakePackage& package = msi.packages[name];
    package.properties[L"ProductName"] = std::filesystem::path(name).stem().wstring();
    return package;
}

FakePackage& CatalogueTest::AddDriver(const std::wstring& name, const std::wstring& driverId) {
    const std::wstring accepted = Settings().GetString(Tag::WIN8_DRVTYPES);
    Settings().SetString(Tag::WIN8_DRVTYPES, accepted.empty() ? driverId : accepted + L";" + driverId);
    FakePackage& package = AddPackage(L"Drivers\\x64", name);
    package.properties[L"DRIVERID"] = driverId;
    return package;
}

void CatalogueTest::BuildCatalogues() {
    MsiInfoService(msi, Settings(), Texts(), AppRecords(), DriverRecords()).DoRun();
}

std::list<MSI_APP> CatalogueTest::Applications() {
    return AppRecords().Select(L"");
}

MSI_APP CatalogueTest::Application(const std::wstring& productName) {
    for (const MSI_APP& record : Applications()) {
        if (record.productName == productName) return record;
    }
    ADD_FAILURE() << "no such application";
    return {};
}

std::vector<std::wstring> CatalogueTest::ApplicationNames() {
    std::vector<std::wstring> names;
    for (const MSI_APP& record : Applications()) names.push_back(record.productName);
    return names;
}

std::vector<std::wstring> CatalogueTest::DriverNames() {
    std::vector<std::wstring> names;
    for (const MSI_APP& record : DriverRecords().GetDrivers()) names.push_back(record.productName);
    return names;
}
