// Rules of the files beside settings, languages and packages.
#pragma once

#include "tools/PackageCheck/Package.h"
#include "tools/PackageCheck/Rule.h"

namespace packagecheck {

namespace rules {

inline constexpr Rule libraryMissing{
    "library-missing",
    Severity::Error,
    "No package can be read, and everything counts as installed although nothing was.",
    "Put Brevanto.dll into Setup/x64.",
    "All .msi files are read, installed and removed by this library. Without it each of its calls counts as "
    "a success, and one error is in the log.",
};

inline constexpr Rule searchLibraryMissing{
    "search-library-missing",
    Severity::Warning,
    "The page of the printers finds nothing, or does not say what colours they print in.",
    "Put Sondrix.dll and Quelmar.dll into Setup/x64, or set HIDE_DISCOVERY.",
    "Sondrix.dll finds the devices of the network, Quelmar.dll asks them about colour and fax. The default "
    "driver follows from the colour.",
};

inline constexpr Rule libraryUnreadable{
    "library-unreadable",
    Severity::Error,
    "The library cannot be loaded, and the wizard runs as if it were not there.",
    "Put the library for 64-bit Windows (x64) there.",
    "The file is no library of Windows, or one for another processor.",
};

inline constexpr Rule libraryExports{
    "library-exports",
    Severity::Error,
    "What the wizard would have the library do is left out, or counts as done.",
    "Use a library that exports all functions of its interface, under their plain names.",
    "The wizard looks each function up by its name when it needs it, and goes on where it is not there.",
};

inline constexpr Rule libraryOfWindows{
    "library-of-windows",
    Severity::Error,
    "A program in this folder may load it in place of the library of Windows, with the rights of an "
    "administrator.",
    "Remove the file, or give it a name that no library of Windows has.",
    "Libraries of Windows are looked for beside a program first. The wizard loads its own from the folder of "
    "the system alone; other programs of the package may not, and scanners take such a file for an attack.",
};

inline constexpr Rule oemBytesLine{
    "oem-bytes-line",
    Severity::Warning,
    "The line is passed over, and the devices of that number are not told apart.",
    "Write number = maker, maker; the number is from 0 to 255, or from 0x00 to 0xFF.",
    "Sondrix.dll of this project reads OemBytes.txt beside it in UTF-8, up to 64 KB. A line that begins with "
    "# is a remark.",
};

inline constexpr Rule oemBytesNumber{
    "oem-bytes-number",
    Severity::Warning,
    "The search lists the devices of all makers.",
    "Add a line for the number to OemBytes.txt, or correct OEMBYTE.",
    "Sondrix.dll of this project limits the list to the makers of the number OEMBYTE. A number without a "
    "line limits nothing.",
};

inline constexpr Rule communityText{
    "community-text",
    Severity::Warning,
    "Devices do not answer, or are asked with the community public.",
    "Write the community alone into the first line, in ASCII, without blanks around it and without a byte "
    "order mark.",
    "Sondrix.dll of this project takes the first line of Community.txt beside it as it stands.",
};

inline constexpr Rule programMissing{
    "program-missing",
    Severity::Error,
    "There is nothing to start.",
    "Put Kestrune.exe into Setup/x64.",
    "The program finds the rest of the package from where it lies.",
};

inline constexpr Rule pictureMissing{
    "picture-missing",
    Severity::Warning,
    "The place of the picture stays empty; where check.png or x.png is missing, the list of software has no "
    "signs at all.",
    "Put the picture into Setup/res/images.",
    "Pictures are looked for by fixed names when a page is shown.",
};

inline constexpr Rule pictureUnreadable{
    "picture-unreadable",
    Severity::Warning,
    "The place of the picture stays empty.",
    "Save it as PNG, or logo.bmp as a bitmap of Windows.",
    "The file does not begin as its extension says, or ends before it should.",
};

inline constexpr Rule pictureSize{
    "picture-size",
    Severity::Warning,
    "The picture is shown too small to be seen, or takes memory and time without use.",
    "Use a picture of 8 to 4,096 pixels in both directions.",
    "Pictures are fitted into their places on the pages, for screens of any resolution.",
};

inline constexpr Rule helpUnreadable{
    "help-unreadable",
    Severity::Warning,
    "The Help button shows an error of the help viewer.",
    "Compile the help again.",
    "install.chm is no compiled help: it does not begin with the signature of one.",
};

inline constexpr Rule helpMissing{
    "help-missing",
    Severity::Warning,
    "The Help buttons do nothing for users of that language.",
    "Put install.chm into the folder of the language in Setup.",
    "The help is that of the user's language, and no other one takes its place. The rule asks for it where "
    "most languages of a package have one.",
};

inline constexpr Rule licenceMissing{
    "licence-missing",
    Severity::Error,
    "A user of any language without a licence text of its own agrees to an empty page.",
    "Put EULA_en.txt into Notices/EULA, or set HIDE_EULA.",
    "Where no file of the user's language is found, EULA_en.txt is shown. An empty text can be agreed to at "
    "once.",
};

inline constexpr Rule licenceSeveral{
    "licence-several",
    Severity::Warning,
    "The licence that is shown may be that of another file.",
    "Keep one file for each language.",
    "Every .txt file whose name holds \"eula_\" and then the code of the language fits, also with further "
    "characters after it. The first one that the system lists is taken.",
};

inline constexpr Rule licenceBytes{
    "licence-code-page",
    Severity::Warning,
    "The licence is shown with wrong letters or boxes in it.",
    "Save the licence in the code page that CODE_PAGE of its language names, or correct CODE_PAGE.",
    "The text is decoded by the code page that the language file of the wizard's language names. The file "
    "holds a byte that is no letter there, or begins with a byte order mark.",
};

inline constexpr Rule licenceSplit{
    "licence-split",
    Severity::Warning,
    "A character of the licence is shown as two wrong ones, or a part of the text is left out.",
    "Break the line in front of the place.",
    "A line is decoded in pieces of 2,047 bytes, each by itself. Where the end of a piece falls into a "
    "character of several bytes, both halves are decoded as if they were whole.",
};

inline constexpr Rule licenceWithoutLanguage{
    "licence-without-language",
    Severity::Warning,
    "The licence is decoded by the code page of the English file, and may be shown in wrong letters.",
    "Add the language file, or remove the licence.",
    "The licence follows the language of Windows. Without a language file of that language the texts are "
    "English, CODE_PAGE among them.",
};

inline constexpr Rule fileNamesClash{
    "file-names-clash",
    Severity::Error,
    "Only one of the two files arrives on a Windows machine.",
    "Remove or rename one of them.",
    "Windows does not tell names apart by the case of their letters.",
};

}  // namespace rules

void CheckFiles(const Package& package, Report& report);

}  // namespace packagecheck
