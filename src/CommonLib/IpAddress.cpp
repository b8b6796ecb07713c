#include "CommonLib/IpAddress.h"

#include <winsock2.h>

#include <ws2tcpip.h>

#include <array>

#include "CommonLib/Logger.h"
#include "framework/SystemLibrary.h"

IpAddressReader::IpAddressReader() : network(LoadSystemLibrary(L"Ws2_32.dll")) {
    // Found by name, because systems before Vista lack the function.
    if (network) convert = FindExport<Conversion>(network.get(), "InetPtonW");
}

int IpAddressReader::Read(const std::wstring& text) const {
    if (convert == nullptr) {
        LogBasic(network ? L"InetPtonW was not found in Ws2_32.dll" : L"Ws2_32.dll not found in the system");
        return 0;
    }
    std::array<unsigned char, sizeof(in6_addr)> address{};
    const int asVersion4 = convert(AF_INET, text.c_str(), address.data());
    return asVersion4 == 1 ? asVersion4 : convert(AF_INET6, text.c_str(), address.data());
}

int IsValidIpAddress(const std::wstring& text) {
    return IpAddressReader().Read(text);
}
