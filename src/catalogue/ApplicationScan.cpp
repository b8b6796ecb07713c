#include "catalogue/ApplicationScan.h"

#include <initializer_list>
#include <utility>

#include "catalogue/PackageProperties.h"
#include "catalogue/PackageReader.h"

namespace {

std::vector<std::wstring> ListAll(const CatalogueSource& source,
                                  std::initializer_list<const wchar_t*> folders) {
    std::vector<std::wstring> all;
    for (const wchar_t* folder : folders) {
        const std::vector<std::wstring> paths = source.listPackages(folder, {});
        all.insert(all.end(), paths.begin(), paths.end());
    }
    return all;
}

void ScanAlwaysInstalled(const CatalogueSource& source, AppCatalogue& applications) {
    for (const std::wstring& path :
         ListAll(source, {L"Applications\\", L"Applications\\x86_x64\\", L"Applications\\x64\\"})) {
        MSI_APP record = ReadProperties(source, path);
        record.isSelected = true;
        record.hasDependents = !record.dependents.empty();
        applications.Append(std::move(record));
    }
}

void ScanCommon(const CatalogueSource& source, AppCatalogue& applications) {
    for (const std::wstring& path : ListAll(source, {L"Common\\x86_x64\\", L"Common\\x64\\"})) {
        MSI_APP record = ReadProperties(source, path);
        record.isOptional = true;
        applications.Append(std::move(record));
    }
}

void ScanOptional(const CatalogueSource& source, AppCatalogue& applications) {
    for (const std::wstring& path : ListAll(source, {L"Optional\\x86_x64\\", L"Optional\\x64\\"})) {
        MSI_APP record = ReadProperties(source, path);
        record.isOptional = true;
        if (SupportsSystem(record.supportedOs, source.system.name)) applications.Append(std::move(record));
    }
}

}  // namespace

void ScanApplications(const CatalogueSource& source, AppCatalogue& applications) {
    ScanAlwaysInstalled(source, applications);
    ScanCommon(source, applications);
    ScanOptional(source, applications);
}
