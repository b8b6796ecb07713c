#include "tools/Rollout/EventLog.h"

#include <windows.h>

#include "framework/Handles.h"

namespace rollout {
namespace {

WORD TypeOf(EventKind kind) {
    switch (kind) {
        case EventKind::Warning:
            return EVENTLOG_WARNING_TYPE;
        case EventKind::Error:
            return EVENTLOG_ERROR_TYPE;
        case EventKind::Information:
            break;
    }
    return EVENTLOG_INFORMATION_TYPE;
}

}  // namespace

void WriteEvent(const RunEvent& event) {
    const EventSource source(RegisterEventSourceW(nullptr, L"Kestrune"));
    if (!source) return;
    const wchar_t* text = event.text.c_str();
    ReportEventW(source.get(), TypeOf(event.kind), 0, event.id, nullptr, 1, 0, &text, nullptr);
}

}  // namespace rollout
