// The options of the command line, switches of the form name=value.
#pragma once

#include <map>
#include <string>

#include "framework/CWinApp.h"

// Written while the command line is parsed at start, only read afterwards.
class CmdLineHelper : public CCommandLineInfo {
public:
    enum class Option {
        None = 0,
        Language = 1,          // lang: language code that overrules the user's language
        Port = 2,              // p: port name of the printer
        Address = 3,           // ip: host name or address of the printer
        PackageDirectory = 4,  // pkgdir: where the basic log goes after a failed silent run
    };

    static CmdLineHelper& GetInstance();
    static void DestroyInstance();

    void ParseParam(const std::wstring& parameter, bool isFlag, bool isLast) override;

    // The value of an option, empty if it was not given.
    std::wstring GetValue(Option option) const;
    // The option of the last parameter, None if that was not recognised.
    Option GetCurrent() const { return current; }

private:
    Option current = Option::None;
    std::map<Option, std::wstring> options;
};
