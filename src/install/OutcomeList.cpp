#include "install/OutcomeList.h"

void OutcomeList::Clear() {
    records.clear();
    indexByKey.clear();
}

void OutcomeList::Note(const std::wstring& key, const MSI_APP& record) {
    const auto [known, isNew] = indexByKey.emplace(key, records.size());
    if (isNew) {
        records.push_back(record);
    } else {
        records.at(known->second).status = record.status;
    }
}
