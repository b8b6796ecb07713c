// The plan of a silent run against the run itself, for packages that a seed makes up.

#include <array>
#include <random>
#include <utility>

#include "settings/TagDocument.h"
#include "tests/wizard/WizardTest.h"
#include "tools/PackageCheck/FolderTree.h"
#include "tools/PackageCheck/Plan.h"

using packagecheck::InstalledState;

namespace {

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

using Installations = std::vector<std::pair<std::wstring, std::wstring>>;

void AppendInstallations(const std::vector<packagecheck::PlannedPackage>& packages,
                         Installations& installations) {
    for (const packagecheck::PlannedPackage& package : packages) {
        const std::filesystem::path file(std::u8string(package.file.begin(), package.file.end()));
        if (IsInstalled(package)) installations.emplace_back(file.filename().wstring(), package.document);
        AppendInstallations(package.dependents, installations);
    }
}

class PlannedRunTest : public WizardTest, public testing::WithParamInterface<unsigned> {
protected:
    // One of so many, from 0.
    std::size_t Pick(std::size_t count) { return random() % count; }
    bool Toss() { return Pick(2) == 0; }

    template <std::size_t count>
    std::wstring OneOf(const std::array<const wchar_t*, count>& words) {
        return words.at(Pick(count));
    }

    void MakeSettings() {
        std::wstring settings =
            Element(L"SILENT_INSTALL", L"true") + L"\r\n" + Element(L"WIN8_DRVTYPES", L"X;Y");
        if (!takesAddress) settings += Element(L"HIDE_DISCOVERY", L"true");
        for (const wchar_t* tag :
             {L"OEM_NAME", L"PRINTER_NAME", L"PORT_NAME", L"HOST_NAME", L"DEFAULT_PRINTER_NAME", L"UPD",
              L"WEBDRIVERVER", L"STARTAPP", L"SET_DEFAULT", L"ADD_PORT", L"PO_NAME_FROM_DISCOVERY",
              L"AMAZON_SUPPORTED", L"IPADDRESS"}) {
            if (Toss()) settings += L"\r\n" + Element(tag, OneOf<4>({L"1", L"TRUE", L"A", L"Lab printer"}));
        }
        settings += L"\r\n" + Element(L"MODEL_NAME", L"A:Loom") + L"\r\n";
        tree.SetSettings(settings);
        if (Pick(3) == 0) MakeDevices();
    }

    void MakeDevices() {
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

    void MakePackages() {
        for (std::size_t number = 0; number < 8; ++number) MakePackage(number);
    }

    void MakePackage(std::size_t number) {
        const std::wstring folder = OneOf<9>({L"Applications", L"Applications\\x64", L"Applications\\x86_x64",
                                              L"Common\\x64", L"Optional\\x64", L"Dependents\\x64",
                                              L"Dependents\\x86_x64", L"Drivers\\x64", L"Drivers\\x86_x64"});
        const std::wstring name = OneOf<4>({L"a_", L"aB", L"Z", L"m-"}) + std::to_wstring(number);
        std::wstring properties = Element(L"ProductName", L"Product " + name);
        if (folder.starts_with(L"Drivers"))
            properties += Element(L"DRIVERID", OneOf<5>({L"X", L"Y", L"Other", L"SCAN", L"Fax"}));
        if (Toss()) properties += Element(L"STREAMDISPLAYNAME", OneOf<2>({L"PS3", L"V4"}));
        if (Toss()) properties += Element(L"FORCEREINSTALL", L"true");
        if (Toss())
            properties += Element(L"SUPPORTEDOS", OneOf<2>({L"WINDOWS_7;", L"WINDOWS_7;WINDOWS_BLUE"}));
        if (Toss() && !names.empty()) properties += Element(L"DEPENDENTAPPS", names);
        names += name + L".msi;";
        AddPackage(folder + L"\\" + name + L".msi", properties);
    }

    void AddPackage(const std::wstring& path, const std::wstring& properties) {
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

    Installations Planned() const {
        const ScriptedTree files(tree);
        Installations planned;
        AppendInstallations(MakePlan(packagecheck::Package(files), options).packages, planned);
        return planned;
    }

    Installations Recorded() const {
        Installations recorded;
        for (const LibraryCall& call : Calls(L"MsiInstallApp"))
            recorded.emplace_back(call.Package(), call.Argument(L"command"));
        return recorded;
    }

    std::mt19937 random{GetParam()};
    const bool takesAddress = Toss();
    std::wstring names;
    packagecheck::PlanOptions options;
};

TEST_P(PlannedRunTest, InstallsInThatOrderWithThoseDocuments) {
    MakePackages();
    MakeSettings();
    if (takesAddress) options.printer = {.address = L"192.0.2.7", .portName = L"Desk"};
    Run(takesAddress ? L"-ip=192.0.2.7 -p=Desk" : L"");
    EXPECT_EQ(Recorded(), Planned());
}

INSTANTIATE_TEST_SUITE_P(Seeds, PlannedRunTest, testing::Range(1U, 21U));

}  // namespace
