#include "standins/PrinterQueue/RunScope.h"

#include <algorithm>

#include "CommonLib/Exception.h"
#include "CommonLib/MsiCodes.h"
#include "CommonLib/TextUtilities.h"

namespace printerqueue {

void RunScope::Begin(const std::wstring& runId, bool removes) {
    ledger.runId = runId;
    ledger.runRemoves = removes;
    ledger.run.clear();
    ledger.lastingBefore = ledger.lasting;
    ledger.ownerBefore = ledger.owner;
    Save();
}

void RunScope::Announce(const Deed& deed) {
    lastingBeforeDeed = ledger.lasting;
    ledger.run.push_back(deed);
    AddLastingDeed(ledger.lasting, deed);
    Save();
}

void RunScope::Withdraw() {
    ledger.run.pop_back();
    ledger.lasting = lastingBeforeDeed;
    Save();
}

SpoolerState RunScope::Look() {
    SpoolerState state;
    const std::uint32_t code = spooler.Look(state);
    if (code != 0) throw Exception(L"The print spooler does not answer" + ReasonOf(code));
    return state;
}

void RunScope::Step(const std::wstring& text) {
    report.Say(text);
    if (report.IsCancelled()) throw Exception(L"The user has cancelled.", MsiCode::UserCancelled);
}

std::wstring RunScope::ReasonOf(std::uint32_t code) {
    const std::wstring text = spooler.TextOf(code);
    return L" (error " + ToDecimalString(code) + (text.empty() ? L"" : L": " + text) + L")";
}

std::wstring Quote(const std::wstring& text) {
    return L"\"" + text + L"\"";
}

const PrintQueue* FindQueue(const SpoolerState& state, const std::wstring& name) {
    const auto found = std::ranges::find_if(
        state.queues, [&](const PrintQueue& queue) { return EqualsIgnoringCase(queue.name, name); });
    return found == state.queues.end() ? nullptr : &*found;
}

bool HoldsName(const std::vector<std::wstring>& names, const std::wstring& name) {
    return std::ranges::any_of(names,
                               [&](const std::wstring& other) { return EqualsIgnoringCase(other, name); });
}

}  // namespace printerqueue
