// Undoes what runs have done, and does it again where a removal is rolled back.
#pragma once

#include <string>
#include <vector>

#include "standins/PrinterQueue/RunScope.h"

namespace printerqueue {

class DeedUndoer {
public:
    explicit DeedUndoer(RunScope& runScope) : scope(runScope) {}

    // Undoes a deed of which a run that was broken off is the doer. What is no longer as the run left it
    // stays as it is. What the spooler refuses is said, and left.
    void RollBack(const Deed& deed);

    // Undoes a lasting deed of the package that is removed, and adds what it was to the run's deeds. What
    // another package or a queue still needs stays. Throws an Exception if the spooler refuses to remove a
    // queue or a connection; a port or a driver that it keeps is said, and left.
    void Remove(Deed deed);

    // Brings back what a removal took away. What the spooler refuses is said, and left.
    void Restore(const Deed& deed);

private:
    std::uint32_t UndoQueue(const Deed& deed, const SpoolerState& state);
    std::uint32_t RestoreChange(const Deed& deed, const SpoolerState& state);
    std::uint32_t UndoPort(const Deed& deed, const SpoolerState& state);
    std::uint32_t UndoDriver(const Deed& deed, const SpoolerState& state);
    std::uint32_t UndoConnection(const Deed& deed, const SpoolerState& state);
    std::uint32_t UndoDefault(const Deed& deed, const SpoolerState& state);
    std::uint32_t Undo(const Deed& deed, const SpoolerState& state);
    std::uint32_t Redo(const Deed& deed, const SpoolerState& state);
    std::uint32_t Told(std::uint32_t code, const std::wstring& text);

    RunScope& scope;
};

}  // namespace printerqueue
