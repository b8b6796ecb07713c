#include "tests/windows/standins/PrinterWorld.h"

#include <winspool.h>

#include <fstream>
#include <iterator>

#include "settings/TagDocument.h"
#include "standins/Brevanto/InstallLog.h"
#include "tests/fakes/Spooler/PrintWorld.h"

using printerqueue::PrintQueue;

namespace {

constexpr wchar_t firstDriver[] = L"Testwerk Driver A";
constexpr wchar_t secondDriver[] = L"Testwerk Driver B";
constexpr wchar_t earlierPrinter[] = L"Earlier";

// Closes at the end of its life.
class OpenedPrinter {
public:
    explicit OpenedPrinter(std::wstring name, ACCESS_MASK access = PRINTER_ALL_ACCESS) {
        PRINTER_DEFAULTSW defaults{.DesiredAccess = access};
        OpenPrinterW(name.data(), &handle, &defaults);
    }
    OpenedPrinter(const OpenedPrinter&) = delete;
    OpenedPrinter& operator=(const OpenedPrinter&) = delete;
    ~OpenedPrinter() { ClosePrinter(handle); }

    HANDLE get() const { return handle; }

private:
    HANDLE handle = nullptr;
};

template <class Info, class Enumerate>
std::vector<Info> Entries(std::vector<BYTE>& buffer, const Enumerate& enumerate) {
    DWORD size = 0;
    DWORD count = 0;
    enumerate(nullptr, 0, &size, &count);
    buffer.resize(size);
    if (enumerate(buffer.data(), size, &size, &count) == FALSE) return {};
    const auto* const first = reinterpret_cast<const Info*>(buffer.data());
    return {first, first + count};
}

std::vector<PRINTER_INFO_2W> Printers(std::vector<BYTE>& buffer) {
    return Entries<PRINTER_INFO_2W>(buffer, [](BYTE* data, DWORD size, DWORD* needed, DWORD* count) {
        return EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 2, data, size, needed, count);
    });
}

std::vector<std::wstring> PortNames() {
    std::vector<BYTE> buffer;
    std::vector<std::wstring> names;
    for (const PORT_INFO_2W& info :
         Entries<PORT_INFO_2W>(buffer, [](BYTE*data, DWORD size, DWORD*needed, DWORD*count) {
             return EnumPortsW(nullptr, 2, data, size, needed, count);
         })) {
        names.emplace_back(info.pPortName);
    }
    return names;
}

std::wstring TextOf(const wchar_t* text) {
    return text == nullptr ? L"" : text;
}

