#include "framework/CDialogEx.h"
#include "install/InstallMessages.h"
#include "install/ProgressDialog.h"
#include "resources/resource.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"

namespace {

// A program with a main window, in front of which dialogs come up.
class DialogTest : public SettingsWorld {
protected:
    DialogTest() {
        AddTexts(
            "<DISK_FULL_ERROR_TITLE>full title</DISK_FULL_ERROR_TITLE>"
            "<DISK_FULL_ERROR_TEXT>full</DISK_FULL_ERROR_TEXT>"
            "<INSTALL_ALREADY_RUNNING_TITLE>running title</INSTALL_ALREADY_RUNNING_TITLE>"
            "<INSTALL_ALREADY_RUNNING_TEXT>running</INSTALL_ALREADY_RUNNING_TEXT>"
            "<PERMISSION_ERROR_TITLE>rights title</PERMISSION_ERROR_TITLE>"
            "<PERMISSION_ERROR_TEXT>rights</PERMISSION_ERROR_TEXT>"
            "<ERROR_TITLE>error title</ERROR_TITLE><ERROR_TEXT>error</ERROR_TEXT>"
            "<FILES_IN_USE_HEADER>in use</FILES_IN_USE_HEADER>");
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        app.SetMainWnd(&window);
        DeliverMessagesTo(&page);
    }
    ~DialogTest() override { DeliverMessagesTo(nullptr); }

    TestApp app;
    CDialogEx window;
    ProgressDialog page{context};
};

// A page that asks nobody and keeps what it is told.
class RecordingPage : public IInstallProgress {
public:
    std::vector<std::int32_t> percents;
    int questions = 0;
    int errors = 0;

