// The form of a log record: columns padded with blanks, which a longer text pushes to the right. Both
// functions may run on any thread and return one record with its line end; the message goes in as it is.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct LogTime {
    unsigned year = 0;
    unsigned month = 0;
    unsigned day = 0;
    unsigned hour = 0;
    unsigned minute = 0;
    unsigned second = 0;
};

struct LogOrigin {
    std::uint32_t processId = 0;
    std::uint32_t threadId = 0;
};

// Returns the record of the basic log: level, local time, message.
std::wstring FormatBasicRecord(std::wstring_view level, const LogTime& time, std::wstring_view message);

// Returns the record of the advanced log: level, local time, process, thread, application, message.
std::wstring FormatAdvancedRecord(std::wstring_view level, const LogTime& time, const LogOrigin& origin,
                                  std::wstring_view application, std::wstring_view message);
