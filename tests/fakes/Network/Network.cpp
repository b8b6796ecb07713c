#include "tests/fakes/Network/Network.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>

#include "tests/fakes/LibraryFolder.h"

namespace {

constexpr wchar_t runVariable[] = L"SCRIPTED_NETWORK_RUN";

std::size_t RunsBegun() {
    std::array<wchar_t, 16> number{};
    GetEnvironmentVariableW(runVariable, number.data(), number.size());
    return std::wcstoul(number.data(), nullptr, 10);
}

}  // namespace

ScriptedNetwork& ScriptedNetwork::GetInstance() {
    static ScriptedNetwork network;
    return network;
}

ScriptedNetwork::ScriptedNetwork()
    : folder(OwnFolder()), runs(ReadNetworkScript(folder + L"Network.script")) {}

void ScriptedNetwork::Record(const std::vector<std::wstring>& fields) const {
    AppendRecord(folder + L"Network.record", fields);
}

const NetworkRun& ScriptedNetwork::NextRun() const {
    SetEnvironmentVariableW(runVariable, std::to_wstring(RunsBegun() + 1).c_str());
    return CurrentRun();
}

const NetworkRun& ScriptedNetwork::CurrentRun() const {
    return runs[std::clamp<std::size_t>(RunsBegun(), 1, runs.size()) - 1];
}

void ScriptedNetwork::Wait(const NetworkAnswer& answer) const {
    for (const auto& [kind, argument] : answer.waits) {
        if (kind == L"pause") {
            std::this_thread::sleep_for(std::chrono::milliseconds(std::stoi(argument)));
        } else if (!WaitForFile(argument)) {
            Record({L"failed", Field(L"file", argument)});
        }
    }
}
