// The print spooler of this computer.
#pragma once

#include "standins/PrinterQueue/Spooler.h"

namespace printerqueue {

class SystemSpooler : public ISpooler {
public:
    std::uint32_t Look(SpoolerState& state) override;
    std::uint32_t MakePort(const PrinterPort& port) override;
    std::uint32_t RemovePort(const PrinterPort& port) override;
    std::uint32_t InstallDriver(const std::wstring& name, const std::wstring& infPath) override;
    std::uint32_t DeleteDriver(const std::wstring& name) override;
    std::uint32_t AddQueue(const PrintQueue& queue) override;
    std::uint32_t ChangeQueue(const PrintQueue& queue) override;
    std::uint32_t DeleteQueue(const std::wstring& name) override;
    std::uint32_t AddConnection(const std::wstring& path) override;
    std::uint32_t DeleteConnection(const std::wstring& path) override;
    std::uint32_t SetDefault(const std::wstring& name) override;
    std::wstring TextOf(std::uint32_t code) override;
};

}  // namespace printerqueue
