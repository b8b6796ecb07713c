// Feeds the page for a port by hand with what this system and the package have.
#pragma once

#include <vector>

#include "ports/PortEntry.h"
#include "wizard/Service.h"

class AddPortDlg;

class AddPortService : public Service {
public:
    // The page is not owned; without one only the ports are read.
    explicit AddPortService(AddPortDlg* addPortPage) : page(addPortPage) {}

    // Fills the page's lists anew, on the page's thread. Gives 0. A system that does not tell its ports has
    // none.
    std::uint32_t DoRun() override;
    void Cancel() override {}

private:
    void FillDrivers() const;

    std::vector<PortEntry> ports;
    AddPortDlg* page;
};
