// The runs of a package: setting up, removing, and rolling either back.
#pragma once

#include <string>
#include <vector>

#include "standins/PrinterQueue/Orders.h"
#include "standins/PrinterQueue/PrinterDevice.h"
#include "standins/PrinterQueue/Surroundings.h"

namespace printerqueue {

struct RunOrder {
    std::wstring id;
    std::wstring version;  // names the version of the package
    Part part = Part::Computer;
    PackageWishes wishes;
    std::vector<PrinterDevice> devices;
};

// Used by one thread; what it is made of must outlive it. The operations throw an Exception for what goes
// wrong, or of the code UserCancelled, and have then undone what they had done.
class PrinterRun {
public:
    PrinterRun(ISpooler& spoolerOfRun, ILedgerStore& storeOfRun, IReport& reportOfRun)
        : spooler(spoolerOfRun), store(storeOfRun), report(reportOfRun) {}

    // Takes over what another version has set up, also where there is no device.
    void SetUp(const RunOrder& order);
    // Removes what is recorded of the package, whatever the order's devices are. What a later version has set
    // up or taken over is left to that one.
    void Remove(const RunOrder& order);
    // Undoes the run of that id. Does nothing for a run that is over, and goes on past what the spooler
    // refuses.
    void RollBack(const std::wstring& id);
    // Ends the run of that id: it can no longer be undone.
    void Commit(const std::wstring& id);

private:
    ISpooler& spooler;
    ILedgerStore& store;
    IReport& report;
};

}  // namespace printerqueue
