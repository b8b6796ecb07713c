#include "tests/unit/RecordedLog.h"

#include "CommonLib/Log.h"

RecordedLog& TheLog() {
    static RecordedLog log;
    return log;
}

void LogBasic(std::wstring_view message, std::wstring_view level) {
    TheLog().basic.push_back({std::wstring(level), std::wstring(message)});
}

void LogAdvanced(std::wstring_view message, std::wstring_view level) {
    TheLog().advanced.push_back({std::wstring(level), std::wstring(message)});
}
