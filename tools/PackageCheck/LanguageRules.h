// Rules of the language files.
#pragma once

#include "tools/PackageCheck/Package.h"
#include "tools/PackageCheck/Rule.h"

namespace packagecheck {

namespace rules {

inline constexpr Rule languageEnglishMissing{
    .id = "language-english-missing",
    .severity = Severity::Error,
    .effect = "A user of any language without a file of its own sees a wizard without a single text.",
    .cure = "Put en_strings.xml into Setup/res.",
    .explanation =
        "Where the file of the user's language is missing, en_strings.xml is read. Without it all texts are "
        "empty, also the question whether to cancel."};

inline constexpr Rule languageNameUnknown{
    .id = "language-name-unknown",
    .severity = Severity::Warning,
    .effect = "No user ever sees this language, unless the program is started with -lang.",
    .cure = "Name the file by a code that the wizard uses, such as pt_br, zh_cn or sr_Latn.",
    .explanation =
        "The language of Windows leads to one of a fixed list of codes. Chinese, Portuguese and Serbian have "
        "the "
        "region or the script in theirs."};

inline constexpr Rule languageId{.id = "language-id",
                                 .severity = Severity::Error,
                                 .effect = "Packages are installed and shown in another language.",
                                 .cure =
                                     "Set LANGUAGE_ID to the decimal number of the language, such as 1033 "
                                     "for English and 1031 for German.",
                                 .explanation =
                                     "LANGUAGE_ID goes to every package, and selects the properties of .msi "
                                     "files that end in a point and a "
                                     "number."};

inline constexpr Rule readingOrder{
    .id = "reading-order",
    .severity = Severity::Warning,
    .effect = "The pages are laid out from left to right, or the other way round than the language is read.",
    .cure =
        "Set READING_ORDER to RTL for a language that is read from right to left, and to LTR for any other.",
    .explanation = "Only exactly \"RTL\", in capitals, turns the pages round."};

inline constexpr Rule codePage{
    .id = "code-page",
    .severity = Severity::Error,
    .effect = "The licence is shown in the wrong letters, or empty.",
    .cure = "Set CODE_PAGE to the number of the code page of the licence text, such as 1252.",
    .explanation =
        "The licence is decoded by the code page that the language file names. 0, or none, stands for the "
        "one of "
        "the user's system, which need not be the one of the file."};

inline constexpr Rule textMissing{
    .id = "text-missing",
    .severity = Severity::Warning,
    .effect = "A label, a button or a message is empty.",
    .cure = "Add the text. Where it is left out on purpose, add it with a blank.",
    .explanation =
        "A text that is not in the file of the user's language is not looked for in en_strings.xml."};

inline constexpr Rule textEmpty{.id = "text-empty",
                                .severity = Severity::Warning,
                                .effect = "A label, a button or a message is empty.",
                                .cure = "Give the element a text.",
                                .explanation = "An element without a value stands for an empty text."};

inline constexpr Rule textUnknown{
    .id = "text-unknown",
    .severity = Severity::Warning,
    .effect = "The wizard never asks for the text, so nobody sees it.",
    .cure = "Correct the key, or remove the element.",
    .explanation = "Keys are compared exactly, in the case in which they are written."};

inline constexpr Rule textRepeated{.id = "text-repeated",
                                   .severity = Severity::Warning,
                                   .effect = "Only the first of the two texts is shown.",
                                   .cure = "Remove the other one.",
                                   .explanation = "The first element of a key is the one that is read."};

inline constexpr Rule textUnclosed{
    .id = "text-unclosed",
    .severity = Severity::Error,
    .effect = "The text is empty, or is all the rest of the file.",
    .cure = "Close the element by a tag of exactly its name, after its open tag.",
    .explanation = "A text is found by the first open tag and the first close tag of its key."};

inline constexpr Rule accessKeyTwice{
    .id = "access-key-twice",
    .severity = Severity::Warning,
    .effect =
        "Two letters of the label are underlined, only one of them works, and each look-up writes an error "
        "into the log.",
    .cure = "Leave one &amp; in the text.",
    .explanation = "&amp; marks the next letter as the access key of a control, which has one."};

inline constexpr Rule accessKeyBroken{
    .id = "access-key-broken",
    .severity = Severity::Error,
    .effect = "The text is cut at the sign.",
    .cure = "Write &amp; with its semicolon.",
    .explanation =
        "After \"&amp\" everything up to the next \";\" is taken for the sign, and up to the end of the text "
        "where there is none."};

inline constexpr Rule accessKeyShared{
    .id = "access-key-shared",
    .severity = Severity::Warning,
    .effect = "The key moves between two controls of the page instead of pressing one.",
    .cure = "Mark another letter of one of the two.",
    .explanation = "On one page each access key belongs to one control. Help and Cancel are on most pages."};

inline constexpr Rule textEntity{
    .id = "text-entity",
    .severity = Severity::Warning,
    .effect = "The user sees the entity as it is written.",
    .cure = "Write the character itself.",
    .explanation =
        "The file is no XML for the wizard. Of all entities it knows &amp;, as the mark of an access key."};

inline constexpr Rule textTagUnknown{
    .id = "text-tag-unknown",
    .severity = Severity::Warning,
    .effect = "Nothing stands where the value is meant to be.",
    .cure = "Correct the name between the signs.",
    .explanation = "^NAME^ stands for the value of a tag of the settings. The name is compared exactly."};

inline constexpr Rule textTagUnclosed{.id = "text-tag-unclosed",
                                      .severity = Severity::Error,
                                      .effect = "The rest of the text is lost.",
                                      .cure = "Close the name by a second ^, or write another sign.",
                                      .explanation =
                                          "All that follows a single ^ is taken for the name of a tag. There "
                                          "is no way to show the sign itself."};

inline constexpr Rule textEndless{
    .id = "text-endless",
    .severity = Severity::Error,
    .effect = "The user sees the text with the signs in it, and each look-up writes an error into the log.",
    .cure = "Take the name of the tag out of the tag's own value.",
    .explanation =
        "A value that is put in for ^NAME^ is searched for further names. One that leads back to itself "
        "never "
        "ends."};

inline constexpr Rule textArgumentMissing{
    .id = "text-argument-missing",
    .severity = Severity::Warning,
    .effect = "The product is not named where the text is shown.",
    .cure = "Put {0} where the name of the product belongs.",
    .explanation =
        "DISCOVERY_INFOCENTER_LINK_LABEL is shown with the product code of the printer in the place of {0}."};

inline constexpr Rule textArgumentUnknown{
    .id = "text-argument-unknown",
    .severity = Severity::Warning,
    .effect = "The user sees the sign as it is written.",
    .cure = "Remove it.",
    .explanation = "Only DISCOVERY_INFOCENTER_LINK_LABEL takes an argument, and only {0}."};

}  // namespace rules

void CheckLanguages(const Package& package, Report& report);

}  // namespace packagecheck
