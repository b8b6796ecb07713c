// Finds the devices that a search document asks for, and remembers them.
#pragma once

#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "standins/discovery/Documents.h"
#include "standins/network/Cancellation.h"
#include "standins/network/LocalLinks.h"

namespace sondrix {

// One search at a time; listings and recalls may come from any thread.
class DeviceFinder {
public:
    // Returns 0, or a system's code: 1223 where the search was ended from outside. The devices of a search
    // that was not over stay those of the one before.
    std::uint32_t Discover(const std::wstring& searchDocument);
    // The documents of the last search's devices, each ended by a NUL.
    std::wstring List(const std::wstring& enumerationDocument) const;
    // What is known of a device beyond its document.
    std::optional<std::wstring> Recall(const std::wstring& address) const;

    void Begin() const { cancellation.Begin(); }
    void End() const { cancellation.Cancel(); }

private:
    discovery::SearchPlan PlanFor(const discovery::SearchScope& scope,
                                  const std::vector<discovery::LocalLink>& links) const;
    void PlanHost(discovery::SearchPlan& plan, const std::wstring& name) const;

    discovery::Cancellation cancellation;
    std::mutex searchLock;
    mutable std::mutex devicesLock;
    std::vector<discovery::DeviceFacts> devices;
};

}  // namespace sondrix
