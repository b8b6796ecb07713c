#include "tests/windows/world/InstallWorld.h"

#include <algorithm>

#include "settings/TagDocument.h"

InstallWorld::InstallWorld() {
    Settings().SetStrings({{TextTag(L"SILENT_INSTALL"), L"true"}, {Tag::OEM, L"Maker"}});
}

FakePackage& InstallWorld::AddDependent(const std::wstring& parent, const std::wstring& name) {
    msi.packages.at(parent + L".msi").properties[L"DEPENDENTAPPS"] += name + L".msi ";
    return AddPackage(L"Dependents\\x64", name + L".msi");
}

std::uint32_t InstallWorld::Run() {
    BuildCatalogues();
    const ThreadWatch threads;
    const std::uint32_t result = service.DoRun();
    threadExitCodes = ThreadWatch::WaitForAll();
    return result;
}

std::vector<std::wstring> InstallWorld::StatusLines() {
    const std::wstring document = Settings().GetString(Tag::APP_INSTALLATION_STATUS);
    std::vector<std::wstring> lines;
    std::wstring line;
    while (TagDocument::FindValue(document, L"App " + std::to_wstring(lines.size()), line)) {
        lines.push_back(TagDocument::ValueOf(line, L"NAME") + L"=" + TagDocument::ValueOf(line, L"STATUS"));
    }
    return lines;
}

bool InstallWorld::HasStopped() const {
    const std::vector<std::wstring> messages = AdvancedMessages();
    return std::count(messages.begin(), messages.end(), L"Controller::Cancel called") != 0;
}
