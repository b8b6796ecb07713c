// What the program asks of the MSI library.
#pragma once

#include <cstdint>
#include <string>

#include "CommonLib/PackageLibraries.h"

class IMsiInterface {
public:
    IMsiInterface() = default;
    IMsiInterface(const IMsiInterface&) = delete;
    IMsiInterface& operator=(const IMsiInterface&) = delete;
    virtual ~IMsiInterface() = default;

    // Installs the package with the command document; returns when the library is done. Returns the library's
    // code, 0 if there is no library.
    virtual std::uint32_t InstallApp(std::wstring packagePath, InstallProgressCallback callback,
                                     std::wstring commandDocument) = 0;
    // Removes the product of the package; returns when the library is done. Returns the library's code, 0 if
    // there is no library.
    virtual std::uint32_t UninstallApp(std::wstring packagePath, InstallProgressCallback callback) = 0;
    // Makes the running call return early. May be called from another thread than it.
    virtual void Cancel() = 0;
    // Reads a property of a package. Returns 0, 1168 for a property that the package does not hold (the value
    // is then left as it was), or the code of the library.
    virtual std::uint32_t GetPropertyValue(std::wstring packagePath, std::wstring property,
                                           std::wstring language, std::wstring& value) = 0;
    // Whether the package's product is installed, and how it stands to the package. Without the library
    // false, and the other values stay as they were.
    virtual bool IsAppInstalled(std::wstring packagePath, bool& upToDate, bool& upgradable,
                                bool& minorUpgrade) = 0;
};
