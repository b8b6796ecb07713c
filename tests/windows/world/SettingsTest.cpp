#include "SettingsTest.h"

#include "settings/Localizer.h"
#include "wizard/CmdLineHelper.h"

SettingsTest::SettingsTest() {
    DestroyInstances();
}

SettingsTest::~SettingsTest() {
    DestroyInstances();
}

void SettingsTest::DestroyInstances() {
    InstallSettings::DestroyInstance();
    Localizer::DestroyInstance();
    CmdLineHelper::DestroyInstance();
}

void SettingsTest::AddOption(const std::wstring& nameAndValue) {
    CmdLineHelper::GetInstance().ParseParam(nameAndValue, true, true);
}
