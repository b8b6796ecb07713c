// The programs of the packages that start when the run has ended.

#include "tests/fakes/TextLines.h"
#include "tests/wizard/WizardTest.h"

using testing::IsEmpty;

namespace {

class StartAppTest : public WizardTest {
protected:
    // A package with that property; a program lies in its target folder.
    void AddPackage(const std::wstring& name, const std::wstring& startApp,
                    const std::vector<ScriptedState>& states = {}) {
        tree.Add({.path = L"Applications\\" + name + L".msi",
                  .properties = Element(L"ProductName", name) + Element(L"STARTAPP", startApp),
                  .states = states});
    }

    void AddProgram(const std::wstring& name) { tree.AddProbe(TargetFolder() + name, 0); }

    bool HasStarted(const std::wstring& name) const {
        return WaitUntil([&] { return !CommandLines(name).empty(); }, std::chrono::seconds(10));
    }

    // Nobody tells when a program would have started at last, so this looks for a while.
    bool StaysUnstarted(const std::wstring& name) const {
        return !WaitUntil([&] { return !CommandLines(name).empty(); }, std::chrono::milliseconds(400));
    }

    std::vector<std::vector<std::wstring>> CommandLines(const std::wstring& name) const {
        return ReadLines(TargetFolder() + name + L".calls");
    }
};

TEST_F(StartAppTest, StartsTheProgramsOfAllPackages) {
    AddPackage(L"a", L"one.exe;two.exe -quiet;");
    AddPackage(L"b", L"three.exe;");
    for (const wchar_t* program : {L"one.exe", L"two.exe", L"three.exe"}) AddProgram(program);
    Run();
    for (const wchar_t* program : {L"one.exe", L"two.exe", L"three.exe"}) EXPECT_TRUE(HasStarted(program));
    // The system may put quotes around the program's path.
    const std::wstring commandLine = CommandLines(L"two.exe").front().front();
    EXPECT_THAT(commandLine, testing::HasSubstr(TargetFolder() + L"\\two.exe"));
    EXPECT_THAT(commandLine, testing::EndsWith(L" -quiet"));
}

TEST_F(StartAppTest, StartsTheProgramOfAPackageThatIsPassedOver) {
    AddPackage(L"a", L"one.exe;", {{.installed = true, .upToDate = true}});
    AddProgram(L"one.exe");
    Run();
    EXPECT_THAT(Installs(), IsEmpty());
    EXPECT_TRUE(HasStarted(L"one.exe"));
}

TEST_F(StartAppTest, StartsNothingBehindTheLastDivider) {
    AddPackage(L"a", L"one.exe;two.exe");
    for (const wchar_t* program : {L"one.exe", L"two.exe"}) AddProgram(program);
    Run();
    EXPECT_TRUE(HasStarted(L"one.exe"));
    EXPECT_TRUE(StaysUnstarted(L"two.exe"));
}

TEST_F(StartAppTest, JoinsTwoValuesWithoutDividersIntoOneThatDoesNotStart) {
    AddPackage(L"a", L"one.exe");
    AddPackage(L"b", L"two.exe");
    for (const wchar_t* program : {L"one.exe", L"two.exe", L"one.exetwo.exe"}) AddProgram(program);
    Run();
    for (const wchar_t* program : {L"one.exe", L"two.exe", L"one.exetwo.exe"}) {
        EXPECT_TRUE(StaysUnstarted(program));
    }
}

TEST_F(StartAppTest, EndsItsListSilentlyAtAProgramThatCannotStart) {
    AddPackage(L"a", L"one.exe;missing.exe;two.exe;");
    for (const wchar_t* program : {L"one.exe", L"two.exe"}) AddProgram(program);
    Run();
    EXPECT_EQ(wizard.ExitCode(), 0U);
    EXPECT_TRUE(HasStarted(L"one.exe"));
    EXPECT_TRUE(StaysUnstarted(L"two.exe"));
    EXPECT_THAT(BasicMessages(L"ERROR"), testing::SizeIs(1));
}

}  // namespace
