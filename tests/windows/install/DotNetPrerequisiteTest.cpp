#include <windows.h>

#include <filesystem>

#include "catalogue/AppCatalogue.h"
#include "framework/Handles.h"
#include "tests/windows/world/ChildProcess.h"
#include "tests/windows/world/InstallWorld.h"
#include "tests/windows/world/ScratchFolder.h"

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr wchar_t ownKeys[] = L"SOFTWARE\\Kestrune Test Framework";
int questions = 0;

// Keeps the program's questions about the framework away from the system's own keys.
LSTATUS WINAPI OpenOwnKey(HKEY root, LPCWSTR path, DWORD options, REGSAM access, PHKEY key) {
    static const auto open =
        FindExport<decltype(&OpenOwnKey)>(GetModuleHandleW(L"advapi32.dll"), "RegOpenKeyExW");
    const std::wstring wanted = path;
    const std::wstring head = L"SOFTWARE\\Microsoft\\NET Framework Setup\\NDP\\v4";
    if (root != HKEY_LOCAL_MACHINE || wanted.rfind(head, 0) != 0)
        return open(root, path, options, access, key);
    ++questions;
    return open(HKEY_CURRENT_USER, (ownKeys + wanted.substr(head.size())).c_str(), options, access, key);
}

// A package needs the framework, and the system has none.
class DotNetPrerequisiteTest : public InstallWorld {
protected:
    DotNetPrerequisiteTest() {
        questions = 0;
        Settings().SetBool(Tag::SILENT_INSTALL, false);
        AddTexts("<LANGUAGE_ID>1033</LANGUAGE_ID><DOTNET>The framework</DOTNET>");
        Add(L"a").properties[L"SecureCustomProperties"] = L"OTHER;NETFRAMEWORK40;MORE";
        // After the prerequisite the run is silent again, so that the walk does not go on.
        msi.packages[L"a.msi"].duringInstall = [] { Settings().SetBool(Tag::SILENT_INSTALL, true); };
    }
    ~DotNetPrerequisiteTest() override { RegDeleteTreeW(HKEY_CURRENT_USER, ownKeys); }

    static void SetFramework(const std::wstring& kind) {
        const DWORD value = 1;
        RegSetKeyValueW(HKEY_CURRENT_USER, (std::wstring(ownKeys) + L"\\" + kind).c_str(), L"Install",
                        REG_DWORD, &value, sizeof(value));
    }
    void AddSetup(unsigned code) const {
        tree.Add(L"DotNet\\a.exe", ReadBytes(CompanionPath()));
        tree.Add(L"DotNet\\a.exe.setup", std::to_string(code) + "\n");
    }
    bool HasSetUpRun() const { return std::filesystem::exists(ProgramTree::Root() / L"DotNet\\a.exe.calls"); }

private:
    PatchedImport keys{"RegOpenKeyExW", &OpenOwnKey};
};

TEST_F(DotNetPrerequisiteTest, IsNotAskedForWhereNoPackageNeedsIt) {
    msi.packages[L"a.msi"].properties[L"SecureCustomProperties"] = L"netframework40;NETFRAMEWORK35";
    AddSetup(0);
    Run();
    EXPECT_EQ(questions, 0);
    EXPECT_FALSE(HasSetUpRun());
}

TEST_F(DotNetPrerequisiteTest, IsPresentInEitherForm) {
    AddSetup(0);
    for (const wchar_t* kind : {L"Client", L"Full"}) {
        RegDeleteTreeW(HKEY_CURRENT_USER, ownKeys);
        SetFramework(kind);
        EXPECT_EQ(Run(), 0U);
        EXPECT_FALSE(HasSetUpRun());
        EXPECT_THAT(StatusLines(), ElementsAre(L"a=0"));
        Settings().SetBool(Tag::SILENT_INSTALL, false);
    }
}

TEST_F(DotNetPrerequisiteTest, IsInstalledAndGetsTheFirstLine) {
    AddSetup(0);
    EXPECT_EQ(Run(), 0U);
    EXPECT_TRUE(HasSetUpRun());
    EXPECT_TRUE(Settings().GetBool(Tag::DOTNET_INSTALLED));
    EXPECT_THAT(StatusLines(), ElementsAre(L"The framework=0", L"a=0"));
    EXPECT_THAT(BasicLog(), Contains(Record(L"", L".Net Installation Successful")));
}

TEST_F(DotNetPrerequisiteTest, FailsWhereTheSetUpCannotBeStarted) {
    tree.Add(L"DotNet\\a.exe", "no program");
    EXPECT_EQ(Run(), 0U);
    EXPECT_TRUE(Settings().GetBool(Tag::DOTNET_FAILED));
    EXPECT_TRUE(HasStopped());
    EXPECT_THAT(BasicLog(), Not(Contains(Record(L"", L".Net Installation Successful"))));
    EXPECT_THAT(StatusLines(), ElementsAre(L"The framework=1", L"a=0"));
}

