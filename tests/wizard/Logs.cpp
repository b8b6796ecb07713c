#include "tests/wizard/Logs.h"

#include <ostream>
#include <string_view>

#include "CommonLib/Utf8.h"
#include "tests/fakes/TextLines.h"

namespace {

constexpr std::wstring_view separator = L"  ";
constexpr std::size_t levelWidth = 7;
constexpr std::size_t timeWidth = 19;

bool IsTime(std::wstring_view text) {
    constexpr std::wstring_view form = L"0000/00/00-00:00:00";
    if (text.size() != form.size()) return false;
    for (std::size_t place = 0; place < form.size(); ++place) {
        const bool digit = text[place] >= L'0' && text[place] <= L'9';
        if (form[place] == L'0' ? !digit : text[place] != form[place]) return false;
    }
    return true;
}

std::wstring WithoutPadding(std::wstring_view text) {
    return std::wstring(text.substr(0, text.find_last_not_of(L' ') + 1));
}

// Takes one field with its separator from the front: all up to the separator after the least width.
std::wstring TakeField(std::wstring_view& line, std::size_t leastWidth) {
    const std::size_t end = line.find(separator, leastWidth);
    std::wstring field = WithoutPadding(line.substr(0, end));
    line.remove_prefix(end == std::wstring_view::npos ? line.size() : end + separator.size());
    return field;
}

bool BeginsRecord(std::wstring_view line) {
    constexpr std::size_t head = levelWidth + separator.size();
    return line.size() >= head + timeWidth && IsTime(line.substr(head, timeWidth));
}

LogRecord ParseRecord(std::wstring_view line, LogForm form) {
    LogRecord record;
    record.level = TakeField(line, levelWidth);
    record.time = TakeField(line, timeWidth);
    if (form == LogForm::Advanced) {
        record.processId = TakeField(line, std::wstring_view(L"pid=0000").size());
        record.threadId = TakeField(line, std::wstring_view(L"tid=0000").size());
        record.application = TakeField(line, 15);
    }
    record.message = line;
    return record;
}

}  // namespace

void PrintTo(const LogRecord& record, std::ostream* stream) {
    *stream << '[' << ToUtf8(record.level) << "] " << ToUtf8(record.message);
}

std::vector<LogRecord> ReadLog(const std::wstring& path, LogForm form) {
    constexpr std::wstring_view lineEnd = L"\r\n";
    const std::wstring text = ReadText(path);
    std::vector<LogRecord> records;
    std::size_t start = 0;
    for (std::size_t end = text.find(lineEnd); end != std::wstring::npos; end = text.find(lineEnd, start)) {
        const std::wstring_view line = std::wstring_view(text).substr(start, end - start);
        start = end + lineEnd.size();
        if (BeginsRecord(line)) {
            records.push_back(ParseRecord(line, form));
        } else if (records.empty()) {
            records.push_back({.message = std::wstring(line)});
        } else {
            records.back().message.append(lineEnd).append(line);
        }
    }
    return records;
}
