// Makes the print system of the tests out of a system that has none, and shows what lies in it.
//
//   PrintSystem prepare           adds a driver of Windows and the port monitor that lies beside this program
//   PrintSystem add NAME          adds a printer on a local port, and makes it the default
//   PrintSystem remove NAME       removes a printer
//   PrintSystem show              lists printers with their ports and drivers, the default, and the hosts of
//                                 the network's ports
//   PrintSystem print NAME TEXT   sends the text to that printer as raw data

#include <windows.h>

#include <winspool.h>

#include <cstdio>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tests/fakes/Spooler/PrintWorld.h"

namespace {

std::string Utf8(std::wstring_view text) {
    std::string bytes(text.size() * 3, '\0');
    bytes.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

int Said(const char* what, unsigned long code) {
    if (code == 0) return 0;
    std::fprintf(stderr, "%s: error %lu\n", what, code);
    return 1;
}

std::wstring OwnFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring text = path;
    return text.substr(0, text.rfind(L'\\') + 1);
}

constexpr wchar_t driverName[] = L"Generic / Text Only";

int Prepare() {
    return Said("the driver", AddTestDriver(driverName)) +
           Said("the port monitor", AddTestMonitor(OwnFolder() + L"TestPortMonitor.dll"));
}

int Add(const std::wstring& name) {
    const unsigned long code = AddTestPrinter(name, L"LPT1:", driverName);
    if (code != 0) return Said("the printer", code);
    return SetDefaultPrinterW(name.c_str()) != FALSE ? 0 : Said("the default", GetLastError());
}

int Remove(std::wstring name) {
    PRINTER_DEFAULTSW access{.DesiredAccess = PRINTER_ALL_ACCESS};
    HANDLE printer = nullptr;
    if (OpenPrinterW(name.data(), &printer, &access) == FALSE) return Said("the printer", GetLastError());
    const int code = DeletePrinter(printer) != FALSE ? 0 : Said("the printer", GetLastError());
    ClosePrinter(printer);
    return code;
}

std::wstring DefaultPrinter() {
    wchar_t name[300] = {};
    DWORD size = 300;
    return GetDefaultPrinterW(name, &size) == FALSE ? L"" : name;
}

int ShowPrinters() {
    DWORD size = 0;
    DWORD count = 0;
    EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 2, nullptr, 0, &size, &count);
    std::vector<BYTE> buffer(size);
    if (EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 2, buffer.data(), size, &size, &count) == FALSE) {
        return Said("the list of printers", GetLastError());
    }
    const std::wstring defaultPrinter = DefaultPrinter();
    for (const auto& printer : std::span(reinterpret_cast<const PRINTER_INFO_2W*>(buffer.data()), count)) {
        const std::wstring name = printer.pPrinterName;
        std::printf("%s | port %s | driver %s%s\n", Utf8(name).c_str(), Utf8(printer.pPortName).c_str(),
                    Utf8(printer.pDriverName).c_str(), name == defaultPrinter ? " | default" : "");
    }
    return 0;
}

int ShowPorts() {
    DWORD size = 0;
    DWORD count = 0;
    EnumPortsW(nullptr, 1, nullptr, 0, &size, &count);
    std::vector<BYTE> buffer(size);
    if (EnumPortsW(nullptr, 1, buffer.data(), size, &size, &count) == FALSE) {
        return Said("the list of ports", GetLastError());
    }
    for (const auto& port : std::span(reinterpret_cast<const PORT_INFO_1W*>(buffer.data()), count)) {
        const std::wstring host = HostOfPort(port.pName);
        if (!host.empty()) std::printf("port %s | host %s\n", Utf8(port.pName).c_str(), Utf8(host).c_str());
    }
    return 0;
}

int Print(std::wstring name, const std::string& text) {
    HANDLE printer = nullptr;
    if (OpenPrinterW(name.data(), &printer, nullptr) == FALSE) return Said("the printer", GetLastError());
    std::wstring words[] = {L"A page", L"RAW"};
    DOC_INFO_1W document{.pDocName = words[0].data(), .pOutputFile = nullptr, .pDatatype = words[1].data()};
    DWORD written = 0;
    const bool isPrinted = StartDocPrinterW(printer, 1, reinterpret_cast<BYTE*>(&document)) != 0 &&
                           WritePrinter(printer, const_cast<char*>(text.data()),
                                        static_cast<DWORD>(text.size()), &written) != FALSE &&
                           EndDocPrinter(printer) != FALSE;
    const unsigned long code = isPrinted ? 0 : GetLastError();
    ClosePrinter(printer);
    return isPrinted ? 0 : Said("the job", code == 0 ? ERROR_GEN_FAILURE : code);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    const std::wstring verb = count > 1 ? arguments[1] : L"";
    if (verb == L"prepare") return Prepare();
    if (verb == L"add" && count == 3) return Add(arguments[2]);
    if (verb == L"remove" && count == 3) return Remove(arguments[2]);
    if (verb == L"show") return ShowPrinters() + ShowPorts();
    if (verb == L"print" && count == 4) return Print(arguments[2], Utf8(arguments[3]));
    std::fprintf(stderr, "usage: PrintSystem prepare | add NAME | remove NAME | show | print NAME TEXT\n");
    return 2;
}
