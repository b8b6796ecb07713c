// Rules of the files beside settings, languages and packages.
#pragma once

#include "tools/PackageCheck/Package.h"
#include "tools/PackageCheck/Rule.h"

namespace packagecheck {

namespace rules {

inline constexpr Rule libraryMissing{
    .id = "library-missing",
    .severity = Severity::Error,
    .effect = "No package can be read, and everything counts as installed although nothing was.",
    .cure = "Put Brevanto.dll into Setup/x64.",
    .explanation =
        "All .msi files are read, installed and removed by this library. Without it each of its calls counts "
        "as "
        "a success, and one error is in the log."};

inline constexpr Rule searchLibraryMissing{
    .id = "search-library-missing",
    .severity = Severity::Warning,
    .effect = "The page of the printers finds nothing, or does not say what colours they print in.",
    .cure = "Put Sondrix.dll and Quelmar.dll into Setup/x64, or set HIDE_DISCOVERY.",
    .explanation =
        "Sondrix.dll finds the devices of the network, Quelmar.dll asks them about colour and fax. The "
        "default "
        "driver follows from the colour."};

inline constexpr Rule libraryUnreadable{
    .id = "library-unreadable",
    .severity = Severity::Error,
    .effect = "The library cannot be loaded, and the wizard runs as if it were not there.",
    .cure = "Put the library for 64-bit Windows (x64) there.",
    .explanation = "The file is no library of Windows, or one for another processor."};

inline constexpr Rule libraryExports{
    .id = "library-exports",
    .severity = Severity::Error,
    .effect = "What the wizard would have the library do is left out, or counts as done.",
    .cure = "Use a library that exports all functions of its interface, under their plain names.",
    .explanation =
        "The wizard looks each function up by its name when it needs it, and goes on where it is not there."};

inline constexpr Rule libraryOfWindows{
    .id = "library-of-windows",
    .severity = Severity::Error,
    .effect =
        "A program in this folder may load it in place of the library of Windows, with the rights of an "
        "administrator.",
    .cure = "Remove the file, or give it a name that no library of Windows has.",
    .explanation =
        "Libraries of Windows are looked for beside a program first. The wizard loads its own from the "
        "folder of the system alone; other programs of the package may not, and scanners take such a file "
        "for an attack."};

inline constexpr Rule oemBytesLine{
    .id = "oem-bytes-line",
    .severity = Severity::Warning,
    .effect = "The line is passed over, and the devices of that number are not told apart.",
    .cure = "Write number = maker, maker; the number is from 0 to 255, or from 0x00 to 0xFF.",
    .explanation =
        "Sondrix.dll of this project reads OemBytes.txt beside it in UTF-8, up to 64 KB. A line that begins "
        "with # is a remark."};

inline constexpr Rule oemBytesNumber{
    .id = "oem-bytes-number",
    .severity = Severity::Warning,
    .effect = "The search lists the devices of all makers.",
    .cure = "Add a line for the number to OemBytes.txt, or correct OEMBYTE.",
    .explanation =
        "Sondrix.dll of this project limits the list to the makers of the number OEMBYTE. A number without "
        "a line limits nothing."};

inline constexpr Rule communityText{
    .id = "community-text",
    .severity = Severity::Warning,
    .effect = "Devices do not answer, or are asked with the community public.",
    .cure =
        "Write the community alone into the first line, in ASCII, without blanks around it and without a "
        "byte "
        "order mark.",
    .explanation =
        "Sondrix.dll of this project takes the first line of Community.txt beside it as it stands."};

inline constexpr Rule programMissing{
    .id = "program-missing",
    .severity = Severity::Error,
    .effect = "There is nothing to start.",
    .cure = "Put Kestrune.exe into Setup/x64.",
    .explanation = "The program finds the rest of the package from where it lies."};

inline constexpr Rule pictureMissing{
    .id = "picture-missing",
    .severity = Severity::Warning,
    .effect =
        "The place of the picture stays empty; where check.png or x.png is missing, the list of software has "
        "no signs at all.",
    .cure = "Put the picture into Setup/res/images.",
    .explanation = "Pictures are looked for by fixed names when a page is shown."};

inline constexpr Rule pictureUnreadable{
    .id = "picture-unreadable",
    .severity = Severity::Warning,
    .effect = "The place of the picture stays empty.",
    .cure = "Save it as PNG, or logo.bmp as a bitmap of Windows.",
    .explanation = "The file does not begin as its extension says, or ends before it should."};

inline constexpr Rule pictureSize{
    .id = "picture-size",
    .severity = Severity::Warning,
    .effect = "The picture is shown too small to be seen, or takes memory and time without use.",
    .cure = "Use a picture of 8 to 4,096 pixels in both directions.",
    .explanation = "Pictures are fitted into their places on the pages, for screens of any resolution."};

inline constexpr Rule helpUnreadable{
    .id = "help-unreadable",
    .severity = Severity::Warning,
    .effect = "The Help button shows an error of the help viewer.",
    .cure = "Compile the help again.",
    .explanation = "install.chm is no compiled help: it does not begin with the signature of one."};

inline constexpr Rule helpMissing{
    .id = "help-missing",
    .severity = Severity::Warning,
    .effect = "The Help buttons do nothing for users of that language.",
    .cure = "Put install.chm into the folder of the language in Setup.",
    .explanation =
        "The help is that of the user's language, and no other one takes its place. The rule asks for it "
        "where most languages of a package have one."};

inline constexpr Rule licenceMissing{
    .id = "licence-missing",
    .severity = Severity::Error,
    .effect = "A user of any language without a licence text of its own agrees to an empty page.",
    .cure = "Put EULA_en.txt into Notices/EULA, or set HIDE_EULA.",
    .explanation =
        "Where no file of the user's language is found, EULA_en.txt is shown. An empty text can be agreed to "
        "at "
        "once."};

inline constexpr Rule licenceSeveral{
    .id = "licence-several",
    .severity = Severity::Warning,
    .effect = "The licence that is shown may be that of another file.",
    .cure = "Keep one file for each language.",
    .explanation =
        "Every .txt file whose name holds \"eula_\" and then the code of the language fits, also with "
        "further "
        "characters after it. The first one that the system lists is taken."};

inline constexpr Rule licenceBytes{
    .id = "licence-code-page",
    .severity = Severity::Warning,
    .effect = "The licence is shown with wrong letters or boxes in it.",
    .cure = "Save the licence in the code page that CODE_PAGE of its language names, or correct CODE_PAGE.",
    .explanation =
        "The text is decoded by the code page that the language file of the wizard's language names. The "
        "file "
        "holds a byte that is no letter there, or begins with a byte order mark."};

inline constexpr Rule licenceSplit{
    .id = "licence-split",
    .severity = Severity::Warning,
    .effect = "A character of the licence is shown as two wrong ones, or a part of the text is left out.",
    .cure = "Break the line in front of the place.",
    .explanation =
        "A line is decoded in pieces of 2,047 bytes, each by itself. Where the end of a piece falls into a "
        "character of several bytes, both halves are decoded as if they were whole."};

inline constexpr Rule licenceWithoutLanguage{
    .id = "licence-without-language",
    .severity = Severity::Warning,
    .effect =
        "The licence is decoded by the code page of the English file, and may be shown in wrong letters.",
    .cure = "Add the language file, or remove the licence.",
    .explanation =
        "The licence follows the language of Windows. Without a language file of that language the texts are "
        "English, CODE_PAGE among them."};

inline constexpr Rule fileNamesClash{
    .id = "file-names-clash",
    .severity = Severity::Error,
    .effect = "Only one of the two files arrives on a Windows machine.",
    .cure = "Remove or rename one of them.",
    .explanation = "Windows does not tell names apart by the case of their letters."};

}  // namespace rules

void CheckFiles(const Package& package, Report& report);

}  // namespace packagecheck
