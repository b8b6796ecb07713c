// Where libraries come from: the system's own folder, and for the libraries of a package their own.

#include <vector>

#include "CommonLib/Files.h"
#include "CommonLib/SystemText.h"
#include "framework/SystemLibrary.h"
#include "resources/resource.h"
#include "tests/wizard/ImportTable.h"
#include "tests/wizard/PageTest.h"

using testing::IsEmpty;
using testing::Not;

namespace {

namespace fs = std::filesystem;

// What the system has mapped beforehand and takes from nowhere else, and the controls, which the manifest of
// the program binds to the system's own copy. scripts/check-binary.py holds the program's imports to these.
const std::set<std::wstring> safeLibraries = {
    L"advapi32.dll", L"comctl32.dll", L"comdlg32.dll", L"gdi32.dll",   L"kernel32.dll", L"msvcrt.dll",
    L"ntdll.dll",    L"ole32.dll",    L"oleaut32.dll", L"shell32.dll", L"shlwapi.dll",  L"user32.dll"};

// Those, and what comes with them: Windows holds that as well for what it has mapped.
std::set<std::wstring> WithWhatTheyImport(std::set<std::wstring> names, bool withLateOnes) {
    std::vector<std::wstring> open(names.begin(), names.end());
    while (!open.empty()) {
        const fs::path file = fs::path(GetSystemFolder()) / open.back();
        open.pop_back();
        for (const std::wstring& name : ImportsOf(file, withLateOnes)) {
            if (names.insert(name).second) open.push_back(name);
        }
    }
    return names;
}

class LibrarySearchTest : public PageTest {
protected:
    static fs::path Fake(const wchar_t* build, const wchar_t* name) {
        return BuildFolder() / L"tests" / L"fakes" / build / name;
    }
    static void Plant(const fs::path& file) { fs::copy_file(Fake(L"", L"Neighbour.dll"), file); }
    static std::vector<std::wstring> LoadedPlants(const fs::path& folder) {
        std::vector<std::wstring> names;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
            if (entry.path().extension() == L".loaded") names.push_back(entry.path().stem().wstring());
        }
        return names;
    }
};

// Wine has no list of what is mapped beforehand, and takes its own libraries before others. Overrides for
// this program alone stand for the first and turn the second off.
class PlantedLibraryTest : public LibrarySearchTest {
protected:
    PlantedLibraryTest() : safe(WithWhatTheyImport(safeLibraries, false)) {
        // The common controls of Wine load it before the first instruction of the program.
        safe.insert(L"uxtheme.dll");
        for (const std::wstring& name : safe) Override(name, L"builtin");
    }
    ~PlantedLibraryTest() override { RegDeleteTreeW(HKEY_CURRENT_USER, overrides); }

    // Every name that the program or one of its libraries asks for, early or late.
    void PlantAll() const {
        std::set<std::wstring> names = {L"gdiplus.dll", L"msimg32.dll", L"winspool.drv",  L"hhctrl.ocx",
                                        L"mpr.dll",     L"msi.dll",     L"riched20.dll",  L"uxtheme.dll",
                                        L"version.dll", L"ws2_32.dll",  L"cryptbase.dll", L"dwmapi.dll"};
        names.merge(WithWhatTheyImport(names, true));
        names.merge(WithWhatTheyImport(ImportsOf(BuildFolder() / L"Kestrune.exe", true), true));
        for (const std::wstring& name : names) {
            if (safe.contains(name)) continue;
            Plant(tree.ProgramFolder() / name);
            Override(name, L"native,builtin");
        }
    }

private:
    static void Override(const std::wstring& library, const std::wstring& order) {
        const std::wstring name =
            library.ends_with(L".dll") ? library.substr(0, library.size() - 4) : library;
        RegSetKeyValueW(HKEY_CURRENT_USER, overrides, name.c_str(), REG_SZ, order.c_str(),
                        static_cast<DWORD>((order.size() + 1) * sizeof(wchar_t)));
    }

