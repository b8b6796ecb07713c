#include "CommonLib/IpAddress.h"

#include <winsock2.h>

#include <ws2tcpip.h>

#include <array>

#include "CommonLib/Logger.h"
#include "framework/Handles.h"
#include "framework/SystemLibrary.h"

namespace {

using InetPtonFunction = int(WSAAPI*)(int family, const wchar_t* text, void* address);

}  // namespace

int IsValidIpAddress(const std::wstring& text) {
    // Loaded by name, because systems before Vista lack the function.
    const Library library = LoadSystemLibrary(L"Ws2_32.dll");
    if (!library) {
        LogBasic(L"Ws2_32.dll not found in the system");
        return 0;
    }
    const auto convert = FindExport<InetPtonFunction>(library.get(), "InetPtonW");
    if (convert == nullptr) {
        LogBasic(L"InetPtonW was not found in Ws2_32.dll");
        return 0;
    }
    std::array<unsigned char, sizeof(in6_addr)> address{};
    const int asVersion4 = convert(AF_INET, text.c_str(), address.data());
    return asVersion4 == 1 ? asVersion4 : convert(AF_INET6, text.c_str(), address.data());
}
