// What a run works with besides the spooler.
#pragma once

#include <string>
#include <vector>

#include "standins/PrinterQueue/Deed.h"

namespace printerqueue {

// Where the ledger of the package is kept, apart for the computer and for each user.
class ILedgerStore {
public:
    ILedgerStore() = default;
    ILedgerStore(const ILedgerStore&) = delete;
    ILedgerStore& operator=(const ILedgerStore&) = delete;
    virtual ~ILedgerStore() = default;

    // Returns the empty ledger where there is none.
    virtual Ledger Read() = 0;
    // Leaves nothing behind for the empty ledger. Throws an Exception if the system refuses.
    virtual void Write(const Ledger& ledger) = 0;
    // Returns the lasting deeds of all other packages.
    virtual std::vector<Deed> DeedsOfOthers() = 0;
};

// The log of the installation, and its user.
class IReport {
public:
    IReport() = default;
    IReport(const IReport&) = delete;
    IReport& operator=(const IReport&) = delete;
    virtual ~IReport() = default;

    virtual void Say(const std::wstring& text) = 0;
    // Returns true if the user wants the installation to end.
    virtual bool IsCancelled() = 0;
};

}  // namespace printerqueue
