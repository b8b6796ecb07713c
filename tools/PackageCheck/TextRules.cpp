#include "tools/PackageCheck/TextRules.h"

#include <string>

#include "settings/StartMarker.h"

namespace packagecheck {

namespace {

const Rule& RuleFor(FlawKind kind) {
    switch (kind) {
        case FlawKind::NotUtf8:
            return rules::fileNotUtf8;
        case FlawKind::NullCharacter:
            return rules::fileNull;
        case FlawKind::EndMark:
            return rules::fileEndMark;
        case FlawKind::SplitCharacter:
            break;
    }
    return rules::lineSplit;
}

std::string MessageFor(FlawKind kind) {
    switch (kind) {
        case FlawKind::NotUtf8:
            return "The file is not in UTF-8: letters are lost from here on.";
        case FlawKind::NullCharacter:
            return "A null character ends the line here; the rest of it is lost.";
        case FlawKind::EndMark:
            return "The character U+001A ends the file here, whatever follows.";
        case FlawKind::SplitCharacter:
            break;
    }
    return "The line is read in pieces of 2,047 bytes, and this character lies across their border: it is "
           "lost.";
}

}  // namespace

void CheckEncoding(const TagFile& file, Report& report) {
    if (file.Source().IsUtf16()) {
        report.Add(rules::fileUtf16, {.file = file.Path()},
                   "The file is in UTF-16 and is read as UTF-8: nothing of it arrives.");
    }
    for (const Flaw& flaw : file.Source().Flaws()) {
        report.Add(RuleFor(flaw.kind), {.file = file.Path(), .position = flaw.position},
                   MessageFor(flaw.kind));
    }
    if (HoldsStartMarker(file.Text())) {
        report.Add(rules::fileMarkTwice, file.PlaceOf(file.Text().find(L'\u00EF')),
                   "The file holds a byte order mark that was converted to UTF-8 a second time.");
    }
}

void CheckTextFiles(const Package& package, Report& report) {
    for (const std::string& path : package.UnreadableFiles()) {
        report.Add(rules::fileUnreadable, {.file = path},
                   "The file cannot be read, and the wizard runs without it.");
    }
    for (const TagFile* file : {package.Defaults(), package.User()}) {
        if (file != nullptr) CheckEncoding(*file, report);
    }
    for (const LanguageFile& language : package.Languages()) CheckEncoding(*language.file, report);
}

}  // namespace packagecheck