TEST_F(DotNetPrerequisiteTest, PassesOverWhatIsNoProgram) {
    tree.Add(L"DotNet\\0 read me.txt", "text");
    tree.Add(L"DotNet\\0.exe.txt", "text");
    AddSetup(0);
    EXPECT_EQ(Run(), 0U);
    EXPECT_TRUE(HasSetUpRun());
    EXPECT_THAT(StatusLines(), ElementsAre(L"The framework=0", L"a=0"));
}

TEST_F(DotNetPrerequisiteTest, FailsWhereTheFolderHoldsNoProgram) {
    tree.Add(L"DotNet\\read me.txt", "text");
    EXPECT_EQ(Run(), 0U);
    EXPECT_THAT(BasicLog(),
                Contains(Record(L"ERROR", L"InstallService::InstallDotNet:  Unknown error code: 2")));
}

class DotNetRestartTest : public DotNetPrerequisiteTest, public testing::WithParamInterface<unsigned> {};

TEST_P(DotNetRestartTest, IsASuccessWithoutALine) {
    AddSetup(GetParam());
    EXPECT_EQ(Run(), 0U);
    EXPECT_TRUE(Settings().GetBool(Tag::REBOOT));
    EXPECT_FALSE(Settings().GetBool(Tag::DOTNET_INSTALLED));
    EXPECT_THAT(StatusLines(), ElementsAre(L"a=0"));
    EXPECT_THAT(BasicLog(), Contains(Record(L"", L".Net installation successful, reboot required")));
}

INSTANTIATE_TEST_SUITE_P(Codes, DotNetRestartTest, testing::Values(1641U, 3010U, 3011U));

TEST_F(DotNetPrerequisiteTest, CancelsTheRunWhereTheUserHasCancelled) {
    AddSetup(1602);
    EXPECT_EQ(Run(), 0U);
    EXPECT_TRUE(Settings().GetBool(Tag::DOTNET_FAILED));
    EXPECT_TRUE(HasStopped());
    EXPECT_THAT(BasicMessages(),
                testing::IsSupersetOf(
                    {L"User cancelled or got error during .net installation", L"Cancelling installation"}));
}

TEST_F(DotNetPrerequisiteTest, CancelsTheRunForAnEmptyFolder) {
    EXPECT_EQ(Run(), 0U);
    EXPECT_TRUE(Settings().GetBool(Tag::DOTNET_FAILED));
    EXPECT_TRUE(HasStopped());
    EXPECT_THAT(BasicLog(), testing::IsSupersetOf(
                                {Record(L"ERROR", L"Unknown error code during .net installation"),
                                 Record(L"ERROR", L"InstallService::InstallDotNet:  Unknown error code: 2"),
                                 Record(L"", L"Cancelling installation")}));
    EXPECT_THAT(StatusLines(), ElementsAre(L"The framework=1", L"a=0"));
}

TEST_F(DotNetPrerequisiteTest, EndsTheRunForTheCodeOfAFailedInstallation) {
    AddSetup(1603);
    EXPECT_EQ(Run(), 1603U);
    EXPECT_THAT(threadExitCodes, IsEmpty());
    EXPECT_THAT(msi.Calls(), IsEmpty());
    EXPECT_TRUE(Settings().GetBool(Tag::DOTNET_FAILED));
}

TEST_F(DotNetPrerequisiteTest, EndsASilentRunAndNamesWhereTheFrameworkIsToBeHad) {
    AddSetup(0);
    Settings().SetBool(Tag::SILENT_INSTALL, true);
    EXPECT_EQ(Run(), 1603U);
    EXPECT_FALSE(HasSetUpRun());
    EXPECT_THAT(BasicMessages(),
                Contains(AllOf(
                    testing::StartsWith(L"!!!! Install .Net 4.0 Framework is required to run this package. "
                                        L"Please install .Net 4.0 Framework from http"),
                    testing::EndsWith(L" and try again."))));
}

TEST_F(DotNetPrerequisiteTest, StaysSilentAboutAnErrorInAnOptionalRun) {
    AddSetup(5);
    Settings().SetBool(Tag::OPTIONAL_INSTALL, true);
    tree.Add(L"Common\\x64\\a.msi");
    std::filesystem::remove(ProgramTree::Root() / L"Applications\\a.msi");
    BuildCatalogues();
    AppCatalogue::GetInstance().Update([](MSI_APP& app) { app.isSelected = true; });
    const ThreadWatch threads;
    EXPECT_EQ(service.DoRun(), 0U);
    ThreadWatch::WaitForAll();
    EXPECT_TRUE(HasSetUpRun());
    EXPECT_FALSE(Settings().GetBool(Tag::DOTNET_FAILED));
    EXPECT_FALSE(HasStopped());
    EXPECT_THAT(BasicMessages(), Not(Contains(L"Cancelling installation")));
}

TEST_F(DotNetPrerequisiteTest, ForgetsTheOutcomeOfAnEarlierRun) {
    Settings().SetStrings({{TextTag(L"DOTNET_FAILED"), L"true"}, {TextTag(L"DOTNET_INSTALLED"), L"true"}});
    SetFramework(L"Full");
    Run();
    EXPECT_FALSE(Settings().GetBool(Tag::DOTNET_FAILED) || Settings().GetBool(Tag::DOTNET_INSTALLED));
}

}  // namespace
