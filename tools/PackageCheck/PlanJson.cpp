#include "tools/PackageCheck/PlanJson.h"

#include "CommonLib/Utf8.h"
#include "tools/PackageCheck/JsonText.h"

namespace packagecheck {

namespace {

using PlanDocument = nlohmann::ordered_json;

const char* WordFor(PageState state) {
    switch (state) {
        case PageState::Shown:
            return "shown";
        case PageState::Hidden:
            return "hidden";
        case PageState::OnDemand:
            break;
    }
    return "onDemand";
}

const char* WordFor(Intention intention) {
    switch (intention) {
        case Intention::LeaveNewer:
            return "leaveNewer";
        case Intention::DependentsOnly:
            return "dependentsOnly";
        case Intention::InstallAgain:
            return "installAgain";
        case Intention::MinorUpgrade:
            return "minorUpgrade";
        case Intention::PassOver:
            return "passOver";
        case Intention::Upgrade:
            return "upgrade";
        case Intention::Install:
            break;
    }
    return "install";
}

PlanDocument PagesOf(const Plan& plan) {
    PlanDocument pages = PlanDocument::array();
    for (const PlannedPage& page : plan.pages) {
        PlanDocument json = {{"title", ToUtf8(page.title)}, {"state", WordFor(page.state)}};
        if (!page.reason.empty()) json["reason"] = page.reason;
        pages.push_back(std::move(json));
    }
    return pages;
}

PlanDocument PackagesOf(const std::vector<PlannedPackage>& packages) {
    PlanDocument list = PlanDocument::array();
    for (const PlannedPackage& package : packages) {
        PlanDocument json = {{"file", package.file},
                             {"name", ToUtf8(package.name)},
                             {"version", ToUtf8(package.version)},
                             {"kind", package.isDriver ? "driver" : "application"},
                             {"action", WordFor(package.intention)},
                             {"reason", package.reason}};
        if (!package.document.empty()) json["document"] = ToUtf8(package.document);
        json["dependents"] = PackagesOf(package.dependents);
        list.push_back(std::move(json));
    }
    return list;
}

PlanDocument LeftOutOf(const Plan& plan) {
    PlanDocument list = PlanDocument::array();
    for (const LeftOutPackage& package : plan.leftOut) {
        list.push_back({{"file", package.file}, {"name", ToUtf8(package.name)}, {"reason", package.reason}});
    }
    return list;
}

PlanDocument ProgramsOf(const Plan& plan) {
    PlanDocument list = PlanDocument::array();
    for (const std::wstring& program : plan.programs) list.push_back(ToUtf8(plan.programFolder + program));
    return list;
}

}  // namespace

void WritePlanJson(std::ostream& out, const Plan& plan, const std::string& folder) {
    WriteDocument(out, {{"version", 1},
                        {"package", folder},
                        {"silent", plan.isSilent},
                        {"endsAtOnce", plan.endsAtOnce},
                        {"obstacles", plan.obstacles},
                        {"pages", PagesOf(plan)},
                        {"packages", PackagesOf(plan.packages)},
                        {"leftOut", LeftOutOf(plan)},
                        {"programs", ProgramsOf(plan)}});
}

}  // namespace packagecheck
