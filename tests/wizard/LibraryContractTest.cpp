// How the program treats the installer library: order of the calls, buffers, lengths, missing exports.

#include "CommonLib/Utf8.h"
#include "tests/wizard/ShownRunTest.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

namespace {

class LibraryContractTest : public WizardTest {};

TEST_F(LibraryContractTest, InitializesTheLibraryOnceAndNeverEndsIt) {
    tree.Add({.path = L"Applications\\a.msi"});
    Run();
    ASSERT_THAT(Calls(), Not(IsEmpty()));
    EXPECT_EQ(Calls().front().name, L"MsiInitialize");
    EXPECT_THAT(Calls(L"MsiInitialize"), SizeIs(1));
    EXPECT_THAT(Calls(L"MsiUninitialize"), IsEmpty());
}

TEST_F(LibraryContractTest, NamesTheVendorBeforeEveryCall) {
    tree.Add({.path = L"Applications\\a.msi"});
    Run();
    const std::vector<LibraryCall> calls = Calls();
    ASSERT_GE(calls.size(), 5U);
    for (std::size_t index = 1; index < calls.size(); index += 2) {
        EXPECT_EQ(calls[index].name, L"MsiEnableInstallLog");
        EXPECT_EQ(calls[index].Argument(L"name"), tree.Vendor());
        EXPECT_EQ(calls[index].Argument(L"length"), std::to_wstring(tree.Vendor().size()));
        ASSERT_LT(index + 1, calls.size());
        EXPECT_NE(calls[index + 1].name, L"MsiEnableInstallLog");
    }
}

TEST_F(LibraryContractTest, NamesThePrinterWhereThePackageHasNoVendor) {
    tree.WriteFile(L"Setup\\defaultInstallSettings.xml", ToUtf8(Settings::silent));
    ExpectVendor(L"Printer");
    tree.Add({.path = L"Applications\\a.msi"});
    Run();
    EXPECT_EQ(Calls(L"MsiEnableInstallLog").front().Argument(L"name"), L"Printer");
    EXPECT_EQ(Calls(L"MsiEnableInstallLog").front().Argument(L"length"), L"7");
}

TEST_F(LibraryContractTest, GivesPathsWholeAndWithTheirLengths) {
    tree.Add({.path = L"Applications\\a.msi"});
    Run();
    const std::wstring path = ProgramPathOf(L"Applications\\a.msi");
    for (const wchar_t* name : {L"MsiIsAppInstalledByLang", L"MsiInstallApp"}) {
        const LibraryCall call = Calls(name).front();
        EXPECT_EQ(call.Argument(L"path"), path);
        EXPECT_EQ(call.Argument(L"pathLength"), std::to_wstring(path.size()));
    }
    const LibraryCall install = Calls(L"MsiInstallApp").front();
    EXPECT_EQ(install.Argument(L"commandLength"), std::to_wstring(install.Argument(L"command").size()));
}

TEST_F(LibraryContractTest, ReadsAPackageOnceForAllItsProperties) {
    tree.Add({.path = L"Applications\\a.msi"});
    tree.Add({.path = L"Applications\\b.msi"});
    Run();
    EXPECT_THAT(Calls(L"MsiGetProperties"), SizeIs(2));
    EXPECT_EQ(Calls(L"MsiGetProperties").front().Argument(L"capacity"), L"2048");
}

TEST_F(LibraryContractTest, CallsTheLibraryOnTheThreadThatNeedsIt) {
    tree.Add({.path = L"Applications\\a.msi"});
    Run();
    EXPECT_EQ(Calls(L"MsiGetProperties").front().thread, Calls(L"MsiInitialize").front().thread);
    EXPECT_NE(Calls(L"MsiInstallApp").front().thread, Calls(L"MsiInitialize").front().thread);
}

TEST_F(LibraryContractTest, AnswersProgressAndWhatItDoesNotKnowWithOne) {
    tree.Add({.path = L"Applications\\a.msi",
              .install = {.steps = {{L"message", L"<PERCENT>50</PERCENT>"},
                                    {L"message", L"<FILE_IN_USE>TRUE</FILE_IN_USE>"},
                                    {L"message", L"no document"},
                                    {L"message", {}}}}});
    Run();
    EXPECT_THAT(Calls(L"answer"), SizeIs(4));
    for (const LibraryCall& call : Calls(L"answer")) EXPECT_EQ(call.Argument(L"answer"), L"1");
}

// The length of a property document and the capacities with which it is asked for.
struct LengthCase {
    std::size_t length;
    std::vector<std::wstring> capacities;
};

void PrintTo(const LengthCase& given, std::ostream* stream) {
    *stream << given.length;
}

class DocumentLengthTest : public LibraryContractTest, public testing::WithParamInterface<LengthCase> {};

TEST_P(DocumentLengthTest, IsMetByAFurtherCallWhereTheTerminatorFindsNoRoom) {
    const std::wstring last = L"<ProductName>Reader</ProductName>";
    const std::wstring head = L"<PAD></PAD>";
    const std::wstring pad(GetParam().length - last.size() - head.size(), L'p');
    tree.Add({.path = L"Applications\\a.msi",
              .properties = Element(L"PAD", pad) + last,
              .states = {{.installed = true}}});
    Run();
    std::vector<std::wstring> capacities;
    for (const LibraryCall& call : Calls(L"MsiGetProperties"))
        capacities.push_back(call.Argument(L"capacity"));
    EXPECT_EQ(capacities, GetParam().capacities);
    // The last element of the document is found all the same.
    EXPECT_THAT(BasicLog(), HasRecordWith(L"", L"A newer version of Reader is already installed."));
}

INSTANTIATE_TEST_SUITE_P(Lengths, DocumentLengthTest,
                         testing::Values(LengthCase{2047, {L"2048"}}, LengthCase{2048, {L"2048", L"2049"}},
                                         LengthCase{2049, {L"2048", L"2050"}},
                                         LengthCase{100000, {L"2048", L"100001"}}));

TEST_F(LibraryContractTest, TakesTheFirstPropertyOfAFailedReadingForMissingAndTheOthersAsTheyCame) {
    tree.Add({.path = L"Applications\\a.msi",
              .properties = L"<ProductName>Reader</ProductName><FORCEREINSTALL>TRUE</FORCEREINSTALL>",
              .propertiesCode = 1627,
              .states = {{.installed = true, .upToDate = true}}});
    Run();
    EXPECT_THAT(Calls(L"MsiGetProperties"), SizeIs(1));
    EXPECT_THAT(AdvancedLog(), HasRecordWith(L"", L"This is a ForceReinstall required."));
}

TEST_F(LibraryContractTest, TellsOfAMissingLibraryOnceAndGoesOn) {
    tree.Add({.path = L"Applications\\a.msi"});
    tree.UseLibrary({});
    Run();
    EXPECT_THAT(BasicMessages(L"ERROR"),
                ElementsAre(L"Exception in CKestruneApp::InitInstance error code = 2",
                            L"Failed to load Brevanto.dll!"));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Failed to find the property"));
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"End of silent mode install"));
    EXPECT_EQ(wizard.ExitCode(), 0U);
}

