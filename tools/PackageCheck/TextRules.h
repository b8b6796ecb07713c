// Rules of how text files are stored.
#pragma once

#include "tools/PackageCheck/Package.h"
#include "tools/PackageCheck/Rule.h"

namespace packagecheck {

namespace rules {

inline constexpr Rule fileUnreadable{
    "file-unreadable",
    Severity::Error,
    "The wizard runs as if the file were not there.",
    "Give the file back the rights to be read, or replace it.",
    "The file is in the package and cannot be opened. For defaultInstallSettings.xml that means that the "
    "program ends at once, without a message.",
};

inline constexpr Rule fileUtf16{
    "file-utf16",
    Severity::Error,
    "The file arrives as rubbish: no setting and no text of it is found.",
    "Save the file as UTF-8. --fix does it.",
    "The wizard reads its files as UTF-8, and of each line what stands in front of the first null byte. In "
    "UTF-16 every other byte of ordinary text is one. The vendor is then \"Printer\".",
};

inline constexpr Rule fileNotUtf8{
    "file-not-utf8",
    Severity::Error,
    "Letters outside of ASCII are shown as replacement characters.",
    "Save the file as UTF-8.",
    "The file holds bytes that are no character of UTF-8, as a file in a code page of Windows does. A value "
    "that is compared with another one is then unequal to it.",
};

inline constexpr Rule fileNull{
    "file-null-character",
    Severity::Error,
    "What follows the null character in its line is lost.",
    "Remove the character.",
    "A line is taken up to its first null character, in pieces of 2,047 bytes. The end of the line goes with "
    "what is lost, so the next line is put straight after what is left.",
};

inline constexpr Rule fileEndMark{
    "file-end-mark",
    Severity::Error,
    "Everything after the character U+001A is lost.",
    "Remove the character. --fix does it where nothing follows.",
    "Windows takes U+001A (Ctrl+Z) for the end of a file that is read as text. Old editors and the command "
    "copy write it at the end.",
};

inline constexpr Rule fileMarkTwice{
    "file-start-marker",
    Severity::Warning,
    "The log shows the settings in another form, and whoever reads the file sees three strange characters.",
    "Remove the characters in front of the first element. --fix does it.",
    "The file begins with a byte order mark that was converted to UTF-8 a second time. The wizard steps over "
    "it; its log writes the document anew without it, with a doubled sign in front.",
};

inline constexpr Rule lineSplit{
    "line-splits-character",
    Severity::Error,
    "One character of the line is shown as replacement characters.",
    "Divide the line where the format allows it, or move the character by a blank.",
    "The settings are read in pieces of 2,047 bytes, each decoded by itself. A character of several bytes "
    "that lies across such a border is lost.",
};

}  // namespace rules

void CheckTextFiles(const Package& package, Report& report);

// The rules above for one file.
void CheckEncoding(const TagFile& file, Report& report);

}  // namespace packagecheck
