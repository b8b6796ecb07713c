#include "tools/PackageCheck/Finding.h"

#include <algorithm>

namespace packagecheck {

std::vector<Finding> Report::Sorted() const {
    std::vector<Finding> sorted = findings;
    std::ranges::stable_sort(sorted, {}, &Finding::place);
    const auto isSame = [](const Finding& left, const Finding& right) {
        return left.rule == right.rule && left.place == right.place && left.message == right.message;
    };
    sorted.erase(std::unique(sorted.begin(), sorted.end(), isSame), sorted.end());
    return sorted;
}

int ExitCodeFor(const std::vector<Finding>& findings) {
    if (findings.empty()) return 0;
    const auto isError = [](const Finding& finding) { return finding.rule->severity == Severity::Error; };
    return std::ranges::any_of(findings, isError) ? 2 : 1;
}

}  // namespace packagecheck
