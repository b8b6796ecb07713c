// The print spooler as the library uses it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace printerqueue {

enum class PortKind { Raw, Lpr, Local };

struct PrinterPort {
    PortKind kind = PortKind::Local;
    std::wstring name;
    std::wstring host;  // Raw and Lpr: a name or an address
    std::uint32_t number = 0;
    std::wstring lprQueue;

    friend bool operator==(const PrinterPort&, const PrinterPort&) = default;
};

struct PrintQueue {
    std::wstring name;
    std::wstring port;
    std::wstring driver;
    std::wstring location;
    std::wstring comment;
    std::wstring shareName;
    std::uint32_t attributes = 0;

    friend bool operator==(const PrintQueue&, const PrintQueue&) = default;
};

struct SpoolerState {
    std::vector<PrintQueue> queues;
    std::vector<std::wstring> ports;
    std::vector<std::wstring> drivers;
    std::vector<std::wstring> connections;
    std::wstring defaultQueue;  // of the user, empty where there is none
    bool blocksVendorDrivers = false;
};

// Every operation returns 0 or the system's error code, waits for the spooler, and changes nothing where it
// fails. Connections and the default belong to the user as whom the calling thread runs.
class ISpooler {
public:
    ISpooler() = default;
    ISpooler(const ISpooler&) = delete;
    ISpooler& operator=(const ISpooler&) = delete;
    virtual ~ISpooler() = default;

    virtual std::uint32_t Look(SpoolerState& state) = 0;
    virtual std::uint32_t MakePort(const PrinterPort& port) = 0;
    virtual std::uint32_t RemovePort(const PrinterPort& port) = 0;
    // An empty path stands for a driver that comes with Windows.
    virtual std::uint32_t InstallDriver(const std::wstring& name, const std::wstring& infPath) = 0;
    virtual std::uint32_t DeleteDriver(const std::wstring& name) = 0;
    virtual std::uint32_t AddQueue(const PrintQueue& queue) = 0;
    // Sets port, driver, location and comment of the queue of that name, and leaves the rest.
    virtual std::uint32_t ChangeQueue(const PrintQueue& queue) = 0;
    virtual std::uint32_t DeleteQueue(const std::wstring& name) = 0;
    virtual std::uint32_t AddConnection(const std::wstring& path) = 0;
    virtual std::uint32_t DeleteConnection(const std::wstring& path) = 0;
    virtual std::uint32_t SetDefault(const std::wstring& name) = 0;
    // Returns the system's words for a code, empty if it has none.
    virtual std::wstring TextOf(std::uint32_t code) = 0;
};

}  // namespace printerqueue
