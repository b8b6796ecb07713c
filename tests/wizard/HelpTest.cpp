// Which help the F1 key and the help button open.

#include "CommonLib/SystemText.h"
#include "framework/SystemLibrary.h"
#include "resources/resource.h"
#include "tests/fakes/TextLines.h"
#include "tests/wizard/PageTest.h"
#include "tests/wizard/RealInput.h"

using testing::ElementsAre;

namespace {

namespace fs = std::filesystem;

// A viewer that records what it is asked for, in place of the system's.
class RecordingViewer {
public:
    RecordingViewer() {
        fs::rename(place, kept);
        fs::copy_file(BuildFolder() / L"tests" / L"fakes" / L"HelpViewer.dll", place);
        constexpr wchar_t native[] = L"native";
        RegSetKeyValueW(HKEY_CURRENT_USER, overrides, L"hhctrl.ocx", REG_SZ, native, sizeof(native));
    }
    RecordingViewer(const RecordingViewer&) = delete;
    RecordingViewer& operator=(const RecordingViewer&) = delete;
    ~RecordingViewer() {
        RegDeleteKeyValueW(HKEY_CURRENT_USER, overrides, L"hhctrl.ocx");
        std::error_code error;
        fs::remove(record, error);
        fs::remove(place, error);
        fs::rename(kept, place, error);
    }

    // The calls, as soon as there are that many: file, command, topic and whether the file is there.
    std::vector<std::vector<std::wstring>> WaitForCalls(std::size_t count) const {
        std::vector<std::vector<std::wstring>> calls;
        WaitUntil([&] { return (calls = ReadLines(record.wstring())).size() >= count; });
        return calls;
    }

private:
    static constexpr wchar_t overrides[] = L"Software\\Wine\\AppDefaults\\Kestrune.exe\\DllOverrides";

    const fs::path place = fs::path(GetSystemFolder()) / L"hhctrl.ocx";
    const fs::path kept = place.wstring() + L".kept";
    const fs::path record = place.wstring() + L".calls";
};

class HelpTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        if (GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") == nullptr) {
            GTEST_SKIP() << "this system lets nobody replace its viewer";
        }
        viewer.emplace();
        UseSettings(
            L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA><MANUFACTURERS>A|B</MANUFACTURERS>");
    }
    void TearDown() override {
        // The program holds the viewer's file.
        PageTest::TearDown();
        viewer.reset();
    }

    void AddHelp(const std::wstring& language) { tree.WriteFile(HelpFile(language), "help"); }
    fs::path HelpFile(const std::wstring& language) const {
        return tree.Root() / L"Setup" / language / L"install.chm";
    }
    // What a viewer is asked for on the page that the tests show.
    std::vector<std::wstring> Call(const std::wstring& language, const wchar_t* outcome) const {
        constexpr wchar_t showTopic[] = L"15";
        return {HelpFile(language).wstring(), showTopic, std::to_wstring(HIDD_MANUFACTURER), outcome};
    }

    std::optional<RecordingViewer> viewer;
};

// The runner says which language it has set, and runs this once in each.
TEST_F(HelpTest, OpensThePagesTopicInTheLanguageOfTheUser) {
    const std::wstring named = ExpandEnvironment(L"%KESTRUNE_LANGUAGE_CODE%");
    const std::wstring language = named.front() == L'%' ? L"en" : named;
    for (const std::wstring& each : {language, std::wstring(L"fr")}) AddHelp(each);
    StartOn(IDC_MANUFACTURER_LIST);
    wizard.BringToFront();
    PressKeys({VK_F1});
    EXPECT_THAT(viewer->WaitForCalls(1), ElementsAre(Call(language, L"shown")));
    wizard.Press(IDC_HELP_BUTTON);
    EXPECT_THAT(viewer->WaitForCalls(2), ElementsAre(Call(language, L"shown"), Call(language, L"shown")));
}

TEST_F(HelpTest, KeepsToTheLanguageOfTheUserWhateverTheOptionSays) {
    for (const wchar_t* const language : {L"en", L"de"}) AddHelp(language);
    wizard.Start(L"-lang=de");
    wizard.WaitForControl(IDC_MANUFACTURER_LIST);
    wizard.Press(IDC_HELP_BUTTON);
    EXPECT_THAT(viewer->WaitForCalls(1), ElementsAre(Call(L"en", L"shown")));
}

TEST_F(HelpTest, ShowsNothingAndNoOtherLanguageWhereTheUsersHasNoHelp) {
    AddHelp(L"de");
    StartOn(IDC_MANUFACTURER_LIST);
    wizard.BringToFront();
    const HWND focused = wizard.Focus();
    PressKeys({VK_F1});
    EXPECT_THAT(viewer->WaitForCalls(1), ElementsAre(Call(L"en", L"missing")));
    EXPECT_TRUE(StaysQuiet());
    EXPECT_EQ(wizard.Focus(), focused);
}

}  // namespace
