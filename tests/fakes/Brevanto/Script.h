// What the scripted library answers. A test writes the script beside the library; each line is one entry:
//
//   package FILE             what follows speaks of the package of that file name
//   properties DOCUMENT      its property document
//   propertiesCode CODE      what the reading returns; the document is delivered all the same
//   propertiesLength COUNT    the length that the reading asks for whatever room it is offered
//   state I U G M            one answer to the question whether it is installed: installed, up to date,
//                            upgradable, minor upgrade, each 0 or 1; the last answer stands for all later
//                            ones
//   keeps                    what is done lasts, also for other processes: after an installation that
//   succeeds the
//                            package is installed and up to date, after a removal it is not installed
//   install STEP...          one step of the installation, uninstall STEP... one of the removal:
//       message DOCUMENT     calls back
//       pause MILLISECONDS
//       untilCancel          waits for a cancel
//       untilFile PATH       waits until the file exists
//       return CODE          what the call returns after all steps, 0 without it
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct ScriptStep {
    std::wstring kind;
    std::wstring argument;
};

struct ScriptedCall {
    std::vector<ScriptStep> steps;
    std::uint32_t code = 0;
};

struct ScriptedState {
    bool installed = false;
    bool upToDate = false;
    bool upgradable = false;
    bool minorUpgrade = false;
};

inline constexpr ScriptedState older{.installed = true, .upgradable = true};
inline constexpr ScriptedState newer{.installed = true};

struct ScriptedPackage {
    std::wstring properties;
    std::uint32_t propertiesCode = 0;
    std::optional<std::uint32_t> propertiesLength;
    std::vector<ScriptedState> states;
    bool keeps = false;
    ScriptedCall install;
    ScriptedCall uninstall;
};

// The packages by file name. Throws std::invalid_argument for a line that is none of the above.
std::map<std::wstring, ScriptedPackage, std::less<>> ReadScript(const std::wstring& path);
