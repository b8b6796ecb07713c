#include "standins/PrinterQueue/SpoolerLists.h"

#include <winspool.h>

#include <span>
#include <string>
#include <vector>

namespace printerqueue {
namespace {

std::wstring TextOrEmpty(const wchar_t* text) {
    return text == nullptr ? L"" : text;
}

// The entries of one list. The spooler's texts lie in the same buffer.
template <class Entry>
class SpoolerList {
public:
    // Calls list(buffer, size, &needed, &count) until the buffer is large enough; returns 0 or the error
    // code.
    template <class List>
    std::uint32_t Read(const List& list) {
        // The list may grow between two calls.
        for (int tries = 0; tries < 5; ++tries) {
            DWORD needed = 0;
            if (list(buffer.data(), static_cast<DWORD>(buffer.size()), &needed, &count) != FALSE) return 0;
            const std::uint32_t code = LastError();
            count = 0;
            if (code != ERROR_INSUFFICIENT_BUFFER) return code;
            buffer.resize(needed);
        }
        return ERROR_INSUFFICIENT_BUFFER;
    }

    std::span<const Entry> Entries() const {
        return std::span(reinterpret_cast<const Entry*>(buffer.data()), count);
    }

private:
    std::vector<BYTE> buffer;
    DWORD count = 0;
};

std::uint32_t ReadQueues(std::vector<PrintQueue>& queues) {
    SpoolerList<PRINTER_INFO_2W> list;
    const std::uint32_t code = list.Read([](BYTE* buffer, DWORD size, DWORD* needed, DWORD* count) {
        return EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 2, buffer, size, needed, count);
    });
    for (const PRINTER_INFO_2W& queue : list.Entries()) {
        queues.push_back({.name = TextOrEmpty(queue.pPrinterName),
                          .port = TextOrEmpty(queue.pPortName),
                          .driver = TextOrEmpty(queue.pDriverName),
                          .location = TextOrEmpty(queue.pLocation),
                          .comment = TextOrEmpty(queue.pComment),
                          .shareName = TextOrEmpty(queue.pShareName),
                          .attributes = queue.Attributes});
    }
    return code;
}

std::uint32_t ReadPorts(std::vector<std::wstring>& ports) {
    SpoolerList<PORT_INFO_1W> list;
    const std::uint32_t code = list.Read([](BYTE* buffer, DWORD size, DWORD* needed, DWORD* count) {
        return EnumPortsW(nullptr, 1, buffer, size, needed, count);
    });
    for (const PORT_INFO_1W& port : list.Entries()) ports.push_back(TextOrEmpty(port.pName));
    return code;
}

std::uint32_t ReadDrivers(std::vector<std::wstring>& drivers) {
    SpoolerList<DRIVER_INFO_1W> list;
    const std::uint32_t code = list.Read([](BYTE* buffer, DWORD size, DWORD* needed, DWORD* count) {
        return EnumPrinterDriversW(nullptr, nullptr, 1, buffer, size, needed, count);
    });
    for (const DRIVER_INFO_1W& driver : list.Entries()) drivers.push_back(TextOrEmpty(driver.pName));
    return code;
}

std::uint32_t ReadConnections(std::vector<std::wstring>& connections) {
    SpoolerList<PRINTER_INFO_4W> list;
    const std::uint32_t code = list.Read([](BYTE* buffer, DWORD size, DWORD* needed, DWORD* count) {
        return EnumPrintersW(PRINTER_ENUM_CONNECTIONS, nullptr, 4, buffer, size, needed, count);
    });
    for (const PRINTER_INFO_4W& queue : list.Entries()) {
        connections.push_back(TextOrEmpty(queue.pPrinterName));
    }
    return code;
}

// A user without a default is no failure.
std::wstring ReadDefault() {
    DWORD size = 0;
    GetDefaultPrinterW(nullptr, &size);
    if (size == 0) return {};
    std::vector<wchar_t> name(size);
    return GetDefaultPrinterW(name.data(), &size) == FALSE ? L"" : name.data();
}

// Windows' own switch for protected print mode as a policy. Where a user has switched the mode on, a vendor's
// driver is refused when it is installed.
bool BlocksVendorDrivers() {
    DWORD state = 0;
    DWORD size = sizeof(state);
    const LSTATUS code =
        RegGetValueW(HKEY_LOCAL_MACHINE, L"Software\\Policies\\Microsoft\\Windows NT\\Printers\\WPP",
                     L"WindowsProtectedPrintGroupPolicyState", RRF_RT_REG_DWORD, nullptr, &state, &size);
    return code == ERROR_SUCCESS && state == 1;
}

}  // namespace

std::uint32_t LastError() {
    const DWORD code = GetLastError();
    return code == ERROR_SUCCESS ? ERROR_GEN_FAILURE : code;
}

std::uint32_t ReadSpoolerState(SpoolerState& state) {
    state = {.defaultQueue = ReadDefault(), .blocksVendorDrivers = BlocksVendorDrivers()};
    for (const std::uint32_t code : {ReadQueues(state.queues), ReadPorts(state.ports),
                                     ReadDrivers(state.drivers), ReadConnections(state.connections)}) {
        if (code != 0) return code;
    }
    return 0;
}

}  // namespace printerqueue
