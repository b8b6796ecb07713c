#include "standins/PrinterQueue/SystemSpooler.h"

#include <windows.h>

#include <winspool.h>

#include <vector>

#include "framework/Handles.h"
#include "standins/PrinterQueue/PortData.h"
#include "standins/PrinterQueue/SpoolerLists.h"

namespace printerqueue {
namespace {

struct PrinterHandleKind : NullInvalid<HANDLE> {
    static void close(HANDLE printer) { ClosePrinter(printer); }
};
using PrinterHandle = HandleOwner<PrinterHandleKind>;

// The spooler's structures ask for texts that may be changed, and change none.
wchar_t* Lent(const std::wstring& text) {
    return const_cast<wchar_t*>(text.c_str());
}

std::uint32_t CodeOf(BOOL succeeded) {
    return succeeded != FALSE ? 0 : LastError();
}

std::uint32_t Open(const std::wstring& name, ACCESS_MASK access, PrinterHandle& printer) {
    PRINTER_DEFAULTSW defaults{.DesiredAccess = access};
    return CodeOf(OpenPrinterW(Lent(name), printer.put(), &defaults));
}

// Asks the monitor for a change of a port.
std::uint32_t AskMonitor(PortKind kind, const wchar_t* verb, const void* data, std::size_t size) {
    const std::wstring monitor =
        kind == PortKind::Local ? L",XcvMonitor Local Port" : L",XcvMonitor Standard TCP/IP Port";
    PrinterHandle handle;
    if (const std::uint32_t code = Open(monitor, SERVER_ACCESS_ADMINISTER, handle); code != 0) return code;
    auto* const input = static_cast<BYTE*>(const_cast<void*>(data));
    DWORD needed = 0;
    DWORD status = 0;
    const std::uint32_t code =
        CodeOf(XcvDataW(handle.get(), verb, input, static_cast<DWORD>(size), nullptr, 0, &needed, &status));
    return code != 0 ? code : status;
}

std::uint32_t AskLocalMonitor(const wchar_t* verb, const std::wstring& port) {
    return AskMonitor(PortKind::Local, verb, port.c_str(), (port.size() + 1) * sizeof(wchar_t));
}

// Functions of the spooler that not every system has. Its library is loaded as long as this one.
template <class Function>
Function FindSpoolerFunction(const char* name) {
    const HMODULE spooler = GetModuleHandleW(L"winspool.drv");
    return spooler != nullptr ? FindExport<Function>(spooler, name) : nullptr;
}

using UploadPackage = HRESULT(WINAPI*)(LPCWSTR server, LPCWSTR inf, LPCWSTR environment, DWORD flags,
                                       HWND window, LPWSTR destination, PULONG length);
using InstallFromPackage = HRESULT(WINAPI*)(LPCWSTR server, LPCWSTR inf, LPCWSTR driver, LPCWSTR environment,
                                            DWORD flags);
using AddConnection2 = BOOL(WINAPI*)(HWND window, LPCWSTR name, DWORD level, void* info);

constexpr wchar_t environment[] = L"Windows x64";
constexpr DWORD uploadSilently = 1;

// The code within, for a failure of the system that is told as an HRESULT.
std::uint32_t CodeOfResult(HRESULT result) {
    if (SUCCEEDED(result)) return 0;
    const bool isSystemCode = HRESULT_FACILITY(result) == FACILITY_WIN32;
    return isSystemCode ? static_cast<std::uint32_t>(HRESULT_CODE(result))
                        : static_cast<std::uint32_t>(result);
}

// Puts the driver into the system's store, and says where it lies there.
std::uint32_t Upload(const std::wstring& infPath, std::wstring& storedPath) {
    const auto upload = FindSpoolerFunction<UploadPackage>("UploadPrinterDriverPackageW");
    if (upload == nullptr) return ERROR_CALL_NOT_IMPLEMENTED;
    std::vector<wchar_t> stored(MAX_PATH * 4);
    auto length = static_cast<ULONG>(stored.size());
    const HRESULT result =
        upload(nullptr, infPath.c_str(), environment, uploadSilently, nullptr, stored.data(), &length);
    if (SUCCEEDED(result)) storedPath = stored.data();
    return CodeOfResult(result);
}

// What a queue may be made with; the rest says what it is.
constexpr DWORD settableAttributes =
    PRINTER_ATTRIBUTE_QUEUED | PRINTER_ATTRIBUTE_DIRECT | PRINTER_ATTRIBUTE_SHARED |
    PRINTER_ATTRIBUTE_HIDDEN | PRINTER_ATTRIBUTE_ENABLE_DEVQ | PRINTER_ATTRIBUTE_KEEPPRINTEDJOBS |
    PRINTER_ATTRIBUTE_DO_COMPLETE_FIRST | PRINTER_ATTRIBUTE_ENABLE_BIDI | PRINTER_ATTRIBUTE_RAW_ONLY;

PRINTER_INFO_2W InfoOf(const PrintQueue& queue) {
    return {.pPrinterName = Lent(queue.name),
            .pShareName = Lent(queue.shareName),
            .pPortName = Lent(queue.port),
            .pDriverName = Lent(queue.driver),
            .pComment = Lent(queue.comment),
            .pLocation = Lent(queue.location),
            .pPrintProcessor = const_cast<wchar_t*>(L"winprint"),
            .pDatatype = const_cast<wchar_t*>(L"RAW"),
            .Attributes = queue.attributes & settableAttributes};
}

// What the spooler says of a queue; the texts lie in the buffer.
std::uint32_t ReadInfo(HANDLE printer, std::vector<BYTE>& buffer) {
    DWORD size = 0;
    GetPrinterW(printer, 2, nullptr, 0, &size);
    buffer.resize(size);
    return CodeOf(GetPrinterW(printer, 2, buffer.data(), size, &size));
}

}  // namespace

std::uint32_t SystemSpooler::Look(SpoolerState& state) {
    return ReadSpoolerState(state);
}

std::uint32_t SystemSpooler::MakePort(const PrinterPort& port) {
    if (port.kind == PortKind::Local) return AskLocalMonitor(L"AddPort", port.name);
    const PortData1 data = PortDataFor(port);
    return AskMonitor(port.kind, L"AddPort", &data, sizeof(data));
}

std::uint32_t SystemSpooler::RemovePort(const PrinterPort& port) {
    if (port.kind == PortKind::Local) return AskLocalMonitor(L"DeletePort", port.name);
    const DeletePortData1 data = DeletePortDataFor(port);
    return AskMonitor(port.kind, L"DeletePort", &data, sizeof(data));
}

std::uint32_t SystemSpooler::InstallDriver(const std::wstring& name, const std::wstring& infPath) {
    std::wstring storedPath;
    if (!infPath.empty()) {
        if (const std::uint32_t code = Upload(infPath, storedPath); code != 0) return code;
    }
    const auto install = FindSpoolerFunction<InstallFromPackage>("InstallPrinterDriverFromPackageW");
    if (install == nullptr) return ERROR_CALL_NOT_IMPLEMENTED;
    const wchar_t* const inf = storedPath.empty() ? nullptr : storedPath.c_str();
    return CodeOfResult(install(nullptr, inf, name.c_str(), environment, 0));
}

std::uint32_t SystemSpooler::DeleteDriver(const std::wstring& name) {
    return CodeOf(DeletePrinterDriverExW(nullptr, const_cast<wchar_t*>(environment), Lent(name),
                                         DPD_DELETE_UNUSED_FILES, 0));
}

std::uint32_t SystemSpooler::AddQueue(const PrintQueue& queue) {
    PRINTER_INFO_2W info = InfoOf(queue);
    const PrinterHandle printer(AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&info)));
    return printer ? 0 : LastError();
}

