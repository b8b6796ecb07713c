#include "tools/PackageCheck/DependentRules.h"

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "CommonLib/Utf8.h"
#include "catalogue/PropertyNames.h"
#include "settings/TagSearch.h"
#include "tools/PackageCheck/KnownTags.h"
#include "tools/PackageCheck/Quoted.h"

namespace packagecheck {

namespace {

// The file names that a builder means, whatever stands between them.
std::vector<std::wstring> NamesIn(std::wstring_view list) {
    std::vector<std::wstring> names;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find_first_of(L";,|/\n\t"), list.size());
        std::wstring_view name = list.substr(0, end);
        list.remove_prefix(std::min(end + 1, list.size()));
        name.remove_prefix(std::min(name.find_first_not_of(L' '), name.size()));
        name = name.substr(0, name.find_last_not_of(L' ') + 1);
        if (!name.empty()) names.emplace_back(name);
    }
    return names;
}

class DependentsCheck {
public:
    DependentsCheck(const Package& checkedPackage, Report& target) : package(checkedPackage), report(target) {
        for (const PackageFile& file : package.Packages()) {
            if (file.kind != PackageKind::Dependent) continue;
            dependents.push_back(&file);
            names.push_back(FromUtf8(FileNameOf(file.path)));
        }
        for (const PackageFile* file : dependents) {
            takenAlong.push_back(FoundBy(file->PropertyOf(Property::DEPENDENTAPPS)));
        }
    }

    void Run() {
        for (const PackageFile& file : package.Packages()) {
            const std::wstring& list = file.PropertyOf(Property::DEPENDENTAPPS);
            if (list.empty() || !file.IsInCatalogue()) continue;
            if (file.kind == PackageKind::Application) {
                CheckList(file, list);
            } else {
                report.Add(rules::dependentIgnored, file.Whole(),
                           "DEPENDENTAPPS is " + Quoted(list) +
                               ", and a package of this folder takes nothing along.");
            }
        }
        CheckUse();
    }

private:
    // As the wizard finds them: the file's whole name occurs in the list.
    std::vector<std::size_t> FoundBy(std::wstring_view list) const {
        std::vector<std::size_t> found;
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (list.find(names[i]) != nowhere) found.push_back(i);
        }
        return found;
    }

    void CheckList(const PackageFile& file, const std::wstring& list) {
        const std::vector<std::wstring> meant = NamesIn(list);
        for (const std::wstring& name : meant) {
            if (std::ranges::find(names, name) != names.end()) continue;
            const std::vector<std::wstring_view> known(names.begin(), names.end());
            report.Add(rules::dependentMissing, file.Whole(),
                       "DEPENDENTAPPS names " + Quoted(name) + ", which is no file in Dependents." +
                           NearestHint(name, known));
        }
        for (const std::size_t index : FoundBy(list)) {
            used.insert(index);
            if (std::ranges::find(meant, names[index]) == meant.end()) {
                report.Add(rules::dependentByAccident, file.Whole(),
                           "DEPENDENTAPPS takes " + Quoted(names[index]) +
                               " along, whose name is a part of another one.");
            }
            CheckCycle(index);
        }
    }

    // A dependent that names itself, or one that names it.
    void CheckCycle(std::size_t first) {
        std::set<std::size_t> seen;
        std::vector<std::size_t> waiting = {first};
        while (!waiting.empty()) {
            const std::size_t next = waiting.back();
            waiting.pop_back();
            for (const std::size_t index : takenAlong[next]) {
                if (index == first) {
                    report.Add(rules::dependentCycle, dependents[first]->Whole(),
                               "By way of DEPENDENTAPPS the package depends on itself.");
                    return;
                }
                if (seen.insert(index).second) waiting.push_back(index);
            }
        }
    }

    void CheckUse() {
        for (std::size_t i = 0; i < dependents.size(); ++i) {
            if (used.contains(i)) continue;
            report.Add(rules::dependentUnused, dependents[i]->Whole(),
                       "No application names this package in DEPENDENTAPPS.");
        }
    }

    const Package& package;
    Report& report;
    std::vector<const PackageFile*> dependents;
    std::vector<std::wstring> names;
    std::vector<std::vector<std::size_t>> takenAlong;  // by each dependent
    std::set<std::size_t> used;
};

}  // namespace

void CheckDependents(const Package& package, Report& report) {
    DependentsCheck(package, report).Run();
}

}  // namespace packagecheck
