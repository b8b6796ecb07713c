// The state of one of the two scripted libraries of the network: the script, and the run that is on.
#pragma once

#include <string>
#include <vector>

#include "tests/fakes/Network/Script.h"

// Callable from any thread. Every call is recorded before it is answered. The search of the one library
// begins the runs of both, so the number of the run stands in the environment of the process.
class ScriptedNetwork {
public:
    static ScriptedNetwork& GetInstance();

    void Record(const std::vector<std::wstring>& fields) const;
    // Makes the next run the current one, and gives its answers.
    const NetworkRun& NextRun() const;
    const NetworkRun& CurrentRun() const;
    // Waits as the answer says.
    void Wait(const NetworkAnswer& answer) const;

private:
    ScriptedNetwork();

    std::wstring folder;
    std::vector<NetworkRun> runs;
};

inline ScriptedNetwork& Network() {
    return ScriptedNetwork::GetInstance();
}
