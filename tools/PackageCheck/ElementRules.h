// Rules of the form of elements in the two settings files.
#pragma once

#include "tools/PackageCheck/Package.h"
#include "tools/PackageCheck/Rule.h"

namespace packagecheck {

namespace rules {

inline constexpr Rule elementOverLines{
    "element-over-lines",
    Severity::Error,
    "The element has no effect; of a DEVICE, the elements within it become settings of the whole run.",
    "Put the open tag, the value and the close tag on one line. --fix does it where only blanks are removed.",
    "In PackageUserSettings.xml an element counts if it stands on one line from its open tag to its close "
    "tag. Of an element over several lines the elements within it are taken, each by itself.",
};

inline constexpr Rule elementEmpty{
    "element-empty",
    Severity::Warning,
    "The element has no effect, and the value of defaultInstallSettings.xml stays.",
    "Give it a value, or remove it.",
    "In PackageUserSettings.xml an element without a value is passed over, so it cannot be used to take a "
    "default back.",
};

inline constexpr Rule elementAttributes{
    "element-attributes",
    Severity::Error,
    "The element has no effect, and the value of defaultInstallSettings.xml stays.",
    "Write the open tag without attributes.",
    "In PackageUserSettings.xml an element with attributes is never found, since its close tag does not "
    "repeat them. The wizard reads no attributes anywhere.",
};

inline constexpr Rule elementUnclosed{
    "element-unclosed",
    Severity::Error,
    "The element has no effect, and what depends on it runs as if it were not there.",
    "Close the element by a tag of exactly its name.",
    "An element is found by its open tag and its close tag. The two are compared as text, so that a close "
    "tag in another case, or of another name, does not count.",
};

inline constexpr Rule elementCloseFirst{
    "element-closed-first",
    Severity::Error,
    "The value is all the rest of the file.",
    "Remove the close tag that stands in front of the open tag.",
    "The wizard looks for the first open tag and for the first close tag of a name, each by itself. If the "
    "close tag comes first, everything after the open tag is the value.",
};

inline constexpr Rule elementRepeated{
    "element-repeated",
    Severity::Warning,
    "Only the first element counts.",
    "Remove the others.",
    "Only DEVICE, MODEL_NAME, MODEL_NAME_FAX and MODEL_PRODUCT_CODE are lists. Of any other tag the first "
    "element of the file is read.",
};

inline constexpr Rule elementInComment{
    "element-in-comment",
    Severity::Warning,
    "The element takes effect although it is commented out.",
    "Remove the element from the file.",
    "The wizard looks for tags in the whole text and knows no comments. An element in a comment is found "
    "like any other, and counts where it is the first of its name.",
};

inline constexpr Rule tagUnknown{
    "tag-unknown",
    Severity::Warning,
    "The wizard never looks for the tag, so it has no effect.",
    "Correct the name, or remove the element.",
    "Names of tags are compared exactly, in the case in which they are written.",
};

inline constexpr Rule tagOfRun{
    "tag-of-run",
    Severity::Warning,
    "The wizard sets the tag itself, so the value is lost or misleads it until then.",
    "Remove the element.",
    "Some tags are how the pages of the wizard talk to each other. They are no settings.",
};

inline constexpr Rule tagOfDevice{
    "tag-of-device",
    Severity::Error,
    "The tag has no effect, since it stands in no DEVICE.",
    "Put it into a DEVICE element of PackageUserSettings.xml.",
    "Drivers and names of predefined printers are read from the DEVICE elements alone.",
};

inline constexpr Rule valueEdges{
    "value-edges",
    Severity::Warning,
    "The blanks and line ends around the value are part of it, so that it equals nothing it is compared "
    "with.",
    "Put the tags straight around the value. --fix does it.",
    "A value is what stands between the tags, character for character. Nothing is trimmed.",
};

}  // namespace rules

void CheckElements(const Package& package, Report& report);

}  // namespace packagecheck
