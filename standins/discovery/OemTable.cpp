#include "standins/discovery/OemTable.h"

#include <algorithm>
#include <optional>

#include "CommonLib/TextUtilities.h"

namespace discovery {

namespace {

constexpr std::wstring_view blanksAndMark = L" \t\r\uFEFF";
constexpr int largestByte = 255;

std::wstring_view Trim(std::wstring_view text) {
    const std::size_t first = text.find_first_not_of(blanksAndMark);
    if (first == std::wstring_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanksAndMark) - first + 1);
}

std::optional<int> DigitValue(wchar_t digit, int base) {
    const std::size_t value = std::wstring_view(L"0123456789abcdefABCDEF").find(digit);
    if (value == std::wstring_view::npos) return std::nullopt;
    const int number = static_cast<int>(value < 16 ? value : value - 6);
    return number < base ? std::optional(number) : std::nullopt;
}

std::optional<int> ReadByte(std::wstring_view text) {
    const bool isHexadecimal = text.starts_with(L"0x") || text.starts_with(L"0X");
    if (isHexadecimal) text.remove_prefix(2);
    int number = 0;
    for (const wchar_t character : text) {
        const std::optional<int> digit = DigitValue(character, isHexadecimal ? 16 : 10);
        if (!digit) return std::nullopt;
        number = number * (isHexadecimal ? 16 : 10) + *digit;
        if (number > largestByte) return std::nullopt;
    }
    return text.empty() ? std::nullopt : std::optional(number);
}

void ReadLine(std::wstring_view line, OemTable& table) {
    const std::size_t equals = line.find(L'=');
    if (equals == std::wstring_view::npos) return;
    // A comment has no number.
    const std::optional<int> number = ReadByte(Trim(line.substr(0, equals)));
    if (!number) return;
    for (const std::wstring& maker : SplitClosed(std::wstring(line.substr(equals + 1)) + L',', L',')) {
        if (const std::wstring_view name = Trim(maker); !name.empty()) table[*number].emplace_back(name);
    }
}

}  // namespace

OemTable ReadOemTable(std::wstring_view text) {
    OemTable table;
    for (const std::wstring& line : SplitClosed(std::wstring(text) + L'\n', L'\n'))
        ReadLine(Trim(line), table);
    return table;
}

std::vector<std::wstring> MakersOf(const OemTable& table, std::wstring_view oemByte) {
    const std::optional<int> number = ReadByte(Trim(oemByte));
    const auto found = number ? table.find(*number) : table.end();
    return found == table.end() ? std::vector<std::wstring>() : found->second;
}

}  // namespace discovery
