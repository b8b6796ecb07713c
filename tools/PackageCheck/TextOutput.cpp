#include "tools/PackageCheck/TextOutput.h"

#include <algorithm>
#include <string_view>

#include "tools/ShownText.h"

namespace packagecheck {

namespace {

// How terminals are told to change the look of what follows.
namespace look {

constexpr std::string_view plain = "\x1b[0m";
constexpr std::string_view bold = "\x1b[1m";
constexpr std::string_view error = "\x1b[1;31m";
constexpr std::string_view warning = "\x1b[1;33m";

}  // namespace look

std::string Dressed(std::string_view text, std::string_view style, bool hasColour) {
    return hasColour ? std::string(style).append(text).append(look::plain) : std::string(text);
}

std::string PlaceText(const Place& place, const std::string& folder) {
    std::string text = place.file.empty() ? folder : folder + "/" + place.file;
    if (place.position.line == 0) return text;
    return text + ":" + std::to_string(place.position.line) + ":" + std::to_string(place.position.column);
}

std::string Counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

}  // namespace

std::string Summary(const std::vector<Finding>& findings) {
    const auto errors = static_cast<std::size_t>(std::ranges::count_if(
        findings, [](const Finding& finding) { return finding.rule->severity == Severity::Error; }));
    return Counted(errors, "error") + ", " + Counted(findings.size() - errors, "warning");
}

void WriteText(std::ostream& out, const std::vector<Finding>& findings, const std::string& folder,
               bool hasColour) {
    for (const Finding& finding : findings) {
        const bool isError = finding.rule->severity == Severity::Error;
        out << Dressed(ShownText(PlaceText(finding.place, folder)), look::bold, hasColour) << ": "
            << Dressed(NameOf(finding.rule->severity), isError ? look::error : look::warning, hasColour)
            << ": " << ShownText(finding.message) << " [" << finding.rule->id << "]\n";
    }
    out << (findings.empty() ? "No findings." : Summary(findings)) << "\n";
}

}  // namespace packagecheck
