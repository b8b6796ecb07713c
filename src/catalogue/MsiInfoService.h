// Builds both catalogues.
#pragma once

#include <atomic>

#include "catalogue/IMsiInterface.h"
#include "wizard/Service.h"

class MsiInfoService : public Service {
public:
    // The gateway must outlive the service.
    explicit MsiInfoService(IMsiInterface& gateway) : msi(gateway) {}

    // Reads the drivers, then the applications, on the caller's thread. Gives 0.
    std::uint32_t DoRun() override;
    // Stops a build that has not begun; one that has goes on to its end.
    void Cancel() override { cancelled = true; }

    // Each gives 0, or 1602 if the service was cancelled meanwhile.
    std::uint32_t buildDriverInfo();
    std::uint32_t buildAppInfo();

private:
    IMsiInterface& msi;
    std::atomic<bool> cancelled = false;
};
