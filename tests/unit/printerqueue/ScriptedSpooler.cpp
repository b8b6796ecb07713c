#include "tests/unit/printerqueue/ScriptedSpooler.h"

#include <algorithm>

#include "standins/PrinterQueue/RunScope.h"

using printerqueue::FindQueue;
using printerqueue::HoldsName;
using printerqueue::PrinterPort;
using printerqueue::PrintQueue;
using printerqueue::SpoolerState;

std::uint32_t ScriptedSpooler::Refusal(const std::string& operation) const {
    const auto found = refusals.find(operation);
    return found == refusals.end() ? 0 : found->second;
}

std::uint32_t ScriptedSpooler::QueueRefusal(const PrintQueue& queue) const {
    if (!HoldsName(state.ports, queue.port)) return SpoolerCode::UnknownPort;
    if (!HoldsName(state.drivers, queue.driver)) return SpoolerCode::UnknownDriver;
    return 0;
}

PrintQueue* ScriptedSpooler::Find(const std::wstring& name) {
    return const_cast<PrintQueue*>(FindQueue(state, name));
}

std::uint32_t ScriptedSpooler::Look(SpoolerState& seen) {
    if (const std::uint32_t code = Refusal("Look")) return code;
    seen = state;
    return 0;
}

std::uint32_t ScriptedSpooler::MakePort(const PrinterPort& port) {
    if (const std::uint32_t code = Refusal("MakePort")) return code;
    if (HoldsName(state.ports, port.name)) return SpoolerCode::AlreadyExists;
    calls.push_back(L"MakePort " + port.name);
    state.ports.push_back(port.name);
    portsAdded.push_back(port);
    return 0;
}

std::uint32_t ScriptedSpooler::RemovePort(const PrinterPort& port) {
    if (const std::uint32_t code = Refusal("RemovePort")) return code;
    if (std::ranges::any_of(state.queues, [&](const PrintQueue& queue) { return queue.port == port.name; })) {
        return SpoolerCode::Busy;
    }
    calls.push_back(L"RemovePort " + port.name);
    return std::erase(state.ports, port.name) == 0 ? SpoolerCode::UnknownPort : 0;
}

std::uint32_t ScriptedSpooler::InstallDriver(const std::wstring& name, const std::wstring& infPath) {
    if (const std::uint32_t code = Refusal("InstallDriver")) return code;
    if (infPath.empty() && !HoldsName(driversOfWindows, name)) return SpoolerCode::UnknownDriver;
    calls.push_back(L"InstallDriver " + name);
    lastInfPath = infPath;
    if (!HoldsName(state.drivers, name)) state.drivers.push_back(name);
    return 0;
}

std::uint32_t ScriptedSpooler::DeleteDriver(const std::wstring& name) {
    if (const std::uint32_t code = Refusal("DeleteDriver")) return code;
    if (std::ranges::any_of(state.queues, [&](const PrintQueue& queue) { return queue.driver == name; })) {
        return SpoolerCode::DriverInUse;
    }
    calls.push_back(L"DeleteDriver " + name);
    return std::erase(state.drivers, name) == 0 ? SpoolerCode::UnknownDriver : 0;
}

std::uint32_t ScriptedSpooler::AddQueue(const PrintQueue& queue) {
    if (const std::uint32_t code = Refusal("AddQueue")) return code;
    if (Find(queue.name) != nullptr) return SpoolerCode::PrinterExists;
    if (const std::uint32_t code = QueueRefusal(queue)) return code;
    calls.push_back(L"AddQueue " + queue.name);
    state.queues.push_back(queue);
    return 0;
}

std::uint32_t ScriptedSpooler::ChangeQueue(const PrintQueue& queue) {
    if (const std::uint32_t code = Refusal("ChangeQueue")) return code;
    PrintQueue* existing = Find(queue.name);
    if (existing == nullptr) return SpoolerCode::InvalidName;
    if (const std::uint32_t code = QueueRefusal(queue)) return code;
    calls.push_back(L"ChangeQueue " + queue.name);
    existing->port = queue.port;
    existing->driver = queue.driver;
    existing->location = queue.location;
    existing->comment = queue.comment;
    return 0;
}

std::uint32_t ScriptedSpooler::DeleteQueue(const std::wstring& name) {
    if (const std::uint32_t code = Refusal("DeleteQueue")) return code;
    if (Find(name) == nullptr) return SpoolerCode::InvalidName;
    calls.push_back(L"DeleteQueue " + name);
    std::erase_if(state.queues, [&](const PrintQueue& queue) { return queue.name == name; });
    if (state.defaultQueue == name) state.defaultQueue.clear();
    return 0;
}

std::uint32_t ScriptedSpooler::AddConnection(const std::wstring& path) {
    if (const std::uint32_t code = Refusal("AddConnection")) return code;
    calls.push_back(L"AddConnection " + path);
    state.connections.push_back(path);
    return 0;
}

std::uint32_t ScriptedSpooler::DeleteConnection(const std::wstring& path) {
    if (const std::uint32_t code = Refusal("DeleteConnection")) return code;
    calls.push_back(L"DeleteConnection " + path);
    if (state.defaultQueue == path) state.defaultQueue.clear();
    return std::erase(state.connections, path) == 0 ? SpoolerCode::InvalidName : 0;
}

std::uint32_t ScriptedSpooler::SetDefault(const std::wstring& name) {
    if (const std::uint32_t code = Refusal("SetDefault")) return code;
    if (Find(name) == nullptr && !HoldsName(state.connections, name)) return SpoolerCode::InvalidName;
    calls.push_back(L"SetDefault " + name);
    state.defaultQueue = name;
    return 0;
}

std::wstring ScriptedSpooler::TextOf(std::uint32_t code) {
    return code == SpoolerCode::AccessDenied ? L"Access is denied." : L"";
}