    static constexpr wchar_t overrides[] = L"Software\\Wine\\AppDefaults\\Kestrune.exe\\DllOverrides";

    std::set<std::wstring> safe;
};

TEST_F(PlantedLibraryTest, IsNotLoadedByPagesWithPicturesAndTexts) {
    PlantAll();
    tree.SetSettings({});
    AddPicture(L"help.png", RGB(0, 0, 255));
    StartOn(IDOK);
    wizard.Press(IDOK);
    wizard.WaitForControl(IDC_LICENCE_TEXT);
    wizard.Kill();
    EXPECT_THAT(LoadedPlants(tree.ProgramFolder()), IsEmpty());
}

TEST_F(PlantedLibraryTest, IsNotLoadedByARun) {
    PlantAll();
    tree.SetSettings(Settings::silent);
    tree.Add({.path = L"Applications\\a.msi"});
    Run();
    EXPECT_THAT(Installs(), Not(IsEmpty()));
    EXPECT_THAT(LoadedPlants(tree.ProgramFolder()), IsEmpty());
}

// The library of the system's dialogs brings the spooler along, and what that needs: megabytes in every run,
// for a dialog that few of them open.
TEST_F(LibrarySearchTest, BringsNoLibraryOfTheSpooler) {
    const std::set<std::wstring> imports = ImportsOf(BuildFolder() / L"Kestrune.exe", true);
    EXPECT_THAT(imports, testing::Contains(L"user32.dll"));
    EXPECT_THAT(imports, Not(testing::Contains(testing::AnyOf(L"comdlg32.dll", L"winspool.drv"))));
}

TEST_F(LibrarySearchTest, LetsALibraryOfThePackageFindWhatLiesBesideIt) {
    tree.UseLibrary(L"with_neighbour");
    Plant(tree.ProgramFolder() / L"Neighbour.dll");
    tree.SetSettings(Settings::silent);
    tree.Add({.path = L"Applications\\a.msi"});
    Run();
    EXPECT_THAT(Installs(), testing::ElementsAre(L"a.msi"));
}

// The variable that holds the path along which the system looks for libraries.
class SearchPath {
public:
    explicit SearchPath(const fs::path& folder) : former(ExpandEnvironment(L"%PATH%")) {
        SetEnvironmentVariableW(L"PATH", (folder.wstring() + L";" + former).c_str());
    }
    SearchPath(const SearchPath&) = delete;
    SearchPath& operator=(const SearchPath&) = delete;
    ~SearchPath() { SetEnvironmentVariableW(L"PATH", former.c_str()); }

private:
    std::wstring former;
};

// A library that the system lacks is sought in the working folder and along the path, where nothing keeps it
// from that. Here it is one that a library of the package wants.
class PlantedElsewhereTest : public LibrarySearchTest {
protected:
    void SetUp() override {
        LibrarySearchTest::SetUp();
        fs::create_directories(elsewhere);
        Plant(elsewhere / L"Neighbour.dll");
        tree.UseLibrary(L"with_neighbour");
        tree.SetSettings(Settings::silent);
    }

    fs::path elsewhere = tree.Root() / L"elsewhere";
};

TEST_F(PlantedElsewhereTest, IsNotLoadedFromTheWorkingFolder) {
    wizard.Start({}, elsewhere);
    wizard.WaitForEnd();
    EXPECT_THAT(BasicLog(), HasRecord(L"ERROR", L"Failed to load Brevanto.dll!"));
    EXPECT_THAT(LoadedPlants(elsewhere), IsEmpty());
}

TEST_F(PlantedElsewhereTest, IsNotLoadedAlongThePath) {
    const SearchPath path(elsewhere);
    Run();
    EXPECT_THAT(BasicLog(), HasRecord(L"ERROR", L"Failed to load Brevanto.dll!"));
    EXPECT_THAT(LoadedPlants(elsewhere), IsEmpty());
}

}  // namespace