std::string BytesOf(const std::wstring& path) {
    std::ifstream file(path.c_str(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void DeletePortsOfTests() {
    const OpenedPrinter monitor(L",XcvMonitor Local Port", SERVER_ACCESS_ADMINISTER);
    for (std::wstring name : PortNames()) {
        if (!name.starts_with(L"C:\\")) continue;
        DWORD needed = 0;
        DWORD status = 0;
        XcvDataW(monitor.get(), L"DeletePort", reinterpret_cast<BYTE*>(name.data()),
                 static_cast<DWORD>((name.size() + 1) * sizeof(wchar_t)), nullptr, 0, &needed, &status);
        DeleteFileW(name.c_str());
    }
}

void RemovePrinters() {
    std::vector<BYTE> buffer;
    for (const PRINTER_INFO_2W& printer : Printers(buffer)) {
        DeletePrinter(OpenedPrinter(printer.pPrinterName).get());
    }
    DeletePortsOfTests();
    RemoveTestPorts();
    RemoveTestDriver(firstDriver);
    RemoveTestDriver(secondDriver);
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"Software\\PrinterQueue");
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\PrinterQueue");
}

}  // namespace

void PrinterWorldTest::SetUp() {
    LibraryTest::SetUp();
    RemovePrinters();
    ASSERT_EQ(AddTestDriver(firstDriver), 0U);
    ASSERT_EQ(AddTestDriver(secondDriver), 0U);
    MakeQueue(earlierPrinter, L"LPT1:");
    ASSERT_NE(SetDefaultPrinterW(earlierPrinter), FALSE);
    DeleteFileW(brevanto::InstallLogPath(L"Testwerk").c_str());
}

void PrinterWorldTest::TearDown() {
    LibraryTest::TearDown();
    RemovePrinters();
}

std::wstring PrinterWorldTest::LocalDevice(const std::wstring& name, const std::wstring& portOfDevice) {
    return TagDocument::MakeElement(L"PRINTER_NAME", name) +
           TagDocument::MakeElement(L"PORT_TYPE", L"Local Port") +
           TagDocument::MakeElement(L"PORT_NAME", portOfDevice) + L"<ADD_PORT>true</ADD_PORT>";
}

std::wstring PrinterWorldTest::NetworkDevice(const std::wstring& name, const std::wstring& portOfDevice,
                                             const std::wstring& host) {
    return TagDocument::MakeElement(L"PRINTER_NAME", name) +
           TagDocument::MakeElement(L"PORT_TYPE", L"Standard TCP/IP Port") +
           TagDocument::MakeElement(L"PORT_NAME", portOfDevice) +
           TagDocument::MakeElement(L"HOST_NAME", host) + L"<ADD_PORT>true</ADD_PORT>";
}

std::wstring PrinterWorldTest::Document(const std::vector<std::wstring>& devices) {
    std::wstring info;
    for (const std::wstring& device : devices) info += TagDocument::MakeElement(L"DEVICE", device);
    return TagDocument::MakeElement(L"PRINTER_INFO", info);
}

std::vector<std::wstring> PrinterWorldTest::QueueNames() {
    std::vector<BYTE> buffer;
    std::vector<std::wstring> names;
    for (const PRINTER_INFO_2W& printer : Printers(buffer)) names.emplace_back(printer.pPrinterName);
    return names;
}

PrintQueue PrinterWorldTest::Queue(const std::wstring& name) {
    std::vector<BYTE> buffer;
    for (const PRINTER_INFO_2W& printer : Printers(buffer)) {
        if (printer.pPrinterName != name) continue;
        return {.name = name,
                .port = TextOf(printer.pPortName),
                .driver = TextOf(printer.pDriverName),
                .location = TextOf(printer.pLocation),
                .comment = TextOf(printer.pComment)};
    }
    return {};
}

bool PrinterWorldTest::HasPort(const std::wstring& name) {
    const std::vector<std::wstring> names = PortNames();
    return std::ranges::find(names, name) != names.end();
}

std::wstring PrinterWorldTest::DefaultPrinter() {
    wchar_t name[300] = {};
    DWORD size = 300;
    return GetDefaultPrinterW(name, &size) == FALSE ? L"" : name;
}

void PrinterWorldTest::MakeQueue(const std::wstring& name, const std::wstring& portOfQueue) {
    ASSERT_EQ(AddTestPrinter(name, portOfQueue, firstDriver), 0U);
}

std::string PrinterWorldTest::Printed(const std::wstring& name, const std::string& bytes,
                                      const std::wstring& file) {
    const OpenedPrinter printer(name, PRINTER_ACCESS_USE);
    std::wstring texts[] = {L"A job", L"RAW"};
    DOC_INFO_1W document{.pDocName = texts[0].data(), .pOutputFile = nullptr, .pDatatype = texts[1].data()};
    EXPECT_NE(StartDocPrinterW(printer.get(), 1, reinterpret_cast<BYTE*>(&document)), 0U);
    DWORD written = 0;
    WritePrinter(printer.get(), const_cast<char*>(bytes.data()), static_cast<DWORD>(bytes.size()), &written);
    EndDocPrinter(printer.get());
    WaitFor([&] { return BytesOf(file).size() >= bytes.size(); });
    return BytesOf(file);
}

std::wstring PrinterWorldTest::InstallerLog() {
    const std::string bytes = BytesOf(brevanto::InstallLogPath(L"Testwerk"));
    if (bytes.size() > 1 && bytes[1] == '\0') {
        return {reinterpret_cast<const wchar_t*>(bytes.data()), bytes.size() / sizeof(wchar_t)};
    }
    std::wstring text(bytes.size(), L'\0');
    text.resize(
        static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, bytes.data(), static_cast<int>(bytes.size()),
                                                     text.data(), static_cast<int>(text.size()))));
    return text;
}

bool PrinterWorldTest::HasRecords() {
    const auto exists = [](HKEY root) {
        HKEY key = nullptr;
        if (RegOpenKeyExW(root, L"Software\\PrinterQueue", 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
        RegCloseKey(key);
        return true;
    };
    return exists(HKEY_LOCAL_MACHINE) || exists(HKEY_CURRENT_USER);
}
