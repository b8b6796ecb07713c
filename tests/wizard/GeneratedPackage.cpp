#include "tests/wizard/GeneratedPackage.h"

#include <cstdlib>
#include <filesystem>

#include "settings/TagDocument.h"
#include "tools/PackageCheck/FolderTree.h"

using packagecheck::InstalledState;

namespace {

constexpr unsigned usualSeedCount = 20;

// The tree of the test, with what the script says of the packages in place of what their files hold.
class ScriptedTree : public packagecheck::FolderTree {
public:
    explicit ScriptedTree(const ::PackageTree& packageTree)
        : FolderTree(packageTree.Root()), packages(packageTree.Packages()) {}

    packagecheck::MsiReading ReadMsi(const std::string& path) const override {
        packagecheck::MsiContents contents;
        for (const TestPackage& package : packages) {
            if (std::filesystem::path(package.path).generic_u8string() !=
                std::u8string(path.begin(), path.end()))
                continue;
            for (const std::wstring& name : TagDocument::ListElementNames(package.properties))
                contents.properties[name] = TagDocument::ValueOf(package.properties, name);
        }
        return {.contents = std::move(contents), .error = {}};
    }

private:
    const std::vector<TestPackage>& packages;
};

}  // namespace

void GeneratedPackage::SetSettings(const std::wstring& first) {
    std::wstring settings = first + Element(L"WIN8_DRVTYPES", L"X;Y");
    for (const wchar_t* tag : {L"OEM_NAME", L"PRINTER_NAME", L"PORT_NAME", L"HOST_NAME",
                               L"DEFAULT_PRINTER_NAME", L"UPD", L"WEBDRIVERVER", L"STARTAPP", L"SET_DEFAULT",
                               L"ADD_PORT", L"PO_NAME_FROM_DISCOVERY", L"AMAZON_SUPPORTED", L"IPADDRESS"}) {
        if (Toss()) settings += L"\r\n" + Element(tag, OneOf<4>({L"1", L"TRUE", L"A", L"Lab printer"}));
    }
    settings += L"\r\n" + Element(L"MODEL_NAME", L"A:Loom") + L"\r\n";
    tree.SetSettings(settings);
    if (Pick(3) == 0) SetDevices();
}

std::wstring GeneratedPackage::PageSettings() {
    std::wstring settings;
    for (const wchar_t* flag : {L"HIDE_START", L"HIDE_EULA", L"HIDE_CONNECTIVITY", L"HIDE_DISCOVERY",
                                L"HIDE_PROGRESS", L"HIDE_FINAL", L"SHOW_MANUFACTURERS", L"REBOOT"}) {
        if (Pick(3) == 0) settings += Element(flag, OneOf<3>({L"true", L"1", L"yes"})) + L"\r\n";
    }
    if (Toss())
        settings += Element(L"MANUFACTURERS", OneOf<4>({L"B:1|C:2", L"B:1", L"|", L"C:2|B:3|D"})) +
                    Element(L"DEFAULT_MANUFACTURER", L"B") + L"\r\n";
    return settings;
}

void GeneratedPackage::SetDevices() {
    std::wstring devices;
    for (std::size_t count = 1 + Pick(3); count > 0; --count) {
        devices += Element(L"DEVICE", Element(L"DRIVER_ID", OneOf<3>({L"X", L"Y", L"Fax"})) +
                                          Element(L"PRINTER_NAME", L"Desk " + std::to_wstring(count)) +
                                          Element(L"PORT_TYPE", OneOf<2>({L"USB", L"Local Port"})) +
                                          Element(L"PORT_NAME", L"Port " + std::to_wstring(count))) +
                   L"\r\n";
    }
    tree.SetUserSettings(devices);
}

void GeneratedPackage::AddPackages() {
    for (std::size_t number = 0; number < 8; ++number) AddPackage(number);
}

void GeneratedPackage::AddPackage(std::size_t number) {
    const std::wstring folder = OneOf<9>({L"Applications", L"Applications\\x64", L"Applications\\x86_x64",
                                          L"Common\\x64", L"Optional\\x64", L"Dependents\\x64",
                                          L"Dependents\\x86_x64", L"Drivers\\x64", L"Drivers\\x86_x64"});
    const std::wstring name = OneOf<4>({L"a_", L"aB", L"Z", L"m-"}) + std::to_wstring(number);
    std::wstring properties = Element(L"ProductName", L"Product " + name);
    if (folder.starts_with(L"Drivers"))
        properties += Element(L"DRIVERID", OneOf<5>({L"X", L"Y", L"Other", L"SCAN", L"Fax"}));
    if (Toss()) properties += Element(L"STREAMDISPLAYNAME", OneOf<2>({L"PS3", L"V4"}));
    if (Toss()) properties += Element(L"FORCEREINSTALL", L"true");
    if (Toss()) properties += Element(L"SUPPORTEDOS", OneOf<2>({L"WINDOWS_7;", L"WINDOWS_7;WINDOWS_BLUE"}));
    if (Toss() && !names.empty()) properties += Element(L"DEPENDENTAPPS", names);
    names += name + L".msi;";
    AddFile(folder + L"\\" + name + L".msi", properties);
}

void GeneratedPackage::AddFile(const std::wstring& path, const std::wstring& properties) {
    static const std::array<std::pair<ScriptedState, InstalledState>, 5> states = {{
        {{}, InstalledState::NotInstalled},
        {{.installed = true, .upToDate = true}, InstalledState::UpToDate},
        {older, InstalledState::Upgradable},
        {{.installed = true, .upgradable = true, .minorUpgrade = true}, InstalledState::MinorUpgrade},
        {newer, InstalledState::Newer},
    }};
    const auto& [scripted, planned] = states.at(Toss() ? 0 : Pick(states.size()));
    tree.Add({.path = path, .properties = properties, .states = {scripted}, .keeps = true});
    const std::u8string file = std::filesystem::path(path).filename().u8string();
    options.installed.Set(std::string(file.begin(), file.end()), planned);
}

packagecheck::Plan GeneratedPackage::MakePlan() const {
    const ScriptedTree files(tree);
    return packagecheck::MakePlan(packagecheck::Package(files), options);
}

Installations InstallationsOf(const std::vector<packagecheck::PlannedPackage>& packages) {
    Installations installations;
    for (const packagecheck::PlannedPackage& package : packages) {
        const std::filesystem::path file(std::u8string(package.file.begin(), package.file.end()));
        if (IsInstalled(package)) installations.emplace_back(file.filename().wstring(), package.document);
        const Installations ofDependents = InstallationsOf(package.dependents);
        installations.insert(installations.end(), ofDependents.begin(), ofDependents.end());
    }
    return installations;
}

Installations InstallationsOf(const std::vector<LibraryCall>& calls) {
    Installations installations;
    for (const LibraryCall& call : calls)
        installations.emplace_back(call.Package(), call.Argument(L"command"));
    return installations;
}

unsigned SeedCount() {
    const char* const wanted = std::getenv("KESTRUNE_PLAN_SEEDS");
    return wanted == nullptr ? usualSeedCount : static_cast<unsigned>(std::strtoul(wanted, nullptr, 10));
}
