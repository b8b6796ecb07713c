// A test of what reads the package's files and keeps the settings.
#pragma once

#include <string_view>

#include "settings/InstallSettings.h"
#include "settings/Localizer.h"
#include "settings/TagNames.h"
#include "tests/windows/world/LogWorld.h"
#include "tests/windows/world/ProgramTree.h"
#include "wizard/Controller.h"
#include "wizard/PageContext.h"

// Begins with an empty store, an empty package tree, no texts and no options.
class SettingsWorld : public LogWorld {
private:
    // The first member: what follows takes the instances of this test.
    struct FreshInstances {
        FreshInstances() { DestroyInstances(); }
        FreshInstances(const FreshInstances&) = delete;
        FreshInstances& operator=(const FreshInstances&) = delete;
        ~FreshInstances() { DestroyInstances(); }
    };
    FreshInstances instances;

protected:
    static InstallSettings& Settings() { return InstallSettings::GetInstance(); }
    static Localizer& Texts() { return Localizer::GetInstance(); }
    // The whole document, after the one "<" more that the log has.
    static std::wstring Document() { return Settings().StripMarker().substr(1); }

    // Lays the files where the program looks for them.
    void AddDefaults(std::string_view bytes) const { tree.Add(L"Setup\\defaultInstallSettings.xml", bytes); }
    void AddUserSettings(std::string_view bytes) const { tree.Add(L"Setup\\PackageUserSettings.xml", bytes); }
    void AddTexts(std::string_view bytes, const std::wstring& language = L"en") const {
        tree.Add(L"Setup\\res\\" + language + L"_strings.xml", bytes);
    }
    // Forgets the texts that were read, so that the file counts as it is by now.
    static void ReadTextsAnew();
    // Gives an option as the command line does.
    static void AddOption(const std::wstring& nameAndValue);

    ProgramTree tree;
    // A walk without pages.
    Controller controller{Settings(), Texts()};
    PageContext context{controller, Settings(), Texts()};

private:
    static void DestroyInstances();
};