    void BeginRun(int) override {}
    void BeginUninstalling() override {}
    void SetApplication(const std::wstring&) override {}
    void MakeStep() override {}
    void Tell(std::int32_t percent) override { percents.push_back(percent); }
    bool IsCancelPromptOpen() const override { return false; }
    std::int32_t AskAboutFilesInUse(const std::optional<std::wstring>&) override { return ++questions; }
    std::int32_t AskToClosePrograms(const std::optional<std::wstring>&) override { return ++questions; }
    void Cancel() override {}
    void ShowError(TextId, TextId) override { ++errors; }
};

TEST(InstallMessageTest, IsProgressUnlessItAsksInSmallLetters) {
    RecordingPage page;
    DeliverMessagesTo(&page);
    for (const wchar_t* message : {L"<FILE_IN_USE>TRUE</FILE_IN_USE>",
                                   L"<RM_FILE_IN_USE>True</RM_FILE_IN_USE>", L"<PERCENT>30</PERCENT>", L""}) {
        EXPECT_EQ(OnInstallMessage(message), IDOK);
    }
    DeliverMessagesTo(nullptr);
    EXPECT_EQ(page.questions, 0);
    EXPECT_THAT(page.percents, testing::ElementsAre(0, 0, 30, 0));
}

struct ErrorBox {
    std::uint32_t code;
    std::wstring shown;
    bool stops;
};

class ErrorBoxTest : public DialogTest, public testing::WithParamInterface<ErrorBox> {};

TEST_P(ErrorBoxTest, ShowsItsTextsAndSaysWhetherTheRunStops) {
    constexpr int boxText = 65535;
    std::wstring shown;
    {
        const DialogUser user(window.GetSafeHwnd(), [&](HWND box) {
            shown = TextOf(box) + L": " + TextOf(GetDlgItem(box, boxText));
            ClickOn(box, IDOK);
        });
        EXPECT_EQ(ShowErrorDialog(&page, Settings(), GetParam().code), GetParam().stops);
    }
    EXPECT_EQ(shown, GetParam().shown);
}

const ErrorBox boxes[] = {
    {112, L"full title: full", true},
    {1247, L"running title: running", true},
    {1618, L"running title: running", true},
    {1625, L"rights title: rights", true},
    {1640, L"rights title: rights", true},
    {1603, L"error title: error", true},
    {1622, L": ", false},
    {1623, L": ", false},
};

INSTANTIATE_TEST_SUITE_P(Codes, ErrorBoxTest, testing::ValuesIn(boxes),
                         [](const auto& box) { return std::to_string(box.param.code); });

using ErrorDialogTest = DialogTest;

TEST_F(ErrorDialogTest, StaysAwayInAnOptionalRun) {
    Settings().SetBool(Tag::OPTIONAL_INSTALL, true);
    RecordingPage recording;
    EXPECT_FALSE(ShowErrorDialog(&recording, Settings(), 112));
    EXPECT_EQ(recording.errors, 0);
}

TEST_F(ErrorDialogTest, GivesTheSameAnswerWithoutAMainWindow) {
    app.SetMainWnd(nullptr);
    EXPECT_TRUE(ShowErrorDialog(&page, Settings(), 112));
    EXPECT_FALSE(ShowErrorDialog(&page, Settings(), 1623));
}

// A question of the library, and what the user does with it.
struct Question {
    std::wstring kind;
    int chosen;
    int pressed;
    std::int32_t answer;
};

class FileInUseTest : public DialogTest, public testing::WithParamInterface<Question> {
protected:
    static std::wstring Ask(const std::wstring& kind, const std::wstring& names) {
        return L"<" + kind + L">true</" + kind + L">" + names;
    }
    static int NamesControl(const std::wstring& kind) {
        return kind == L"FILE_IN_USE" ? IDC_FILES_IN_USE_APPLICATIONS : IDC_CLOSABLE_FILES_APPLICATIONS;
    }
};

TEST_P(FileInUseTest, IsAnsweredByTheButton) {
    const std::wstring kind = GetParam().kind;
    std::wstring names;
    for (const wchar_t* element : {L"<APPLICATION_NAME>Word, Mail</APPLICATION_NAME>", L""}) {
        const DialogUser user(window.GetSafeHwnd(), [&](HWND dialog) {
            EXPECT_EQ(TextOf(dialog), L"in use");
            names = TextOf(GetDlgItem(dialog, NamesControl(kind)));
            if (GetParam().chosen != 0) SendMessageW(GetDlgItem(dialog, GetParam().chosen), BM_CLICK, 0, 0);
            ClickOn(dialog, GetParam().pressed);
        });
        EXPECT_EQ(OnInstallMessage(Ask(kind, element).c_str()), GetParam().answer);
    }
    // The second question names nobody, so it shows the names of the first.
    EXPECT_EQ(names, L"Word, Mail");
}

const Question questionCases[] = {
    {L"FILE_IN_USE", 0, IDCANCEL, 2},
    {L"FILE_IN_USE", 0, IDC_FILES_IN_USE_RETRY, 4},
    {L"RM_FILE_IN_USE", 0, IDOK, 1},
    {L"RM_FILE_IN_USE", IDC_CLOSABLE_FILES_RESTART, IDOK, 1},
    {L"RM_FILE_IN_USE", IDC_CLOSABLE_FILES_DO_NOT_CLOSE, IDOK, 2},
};

INSTANTIATE_TEST_SUITE_P(Questions, FileInUseTest, testing::ValuesIn(questionCases));

using FileInUseDialogTest = DialogTest;

TEST_F(FileInUseDialogTest, HidesTheButtonThatIgnoresTheQuestion) {
    bool visible = true;
    {
        const DialogUser user(window.GetSafeHwnd(), [&](HWND dialog) {
            visible = IsWindowVisible(GetDlgItem(dialog, IDC_FILES_IN_USE_IGNORE)) != FALSE;
            ClickOn(dialog, IDC_FILES_IN_USE_IGNORE);
        });
        EXPECT_EQ(OnInstallMessage(L"<FILE_IN_USE>true</FILE_IN_USE>"), 5);
    }
    EXPECT_FALSE(visible);
    EXPECT_TRUE(Settings().GetBool(Tag::REBOOT));
}

TEST_F(FileInUseDialogTest, IsCancelledByEscape) {
    const DialogUser user(window.GetSafeHwnd(),
                          [](HWND dialog) { PostMessageW(dialog, WM_KEYDOWN, VK_ESCAPE, 0); });
    EXPECT_EQ(OnInstallMessage(L"<RM_FILE_IN_USE>true</RM_FILE_IN_USE>"), 2);
}

}  // namespace
