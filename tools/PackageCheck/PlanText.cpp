#include "tools/PackageCheck/PlanText.h"

#include <sstream>
#include <vector>

#include "CommonLib/Utf8.h"
#include "tools/ShownText.h"

namespace packagecheck {

namespace {

std::string Titled(const PlannedPage& page) {
    constexpr std::size_t width = 38;
    std::string title = ToUtf8(page.title);
    title.resize(width, ' ');
    return "  " + title;
}

void WritePage(std::ostream& out, const PlannedPage& page) {
    out << Titled(page) << WordsFor(page) << "\n";
}

void WritePackages(std::ostream& out, const std::vector<PlannedPackage>& packages,
                   const std::string& indent) {
    for (const PlannedPackage& package : packages) {
        out << indent << package.file << "  " << ToUtf8(package.name) << " " << ToUtf8(package.version)
            << "\n"
            << indent << "    " << ToUtf8(WordsFor(package.intention)) << " (" << package.reason << ")\n";
        if (!package.document.empty()) out << indent << "    " << ToUtf8(package.document) << "\n";
        WritePackages(out, package.dependents, indent + "    ");
    }
}

void WriteEnd(std::ostream& out, const Plan& plan) {
    out << "\nLeft out\n";
    for (const LeftOutPackage& package : plan.leftOut)
        out << "  " << package.file << "  " << ToUtf8(package.name) << "\n      " << package.reason << "\n";
    if (plan.leftOut.empty()) out << "  no package\n";
    out << "\nPrograms at the end\n";
    for (const std::wstring& program : plan.programs)
        out << "  " << ToUtf8(plan.programFolder) << ToUtf8(program) << "\n";
    if (plan.programs.empty()) out << "  none\n";
}

void WriteLines(std::ostream& out, const Plan& plan) {
    out << (plan.isSilent ? "A silent run" : "A run with pages") << "\n";
    if (!plan.obstacles.empty()) out << "\nWhat stops a silent run\n";
    for (const std::string& obstacle : plan.obstacles) out << "  " << obstacle << "\n";
    out << "\nPages\n";
    for (const PlannedPage& page : plan.pages) WritePage(out, page);
    if (plan.endsAtOnce) return;
    out << "\nPackages, in their order\n";
    WritePackages(out, plan.packages, "  ");
    if (plan.packages.empty()) out << "  none\n";
    WriteEnd(out, plan);
}

}  // namespace

std::string WordsFor(const PlannedPage& page) {
    switch (page.state) {
        case PageState::Hidden:
            return "hidden, since " + page.reason;
        case PageState::OnDemand:
            return "shown " + page.reason;
        case PageState::Shown:
            break;
    }
    return "shown";
}

void WritePlanText(std::ostream& out, const Plan& plan) {
    std::ostringstream lines;
    WriteLines(lines, plan);
    out << ShownText(lines.str());
}

}  // namespace packagecheck
