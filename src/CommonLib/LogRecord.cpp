#include "CommonLib/LogRecord.h"

#include <algorithm>

namespace {

constexpr std::size_t levelWidth = 7;
constexpr std::size_t idWidth = 4;
constexpr std::size_t applicationWidth = 15;
constexpr std::wstring_view fieldSeparator = L"  ";
constexpr std::wstring_view lineEnd = L"\r\n";

void AppendColumn(std::wstring& record, std::wstring_view text, std::size_t width) {
    record.append(text);
    if (text.size() < width) record.append(width - text.size(), L' ');
    record.append(fieldSeparator);
}

std::wstring Digits(std::uint32_t number, std::uint32_t base) {
    constexpr std::wstring_view digits = L"0123456789abcdef";
    std::wstring text;
    do {
        text += digits[number % base];
        number /= base;
    } while (number != 0);
    std::ranges::reverse(text);
    return text;
}

void AppendPadded(std::wstring& record, unsigned number, std::size_t width) {
    const std::wstring text = Digits(number, 10);
    if (text.size() < width) record.append(width - text.size(), L'0');
    record.append(text);
}

void AppendTime(std::wstring& record, const LogTime& time) {
    AppendPadded(record, time.year, 4);
    record += L'/';
    AppendPadded(record, time.month, 2);
    record += L'/';
    AppendPadded(record, time.day, 2);
    record += L'-';
    AppendPadded(record, time.hour, 2);
    record += L':';
    AppendPadded(record, time.minute, 2);
    record += L':';
    AppendPadded(record, time.second, 2);
    record.append(fieldSeparator);
}

std::wstring BeginRecord(std::wstring_view level, const LogTime& time, std::size_t messageSize) {
    constexpr std::size_t roomForColumns = 96;
    std::wstring record;
    record.reserve(roomForColumns + messageSize);
    AppendColumn(record, level, levelWidth);
    AppendTime(record, time);
    return record;
}

}  // namespace

std::wstring FormatBasicRecord(std::wstring_view level, const LogTime& time, std::wstring_view message) {
    return BeginRecord(level, time, message.size()).append(message).append(lineEnd);
}

std::wstring FormatAdvancedRecord(std::wstring_view level, const LogTime& time, const LogOrigin& origin,
                                  std::wstring_view application, std::wstring_view message) {
    std::wstring record = BeginRecord(level, time, message.size());
    record.append(L"pid=");
    AppendColumn(record, Digits(origin.processId, 16), idWidth);
    record.append(L"tid=");
    AppendColumn(record, Digits(origin.threadId, 16), idWidth);
    AppendColumn(record, application, applicationWidth);
    return record.append(message).append(lineEnd);
}
