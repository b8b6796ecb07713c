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
    scope.Begin(order.id, false);
    PrinterMaker maker(scope, order.wishes);
    try {
        for (const PrinterDevice& device : order.devices) {
            order.part == Part::Computer ? maker.Make(device) : maker.MakeForUser(device);
        }
    } catch (const Exception&) {
        RollBack(order.id);
        throw;
    }
}

void PrinterRun::Remove(const RunOrder& order) {
    RunScope scope(spooler, store, report);
    scope.Begin(order.id, true);
    DeedUndoer undoer(scope);
    try {
        for (const Deed& deed : InOrderOfRemoval(scope.Records().lastingBefore)) undoer.Remove(deed);
        scope.Records().lasting.clear();
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
    scope.Records() = {.lasting = records.lastingBefore};
    scope.Save();
}

void PrinterRun::Commit(const std::wstring& id) {
    RunScope scope(spooler, store, report);
    if (scope.Records().runId != id) return;
    scope.Records() = {.lasting = scope.Records().lasting};
    scope.Save();
}

}  // namespace printerqueue
