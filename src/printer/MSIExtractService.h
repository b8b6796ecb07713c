// Unpacks a driver configuration tool from its package into the temporary folder.
#pragma once

#include <string>
#include <string_view>

#include "catalogue/AppCatalogue.h"
#include "framework/Handles.h"
#include "wizard/Service.h"

// Whether this process has had the tool of each generation unpacked, even where that failed.
inline bool v4ToolUnpacked = false;
inline bool olderToolUnpacked = false;

class MSIExtractService : public Service {
public:
    // With a path that package is unpacked, and the catalogue is not asked.
    explicit MSIExtractService(const AppCatalogue& catalogue, std::wstring packagePath = {});

    // An identifier that holds "V4" selects the newer tool of the catalogue, any other the older one.
    void SetDriverId(const std::wstring& id) { driverId = id; }

    // Starts Windows Installer's program, unless there is no package or a link stands where the tool would
    // go, and does not wait for it. A start that fails, or that is refused because of a link, is logged.
    // Returns 1.
    std::uint32_t DoRun() override;
    void Cancel() override {}

    // Whether the last run has started an unpacking.
    bool Launched() const { return static_cast<bool>(process); }
    // Waits for the unpacking that the last run has started. One that takes minutes is logged and left alone.
    void WaitForEnd() const;

private:
    std::wstring PackageOfType(std::wstring_view appType) const;
    void Unpack(const std::wstring& folder);

    const AppCatalogue& applications;
    std::wstring driverId;
    // Emptied by the run that uses it.
    std::wstring msiPath;
    // What the last run has started, with what it was started for.
    KernelHandle process;
    std::wstring package;
};
