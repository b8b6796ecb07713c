// The structures by which the system's TCP/IP port monitor is told of a port, as Windows documents them.
#pragma once

#include <windows.h>

#include "standins/PrinterQueue/Spooler.h"

namespace printerqueue {

inline constexpr DWORD rawTcpProtocol = 1;
inline constexpr DWORD lprProtocol = 2;

struct PortData1 {
    WCHAR portName[64];
    DWORD version;
    DWORD protocol;
    DWORD size;
    DWORD reserved;
    WCHAR hostAddress[49];
    WCHAR snmpCommunity[33];
    DWORD doubleSpool;
    WCHAR queue[33];
    WCHAR ipAddress[16];
    BYTE reservedBytes[540];
    DWORD portNumber;
    DWORD snmpEnabled;
    DWORD snmpDeviceIndex;
};

struct DeletePortData1 {
    WCHAR portName[64];
    BYTE reservedBytes[98];
    DWORD version;
    DWORD reserved;
};

// The names must have been checked for their lengths; what is longer is cut off.
PortData1 PortDataFor(const PrinterPort& port);
DeletePortData1 DeletePortDataFor(const PrinterPort& port);

}  // namespace printerqueue
