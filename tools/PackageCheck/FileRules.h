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
