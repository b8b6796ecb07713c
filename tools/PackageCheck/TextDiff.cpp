#include "tools/PackageCheck/TextDiff.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace packagecheck {

namespace {

using Lines = std::vector<std::string_view>;

Lines LinesOf(std::string_view text) {
    Lines lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

// One line of the result: ' ' for a common one, '-' and '+' for those of one text.
struct Step {
    char sign;
    std::string_view line;
};

// The texts are compared line by line in a table of this size at most; beyond that the changed part is
// replaced as a whole.
constexpr std::size_t mostCells = 4'000'000;

class Comparison {
public:
    Comparison(Lines first, Lines second) : before(std::move(first)), after(std::move(second)) {}

    std::vector<Step> Run() {
        std::size_t start = 0;
        while (start < before.size() && start < after.size() && before[start] == after[start]) {
            steps.push_back({' ', before[start++]});
        }
        std::size_t tail = 0;
        const std::size_t most = std::min(before.size(), after.size()) - start;
        while (tail < most && before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) ++tail;
        Compare(start, before.size() - tail, after.size() - tail);
        for (std::size_t i = before.size() - tail; i < before.size(); ++i) steps.push_back({' ', before[i]});
        return steps;
    }

private:
    void Compare(std::size_t start, std::size_t beforeEnd, std::size_t afterEnd) {
        const std::size_t rows = beforeEnd - start;
        const std::size_t columns = afterEnd - start;
        const bool fits = rows * columns <= mostCells;
        const auto common = fits ? CommonLines(start, rows, columns) : std::vector<std::uint32_t>();
        const std::size_t width = columns + 1;
        std::size_t i = 0;
        std::size_t j = 0;
        while (i < rows || j < columns) {
            const bool areBothLeft = i < rows && j < columns;
            if (areBothLeft && fits && before[start + i] == after[start + j]) {
                steps.push_back({' ', before[start + i++]});
                ++j;
            } else if (!areBothLeft ? i < rows
                                    : !fits || common[(i + 1) * width + j] >= common[i * width + j + 1]) {
                steps.push_back({'-', before[start + i++]});
            } else {
                steps.push_back({'+', after[start + j++]});
            }
        }
    }

    // For each line of both texts how many lines the rests from there have in common.
    std::vector<std::uint32_t> CommonLines(std::size_t start, std::size_t rows, std::size_t columns) const {
        const std::size_t width = columns + 1;
        std::vector<std::uint32_t> common((rows + 1) * width);
        for (std::size_t i = rows; i-- > 0;) {
            for (std::size_t j = columns; j-- > 0;) {
                common[i * width + j] =
                    before[start + i] == after[start + j]
                        ? common[(i + 1) * width + j + 1] + 1
                        : std::max(common[(i + 1) * width + j], common[i * width + j + 1]);
            }
        }
        return common;
    }

    Lines before;
    Lines after;
    std::vector<Step> steps;
};

std::string Shown(const Step& step) {
    std::string line(1, step.sign);
    line += step.line;
    std::erase_if(line,
                  [](char letter) { return static_cast<unsigned char>(letter) < 0x20 && letter != '\t'; });
    return line + "\n";
}

// Writes changes with what stands around them.
class HunkWriter {
public:
    explicit HunkWriter(std::vector<Step> comparison) : steps(std::move(comparison)) {}

    std::string Run() {
        for (std::size_t change = NextChange(0); change < steps.size(); change = NextChange(position)) {
            const std::size_t start = change - std::min(change - position, around);
            Skip(start);
            WriteHunk(EndOfHunk(change));
        }
        return text;
    }

private:
    static constexpr std::size_t around = 3;

    std::size_t NextChange(std::size_t from) const {
        while (from < steps.size() && steps[from].sign == ' ') ++from;
        return from;
    }

    // Changes with few lines between them stand in one hunk.
    std::size_t EndOfHunk(std::size_t change) const {
        std::size_t last = change;
        for (std::size_t next = change; next < steps.size() && next <= last + 2 * around; ++next) {
            if (steps[next].sign != ' ') last = next;
        }
        return std::min(last + around + 1, steps.size());
    }

    void Skip(std::size_t start) {
        beforeLine += start - position;
        afterLine += start - position;
        position = start;
    }

    void WriteHunk(std::size_t end) {
        std::string lines;
        std::size_t removed = 0;
        std::size_t added = 0;
        for (; position < end; ++position) {
            removed += steps[position].sign != '+' ? 1 : 0;
            added += steps[position].sign != '-' ? 1 : 0;
            lines += Shown(steps[position]);
        }
        text += "@@ -" + std::to_string(beforeLine) + "," + std::to_string(removed) + " +" +
                std::to_string(afterLine) + "," + std::to_string(added) + " @@\n" + lines;
        beforeLine += removed;
        afterLine += added;
    }

    std::vector<Step> steps;
    std::string text;
    std::size_t position = 0;
    std::size_t beforeLine = 1;
    std::size_t afterLine = 1;
};

}  // namespace

std::string UnifiedDiff(const std::string& path, std::string_view before, std::string_view after) {
    if (before == after) return {};
    return "--- a/" + path + "\n+++ b/" + path + "\n" +
           HunkWriter(Comparison(LinesOf(before), LinesOf(after)).Run()).Run();
}

}  // namespace packagecheck
