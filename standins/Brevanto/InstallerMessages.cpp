#include "standins/Brevanto/InstallerMessages.h"

#include <algorithm>

#include "settings/TagDocument.h"

namespace brevanto {
namespace {

// The first field of a progress message says what the others mean.
constexpr int phaseBegins = 0;
constexpr int actionBegins = 1;
constexpr int ticksPassed = 2;
constexpr int phaseGrows = 3;

}  // namespace

void ApplyProgress(const std::vector<int>& fields, ProgressMeter& meter) {
    const auto field = [&](std::size_t index) { return index < fields.size() ? fields[index] : 0; };
    switch (field(0)) {
        case phaseBegins:
            meter.BeginPhase(field(1), field(2) == 1, field(3) == 1);
            break;
        case actionBegins:
            meter.SetTicksPerData(field(2) == 1 ? field(1) : 0);
            break;
        case ticksPassed:
            meter.AddTicks(field(1));
            break;
        case phaseGrows:
            meter.ExtendPhase(field(1));
            break;
        default:
            break;
    }
}

std::wstring PercentDocument(int percent) {
    return TagDocument::MakeElement(L"PERCENT", std::to_wstring(percent));
}

std::wstring FilesInUseDocument(const std::wstring& kind, const std::vector<std::wstring>& fields) {
    std::vector<std::wstring> names;
    for (std::size_t index = 0; index < fields.size(); index += 2) {
        const bool isNew = std::ranges::find(names, fields[index]) == names.end();
        if (!fields[index].empty() && isNew) names.push_back(fields[index]);
    }
    std::wstring lines;
    for (const std::wstring& name : names) lines += (lines.empty() ? L"" : L"\r\n") + name;
    return TagDocument::MakeElement(kind, L"true") + TagDocument::MakeElement(L"APPLICATION_NAME", lines);
}

}  // namespace brevanto
