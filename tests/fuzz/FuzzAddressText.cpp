#include <regex>

#include "CommonLib/AddressText.h"
#include "tests/fuzz/FuzzInput.h"

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
    if (size > mostForRegex) return 0;
    Require(isHostName == std::regex_match(text, hostName));
    Require(isAddress == std::regex_match(text, address));
    return 0;
}
