// The framework that some packages need, and the setup program that a package brings along for it.

#include <windows.h>

#include "resources/resource.h"
#include "tests/fakes/TextLines.h"
#include "tests/wizard/ShownRunTest.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

namespace {

constexpr wchar_t clientKey[] = L"SOFTWARE\\Microsoft\\NET Framework Setup\\NDP\\v4\\Client";
constexpr wchar_t fullKey[] = L"SOFTWARE\\Microsoft\\NET Framework Setup\\NDP\\v4\\Full";
constexpr wchar_t requiredText[] =
    L"!!!! Install .Net 4.0 Framework is required to run this package. Please install .Net 4.0 Framework "
    L"from ";

class DotNetTest : public ShownRunTest {
protected:
    void SetUp() override {
        ShownRunTest::SetUp();
        ForgetFramework();
        tree.Add({.path = L"Applications\\net.msi",
                  .properties = L"<ProductName>Net</ProductName>"
                                L"<SecureCustomProperties>A;NETFRAMEWORK40;B</SecureCustomProperties>"});
    }

    void TearDown() override {
        ForgetFramework();
        ShownRunTest::TearDown();
    }

    static void ForgetFramework() {
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, clientKey);
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, fullKey);
    }

    static void HaveFramework(const wchar_t* key, DWORD value) {
        RegSetKeyValueW(HKEY_LOCAL_MACHINE, key, L"Install", REG_DWORD, &value, sizeof(value));
    }

    // The command lines with which the setup program was started.
    std::vector<std::vector<std::wstring>> SetupCalls() const {
        return ReadLines((tree.Root() / L"DotNet" / L"setup.exe.calls").wstring());
    }
};

TEST_F(DotNetTest, EndsASilentRunAndLeavesTheLogBesideTheProgram) {
    tree.SetSettings(Settings::silent);
    tree.AddProbe(L"DotNet\\setup.exe", 0);
    Run();
    EXPECT_EQ(wizard.ExitCode(), 0U);
    EXPECT_THAT(Installs(), IsEmpty());
    EXPECT_THAT(SetupCalls(), IsEmpty());
    EXPECT_THAT(BasicLog(), HasRecordWith(L"", requiredText));
    EXPECT_THAT(BasicLog(), HasRecordWith(L"", L" and try again."));
    EXPECT_THAT(BasicLog(), Not(HasRecord(L"", L"End of silent mode install")));
    EXPECT_THAT(ReadLog((tree.ProgramFolder() / L"Basic.log").wstring(), LogForm::Basic),
                HasRecordWith(L"", requiredText));
}

TEST_F(DotNetTest, IsNotWantedByAPackageThatDoesNotNameIt) {
    tree.SetSettings(Settings::silent);
    tree.UseLibrary({});
    tree.AddProbe(L"DotNet\\setup.exe", 0);
    Run();
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"End of silent mode install"));
    EXPECT_THAT(SetupCalls(), IsEmpty());
}

// The two keys, of which either says that the framework is there.
class FrameworkKeyTest : public DotNetTest, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(FrameworkKeyTest, IsEnoughByItself) {
    HaveFramework(GetParam(), 1);
    tree.AddProbe(L"DotNet\\setup.exe", 0);
    EXPECT_EQ(RunShown().status, StatusDocument({{L"Net", 0}}));
    EXPECT_THAT(SetupCalls(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Either, FrameworkKeyTest, testing::Values(clientKey, fullKey));

TEST_F(DotNetTest, IsMissingWhereTheKeysSayNo) {
    HaveFramework(clientKey, 0);
    tree.AddProbe(L"DotNet\\setup.exe", 0);
    RunShown();
    EXPECT_THAT(SetupCalls(), SizeIs(1));
}

TEST_F(DotNetTest, IsInstalledByThePackagesSetupBeforeTheRun) {
    tree.AddProbe(L"DotNet\\setup.exe", 0);
    const FinishedRun run = RunShown();
    EXPECT_EQ(run.status, StatusDocument({{L"Framework", 0}, {L"Net", 0}}));
    EXPECT_THAT(SetupCalls(), ElementsAre(ElementsAre(L" /norestart ")));
    EXPECT_THAT(BasicLog(), HasRecord(L"", L".Net Installation Successful"));
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"Installing .Net Framework succeeded"));
    EXPECT_THAT(AdvancedLog(), testing::Contains(testing::Field(&LogRecord::application, L"DotNetInstall")));
    EXPECT_EQ(run.reboot, L"");
}

class DotNetRestartTest : public DotNetTest, public testing::WithParamInterface<int> {};

