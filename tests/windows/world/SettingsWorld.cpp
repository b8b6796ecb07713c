#include "tests/windows/world/SettingsWorld.h"

#include <memory>

#include "wizard/CmdLineHelper.h"

void SettingsWorld::DestroyInstances() {
    InstallSettings::DestroyInstance();
    Localizer::DestroyInstance();
    CmdLineHelper::DestroyInstance();
}

void SettingsWorld::AddOption(const std::wstring& nameAndValue) {
    CmdLineHelper& commandLine = CmdLineHelper::GetInstance();
    commandLine.ParseParam(nameAndValue, true, true);
    Texts().SetLanguageOption(commandLine.GetValue(CmdLineHelper::Option::Language));
}

// In place, since pages and the walk refer to the texts.
void SettingsWorld::ReadTextsAnew() {
    Localizer& texts = Texts();
    std::destroy_at(&texts);
    std::construct_at(&texts, Settings(), SystemLanguageSource());
}