std::uint32_t SystemSpooler::ChangeQueue(const PrintQueue& queue) {
    PrinterHandle printer;
    if (const std::uint32_t code = Open(queue.name, PRINTER_ALL_ACCESS, printer); code != 0) return code;
    std::vector<BYTE> buffer;
    if (const std::uint32_t code = ReadInfo(printer.get(), buffer); code != 0) return code;
    auto* const info = reinterpret_cast<PRINTER_INFO_2W*>(buffer.data());
    info->pPortName = Lent(queue.port);
    info->pDriverName = Lent(queue.driver);
    info->pLocation = Lent(queue.location);
    info->pComment = Lent(queue.comment);
    // The settings of a former driver do not fit another one, and nobody's rights change.
    info->pDevMode = nullptr;
    info->pSecurityDescriptor = nullptr;
    return CodeOf(SetPrinterW(printer.get(), 2, buffer.data(), 0));
}

std::uint32_t SystemSpooler::DeleteQueue(const std::wstring& name) {
    PrinterHandle printer;
    if (const std::uint32_t code = Open(name, PRINTER_ALL_ACCESS, printer); code != 0) return code;
    return CodeOf(DeletePrinter(printer.get()));
}

std::uint32_t SystemSpooler::AddConnection(const std::wstring& path) {
    const auto add = FindSpoolerFunction<AddConnection2>("AddPrinterConnection2W");
    if (add == nullptr) return ERROR_CALL_NOT_IMPLEMENTED;
    PRINTER_CONNECTION_INFO_1 info{.dwFlags = PRINTER_CONNECTION_NO_UI};
    return CodeOf(add(nullptr, path.c_str(), 1, &info));
}

std::uint32_t SystemSpooler::DeleteConnection(const std::wstring& path) {
    return CodeOf(DeletePrinterConnectionW(Lent(path)));
}

std::uint32_t SystemSpooler::SetDefault(const std::wstring& name) {
    return CodeOf(SetDefaultPrinterW(name.c_str()));
}

std::wstring SystemSpooler::TextOf(std::uint32_t code) {
    wchar_t text[512] = {};
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK, nullptr,
        code, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
    std::wstring words(text, length);
    while (!words.empty() && words.back() == L' ') words.pop_back();
    return words;
}

}  // namespace printerqueue
