// What the program leaves alone: folders and programs that are not its own, whatever the temporary folder is
// called.

#include <fstream>

#include "CommonLib/Files.h"
#include "tests/fakes/TextLines.h"
#include "tests/wizard/FolderLink.h"
#include "tests/wizard/WizardTest.h"

namespace {

namespace fs = std::filesystem;

// The program runs with a temporary folder of the test's own.
class OwnFilesTest : public WizardTest {
protected:
    OwnFilesTest() : formerFolder(GetTemporaryFolder()) { UseTemporaryFolder(L"T"); }
    ~OwnFilesTest() override { SetTemporaryFolder(formerFolder); }

    // The folder of that name below the tree's root.
    void UseTemporaryFolder(const std::wstring& name) {
        temporary = tree.Root() / name;
        fs::create_directories(temporary);
        SetTemporaryFolder(temporary.wstring());
    }
    void AddFile(const fs::path& path) const {
        fs::create_directories(path.parent_path());
        std::ofstream(path) << "text";
    }
    void AddProbe(const fs::path& path) {
        fs::create_directories(path.parent_path());
        fs::copy_file(fs::path(GetExeDirectory()) / L"Probe.exe", path, fs::copy_options::overwrite_existing);
    }
    static bool HasRun(const fs::path& probe) { return fs::exists(probe.wstring() + L".calls"); }

    fs::path temporary;

private:
    static void SetTemporaryFolder(const std::wstring& path) {
        for (const wchar_t* const name : {L"TEMP", L"TMP"}) SetEnvironmentVariableW(name, path.c_str());
    }

    std::wstring formerFolder;
};

class TemporaryFolderTest : public OwnFilesTest, public testing::WithParamInterface<std::wstring> {};

TEST_P(TemporaryFolderTest, LosesTheFoldersOfTheToolsAndNothingElse) {
    UseTemporaryFolder(GetParam());
    for (const wchar_t* const kit : {L"ArdentisKit", L"TolvaneKit"}) {
        AddFile(temporary / kit / L"Halvenny" / L"tool.exe");
        AddFile(tree.ProgramFolder() / kit / L"kept.txt");
    }
    const std::vector<fs::path> neighbours = {
        tree.Root() / L"John" / L"kept.txt", tree.Root() / L"a" / L"kept.txt",
        temporary / L"Other" / L"kept.txt", tree.ProgramFolder() / L"Doe" / L"kept.txt"};
    for (const fs::path& file : neighbours) AddFile(file);
    Run();
    EXPECT_FALSE(fs::exists(temporary / L"ArdentisKit"));
    EXPECT_FALSE(fs::exists(temporary / L"TolvaneKit"));
    for (const fs::path& file : neighbours) EXPECT_TRUE(fs::exists(file)) << file;
    for (const wchar_t* const kit : {L"ArdentisKit", L"TolvaneKit"}) {
        EXPECT_TRUE(fs::exists(tree.ProgramFolder() / kit / L"kept.txt"));
    }
}

INSTANTIATE_TEST_SUITE_P(Names, TemporaryFolderTest,
                         testing::Values(L"John Doe", L"a & b", L"100%TEMP%", L"a^b",
                                         L"\u00dcn\u0131 \u65e5\u672c"));

TEST_F(OwnFilesTest, LeavesWhatALinkInThePlaceOfAToolsFolderLeadsTo) {
    AddFile(tree.Root() / L"target" / L"kept.txt");
    const FolderLink link(temporary / L"TolvaneKit", tree.Root() / L"target");
    Run();
    EXPECT_TRUE(fs::exists(tree.Root() / L"target" / L"kept.txt"));
}

TEST_F(OwnFilesTest, EndsThoughAFileOfTheToolStaysOpen) {
    AddFile(temporary / L"ArdentisKit" / L"held.txt");
    AddFile(temporary / L"ArdentisKit" / L"other.txt");
    const FileHandle held(CreateFileW((temporary / L"ArdentisKit" / L"held.txt").c_str(), GENERIC_READ,
                                      FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    Run();
    EXPECT_FALSE(fs::exists(temporary / L"ArdentisKit" / L"other.txt"));
    const std::wstring record = L"The folder " + temporary.wstring() + L"\\ArdentisKit cannot be removed";
    EXPECT_THAT(BasicMessages(L"ERROR"), testing::Contains(record).Times(1));
}

TEST_F(OwnFilesTest, StartsNoInterpreterAtItsEnd) {
    const fs::path interpreter = tree.ProgramFolder() / L"cmd.exe";
    AddProbe(interpreter);
    AddFile(temporary / L"ArdentisKit" / L"tool.exe");
    Run();
    EXPECT_FALSE(HasRun(interpreter));
    EXPECT_FALSE(fs::exists(temporary / L"ArdentisKit"));
}

TEST_F(OwnFilesTest, StartsTheProgramOfAPackageAndNotTheFirstWordOfItsPath) {
    const fs::path decoy = fs::path(TargetFolder()).root_path() / L"Program.exe";
    AddProbe(decoy);
    tree.Add({.path = L"Applications\\a.msi",
              .properties = Element(L"ProductName", L"a") + Element(L"STARTAPP", L"one.exe -quiet;")});
    AddProbe(fs::path(TargetFolder()) / L"one.exe");
    Run();
    EXPECT_TRUE(WaitUntil([&] { return HasRun(fs::path(TargetFolder()) / L"one.exe"); }));
    EXPECT_FALSE(HasRun(decoy));
    fs::remove(decoy);
    fs::remove(decoy.wstring() + L".calls");
}

}  // namespace