TEST_P(DotNetRestartTest, IsASuccessThatAsksForARestart) {
    tree.AddProbe(L"DotNet\\setup.exe", GetParam());
    const FinishedRun run = RunShown();
    // The tag of the installed framework stays false, so the list has no line for it.
    EXPECT_EQ(run.status, StatusDocument({{L"Net", 0}}));
    EXPECT_EQ(run.reboot, L"true");
    EXPECT_THAT(BasicLog(), HasRecord(L"", L".Net installation successful, reboot required"));
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"Installing .Net Framework failed"));
    EXPECT_THAT(AdvancedLog(),
                HasRecord(L"", L"Installing .Net Framework exitCode = " + std::to_wstring(GetParam())));
}

INSTANTIATE_TEST_SUITE_P(Codes, DotNetRestartTest, testing::Values(1641, 3010, 3011));

TEST_F(DotNetTest, CancelsTheRunWhenTheUserCancelsItsSetup) {
    tree.AddProbe(L"DotNet\\setup.exe", 1602);
    const FinishedRun run = RunShown();
    EXPECT_EQ(run.status, StatusDocument({{L"Framework", 1}}));
    EXPECT_THAT(Installs(), IsEmpty());
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"User cancelled or got error during .net installation"));
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"Cancelling installation"));
    // The library is cancelled though it has not been asked for anything yet.
    EXPECT_THAT(Calls(L"MsiCancel"), SizeIs(1));
}

TEST_F(DotNetTest, CancelsTheRunWhenItsSetupFails) {
    tree.AddProbe(L"DotNet\\setup.exe", 5100);
    wizard.Start();
    EXPECT_EQ(wizard.Answer(IDOK).title, L"Error");
    const FinishedRun run = ReadFinishPage();
    EXPECT_EQ(run.status, StatusDocument({{L"Framework", 1}}));
    EXPECT_THAT(Installs(), IsEmpty());
    EXPECT_THAT(BasicLog(), HasRecord(L"ERROR", L"Unknown error code during .net installation"));
    EXPECT_THAT(BasicLog(), HasRecord(L"ERROR", L"InstallService::InstallDotNet:  Unknown error code: 5100"));
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"Cancelling installation"));
}

TEST_F(DotNetTest, CancelsTheRunWhenThereIsNoSetupProgram) {
    wizard.Start();
    const MessageBoxOnScreen box = wizard.Answer(IDOK);
    EXPECT_EQ(box.title, L"Error");
    EXPECT_EQ(box.text, L"Something went wrong.");
    EXPECT_EQ(ReadFinishPage().status, StatusDocument({{L"Framework", 1}}));
    EXPECT_THAT(BasicLog(), HasRecord(L"ERROR", L"InstallService::InstallDotNet:  Unknown error code: 2"));
}

TEST_F(DotNetTest, LetsTheRunGoOnBehindACodeThatStopsNothing) {
    tree.AddProbe(L"DotNet\\setup.exe", 1623);
    wizard.Start();
    EXPECT_EQ(wizard.Answer(IDOK).text, L"");
    EXPECT_EQ(ReadFinishPage().status, StatusDocument({{L"Framework", 1}, {L"Net", 0}}));
    EXPECT_THAT(BasicLog(), Not(HasRecord(L"ERROR", L"Unknown error code during .net installation")));
}

TEST_F(DotNetTest, EndsOnTheFinishPageWithoutAThreadWhenItsSetupReturns1603) {
    tree.AddProbe(L"DotNet\\setup.exe", 1603);
    wizard.Start();
    wizard.Answer(IDOK);
    EXPECT_EQ(ReadFinishPage().installStatus, L"FAILED");
    EXPECT_THAT(AdvancedLog(), Not(HasRecord(L"", L"Thread Count incremented 1")));
    EXPECT_THAT(Installs(), IsEmpty());
}

TEST_F(DotNetTest, CancelsTheRunWhenItsSetupCannotBeStarted) {
    std::filesystem::create_directories(tree.Root() / L"DotNet" / L"setup.exe");
    wizard.Start();
    EXPECT_EQ(wizard.Answer(IDOK).title, L"Error");
    EXPECT_EQ(ReadFinishPage().status, StatusDocument({{L"Framework", 1}}));
    EXPECT_THAT(Installs(), IsEmpty());
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"Installing .Net Framework failed"));
    EXPECT_THAT(BasicLog(), Not(HasRecord(L"", L".Net Installation Successful")));
}

TEST_F(DotNetTest, IsNamedOnTheFinishPageWhereItIsMissing) {
    tree.SetText(L"REQUIRED_DEPENDENCY", L"The framework is missing.");
    tree.SetText(L"INSTALLATION_FAILED_TEXT", L"Failed.");
    tree.AddProbe(L"DotNet\\setup.exe", 1602);
    wizard.Start();
    EXPECT_EQ(WizardDriver::TextOf(wizard.WaitForControl(IDC_OUTCOME_TITLE)),
              L"Failed.  The framework is missing.");
}

}  // namespace
