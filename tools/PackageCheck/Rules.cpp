#include <algorithm>

#include "tools/PackageCheck/ElementRules.h"
#include "tools/PackageCheck/Rule.h"
#include "tools/PackageCheck/SettingsRules.h"
#include "tools/PackageCheck/TextRules.h"

namespace packagecheck {

std::string_view NameOf(Severity severity) {
    return severity == Severity::Error ? "error" : "warning";
}

const std::vector<const Rule*>& AllRules() {
    using namespace rules;
    static const std::vector<const Rule*> all = {
        &settingsMissing, &fileUnreadable, &fileUtf16, &fileNotUtf8, &fileNull, &fileEndMark, &fileMarkTwice,
        &lineSplit,
        // The form of elements.
        &elementOverLines, &elementEmpty, &elementAttributes, &elementUnclosed, &elementCloseFirst,
        &elementRepeated, &elementInComment, &tagUnknown, &tagOfRun, &tagOfDevice, &valueEdges,
        // What the settings say.
        &vendorMissing, &vendorCharacters, &flagValue, &strictFlagValue, &tagWithoutEffect,
        &silentCannotBegin, &silentNeedsDotNet, &runWithoutQuestion, &runWithoutProgress, &runWithoutEnd,
        &modelForm, &modelRepeated, &modelBrand, &productCodeForm, &subnetForm, &kindOfPackage,
        &manufacturerForm, &manufacturerDefault, &linkScheme, &linkQuery};
    return all;
}

const Rule* FindRule(std::string_view id) {
    const auto& all = AllRules();
    const auto found = std::ranges::find(all, id, &Rule::id);
    return found == all.end() ? nullptr : *found;
}

}  // namespace packagecheck
