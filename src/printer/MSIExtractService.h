// Unpacks a driver configuration tool from its package into the temporary folder.
#pragma once

#include <string>
#include <string_view>

#include "catalogue/AppCatalogue.h"
#include "wizard/Service.h"

// Whether this process has had the tool of each generation unpacked, even if the user has refused that.
inline bool v4ToolUnpacked = false;
inline bool olderToolUnpacked = false;

class MSIExtractService : public Service {
public:
    // With a path that package is unpacked, and the catalogue is not asked.
    explicit MSIExtractService(const AppCatalogue& catalogue, std::wstring packagePath = {});

    // An identifier that holds "V4" selects the newer tool of the catalogue, any other the older one.
    void SetDriverId(const std::wstring& id) { driverId = id; }

    // Starts the unpacking and does not wait for it. Returns 1.
    std::uint32_t DoRun() override;
    void Cancel() override {}

    // Whether the shell has accepted the last command.
    bool Launched() const { return launched; }

private:
    std::wstring MakeParameters();
    std::wstring PackageOfType(std::wstring_view appType) const;

    const AppCatalogue& applications;
    bool launched = false;
    std::wstring driverId;
    // Emptied by the run that uses it.
    std::wstring msiPath;
};
