#include "tools/PackageCheck/ElementRules.h"

#include <algorithm>
#include <set>
#include <string>

#include "CommonLib/Utf8.h"
#include "settings/TagNames.h"
#include "tools/PackageCheck/KnownTags.h"
#include "tools/PackageCheck/Quoted.h"

namespace packagecheck {

namespace {

constexpr std::wstring_view blanks = L" \t\r\n";

bool HoldsTag(std::wstring_view value) {
    return value.find(L'<') != std::wstring_view::npos;
}

bool IsBlank(wchar_t character) {
    return blanks.find(character) != std::wstring_view::npos;
}

// Goes through the elements of one settings file.
class FileCheck {
public:
    FileCheck(const Package& package, const TagFile& checked, Report& target)
        : file(checked), report(target), isUserFile(&checked == package.User()) {
        for (const TakenElement& element : package.UserElements()) taken.insert(element.start);
        for (const FoundTag& tag : file.Tags()) {
            if (tag.kind == TagKind::Close) closed.insert(tag.name);
        }
    }

    void Run() {
        for (const Element& element : file.Elements().All()) {
            // What stands in a device is a matter of that device.
            if (element.open->start < deviceEnd) continue;
            CheckElement(element);
            const bool isDevice = element.open->name == Tag::DEVICE && element.close != nullptr;
            if (isDevice) deviceEnd = element.close->end;
        }
    }

private:
    void CheckElement(const Element& element) {
        const std::wstring_view value = file.Elements().ValueOf(element);
        const KnownTag* known = FindSettingsTag(element.open->name);
        // A tag around others is a mere frame.
        if (known == nullptr && element.close != nullptr && HoldsTag(value)) return;
        CheckName(element, known);
        if (element.open->isInComment) {
            Add(rules::elementInComment, element, " is in a comment and is read nevertheless.");
        }
        if (!CheckClosing(element)) return;
        if (isUserFile && !taken.contains(element.open->start)) return AddUntaken(element, value);
        if (known == nullptr || known->use != TagUse::List) CheckRepetition(element);
        CheckEdges(element, value);
    }

    void CheckName(const Element& element, const KnownTag* known) {
        const std::wstring_view name = element.open->name;
        if (known != nullptr) {
            if (known->use == TagUse::Run) Add(rules::tagOfRun, element, " is set by the wizard itself.");
        } else if (IsDeviceTag(name)) {
            Add(rules::tagOfDevice, element, " stands in no DEVICE and has no effect.");
        } else {
            Add(rules::tagUnknown, element,
                " is no tag that the wizard knows." + NearestHint(name, SettingsTagNames()));
        }
    }

    bool CheckClosing(const Element& element) {
        if (element.close != nullptr) return true;
        if (closed.contains(element.open->name)) {
            Add(rules::elementCloseFirst, element,
                " is closed in front of here, so all the rest of the file is its value.");
        } else {
            Add(rules::elementUnclosed, element, " has no close tag and is not found.");
        }
        return false;
    }

    // Why an element that could count does not.
    void AddUntaken(const Element& element, std::wstring_view value) {
        if (element.open->kind == TagKind::OpenWithAttributes) {
            Add(rules::elementAttributes, element, " has attributes and is passed over.");
        } else if (value.empty()) {
            Add(rules::elementEmpty, element, " is empty and changes nothing.");
        } else if (value.find_first_of(L"\r\n") != std::wstring_view::npos) {
            const bool isDevice = element.open->name == Tag::DEVICE;
            Add(rules::elementOverLines, element,
                isDevice ? " is spread over lines: the printer is not set up, and its tags become those of "
                           "the whole run."
                         : " is spread over lines and is passed over.");
        }
    }

    void CheckRepetition(const Element& element) {
        if (seen.insert(element.open->name).second) return;
        Add(rules::elementRepeated, element, " stands here again; only the first one of the file counts.");
    }

    void CheckEdges(const Element& element, std::wstring_view value) {
        if (value.empty() || HoldsTag(value)) return;
        if (IsBlank(value.front()) || IsBlank(value.back())) {
            Add(rules::valueEdges, element,
                " has the value " + Quoted(value) + ", with what stands around it.");
        }
    }

    void Add(const Rule& rule, const Element& element, const std::string& rest) {
        report.Add(rule, file.PlaceOf(element.open->start), ToUtf8(element.open->name) + rest);
    }

    const TagFile& file;
    Report& report;
    bool isUserFile;
    std::set<std::size_t> taken;
    std::set<std::wstring_view> closed;
    std::set<std::wstring_view> seen;
    std::size_t deviceEnd = 0;
};

}  // namespace

void CheckElements(const Package& package, Report& report) {
    for (const TagFile* file : {package.Defaults(), package.User()}) {
        if (file != nullptr) FileCheck(package, *file, report).Run();
    }
}

}  // namespace packagecheck
