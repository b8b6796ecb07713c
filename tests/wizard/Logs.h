// The two logs of the program, read back record by record.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

struct LogRecord {
    std::wstring level;
    std::wstring time;
    // These three stand in the advanced log only.
    std::wstring processId;
    std::wstring threadId;
    std::wstring application;
    // Holds its line ends if it runs over several lines.
    std::wstring message;
};

void PrintTo(const LogRecord& record, std::ostream* stream);

enum class LogForm { Basic, Advanced };

// The records of a log file in its order; none if there is no such file. A line that begins no record goes to
// the message above it, and in front of the first record it counts as a record without a time.
std::vector<LogRecord> ReadLog(const std::wstring& path, LogForm form);
