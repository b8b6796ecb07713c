#include <arpa/inet.h>

#include <array>
#include <regex>

#include "CommonLib/AddressText.h"
#include "tests/fuzz/FuzzInput.h"

namespace {

// The bytes of an address as the system reads it; none for a text that is no address. A zone is not the
// system's.
std::vector<std::uint8_t> BytesBySystem(const std::wstring& text) {
    const std::string narrow(text.begin(), text.end());
    const std::size_t zone = narrow.find('%');
    const std::string address = narrow.substr(0, zone);
    std::array<std::uint8_t, sizeof(in6_addr)> bytes{};
    if (address.find('\0') != std::string::npos || zone + 1 == narrow.size()) return {};
    if (zone == std::string::npos && inet_pton(AF_INET, address.c_str(), bytes.data()) == 1) {
        return {bytes.begin(), bytes.begin() + sizeof(in_addr)};
    }
    if (inet_pton(AF_INET6, address.c_str(), bytes.data()) != 1) return {};
    return {bytes.begin(), bytes.end()};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::wregex hostName(
        L"^(([a-zA-Z0-9]|[a-zA-Z0-9][a-zA-Z0-9\\-]*[a-zA-Z0-9])\\.)*"
        L"([A-Za-z0-9]|[A-Za-z0-9][A-Za-z0-9\\-]*[A-Za-z0-9])$");
    static const std::wregex address(
        L"^(([0-9]|[1-9][0-9]|1[0-9]{2}|2[0-4][0-9]|25[0-5])\\.){3}"
        L"([0-9]|[1-9][0-9]|1[0-9]{2}|2[0-4][0-9]|25[0-5])$");
    constexpr std::size_t mostForRegex = 16;  // The expression for host names tries every way to cut a label.
    const auto text = PartsOf(data, size, 1).front();
    const bool isHostName = IsValidHostName(text);
    const bool isAddress = IsValidIpV4Text(text);
    Require(!isAddress || isHostName);
    Require(AddressBytes(text) == BytesBySystem(text));
    if (size > mostForRegex) return 0;
    Require(isHostName == std::regex_match(text, hostName));
    Require(isAddress == std::regex_match(text, address));
    return 0;
}
