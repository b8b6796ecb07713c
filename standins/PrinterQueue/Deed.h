// What a run has done to the system, as a record from which it can be undone.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "standins/PrinterQueue/Spooler.h"

namespace printerqueue {

// In the order in which one needs another.
enum class DeedKind { DriverMade, PortMade, QueueMade, QueueChanged, ConnectionMade, DefaultChanged };

struct Deed {
    DeedKind kind = DeedKind::DriverMade;
    std::wstring name;     // of the port, the driver, the queue, the connection, the new default
    std::wstring former;   // DefaultChanged: the default before
    std::wstring infPath;  // DriverMade: empty for a driver of Windows
    PrinterPort port;      // PortMade
    PrintQueue before;     // QueueChanged
    PrintQueue after;      // QueueMade, QueueChanged

    friend bool operator==(const Deed&, const Deed&) = default;
};

// What is recorded of one package.
struct Ledger {
    std::vector<Deed> lasting;  // what a removal of the package undoes
    std::wstring owner;         // the version that has set up last
    // The run that is on, or was interrupted: its deeds, and what the package's deeds were before it.
    std::wstring runId;
    bool runRemoves = false;
    std::vector<Deed> run;
    std::vector<Deed> lastingBefore;
    std::wstring ownerBefore;

    friend bool operator==(const Ledger&, const Ledger&) = default;
};

std::wstring WriteLedger(const Ledger& ledger);

// Returns what the text holds; deeds of a kind that is not known are left out.
Ledger ReadLedger(std::wstring_view text);

// Returns the deed of that kind and name, or null. The spooler does not tell capital letters from small ones.
const Deed* FindDeed(const std::vector<Deed>& deeds, DeedKind kind, std::wstring_view name);

// Adds a deed to what a removal undoes. What the package has made stays its own however often it is changed
// later, and of what it has changed the state before the first change counts.
void AddLastingDeed(std::vector<Deed>& lasting, const Deed& deed);

}  // namespace printerqueue
