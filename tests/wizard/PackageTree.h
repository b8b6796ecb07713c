// The folder tree of a package as a test makes it: the program, the settings, the language files, the
// packages and the scripted library that answers for them. It lies in a folder of its own, which goes with
// the object.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tests/fakes/Brevanto/Script.h"

// A package of the tree. The file itself is empty, since the scripted library answers by its name.
struct TestPackage {
    // From the root of the tree, such as "Applications\a.msi".
    std::wstring path;
    // Empty stands for a document with the file's name, without its extension, as the product's.
    std::wstring properties;
    std::uint32_t propertiesCode = 0;
    std::vector<ScriptedState> states;
    // Whether what is done to it lasts, also for other processes.
    bool keeps = false;
    ScriptedCall install;
    ScriptedCall uninstall;
};

namespace Settings {

// A run without pages, and a run that begins on the Progress page.
inline constexpr wchar_t silent[] =
    L"<SILENT_INSTALL>true</SILENT_INSTALL>\r\n<HIDE_DISCOVERY>true</HIDE_DISCOVERY>\r\n";
inline constexpr wchar_t shownFromProgress[] =
    L"<HIDE_START>true</HIDE_START>\r\n<HIDE_EULA>true</HIDE_EULA>\r\n<HIDE_DISCOVERY>true</"
    L"HIDE_DISCOVERY>\r\n";

}  // namespace Settings

class PackageTree {
public:
    PackageTree();
    ~PackageTree();
    PackageTree(const PackageTree&) = delete;
    PackageTree& operator=(const PackageTree&) = delete;

    // Each tree has a vendor of its own, and so logs and a log switch of its own.
    const std::wstring& Vendor() const { return vendor; }
    std::filesystem::path Root() const { return root; }
    std::filesystem::path ProgramFolder() const { return root / L"Setup" / L"x64"; }

    // The text after the vendor's tag in the default settings.
    void SetSettings(std::wstring_view document);
    void SetUserSettings(std::wstring_view document);
    // Sets a text of a language file, the English one if no other is named.
    void SetText(const std::wstring& key, const std::wstring& text, const std::wstring& language = L"en");
    // Adds the package's file and its part of the script.
    void Add(const TestPackage& package);
    // Changes what the library does with the package of that file name, from its next start on.
    void SetCalls(const std::wstring& file, const ScriptedCall& install, const ScriptedCall& uninstall);
    // Writes a file anywhere in the tree.
    void WriteFile(const std::filesystem::path& path, std::string_view bytes);
    void RemoveFile(const std::filesystem::path& path);
    // Lays the named build of the scripted library beside the program: "complete", "without_" and the name of
    // the export that it lacks, or nothing for no library at all.
    void UseLibrary(const std::wstring& build);
    // Copies the program that tells of its start, to end with this code.
    void AddProbe(const std::filesystem::path& path, int exitCode);

    const std::vector<TestPackage>& Packages() const { return packages; }

private:
    std::filesystem::path root;
    std::wstring vendor;
    std::map<std::wstring, std::map<std::wstring, std::wstring>> texts;
    std::vector<TestPackage> packages;
};

// The folder that holds the programs under test, as the test program finds them.
std::filesystem::path BuildFolder();
// An element of a tag document.
std::wstring Element(const std::wstring& name, const std::wstring& value);
