#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "framework/CDialogEx.h"
#include "framework/CWinApp.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/ChildProcess.h"
#include "tests/windows/world/TestApp.h"
#include "tests/wizard/Waiting.h"

namespace {

using testing::ElementsAre;

// What the receiver of the command line gets: is-flag, is-last, parameter.
std::vector<std::string> ParametersOf(const std::wstring& arguments) {
    ChildProcess companion(CompanionPath(), L"tell-parameters " + arguments);
    std::vector<std::string> lines;
    while (const auto line = companion.ReadLine()) lines.push_back(*line);
    return lines;
}

TEST(CommandLineTest, StripsOneSwitchCharacter) {
    EXPECT_THAT(ParametersOf(L"-ip=10.0.0.7 /lang=de --p=x plain"),
                ElementsAre("00 tell-parameters", "10 ip=10.0.0.7", "10 lang=de", "10 -p=x", "01 plain"));
}

TEST(CommandLineTest, KeepsQuotedParametersTogether) {
    EXPECT_THAT(ParametersOf(L"\"-p=a b\" \"\" -"),
                ElementsAre("00 tell-parameters", "10 p=a b", "00 ", "11 "));
}

TEST(CWinAppTest, IsKnownAsLongAsItLives) {
    EXPECT_EQ(AfxGetApp(), nullptr);
    EXPECT_EQ(AfxGetMainWnd(), nullptr);
    {
        TestApp app;
        CWnd window;
        EXPECT_EQ(AfxGetApp(), &app);
        EXPECT_EQ(AfxGetMainWnd(), nullptr);
        app.SetMainWnd(&window);
        EXPECT_EQ(AfxGetMainWnd(), &window);
    }
    EXPECT_EQ(AfxGetApp(), nullptr);
}

TEST(CWinAppTest, GivesTheCodeOfTheQuitMessage) {
    TestApp app;
    PostQuitMessage(7);
    EXPECT_EQ(app.Run(), 7);
    EXPECT_EQ(app.ExitInstance(), 7);
}

// A window that takes every posted message, or lets all pass.
class Filter : public CDialogEx {
public:
    bool PreTranslateMessage(MSG*) override {
        ++seen;
        return takes;
    }
    int seen = 0;
    bool takes = false;
};

TEST(CWinAppTest, OffersAMessageToTheWindowsUpToTheMainOne) {
    TestApp app;
    Filter main;
    Filter inner;
    EXPECT_TRUE(main.Create(IDD_TEST, nullptr));
    inner.SubclassDlgItem(IDC_TEST_EDIT, main);
    app.SetMainWnd(&main);
    MSG message{.hwnd = inner.GetSafeHwnd(), .message = WM_KEYDOWN};
    EXPECT_FALSE(app.PreTranslateMessage(&message));
    EXPECT_EQ(inner.seen, 1);
    EXPECT_EQ(main.seen, 1);
    inner.takes = true;
    EXPECT_TRUE(app.PreTranslateMessage(&message));
    EXPECT_EQ(main.seen, 1);
}

TEST(CWinAppTest, OffersAMessageToNoWindowAroundTheMainOne) {
    TestApp app;
    Filter outer;
    Filter main;
    EXPECT_TRUE(outer.Create(IDD_TEST, nullptr));
    main.SubclassDlgItem(IDC_TEST_EDIT, outer);
    app.SetMainWnd(&main);
    outer.takes = true;
    MSG message{.hwnd = main.GetSafeHwnd(), .message = WM_KEYDOWN};
    EXPECT_FALSE(app.PreTranslateMessage(&message));
    EXPECT_EQ(main.seen, 1);
    EXPECT_EQ(outer.seen, 0);
}

// As for a dialog that a library's thread opens over the main window.
TEST(CWinAppTest, OffersAMessageToNoWindowOfAnotherThread) {
    TestApp app;
    Filter main;
    EXPECT_TRUE(main.Create(IDD_TEST, nullptr));
    app.SetMainWnd(&main);
    std::atomic<bool> isDone = false;
    std::thread other([&] {
        {
            Filter dialog;
            EXPECT_TRUE(dialog.Create(IDD_TEST, &main));
            EXPECT_EQ(GetParent(dialog.GetSafeHwnd()), main.GetSafeHwnd());
            MSG message{.hwnd = dialog.GetSafeHwnd(), .message = WM_KEYDOWN};
            EXPECT_FALSE(app.PreTranslateMessage(&message));
            EXPECT_EQ(dialog.seen, 1);
        }
        isDone = true;
    });
    EXPECT_TRUE(WaitUntil([&] {
        PumpMessages();
        return isDone.load();
    }));
    other.join();
    EXPECT_EQ(main.seen, 0);
}

TEST(CWinAppTest, OffersAMessageOfTheThreadToNobody) {
    TestApp app;
    MSG message{.hwnd = nullptr, .message = WM_APP};
    EXPECT_FALSE(app.PreTranslateMessage(&message));
}

// An application whose start fails.
class FailingApp : public TestApp {
public:
    bool InitInstance() override { throw std::runtime_error("no start"); }
    int ExitInstance() override {
        ended = true;
        return 0;
    }
    bool ended = false;
};

TEST(AfxWinMainTest, EndsAnApplicationWhoseStartFails) {
    FailingApp app;
    EXPECT_EQ(AfxWinMain(), 0);
    EXPECT_TRUE(app.ended);
    EXPECT_THAT(app.Exceptions(), ElementsAre("start: no start"));
}

// An application that decides in its start whether to run.
class DecidingApp : public TestApp {
public:
    bool InitInstance() override {
        PostQuitMessage(5);
        return runs;
    }
    bool runs = false;
};

TEST(AfxWinMainTest, EntersTheLoopOnlyWhereTheStartSaysSo) {
    DecidingApp app;
    EXPECT_EQ(AfxWinMain(), 0);
    app.runs = true;
    EXPECT_EQ(AfxWinMain(), 5);
}

}  // namespace
