#include "standins/PrinterQueue/PrinterRun.h"

#include <algorithm>
#include <functional>

#include "CommonLib/Exception.h"
#include "standins/PrinterQueue/DeedUndoer.h"
#include "standins/PrinterQueue/PrinterMaker.h"

namespace printerqueue {
namespace {

// Last things first.
std::vector<Deed> Reversed(const std::vector<Deed>& deeds) {
    return {deeds.rbegin(), deeds.rend()};
}

// Queues before what they use, whichever run has made which.
std::vector<Deed> InOrderOfRemoval(const std::vector<Deed>& deeds) {
    std::vector<Deed> sorted = Reversed(deeds);
    std::ranges::stable_sort(sorted, std::greater{}, &Deed::kind);
    return sorted;
}

}  // namespace

void PrinterRun::SetUp(const RunOrder& order) {
    RunScope scope(spooler, store, report);
    if (order.devices.empty() && scope.Records() == Ledger{}) return;
    scope.Begin(order.id, false);
    scope.Records().owner = order.version;
    scope.Save();
    PrinterMaker maker(scope, order.wishes);
    try {
        for (const PrinterDevice& device : order.devices) {
            order.part == Part::Computer ? maker.Make(device) : maker.MakeForUser(device);
        }
        scope.Step(L"Every device is set up.");
    } catch (const Exception&) {
        RollBack(order.id);
        throw;
    }
}

void PrinterRun::Remove(const RunOrder& order) {
    RunScope scope(spooler, store, report);
    if (scope.Records().lasting.empty()) return;
    if (scope.Records().owner != order.version) {
        scope.Say(L"The printers belong to another version of the package, and stay.");
        return;
    }
    scope.Begin(order.id, true);
    DeedUndoer undoer(scope);
    try {
        for (const Deed& deed : InOrderOfRemoval(scope.Records().lastingBefore)) undoer.Remove(deed);
        scope.Records().lasting.clear();
        scope.Records().owner.clear();
        scope.Save();
    } catch (const Exception&) {
        RollBack(order.id);
        throw;
    }
}

void PrinterRun::RollBack(const std::wstring& id) {
    RunScope scope(spooler, store, report);
    const Ledger records = scope.Records();
    if (records.runId != id) return;
    DeedUndoer undoer(scope);
    for (const Deed& deed : Reversed(records.run)) {
        records.runRemoves ? undoer.Restore(deed) : undoer.RollBack(deed);
    }
    scope.Records() = {.lasting = records.lastingBefore, .owner = records.ownerBefore};
    scope.Save();
}

void PrinterRun::Commit(const std::wstring& id) {
    RunScope scope(spooler, store, report);
    if (scope.Records().runId != id) return;
    const Ledger& records = scope.Records();
    scope.Records() =
        records.lasting.empty() ? Ledger{} : Ledger{.lasting = records.lasting, .owner = records.owner};
    scope.Save();
}

}  // namespace printerqueue
