#include "tools/Rollout/RunEvent.h"

#include <string_view>

namespace rollout {
namespace {

constexpr std::uint32_t beginningId = 1;
// In characters. The system refuses texts of 32,000 and more.
constexpr std::size_t longestText = 30000;

RunEvent KindOf(std::uint32_t code) {
    switch (code) {
        case Code::Done:
            return {.kind = EventKind::Information, .id = 2};
        case Code::RestartWanted:
            return {.kind = EventKind::Information, .id = 3};
        case Code::Cancelled:
        case Code::InstallerBusy:
        case Code::NewerInstalled:
        case Code::TimeIsUp:
            return {.kind = EventKind::Warning, .id = 4};
        default:
            return {.kind = EventKind::Error, .id = 5};
    }
}

std::wstring Heading(const Report& report) {
    return (report.action == "uninstall" ? L"Removal of the package in " : L"Rollout of the package in ") +
           report.folder;
}

}  // namespace

RunEvent BeginningOf(const Report& report) {
    return {.kind = EventKind::Information, .id = beginningId, .text = Heading(report) + L" begins."};
}

RunEvent EndOf(const Report& report) {
    RunEvent event = KindOf(report.verdict.code);
    event.text =
        Heading(report) + L": " + report.verdict.reason + L" (" + std::to_wstring(report.verdict.code) + L")";
    for (std::size_t index = 0; index < report.results.size() && index < report.packages.size(); ++index) {
        const PackageEntry& entry = report.packages[index];
        const std::string_view outcome = NameOf(report.results[index].outcome);
        event.text += L"\r\n" + entry.product + L" " + entry.version + L": ";
        event.text.append(outcome.begin(), outcome.end());
    }
    if (event.text.size() > longestText) event.text.resize(longestText);
    return event;
}

}  // namespace rollout
