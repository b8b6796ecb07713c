// The document that says what a package's installation is to do.
#pragma once

#include <string>

struct CommandValues {
    std::wstring printerInfo;  // one PRINTER_INFO element, with which the document begins
    std::wstring targetDir;
    std::wstring language;
    std::wstring friendlyName;
    std::wstring infocenterShortcut;
    std::wstring infocenterLink;
    bool reinstall = false;
};

// Returns the command document for the installation of one package. May run on any thread.
std::wstring BuildCommandDocument(const CommandValues& values);
