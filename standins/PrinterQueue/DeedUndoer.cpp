#include "standins/PrinterQueue/DeedUndoer.h"

#include <algorithm>
#include <utility>

#include "CommonLib/Exception.h"
#include "CommonLib/TextUtilities.h"

namespace printerqueue {
namespace {

bool IsPortUsed(const SpoolerState& state, const std::wstring& port) {
    return std::ranges::any_of(state.queues,
                               [&](const PrintQueue& queue) { return EqualsIgnoringCase(queue.port, port); });
}

bool IsDriverUsed(const SpoolerState& state, const std::wstring& driver) {
    return std::ranges::any_of(
        state.queues, [&](const PrintQueue& queue) { return EqualsIgnoringCase(queue.driver, driver); });
}

// The former value, if the present one is still that of the package.
void TakeBack(std::wstring& now, const std::wstring& before, const std::wstring& after) {
    if (now == after) now = before;
}

// Ports and drivers may be in use by what the library does not see, so keeping them is no failure.
bool MayStay(DeedKind kind) {
    return kind == DeedKind::PortMade || kind == DeedKind::DriverMade || kind == DeedKind::DefaultChanged;
}

// What a removal is about to take away, as it is now and not as the package once made it.
void TakeDownPresent(Deed& deed, const SpoolerState& state) {
    if (deed.kind != DeedKind::QueueMade && deed.kind != DeedKind::QueueChanged) return;
    if (const PrintQueue* queue = FindQueue(state, deed.name)) deed.after = *queue;
}

}  // namespace

void DeedUndoer::RollBack(const Deed& deed) {
    const std::uint32_t code = Undo(deed, scope.Look());
    if (code != 0) scope.Say(Quote(deed.name) + L" stays behind" + scope.ReasonOf(code));
}

void DeedUndoer::Remove(Deed deed) {
    const std::vector<Deed> others = scope.DeedsOfOthers();
    if (FindDeed(others, deed.kind, deed.name) != nullptr) {
        scope.Say(Quote(deed.name) + L" stays for another package.");
        return;
    }
    const SpoolerState state = scope.Look();
    Deed taken = deed;
    TakeDownPresent(taken, state);
    scope.Records().run.push_back(std::move(taken));
    scope.Save();
    const std::uint32_t code = Undo(deed, state);
    if (code == 0) return;
    if (!MayStay(deed.kind)) {
        throw Exception(L"The printer " + Quote(deed.name) + L" cannot be removed" + scope.ReasonOf(code));
    }
    scope.Say(Quote(deed.name) + L" stays behind" + scope.ReasonOf(code));
}

void DeedUndoer::Restore(const Deed& deed) {
    const std::uint32_t code = Redo(deed, scope.Look());
    if (code != 0) scope.Say(Quote(deed.name) + L" cannot be brought back" + scope.ReasonOf(code));
}

std::uint32_t DeedUndoer::Undo(const Deed& deed, const SpoolerState& state) {
    switch (deed.kind) {
        case DeedKind::QueueMade:
            return UndoQueue(deed, state);
        case DeedKind::QueueChanged:
            return RestoreChange(deed, state);
        case DeedKind::PortMade:
            return UndoPort(deed, state);
        case DeedKind::DriverMade:
            return UndoDriver(deed, state);
        case DeedKind::ConnectionMade:
            return UndoConnection(deed, state);
        case DeedKind::DefaultChanged:
            return UndoDefault(deed, state);
    }
    return 0;
}

std::uint32_t DeedUndoer::Redo(const Deed& deed, const SpoolerState& state) {
    ISpooler& spooler = scope.Spooler();
    switch (deed.kind) {
        case DeedKind::QueueMade:
            return FindQueue(state, deed.name) != nullptr ? 0 : spooler.AddQueue(deed.after);
        case DeedKind::QueueChanged:
            return FindQueue(state, deed.name) == nullptr ? 0 : spooler.ChangeQueue(deed.after);
        case DeedKind::PortMade:
            return HoldsName(state.ports, deed.name) ? 0 : spooler.MakePort(deed.port);
        case DeedKind::DriverMade:
            return HoldsName(state.drivers, deed.name) ? 0 : spooler.InstallDriver(deed.name, deed.infPath);
        case DeedKind::ConnectionMade:
            return HoldsName(state.connections, deed.name) ? 0 : spooler.AddConnection(deed.name);
        case DeedKind::DefaultChanged:
            return spooler.SetDefault(deed.name);
    }
    return 0;
}

std::uint32_t DeedUndoer::UndoQueue(const Deed& deed, const SpoolerState& state) {
    if (FindQueue(state, deed.name) == nullptr) return 0;
    return Told(scope.Spooler().DeleteQueue(deed.name),
                L"The printer " + Quote(deed.name) + L" was removed.");
}

std::uint32_t DeedUndoer::RestoreChange(const Deed& deed, const SpoolerState& state) {
    const PrintQueue* queue = FindQueue(state, deed.name);
    if (queue == nullptr) return 0;
    PrintQueue restored = *queue;
    TakeBack(restored.port, deed.before.port, deed.after.port);
    TakeBack(restored.driver, deed.before.driver, deed.after.driver);
    TakeBack(restored.location, deed.before.location, deed.after.location);
    TakeBack(restored.comment, deed.before.comment, deed.after.comment);
    if (restored == *queue) return 0;
    return Told(scope.Spooler().ChangeQueue(restored),
                L"The printer " + Quote(deed.name) + L" is again what it was before.");
}

std::uint32_t DeedUndoer::UndoPort(const Deed& deed, const SpoolerState& state) {
    if (!HoldsName(state.ports, deed.name)) return 0;
    if (IsPortUsed(state, deed.name)) {
        scope.Say(L"The port " + Quote(deed.name) + L" stays for another printer.");
        return 0;
    }
    return Told(scope.Spooler().RemovePort(deed.port), L"The port " + Quote(deed.name) + L" was removed.");
}

std::uint32_t DeedUndoer::UndoDriver(const Deed& deed, const SpoolerState& state) {
    if (!HoldsName(state.drivers, deed.name)) return 0;
    if (IsDriverUsed(state, deed.name)) {
        scope.Say(L"The driver " + Quote(deed.name) + L" stays for another printer.");
        return 0;
    }
    return Told(scope.Spooler().DeleteDriver(deed.name),
                L"The driver " + Quote(deed.name) + L" was removed.");
}

std::uint32_t DeedUndoer::UndoConnection(const Deed& deed, const SpoolerState& state) {
    if (!HoldsName(state.connections, deed.name)) return 0;
    return Told(scope.Spooler().DeleteConnection(deed.name),
                L"The connection to " + Quote(deed.name) + L" was removed.");
}

std::uint32_t DeedUndoer::UndoDefault(const Deed& deed, const SpoolerState& state) {
    const bool isStillOurs = EqualsIgnoringCase(state.defaultQueue, deed.name);
    const bool hasFormer =
        FindQueue(state, deed.former) != nullptr || HoldsName(state.connections, deed.former);
    if (!isStillOurs || !hasFormer) return 0;
    return Told(scope.Spooler().SetDefault(deed.former),
                L"The printer " + Quote(deed.former) + L" is the default again.");
}

// Says the text for the code 0.
std::uint32_t DeedUndoer::Told(std::uint32_t code, const std::wstring& text) {
    if (code == 0) scope.Say(text);
    return code;
}

}  // namespace printerqueue
