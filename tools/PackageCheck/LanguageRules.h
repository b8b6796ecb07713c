// Rules of the language files.
#pragma once

#include "tools/PackageCheck/Package.h"
#include "tools/PackageCheck/Rule.h"

namespace packagecheck {

namespace rules {

inline constexpr Rule languageEnglishMissing{
    "language-english-missing",
    Severity::Error,
    "A user of any language without a file of its own sees a wizard without a single text.",
    "Put en_strings.xml into Setup/res.",
    "Where the file of the user's language is missing, en_strings.xml is read. Without it all texts are "
    "empty, also the question whether to cancel.",
};

inline constexpr Rule languageNameUnknown{
    "language-name-unknown",
    Severity::Warning,
    "No user ever sees this language, unless the program is started with -lang.",
    "Name the file by a code that the wizard uses, such as pt_br, zh_cn or sr_Latn.",
    "The language of Windows leads to one of a fixed list of codes. Chinese, Portuguese and Serbian have the "
    "region or the script in theirs.",
};

inline constexpr Rule languageId{
    "language-id",
    Severity::Error,
    "Packages are installed and shown in another language.",
    "Set LANGUAGE_ID to the decimal number of the language, such as 1033 for English and 1031 for German.",
    "LANGUAGE_ID goes to every package, and selects the properties of .msi files that end in a point and a "
    "number.",
};

inline constexpr Rule readingOrder{
    "reading-order",
    Severity::Warning,
    "The pages are laid out from left to right, or the other way round than the language is read.",
    "Set READING_ORDER to RTL for a language that is read from right to left, and to LTR for any other.",
    "Only exactly \"RTL\", in capitals, turns the pages round.",
};

inline constexpr Rule codePage{
    "code-page",
    Severity::Error,
    "The licence is shown in the wrong letters, or empty.",
    "Set CODE_PAGE to the number of the code page of the licence text, such as 1252.",
    "The licence is decoded by the code page that the language file names. 0, or none, stands for the one of "
    "the user's system, which need not be the one of the file.",
};

inline constexpr Rule textMissing{
    "text-missing",
    Severity::Warning,
    "A label, a button or a message is empty.",
    "Add the text. Where it is left out on purpose, add it with a blank.",
    "A text that is not in the file of the user's language is not looked for in en_strings.xml.",
};

inline constexpr Rule textEmpty{
    "text-empty",
    Severity::Warning,
    "A label, a button or a message is empty.",
    "Give the element a text.",
    "An element without a value stands for an empty text.",
};

inline constexpr Rule textUnknown{
    "text-unknown",
    Severity::Warning,
    "The wizard never asks for the text, so nobody sees it.",
    "Correct the key, or remove the element.",
    "Keys are compared exactly, in the case in which they are written.",
};

inline constexpr Rule textRepeated{
    "text-repeated",
    Severity::Warning,
    "Only the first of the two texts is shown.",
    "Remove the other one.",
    "The first element of a key is the one that is read.",
};

inline constexpr Rule textUnclosed{
    "text-unclosed",
    Severity::Error,
    "The text is empty, or is all the rest of the file.",
    "Close the element by a tag of exactly its name, after its open tag.",
    "A text is found by the first open tag and the first close tag of its key.",
};

inline constexpr Rule accessKeyTwice{
    "access-key-twice",
    Severity::Warning,
    "Two letters of the label are underlined, only one of them works, and each look-up writes an error into "
    "the log.",
    "Leave one &amp; in the text.",
    "&amp; marks the next letter as the access key of a control, which has one.",
};

inline constexpr Rule accessKeyBroken{
    "access-key-broken",
    Severity::Error,
    "The text is cut at the sign.",
    "Write &amp; with its semicolon.",
    "After \"&amp\" everything up to the next \";\" is taken for the sign, and up to the end of the text "
    "where there is none.",
};

inline constexpr Rule accessKeyShared{
    "access-key-shared",
    Severity::Warning,
    "The key moves between two controls of the page instead of pressing one.",
    "Mark another letter of one of the two.",
    "On one page each access key belongs to one control. Help and Cancel are on most pages.",
};

inline constexpr Rule textEntity{
    "text-entity",
    Severity::Warning,
    "The user sees the entity as it is written.",
    "Write the character itself.",
    "The file is no XML for the wizard. Of all entities it knows &amp;, as the mark of an access key.",
};

inline constexpr Rule textTagUnknown{
    "text-tag-unknown",
    Severity::Warning,
    "Nothing stands where the value is meant to be.",
    "Correct the name between the signs.",
    "^NAME^ stands for the value of a tag of the settings. The name is compared exactly.",
};

inline constexpr Rule textTagUnclosed{
    "text-tag-unclosed",
    Severity::Error,
    "The rest of the text is lost.",
    "Close the name by a second ^, or write another sign.",
    "All that follows a single ^ is taken for the name of a tag. There is no way to show the sign itself.",
};

inline constexpr Rule textEndless{
    "text-endless",
    Severity::Error,
    "The user sees the text with the signs in it, and each look-up writes an error into the log.",
    "Take the name of the tag out of the tag's own value.",
    "A value that is put in for ^NAME^ is searched for further names. One that leads back to itself never "
    "ends.",
};

inline constexpr Rule textArgumentMissing{
    "text-argument-missing",
    Severity::Warning,
    "The product is not named where the text is shown.",
    "Put {0} where the name of the product belongs.",
    "DISCOVERY_INFOCENTER_LINK_LABEL is shown with the product code of the printer in the place of {0}.",
};

inline constexpr Rule textArgumentUnknown{
    "text-argument-unknown",
    Severity::Warning,
    "The user sees the sign as it is written.",
    "Remove it.",
    "Only DISCOVERY_INFOCENTER_LINK_LABEL takes an argument, and only {0}.",
};

}  // namespace rules

void CheckLanguages(const Package& package, Report& report);

}  // namespace packagecheck
