#include "tests/fakes/Spooler/PrintWorld.h"

#include <windows.h>

#include <winspool.h>

#include <cstring>
#include <fstream>

#include "tests/fakes/Spooler/MonitorPlaces.h"

namespace {

wchar_t environment[] = L"Windows x64";
wchar_t driverFile[] = L"wineps.drv";
wchar_t rawData[] = L"RAW";

wchar_t* Lent(const std::wstring& text) {
    return const_cast<wchar_t*>(text.c_str());
}

unsigned long CodeOf(BOOL succeeded) {
    return succeeded != FALSE ? 0 : GetLastError();
}

std::wstring SystemFolder() {
    wchar_t folder[MAX_PATH] = {};
    GetSystemDirectoryW(folder, MAX_PATH);
    return folder;
}

std::wstring PortsKey() {
    return std::wstring(networkMonitorKey) + L"\\" + portsKey;
}

}  // namespace

unsigned long AddTestDriver(const std::wstring& name) {
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    std::wstring description = std::wstring(folder) + L"test.ppd";
    std::ofstream(description.c_str()) << "*PPD-Adobe: \"4.3\"\n";
    DRIVER_INFO_3W driver{.cVersion = 3,
                          .pName = Lent(name),
                          .pEnvironment = environment,
                          .pDriverPath = driverFile,
                          .pDataFile = description.data(),
                          .pConfigFile = driverFile,
                          .pHelpFile = driverFile,
                          .pDefaultDataType = rawData};
    return CodeOf(AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&driver),
                                      APD_COPY_NEW_FILES | APD_COPY_FROM_DIRECTORY));
}

void RemoveTestDriver(const std::wstring& name) {
    DeletePrinterDriverExW(nullptr, environment, Lent(name), 0, 0);
}

unsigned long AddTestPrinter(const std::wstring& name, const std::wstring& port, const std::wstring& driver) {
    std::wstring processor = L"winprint";
    std::wstring comment = L"by hand";
    PRINTER_INFO_2W info{.pPrinterName = Lent(name),
                         .pPortName = Lent(port),
                         .pDriverName = Lent(driver),
                         .pComment = comment.data(),
                         .pPrintProcessor = processor.data(),
                         .pDatatype = rawData};
    const HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&info));
    if (printer == nullptr) return GetLastError();
    ClosePrinter(printer);
    return 0;
}

unsigned long AddTestMonitor(const std::wstring& libraryPath) {
    std::wstring file = libraryPath.substr(libraryPath.rfind(L'\\') + 1);
    if (CopyFileW(libraryPath.c_str(), (SystemFolder() + L"\\" + file).c_str(), FALSE) == FALSE &&
        GetLastError() != ERROR_SHARING_VIOLATION) {
        return GetLastError();
    }
    std::wstring name = networkMonitorName;
    MONITOR_INFO_2W monitor{.pName = name.data(), .pEnvironment = environment, .pDLLName = file.data()};
    const unsigned long code = CodeOf(AddMonitorW(nullptr, 2, reinterpret_cast<BYTE*>(&monitor)));
    return code == ERROR_PRINT_MONITOR_ALREADY_INSTALLED ? 0 : code;
}

void RemoveTestPorts() {
    HKEY ports = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, PortsKey().c_str(), 0, KEY_ALL_ACCESS, &ports) != ERROR_SUCCESS)
        return;
    wchar_t name[100] = {};
    DWORD length = 100;
    while (RegEnumValueW(ports, 0, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
           RegDeleteValueW(ports, name) == ERROR_SUCCESS) {
        length = 100;
    }
    RegCloseKey(ports);
}

std::vector<unsigned char> ToldOfPort(const std::wstring& port) {
    DWORD size = 0;
    const std::wstring key = PortsKey();
    if (RegGetValueW(HKEY_LOCAL_MACHINE, key.c_str(), port.c_str(), RRF_RT_REG_BINARY, nullptr, nullptr,
                     &size) != ERROR_SUCCESS) {
        return {};
    }
    std::vector<unsigned char> data(size);
    RegGetValueW(HKEY_LOCAL_MACHINE, key.c_str(), port.c_str(), RRF_RT_REG_BINARY, nullptr, data.data(),
                 &size);
    return data;
}

std::wstring HostOfPort(const std::wstring& port) {
    // Where the structure of the TCP/IP port monitor has it.
    constexpr std::size_t offset = 144;
    constexpr std::size_t length = 49;
    const std::vector<unsigned char> data = ToldOfPort(port);
    if (data.size() < offset + length * sizeof(wchar_t)) return {};
    wchar_t host[length] = {};
    std::memcpy(host, data.data() + offset, sizeof(host));
    return {host, wcsnlen(host, length)};
}
