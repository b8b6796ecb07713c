// The end of a run without a restart: starts the programs that the packages name.
#pragma once

#include "settings/InstallSettings.h"
#include "wizard/Service.h"

class FinishService : public Service {
public:
    // Reads STARTAPP and TARGET_DIR of the settings, which must outlive the service.
    explicit FinishService(const InstallSettings& store) : settings(store) {}

    // Starts each program of STARTAPP from the target folder and waits for none. Returns 0, or the code of
    // the first that cannot be started; those after it are then left out.
    std::uint32_t DoRun() override;
    void Cancel() override {}

private:
    const InstallSettings& settings;
};
