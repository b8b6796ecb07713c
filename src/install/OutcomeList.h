// What has become of packages in a run.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "catalogue/MSI_APP.h"

// The records of packages by a key, in the order in which each key came up first. Belongs to one thread at a
// time.
class OutcomeList {
public:
    void Clear();
    // Adds a copy of the record, or gives its status to the one that has the key already.
    void Note(const std::wstring& key, const MSI_APP& record);
    const std::vector<MSI_APP>& Records() const { return records; }

private:
    std::vector<MSI_APP> records;
    std::unordered_map<std::wstring, std::size_t> indexByKey;
};
