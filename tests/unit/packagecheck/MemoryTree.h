// A package that a test makes in memory.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tools/PackageCheck/Finding.h"
#include "tools/PackageCheck/PackageTree.h"

// The same .msi file as in every test package: one that nothing is wrong with.
packagecheck::MsiContents CleanMsi(const std::wstring& name);

// Begins as a package with a driver, an application and a language, on which no rule has anything to say.
class MemoryTree : public packagecheck::PackageTree {
public:
    MemoryTree();

    std::vector<packagecheck::TreeFile> List() const override;
    std::optional<std::string> Read(const std::string& path, std::size_t most) const override;
    packagecheck::MsiReading ReadMsi(const std::string& path) const override;

    // Replaces the first occurrence of a text in a file; the test fails where there is none.
    void Replace(const std::string& path, const std::string& from, const std::string& to);
    // Puts elements in front of the end of the default settings, the user's settings or a language.
    void AddSetting(const std::string& elements);
    void AddUserElement(const std::string& elements);
    void AddText(const std::string& elements);

    std::map<std::string, std::string> files;
    std::map<std::string, packagecheck::MsiContents> packages;
    std::set<std::string> unreadable;
};

// The paths of the clean tree.
inline constexpr const char* defaultsPath = "Setup/defaultInstallSettings.xml";
inline constexpr const char* userPath = "Setup/PackageUserSettings.xml";
inline constexpr const char* englishPath = "Setup/res/en_strings.xml";
inline constexpr const char* applicationPath = "Applications/x64/Monitor.msi";
inline constexpr const char* driverPath = "Drivers/x64/Mono.msi";

std::vector<packagecheck::Finding> FindingsOf(const MemoryTree& tree);

// "rule file:line:column" of each finding.
std::vector<std::string> Described(const std::vector<packagecheck::Finding>& findings);
