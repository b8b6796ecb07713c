#include "standins/PrinterQueue/PortData.h"

#include <algorithm>
#include <string>

namespace printerqueue {
namespace {

template <std::size_t size>
void CopyText(const std::wstring& text, WCHAR (&field)[size]) {
    std::copy_n(text.data(), std::min(text.size(), size - 1), field);
}

}  // namespace

PortData1 PortDataFor(const PrinterPort& port) {
    const bool isLpr = port.kind == PortKind::Lpr;
    PortData1 data{.version = 1,
                   .protocol = isLpr ? lprProtocol : rawTcpProtocol,
                   .size = sizeof(PortData1),
                   .portNumber = port.number,
                   .snmpDeviceIndex = 1};
    CopyText(port.name, data.portName);
    CopyText(port.host, data.hostAddress);
    CopyText(L"public", data.snmpCommunity);
    CopyText(port.lprQueue, data.queue);
    return data;
}

DeletePortData1 DeletePortDataFor(const PrinterPort& port) {
    DeletePortData1 data{.version = 1};
    CopyText(port.name, data.portName);
    return data;
}

}  // namespace printerqueue
