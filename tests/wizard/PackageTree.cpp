#include "tests/wizard/PackageTree.h"

#include <windows.h>

#include <fstream>

#include "CommonLib/Files.h"
#include "CommonLib/Utf8.h"
#include "settings/TagDocument.h"
#include "tests/fakes/TextLines.h"
#include "tests/wizard/Waiting.h"

namespace {

namespace fs = std::filesystem;

std::wstring UniqueName() {
    static int counter = 0;
    return L"Testwerk " + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++counter);
}

std::wstring Flag(bool flag) {
    return flag ? L"1" : L"0";
}

void AppendCall(const std::wstring& verb, const ScriptedCall& call, std::wstring& script) {
    for (const ScriptStep& step : call.steps) script += JoinFields({verb, step.kind, step.argument});
    script += JoinFields({verb, L"return", std::to_wstring(call.code)});
}

std::wstring ScriptOf(const TestPackage& package) {
    std::wstring script = JoinFields({L"package", fs::path(package.path).filename().wstring()}) +
                          JoinFields({L"properties", package.properties}) +
                          JoinFields({L"propertiesCode", std::to_wstring(package.propertiesCode)});
    for (const ScriptedState& state : package.states) {
        script += JoinFields({L"state", Flag(state.installed), Flag(state.upToDate), Flag(state.upgradable),
                              Flag(state.minorUpgrade)});
    }
    if (package.keeps) script += JoinFields({L"keeps"});
    AppendCall(L"install", package.install, script);
    AppendCall(L"uninstall", package.uninstall, script);
    return script;
}

const std::map<std::wstring, std::wstring> englishTexts = {
    {L"LANGUAGE_ID", L"1033"},
    {L"READING_ORDER", L"LTR"},
    {L"LBL_LOCALIZED_AND", L"and"},
    {L"INSTALL_TITLE", L"Installation"},
    {L"PERMISSION_ERROR_TITLE", L"No permission"},
    {L"PERMISSION_ERROR_TEXT", L"You may not do this."},
    {L"MULTIINSTANCE_ERROR_TITLE", L"Already running"},
    {L"MULTIINSTANCE_ERROR_TEXT", L"Another copy is running."},
    {L"CANCEL_CONFIRMATION_TEXT", L"Cancel the installation?"},
    {L"DISK_FULL_ERROR_TITLE", L"Disk full"},
    {L"DISK_FULL_ERROR_TEXT", L"There is no room left."},
    {L"INSTALL_ALREADY_RUNNING_TITLE", L"Installer busy"},
    {L"INSTALL_ALREADY_RUNNING_TEXT", L"Another installation is running."},
    {L"ERROR_TITLE", L"Error"},
    {L"ERROR_TEXT", L"Something went wrong."},
    {L"PREPARE_INSTALL_TEXT", L"Preparing"},
    {L"INSTALLING_TEXT", L"Installing"},
    {L"UNINSTALLING_TEXT", L"Removing"},
    {L"CANCELING_TEXT", L"Cancelling"},
    {L"CANCEL_BUTTON", L"Cancel"},
    {L"INFOCENTER_LINK_LABEL", L"Help centre"},
    {L"DISCOVERY_INFOCENTER_LINK_LABEL", L"Help for {0}"},
    {L"DOTNET", L"Framework"},
};

}  // namespace

fs::path BuildFolder() {
    return fs::path(GetExeDirectory()).parent_path().parent_path();
}

std::wstring Element(const std::wstring& name, const std::wstring& value) {
    return TagDocument::MakeElement(name, value);
}

PackageTree::PackageTree() : vendor(UniqueName()) {
    root = fs::path(GetTemporaryFolder()) / vendor;
    fs::create_directories(ProgramFolder());
    fs::copy_file(BuildFolder() / L"Kestrune.exe", ProgramFolder() / L"Kestrune.exe");
    UseLibrary(L"complete");
    SetSettings(Settings::silent);
    for (const auto& [key, text] : englishTexts) texts[L"en"][key] = text;
    SetText(L"LANGUAGE_ID", L"1033");
}

// The program's file stays locked for a moment after its end.
PackageTree::~PackageTree() {
    WaitUntil([this] {
        std::error_code error;
        fs::remove_all(root, error);
        return !error;
    });
}

void PackageTree::SetSettings(std::wstring_view document) {
    WriteFile(L"Setup\\defaultInstallSettings.xml",
              ToUtf8(Element(L"OEM", vendor) + L"\r\n" + std::wstring(document)));
}

void PackageTree::SetUserSettings(std::wstring_view document) {
    WriteFile(L"Setup\\PackageUserSettings.xml", ToUtf8(document));
}

void PackageTree::SetText(const std::wstring& key, const std::wstring& text, const std::wstring& language) {
    texts[language][key] = text;
    std::wstring document;
    for (const auto& [name, value] : texts[language]) document += Element(name, value) + L"\r\n";
    WriteFile(L"Setup\\res\\" + language + L"_strings.xml", ToUtf8(document));
}

void PackageTree::Add(const TestPackage& package) {
    packages.push_back(package);
    TestPackage& added = packages.back();
    if (added.properties.empty()) {
        added.properties = Element(L"ProductName", fs::path(package.path).stem().wstring());
    }
    WriteFile(package.path, {});
    AppendText((ProgramFolder() / L"Brevanto.script").wstring(), ScriptOf(added));
}

void PackageTree::SetCalls(const std::wstring& file, const ScriptedCall& install,
                           const ScriptedCall& uninstall) {
    std::wstring script;
    for (TestPackage& package : packages) {
        if (fs::path(package.path).filename() == file) {
            package.install = install;
            package.uninstall = uninstall;
        }
        script += ScriptOf(package);
    }
    const fs::path path = ProgramFolder() / L"Brevanto.script";
    fs::remove(path);
    AppendText(path.wstring(), script);
}

void PackageTree::WriteFile(const fs::path& path, std::string_view bytes) {
    fs::create_directories((root / path).parent_path());
    std::ofstream(root / path, std::ios::binary) << bytes;
}

void PackageTree::RemoveFile(const fs::path& path) {
    fs::remove(root / path);
}

void PackageTree::UseLibrary(const std::wstring& build) {
    const fs::path library = ProgramFolder() / L"Brevanto.dll";
    fs::remove(library);
    if (!build.empty()) {
        fs::copy_file(BuildFolder() / L"tests" / L"fakes" / build / L"Brevanto.dll", library);
    }
}

void PackageTree::AddProbe(const fs::path& path, int exitCode) {
    const fs::path target = root / path;
    fs::create_directories(target.parent_path());
    fs::copy_file(fs::path(GetExeDirectory()) / L"Probe.exe", target);
    AppendText(target.wstring() + L".code", JoinFields({std::to_wstring(exitCode)}));
}
