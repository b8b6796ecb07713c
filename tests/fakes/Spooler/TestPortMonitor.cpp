// A port monitor that answers as the system's TCP/IP port monitor is documented to. It sends nothing: what it
// is told of a port is kept in the registry, and the bytes of a job in a file.
#include <windows.h>

// The second header stands on the first.
// clang-format off
#include <winspool.h>
#include <winsplp.h>
// clang-format on

#include <cstring>
#include <string>
#include <vector>

#include "tests/fakes/Spooler/MonitorPlaces.h"

namespace {

// The structures of the TCP/IP port monitor by the offsets of their fields.
constexpr DWORD nameLength = 64;
constexpr DWORD portDataSize = 964;
constexpr DWORD portVersionOffset = 128;
constexpr DWORD deleteDataSize = 236;
constexpr DWORD deleteVersionOffset = 228;

HKEY portsOfMonitor = nullptr;

std::vector<std::wstring> PortNames() {
    std::vector<std::wstring> names;
    wchar_t name[nameLength + 1] = {};
    for (DWORD index = 0;; ++index) {
        DWORD length = nameLength + 1;
        if (RegEnumValueW(portsOfMonitor, index, name, &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS) {
            return names;
        }
        names.emplace_back(name, length);
    }
}

bool HasPort(const std::wstring& name) {
    return RegQueryValueExW(portsOfMonitor, name.c_str(), nullptr, nullptr, nullptr, nullptr) ==
           ERROR_SUCCESS;
}

// Entries from the front of the buffer on, their texts from its end.
class PortBuffer {
public:
    PortBuffer(BYTE* start, DWORD size) : entry(start), texts(start + size) {}

    LPWSTR Put(const std::wstring& text) {
        const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
        texts -= size;
        std::memcpy(texts, text.c_str(), size);
        return reinterpret_cast<LPWSTR>(texts);
    }

    template <class Info>
    Info& Next() {
        auto* const info = reinterpret_cast<Info*>(entry);
        entry += sizeof(Info);
        return *info;
    }

private:
    BYTE* entry;
    BYTE* texts;
};

DWORD SizeOf(const std::vector<std::wstring>& names, DWORD level) {
    std::size_t size = 0;
    for (const std::wstring& name : names) {
        size += level == 1 ? sizeof(PORT_INFO_1W) : sizeof(PORT_INFO_2W);
        size += (name.size() + 1) * sizeof(wchar_t);
        if (level == 2) size += 2 * sizeof(networkMonitorName);
    }
    // Room for texts that have to begin at an even address.
    return static_cast<DWORD>(size + sizeof(wchar_t));
}

BOOL WINAPI EnumPortsOf(HANDLE, LPWSTR, DWORD level, LPBYTE ports, DWORD size, LPDWORD needed,
                        LPDWORD count) {
    const std::vector<std::wstring> names = PortNames();
    *count = 0;
    *needed = names.empty() ? 0 : SizeOf(names, level);
    if (size < *needed) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }
    PortBuffer buffer(ports, size & ~DWORD{1});
    for (const std::wstring& name : names) {
        if (level == 1) {
            buffer.Next<PORT_INFO_1W>().pName = buffer.Put(name);
            continue;
        }
        PORT_INFO_2W& info = buffer.Next<PORT_INFO_2W>();
        info = {.pPortName = buffer.Put(name),
                .pMonitorName = buffer.Put(networkMonitorName),
                .pDescription = buffer.Put(networkMonitorName),
                .fPortType = PORT_TYPE_WRITE | PORT_TYPE_NET_ATTACHED};
    }
    *count = static_cast<DWORD>(names.size());
    return TRUE;
}

// No job gets this far: the spooler of the tests hands jobs to local ports alone.
BOOL WINAPI OpenPortOf(HANDLE, LPWSTR, PHANDLE) {
    SetLastError(ERROR_NOT_SUPPORTED);
    return FALSE;
}

DWORD VersionAt(const BYTE* data, DWORD offset) {
    DWORD version = 0;
    std::memcpy(&version, data + offset, sizeof(version));
    return version;
}

// The name at the start of a structure; empty where it has no end.
std::wstring NameIn(const BYTE* data) {
    const auto* const text = reinterpret_cast<const wchar_t*>(data);
    const std::size_t length = wcsnlen(text, nameLength);
    return length == nameLength ? L"" : std::wstring(text, length);
}

void WaitAtTheGate() {
    const HANDLE gate = OpenEventW(SYNCHRONIZE, FALSE, gateName);
    if (gate == nullptr) return;
    WaitForSingleObject(gate, 30000);
    CloseHandle(gate);
}

DWORD AddPortOf(const BYTE* data, DWORD size) {
    if (size < portDataSize) return ERROR_INVALID_DATA;
    if (VersionAt(data, portVersionOffset) != 1) return ERROR_INVALID_LEVEL;
    WaitAtTheGate();
    const std::wstring name = NameIn(data);
    if (name.empty()) return ERROR_INVALID_PARAMETER;
    if (HasPort(name)) return ERROR_ALREADY_EXISTS;
    return static_cast<DWORD>(RegSetValueExW(portsOfMonitor, name.c_str(), 0, REG_BINARY, data, size));
}

DWORD DeletePortOf(const BYTE* data, DWORD size) {
    if (size < deleteDataSize) return ERROR_INVALID_DATA;
    if (VersionAt(data, deleteVersionOffset) != 1) return ERROR_INVALID_LEVEL;
    const std::wstring name = NameIn(data);
    if (!HasPort(name)) return ERROR_UNKNOWN_PORT;
    return static_cast<DWORD>(RegDeleteValueW(portsOfMonitor, name.c_str()));
}

BOOL WINAPI OpenXcv(HANDLE, LPCWSTR, ACCESS_MASK access, PHANDLE handle) {
    *handle = reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(access));
    return TRUE;
}

DWORD WINAPI AnswerXcv(HANDLE handle, LPCWSTR verb, PBYTE input, DWORD inputSize, PBYTE, DWORD, PDWORD) {
    const auto access = static_cast<ACCESS_MASK>(reinterpret_cast<ULONG_PTR>(handle));
    if ((access & SERVER_ACCESS_ADMINISTER) == 0) return ERROR_ACCESS_DENIED;
    if (std::wstring_view(verb) == L"AddPort") return AddPortOf(input, inputSize);
    if (std::wstring_view(verb) == L"DeletePort") return DeletePortOf(input, inputSize);
    return ERROR_INVALID_PARAMETER;
}

BOOL WINAPI CloseXcv(HANDLE) {
    return TRUE;
}

}  // namespace

extern "C" __declspec(dllexport) MONITOR2* WINAPI InitializePrintMonitor2(MONITORINIT*, PHANDLE monitor) {
    const std::wstring key = std::wstring(networkMonitorKey) + L"\\" + portsKey;
    if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, key.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                        &portsOfMonitor, nullptr) != ERROR_SUCCESS) {
        return nullptr;
    }
    static MONITOR2 functions{.cbSize = sizeof(MONITOR2),
                              .pfnEnumPorts = EnumPortsOf,
                              .pfnOpenPort = OpenPortOf,
                              .pfnXcvOpenPort = OpenXcv,
                              .pfnXcvDataPort = AnswerXcv,
                              .pfnXcvClosePort = CloseXcv};
    *monitor = &functions;
    return &functions;
}
