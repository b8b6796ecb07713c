// The end of a run without a restart: starts the programs that the packages name.
#pragma once

#include "wizard/Service.h"

class FinishService : public Service {
public:
    // Starts each program of STARTAPP from the target folder and waits for none. Gives 0, or the code of the
    // first that cannot be started; those behind it are then left out.
    std::uint32_t DoRun() override;
    void Cancel() override {}
};
