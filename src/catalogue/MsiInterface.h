// The one gateway to the MSI library, Brevanto.dll beside the program.
#pragma once

#include <map>
#include <string>

#include "catalogue/IMsiInterface.h"
#include "framework/Handles.h"
#include "settings/InstallSettings.h"
#include "settings/Localizer.h"

// Without the library, or where it lacks an export, the operations log that and return neutral results.
class MsiInterface : public IMsiInterface {
public:
    // Null only if there was no memory for it at the first call. The instance is never destroyed.
    static MsiInterface* GetInstance();

    // Loads the library at that path and initialises it. The settings name the maker for the library's own
    // log, the texts the language of its questions; both must outlive the object.
    MsiInterface(const std::wstring& libraryPath, const InstallSettings& store, const Localizer& texts);
    MsiInterface(const MsiInterface&) = delete;
    MsiInterface& operator=(const MsiInterface&) = delete;
    ~MsiInterface() override;

    std::uint32_t InstallApp(std::wstring packagePath, InstallProgressCallback callback,
                             std::wstring commandDocument) override;
    std::uint32_t UninstallApp(std::wstring packagePath, InstallProgressCallback callback) override;
    void Cancel() override;
    // The document of a package is asked for once; its first language stays, and so does a first failure.
    std::uint32_t GetPropertyValue(std::wstring packagePath, std::wstring property, std::wstring language,
                                   std::wstring& value) override;
    bool IsAppInstalled(std::wstring packagePath, bool& upToDate, bool& upgradable,
                        bool& minorUpgrade) override;

private:
    // The export of that name, or null with a record in the advanced log.
    template <class Function>
    Function Find(const char* name, const wchar_t* failure) const;
    void EnableInstallLog() const;
    // The property document of a package and the code of the call that fetched it.
    std::uint32_t FetchDocument(const std::wstring& packagePath, const std::wstring& language,
                                std::wstring& document);

    const InstallSettings& settings;
    const Localizer& localizer;
    // By path; filled at first use.
    std::map<std::wstring, std::wstring> propertyCache;
    Library library;
};
