#include "catalogue/AppCatalogue.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "CommonLib/Singleton.h"

namespace {

Singleton<AppCatalogue> theApplications;

}  // namespace

AppCatalogue& AppCatalogue::GetInstance() {
    return theApplications.Get();
}

std::list<MSI_APP> AppCatalogue::Select(std::wstring_view filter) const {
    const std::lock_guard guard(lock);
    std::list<MSI_APP> selected;
    std::copy_if(records.begin(), records.end(), std::back_inserter(selected),
                 [&](const MSI_APP& record) { return record.Matches(filter); });
    return selected;
}

std::optional<MSI_APP> AppCatalogue::FirstOfType(std::wstring_view appType) const {
    const std::lock_guard guard(lock);
    const auto found = std::ranges::find(records, appType, &MSI_APP::appType);
    return found == records.end() ? std::nullopt : std::optional<MSI_APP>(*found);
}

void AppCatalogue::Clear() {
    const std::lock_guard guard(lock);
    byPath.clear();
    records.clear();
}

void AppCatalogue::Append(MSI_APP record) {
    const std::lock_guard guard(lock);
    records.push_back(std::move(record));
    byPath.emplace(records.back().msiPath, &records.back());
}

void AppCatalogue::RecordOutcome(const MSI_APP& outcome) {
    const std::lock_guard guard(lock);
    const auto known = byPath.find(outcome.msiPath);
    if (known == byPath.end()) return;
    known->second->isInstalled = outcome.isInstalled;
    known->second->status = outcome.status;
}

void AppCatalogue::Update(const std::function<void(MSI_APP&)>& change) {
    const std::lock_guard guard(lock);
    std::for_each(records.begin(), records.end(), change);
}
