// The records that the logic has written, in the order in which they came. For one thread.
#pragma once

#include <string>
#include <vector>

struct RecordedLine {
    std::wstring level;
    std::wstring message;
};

struct RecordedLog {
    std::vector<RecordedLine> basic;
    std::vector<RecordedLine> advanced;
};

// Empty it before what is to be looked at.
RecordedLog& TheLog();
