// A system that a package is planned for: answers the wizard's questions from the files of the package.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "catalogue/IMsiInterface.h"
#include "tools/PackageCheck/InstalledStates.h"
#include "tools/PackageCheck/Package.h"

namespace packagecheck {

// Paths are those of the tree, from its root, with backslashes. What is installed here is up to date from
// then on, and so is whatever has the same product code.
class PlannedInstaller : public IMsiInterface {
public:
    // Both must outlive the object.
    PlannedInstaller(const Package& packageTree, const InstalledStates& installedStates);

    std::uint32_t InstallApp(std::wstring packagePath, InstallProgressCallback callback,
                             std::wstring commandDocument) override;
    std::uint32_t UninstallApp(std::wstring packagePath, InstallProgressCallback callback) override;
    void Cancel() override {}
    std::uint32_t GetPropertyValue(std::wstring packagePath, std::wstring property, std::wstring language,
                                   std::wstring& value) override;
    bool IsAppInstalled(std::wstring packagePath, bool& upToDate, bool& upgradable,
                        bool& minorUpgrade) override;

    // Returns the paths of the packages in a folder, as the wizard lists them, in the order of NTFS.
    std::vector<std::wstring> List(const std::wstring& folder, const std::wstring& fileNames) const;

    // Null for a path that is none of a package.
    const PackageFile* Find(const std::wstring& path) const;

    // The path of a package of the tree.
    static std::wstring PathOf(const PackageFile& file);

private:
    const Package& package;
    const InstalledStates& states;
    std::unordered_map<std::wstring, const PackageFile*> byPath;
    std::set<std::wstring> installed;  // paths and product codes
};

}  // namespace packagecheck
