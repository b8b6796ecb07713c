// Ledgers in the registry: one key for each package, of the computer or of a user.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "standins/PrinterQueue/Surroundings.h"

namespace printerqueue {

class RegistryLedger : public ILedgerStore {
public:
    // The root is HKEY_LOCAL_MACHINE or HKEY_CURRENT_USER; the code names the package, in any of its
    // versions.
    RegistryLedger(HKEY rootKey, const std::wstring& packageCode);

    Ledger Read() override;
    void Write(const Ledger& ledger) override;
    std::vector<Deed> DeedsOfOthers() override;

private:
    HKEY root;
    std::wstring code;
};

}  // namespace printerqueue
