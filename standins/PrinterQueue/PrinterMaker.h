// Sets devices up: port, driver, queue.
#pragma once

#include <string>

#include "standins/PrinterQueue/PrinterDevice.h"
#include "standins/PrinterQueue/RunScope.h"

namespace printerqueue {

// Both operations throw an Exception that names the printer and says why it cannot be set up, or of the code
// UserCancelled. What was done by then is in the run's records.
class PrinterMaker {
public:
    PrinterMaker(RunScope& runScope, const PackageWishes& packageWishes)
        : scope(runScope), wishes(packageWishes) {}

    // Sets up what belongs to the computer.
    void Make(const PrinterDevice& device);
    // Sets up what belongs to the user: the connection to a shared printer, and the default.
    void MakeForUser(const PrinterDevice& device);

private:
    void MakePort(const PrinterDevice& device);
    void MakeQueue(const PrinterDevice& device);
    void ChangeQueue(const PrintQueue& before, const PrintQueue& after);
    void KeepShared(DeedKind kind, const std::wstring& name);
    void ConnectTo(const PrinterDevice& device);
    void MakeDefault(const std::wstring& name);
    void ChooseDriver(const std::wstring& printer);
    bool TakeVendorDriver(const SpoolerState& state);
    bool TakeClassDriver(const SpoolerState& state, const std::wstring& name);
    bool InstallDriver(const SpoolerState& state, const std::wstring& name, const std::wstring& infPath);

    RunScope& scope;
    const PackageWishes& wishes;
    std::wstring driver;  // empty until it is needed
};

}  // namespace printerqueue
