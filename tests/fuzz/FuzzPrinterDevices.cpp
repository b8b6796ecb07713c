#include "CommonLib/Exception.h"
#include "standins/PrinterQueue/Deed.h"
#include "standins/PrinterQueue/Orders.h"
#include "tests/fuzz/FuzzInput.h"

using printerqueue::DeviceLink;
using printerqueue::Ledger;
using printerqueue::Orders;
using printerqueue::PrinterDevice;
using printerqueue::ReadDevices;
using printerqueue::ReadLedger;
using printerqueue::ReadNames;
using printerqueue::ReadOrders;
using printerqueue::WriteLedger;
using printerqueue::WriteOrders;

namespace {

// What the spooler is told must fit the fields of its structures.
void RequireFit(const PrinterDevice& device) {
    Require(!device.name.empty());
    if (device.link == DeviceLink::SharedPrinter) return;
    Require(device.name.size() <= 220 && device.name.find_first_of(L"\\,!") == std::wstring::npos);
    if (device.link != DeviceLink::Port) return;
    Require(!device.port.name.empty() && device.port.name.size() < 260);
    Require(device.port.host.size() <= 48 && device.port.lprQueue.size() <= 32);
    Require(device.port.kind == printerqueue::PortKind::Local ||
            (device.port.name.size() <= 63 && device.port.number >= 1 && device.port.number <= 65535));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto parts = PartsOf(data, size, 3);
    const Orders orders{.wishes = {.classDrivers = ReadNames(parts[0]),
                                   .location = parts[0],
                                   .protocol = L"LPR",
                                   .portNumber = parts[1],
                                   .lprQueue = parts[0]},
                        .printerInfo = parts[2]};
    Require(ReadOrders(WriteOrders(orders)) == orders);
    ReadOrders(parts[2]);
    const Ledger ledger = ReadLedger(parts[2]);
    Require(ReadLedger(WriteLedger(ledger)) == ledger);
    try {
        for (const PrinterDevice& device : ReadDevices(orders.printerInfo, orders.wishes)) RequireFit(device);
    } catch (const Exception& refusal) {
        Require(!refusal.getMessage().empty());
    }
    return 0;
}
