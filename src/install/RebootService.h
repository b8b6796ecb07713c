// The end of a run with a restart.
#pragma once

#include "wizard/Service.h"

class RebootService : public Service {
public:
    // Asks the system to restart; the request is under way when this returns. Returns 0 or the system's
    // error.
    std::uint32_t DoRun() override;
    void Cancel() override {}
};
