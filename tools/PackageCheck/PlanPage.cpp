#include "tools/PackageCheck/PlanPage.h"

#include <string_view>
#include <vector>

#include "tools/PackageCheck/ManifestText.h"
#include "tools/PackageCheck/PlanText.h"

namespace packagecheck {

namespace {

constexpr std::string_view pageHead = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<meta name="color-scheme" content="light dark">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'">
<title>Plan of a run</title>
<style>
:root { color-scheme: light dark; --text: #1b1b1b; --ground: #ffffff; --quiet: #595959; --line: #767676; }
@media (prefers-color-scheme: dark) {
  :root { --text: #ececec; --ground: #181818; --quiet: #b0b0b0; --line: #808080; }
}
body { color: var(--text); background: var(--ground); font: 1rem/1.5 sans-serif; margin: 2rem auto;
       max-width: 60rem; overflow-wrap: anywhere; padding: 0 1rem; }
h1, h2 { line-height: 1.2; }
ol.pages { display: flex; flex-wrap: wrap; gap: .75rem; list-style: none; padding: 0; }
ol.pages li { border: 1px solid var(--line); border-radius: .25rem; box-sizing: border-box; padding: .5rem .75rem;
              width: 13rem; }
ol.pages li.hidden { border-style: dashed; }
.quiet { color: var(--quiet); }
pre { border-left: 3px solid var(--line); padding-left: .75rem; white-space: pre-wrap; }
</style>
</head>
<body>
)";

void WriteOutline(std::ostream& out, const PlannedPage& page) {
    const bool isHidden = page.state == PageState::Hidden;
    out << "<li" << (isHidden ? " class=\"hidden\"" : "") << "><strong>" << XmlText(page.title)
        << "</strong><br><span class=\"quiet\">" << XmlText(WordsFor(page)) << "</span></li>\n";
}

void WritePackageList(std::ostream& out, const std::vector<PlannedPackage>& packages) {
    out << "<ol>\n";
    for (const PlannedPackage& package : packages) {
        out << "<li><strong>" << XmlText(package.name) << "</strong> " << XmlText(package.version)
            << " <span class=\"quiet\">" << XmlText(package.file) << "</span><br>"
            << XmlText(WordsFor(package.intention)) << " (" << XmlText(package.reason) << ")\n";
        if (!package.document.empty())
            out << "<details><summary>its document</summary><pre>" << XmlText(package.document)
                << "</pre></details>\n";
        if (!package.dependents.empty()) WritePackageList(out, package.dependents);
        out << "</li>\n";
    }
    out << "</ol>\n";
}

void WriteRun(std::ostream& out, const Plan& plan) {
    out << "<h2>Packages</h2>\n";
    if (plan.packages.empty()) {
        out << "<p>None.</p>\n";
    } else {
        WritePackageList(out, plan.packages);
    }
    if (!plan.leftOut.empty()) out << "<h2>Left out</h2>\n<ul>\n";
    for (const LeftOutPackage& package : plan.leftOut) {
        out << "<li><strong>" << XmlText(package.name) << "</strong> <span class=\"quiet\">"
            << XmlText(package.file) << "</span><br>" << XmlText(package.reason) << "</li>\n";
    }
    if (!plan.leftOut.empty()) out << "</ul>\n";
    if (!plan.programs.empty()) out << "<h2>Programs at the end</h2>\n<ul>\n";
    for (const std::wstring& program : plan.programs)
        out << "<li>" << XmlText(plan.programFolder + program) << "</li>\n";
    if (!plan.programs.empty()) out << "</ul>\n";
}

}  // namespace

void WritePlanPage(std::ostream& out, const Plan& plan, const std::string& folder) {
    out << pageHead << "<h1>" << (plan.isSilent ? "A silent run" : "A run with pages") << "</h1>\n<p>"
        << XmlText(folder) << "</p>\n";
    if (!plan.obstacles.empty()) out << "<h2>What stops a silent run</h2>\n<ul>\n";
    for (const std::string& obstacle : plan.obstacles) out << "<li>" << XmlText(obstacle) << "</li>\n";
    if (!plan.obstacles.empty()) out << "</ul>\n";
    out << "<h2>Pages</h2>\n<ol class=\"pages\">\n";
    for (const PlannedPage& page : plan.pages) WriteOutline(out, page);
    out << "</ol>\n";
    if (!plan.endsAtOnce) WriteRun(out, plan);
    out << "</body>\n</html>\n";
}

}  // namespace packagecheck
