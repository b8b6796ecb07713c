// What devices say of their colour and fax.
#pragma once

#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "standins/discovery/DeviceFacts.h"
#include "standins/discovery/Traffic.h"
#include "standins/network/Cancellation.h"

namespace quelmar {

// Keeps what it has learned of a device, by the text of its address; what the library that finds devices
// knows is not asked again. May be used by any thread; one asks at a time.
class DeviceQuestions {
public:
    // What is known of each of the devices, in the order of the addresses. Those of whom something is missing
    // are asked all at once, for that long at most.
    std::vector<discovery::DeviceFacts> Ask(const std::vector<std::wstring>& addresses,
                                            discovery::Time limit);

    // What is known of one device, which is asked if nobody has heard of it.
    discovery::DeviceFacts AskOne(const std::wstring& address, discovery::Time limit);

    // Forgets everything; ends what is being asked.
    void Begin();
    void End() const { cancellation.Cancel(); }

private:
    void AskNetwork(const std::vector<std::wstring>& addresses, discovery::Time limit);

    discovery::Cancellation cancellation;
    std::mutex lock;
    std::map<std::wstring, discovery::DeviceFacts> known;
};

}  // namespace quelmar
