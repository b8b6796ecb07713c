// A print spooler in memory, which refuses what the system's would refuse.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "standins/PrinterQueue/Surroundings.h"

// Codes of the system.
namespace SpoolerCode {

inline constexpr std::uint32_t AccessDenied = 5;
inline constexpr std::uint32_t Busy = 170;
inline constexpr std::uint32_t AlreadyExists = 183;
inline constexpr std::uint32_t NotFound = 1168;
inline constexpr std::uint32_t UnknownPort = 1796;
inline constexpr std::uint32_t UnknownDriver = 1797;
inline constexpr std::uint32_t InvalidName = 1801;
inline constexpr std::uint32_t PrinterExists = 1802;
inline constexpr std::uint32_t DriverInUse = 3001;

}  // namespace SpoolerCode

class ScriptedSpooler : public printerqueue::ISpooler {
public:
    printerqueue::SpoolerState state;
    // What a system could install without a file of the package.
    std::vector<std::wstring> driversOfWindows;
    // Operations that fail, by their names: "AddQueue".
    std::map<std::string, std::uint32_t> refusals;
    // What changed anything, in its order: "MakePort 10.0.0.1".
    std::vector<std::wstring> calls;
    std::vector<printerqueue::PrinterPort> portsAdded;
    std::wstring lastInfPath;

    std::uint32_t Look(printerqueue::SpoolerState& seen) override;
    std::uint32_t MakePort(const printerqueue::PrinterPort& port) override;
    std::uint32_t RemovePort(const printerqueue::PrinterPort& port) override;
    std::uint32_t InstallDriver(const std::wstring& name, const std::wstring& infPath) override;
    std::uint32_t DeleteDriver(const std::wstring& name) override;
    std::uint32_t AddQueue(const printerqueue::PrintQueue& queue) override;
    std::uint32_t ChangeQueue(const printerqueue::PrintQueue& queue) override;
    std::uint32_t DeleteQueue(const std::wstring& name) override;
    std::uint32_t AddConnection(const std::wstring& path) override;
    std::uint32_t DeleteConnection(const std::wstring& path) override;
    std::uint32_t SetDefault(const std::wstring& name) override;
    std::wstring TextOf(std::uint32_t code) override;

private:
    std::uint32_t Refusal(const std::string& operation) const;
    std::uint32_t QueueRefusal(const printerqueue::PrintQueue& queue) const;
    printerqueue::PrintQueue* Find(const std::wstring& name);
};

// A ledger in memory.
class ScriptedStore : public printerqueue::ILedgerStore {
public:
    printerqueue::Ledger ledger;
    std::vector<printerqueue::Deed> others;

    printerqueue::Ledger Read() override { return ledger; }
    void Write(const printerqueue::Ledger& written) override { ledger = written; }
    std::vector<printerqueue::Deed> DeedsOfOthers() override { return others; }
};

// Keeps what is said, and cancels after a text that holds some words.
class ScriptedReport : public printerqueue::IReport {
public:
    std::vector<std::wstring> texts;
    std::wstring cancelAfter;

    void Say(const std::wstring& text) override { texts.push_back(text); }
    bool IsCancelled() override {
        return !cancelAfter.empty() && !texts.empty() && texts.back().find(cancelAfter) != std::wstring::npos;
    }
};
