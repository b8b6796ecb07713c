// A test of what reads the package's files and keeps the settings.
#pragma once

#include <string_view>

#include "LogTest.h"
#include "ProgramTree.h"
#include "settings/InstallSettings.h"

// Begins with an empty store, an empty package tree, no texts and no options.
class SettingsTest : public LogTest {
protected:
    SettingsTest();
    ~SettingsTest() override;

    static InstallSettings& Settings() { return InstallSettings::GetInstance(); }
    // The whole document, behind the one "<" more that the log has.
    static std::wstring Document() { return Settings().StripMarker().substr(1); }

    // Lays the files where the program looks for them.
    void AddDefaults(std::string_view bytes) const { tree.Add(L"Setup\\defaultInstallSettings.xml", bytes); }
    void AddUserSettings(std::string_view bytes) const { tree.Add(L"Setup\\PackageUserSettings.xml", bytes); }
    void AddTexts(std::string_view bytes, const std::wstring& language = L"en") const {
        tree.Add(L"Setup\\res\\" + language + L"_strings.xml", bytes);
    }
    // Gives an option as the command line does.
    static void AddOption(const std::wstring& nameAndValue);

    ProgramTree tree;

private:
    static void DestroyInstances();
};