// An export that the library lacks, what the advanced log says of it, and whether packages are installed.
struct MissingCase {
    const wchar_t* name;
    const wchar_t* message;
    bool installs;
};

void PrintTo(const MissingCase& given, std::ostream* stream) {
    *stream << ToUtf8(given.name);
}

class MissingExportTest : public ShownRunTest, public testing::WithParamInterface<MissingCase> {
protected:
    void SetUp() override {
        ShownRunTest::SetUp();
        tree.UseLibrary(std::wstring(L"without_") + GetParam().name);
    }
};

TEST_P(MissingExportTest, IsALineInTheLogAndANeutralAnswer) {
    tree.Add({.path = L"Applications\\a.msi"});
    const FinishedRun run = RunShown();
    EXPECT_EQ(wizard.ExitCode(), 0U);
    EXPECT_EQ(Installs().size(), GetParam().installs ? 1U : 0U);
    const std::wstring message = GetParam().message;
    if (!message.empty()) {
        EXPECT_THAT(AdvancedLog(), HasRecord(L"", message));
    }
    const bool named = std::wstring(GetParam().name) != L"MsiGetProperties";
    EXPECT_EQ(run.status, StatusDocument({{named ? L"a" : L"", 0}}));
}

INSTANTIATE_TEST_SUITE_P(
    Exports, MissingExportTest,
    testing::Values(MissingCase{L"MsiInitialize", L"Failed to find MsiInitialize method", true},
                    // Nothing ends the library, so nothing misses this one.
                    MissingCase{L"MsiUninitialize", L"", true},
                    MissingCase{L"MsiEnableInstallLog", L"Failed to find MsiEnableInstallLog method", true},
                    MissingCase{L"MsiInstallApp", L"Failed to find MsiInstallApp method", false},
                    MissingCase{L"MsiUninstallApp", L"", true}, MissingCase{L"MsiCancel", L"", true},
                    // By design: the text names another export.
                    MissingCase{L"MsiGetProperties", L"Failed to find MsiGetPropertyValue method", true},
                    MissingCase{L"MsiIsAppInstalledByLang", L"Failed to find MsiIsAppInstalled method",
                                true}),
    [](const testing::TestParamInfo<MissingCase>& given) { return ToUtf8(given.param.name); });

class MissingInRollBackTest : public ShownRunTest {
protected:
    FinishedRun FailWithout(const std::wstring& missing) {
        tree.UseLibrary(L"without_" + missing);
        tree.Add({.path = L"Applications\\a.msi", .install = {.steps = {}, .code = 1603}});
        wizard.Start();
        wizard.Answer(IDOK);
        return ReadFinishPage();
    }
};

TEST_F(MissingInRollBackTest, LeavesARemovalThatCannotBeAskedForAsDone) {
    EXPECT_EQ(FailWithout(L"MsiUninstallApp").status, StatusDocument({{L"a", 1}}));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Failed to find MsiUninstallApp method"));
    EXPECT_THAT(Removals(), IsEmpty());
}

TEST_F(MissingInRollBackTest, CancelsWithoutTheLibrarysHelp) {
    EXPECT_EQ(FailWithout(L"MsiCancel").status, StatusDocument({{L"a", 1}}));
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Failed to find MsiCancel method"));
    EXPECT_THAT(Removals(), ElementsAre(L"a.msi"));
}

}  // namespace
