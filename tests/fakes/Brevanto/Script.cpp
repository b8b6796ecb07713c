#include "tests/fakes/Brevanto/Script.h"

#include <stdexcept>

#include "tests/fakes/TextLines.h"

namespace {

using Fields = std::vector<std::wstring>;

void TakeStep(const Fields& fields, ScriptedCall& call) {
    const std::wstring& kind = fields.at(1);
    if (kind == L"return") {
        call.code = ReadNumber(fields.at(2));
    } else {
        call.steps.push_back({.kind = kind, .argument = fields.size() > 2 ? fields[2] : std::wstring()});
    }
}

void TakeLine(const Fields& fields, ScriptedPackage& package) {
    const std::wstring& verb = fields.front();
    if (verb == L"properties") {
        package.properties = fields.at(1);
    } else if (verb == L"propertiesCode") {
        package.propertiesCode = ReadNumber(fields.at(1));
    } else if (verb == L"propertiesLength") {
        package.propertiesLength = ReadNumber(fields.at(1));
    } else if (verb == L"state") {
        package.states.push_back({.installed = fields.at(1) == L"1",
                                  .upToDate = fields.at(2) == L"1",
                                  .upgradable = fields.at(3) == L"1",
                                  .minorUpgrade = fields.at(4) == L"1"});
    } else if (verb == L"keeps") {
        package.keeps = true;
    } else if (verb == L"install") {
        TakeStep(fields, package.install);
    } else if (verb == L"uninstall") {
        TakeStep(fields, package.uninstall);
    } else {
        throw std::invalid_argument("a line of the script that nobody knows");
    }
}

}  // namespace

std::map<std::wstring, ScriptedPackage, std::less<>> ReadScript(const std::wstring& path) {
    std::map<std::wstring, ScriptedPackage, std::less<>> packages;
    ScriptedPackage* current = nullptr;
    for (const Fields& fields : ReadLines(path)) {
        if (fields.front() == L"package") {
            current = &packages[fields.at(1)];
        } else if (current != nullptr) {
            TakeLine(fields, *current);
        } else {
            throw std::invalid_argument("a script that does not begin with a package");
        }
    }
    return packages;
}
