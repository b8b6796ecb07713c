#include "printer/SystemPorts.h"

#include <windows.h>

#include <winspool.h>

#include <algorithm>
#include <span>

#include "framework/Handles.h"
#include "framework/SystemLibrary.h"

namespace {

// Stays loaded, since it keeps threads of the spooler.
decltype(&EnumPortsW) FindEnumPorts() {
    static const Library spooler = LoadSystemLibrary(L"winspool.drv");
    return spooler ? FindExport<decltype(&EnumPortsW)>(spooler.get(), "EnumPortsW") : nullptr;
}

}  // namespace

std::vector<PortEntry> SystemPorts() {
    const auto enumPorts = FindEnumPorts();
    if (enumPorts == nullptr) return {};
    constexpr DWORD level = 2;
    wchar_t thisComputer[] = L"";
    DWORD size = 0;
    DWORD count = 0;
    enumPorts(thisComputer, level, nullptr, 0, &size, &count);
    std::vector<BYTE> buffer(size);
    if (enumPorts(thisComputer, level, buffer.data(), size, &size, &count) == FALSE) return {};
    std::vector<PortEntry> entries;
    for (const PORT_INFO_2W& port : std::span(reinterpret_cast<const PORT_INFO_2W*>(buffer.data()), count)) {
        entries.push_back(
            {.name = port.pPortName, .description = port.pDescription == nullptr ? L"" : port.pDescription});
    }
    return entries;
}

bool IsSystemPort(const std::wstring& name) {
    const std::vector<PortEntry> ports = SystemPorts();
    return std::ranges::any_of(ports, [&](const PortEntry& port) { return port.name == name; });
}
