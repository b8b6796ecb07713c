// One run of one package over its spooler: what it does is written down before it is done.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "standins/PrinterQueue/Surroundings.h"

namespace printerqueue {

// Used by one thread. What it is made of must outlive it. Every operation but Say throws an Exception
// for what the system refuses.
class RunScope {
public:
    RunScope(ISpooler& spoolerOfRun, ILedgerStore& storeOfRun, IReport& reportOfRun)
        : spooler(spoolerOfRun), store(storeOfRun), report(reportOfRun), ledger(store.Read()) {}

    ISpooler& Spooler() { return spooler; }
    Ledger& Records() { return ledger; }
    std::vector<Deed> DeedsOfOthers() { return store.DeedsOfOthers(); }

    void Begin(const std::wstring& runId, bool removes);
    void Save() { store.Write(ledger); }
    // Keeps a deed in front of it: a roll-back then finds it even where the run breaks off in between.
    void Announce(const Deed& deed);
    // Takes the last announcement back, for a deed that was not done after all.
    void Withdraw();

    SpoolerState Look();
    void Say(const std::wstring& text) { report.Say(text); }
    // Says what was done, and throws an Exception of the code UserCancelled if the user has had enough.
    void Step(const std::wstring& text);
    // Returns " (error 5: Access is denied.)".
    std::wstring ReasonOf(std::uint32_t code);

private:
    ISpooler& spooler;
    ILedgerStore& store;
    IReport& report;
    Ledger ledger;
    std::vector<Deed> lastingBeforeDeed;
};

// Returns the text in quotation marks.
std::wstring Quote(const std::wstring& text);

const PrintQueue* FindQueue(const SpoolerState& state, const std::wstring& name);
bool HoldsName(const std::vector<std::wstring>& names, const std::wstring& name);

}  // namespace printerqueue
