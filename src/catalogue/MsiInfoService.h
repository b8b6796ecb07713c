// Builds both catalogues.
#pragma once

#include <atomic>

#include "catalogue/AppCatalogue.h"
#include "catalogue/CatalogueSource.h"
#include "catalogue/DriverInfo.h"
#include "catalogue/IMsiInterface.h"
#include "settings/InstallSettings.h"
#include "settings/Localizer.h"
#include "wizard/Service.h"

// The system that the program runs on.
TargetSystem ThisSystem();

class MsiInfoService : public Service {
public:
    // All of them must outlive the service.
    MsiInfoService(IMsiInterface& gateway, const InstallSettings& store, const Localizer& texts,
                   AppCatalogue& appCatalogue, DriverInfo& driverCatalogue);

    // Reads the drivers, then the applications, on the caller's thread. Returns 0.
    std::uint32_t DoRun() override;
    // Stops a build that has not begun; one that has goes on to its end.
    void Cancel() override { cancelled = true; }

    // Each returns 0, or 1602 if the service was cancelled meanwhile.
    std::uint32_t buildDriverInfo();
    std::uint32_t buildAppInfo();

private:
    CatalogueSource source;
    AppCatalogue& applications;
    DriverInfo& drivers;
    std::atomic<bool> cancelled = false;
};
