// The packages of the tree that are not drivers, in scan order.
#pragma once

#include <functional>
#include <list>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "catalogue/MSI_APP.h"

// Built once at start; afterwards only flags and the status of records change. Safe on any thread.
class AppCatalogue {
public:
    static AppCatalogue& GetInstance();

    AppCatalogue() = default;

    // Copies of the records that pass the filter document, in catalogue order; an empty filter passes all.
    std::list<MSI_APP> Select(std::wstring_view filter) const;

    // A copy of the first record of exactly that type, as the package's APPTYPE says it.
    std::optional<MSI_APP> FirstOfType(std::wstring_view appType) const;

    void Clear();
    void Append(MSI_APP record);
    // Notes in the record of that package whether this run has installed it, and its status.
    void RecordOutcome(const MSI_APP& outcome);
    // Changes the records in place, in catalogue order. The change must not come back to the catalogue.
    void Update(const std::function<void(MSI_APP&)>& change);

private:
    mutable std::mutex lock;
    std::list<MSI_APP> records;
    std::unordered_map<std::wstring, MSI_APP*> byPath;
};
