// The walk over a chain of pages that a test makes: ends, ways back, and the cancel.

#include <atomic>
#include <thread>
#include <utility>

#include "CommonLib/MsiCodes.h"
#include "framework/CDialogEx.h"
#include "resources/resource.h"
#include "settings/TagNames.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"
#include "tests/wizard/Waiting.h"
#include "wizard/Controller.h"

namespace {

using testing::Contains;
using testing::ElementsAre;

constexpr int messageTextId = 0xFFFF;

class FailingService : public Service {
public:
    std::uint32_t DoRun() override { return MsiCode::InstallFailure; }
    void Cancel() override {}
};

// Notes that it is run and that it is cancelled.
class NotingService : public Service {
public:
    NotingService(std::vector<std::string>& services, int ownPlace)
        : notes(services), place(std::to_string(ownPlace)) {}
    std::uint32_t DoRun() override {
        notes.push_back("run " + place);
        return MsiCode::Success;
    }
    void Cancel() override { notes.push_back("cancel " + place); }

private:
    std::vector<std::string>& notes;
    std::string place;
};

class ControllerTest : public SettingsWorld {
protected:
    ControllerTest() {
        AddTexts(
            "<CANCEL_CONFIRMATION_TEXT>plain</CANCEL_CONFIRMATION_TEXT>"
            "<OPTIONAL_SOFTWARE_CANCEL_CONFIRMATION_TEXT>optional</"
            "OPTIONAL_SOFTWARE_CANCEL_CONFIRMATION_TEXT>");
        ReadTextsAnew();
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        window.ShowWindow(SW_SHOW);
        app.SetMainWnd(&window);
    }
    // The messages that end the program must not reach the next test.
    ~ControllerTest() override { PumpMessages(); }

    ChainRow Page(PageRole role, bool hidden = false) {
        return {.role = role,
                .makePage = [this] { return std::make_unique<InstallDialogEx>(context, IDD_BYPASS); },
                .makeService = {},
                .hiddenAtFirst = hidden,
                .isHidden = {}};
    }
    ChainRow PageOfRestart(PageRole role) {
        ChainRow row = Page(role, true);
        row.isHidden = [] { return !Settings().GetBool(Tag::REBOOT); };
        return row;
    }
    // A page, a page by that name whose service fails, and one after it.
    std::vector<ChainRow> PagesAroundAFailure(const wchar_t* name) {
        std::vector<ChainRow> rows{Page(PageRole::Ordinary), Page(PageRole::Progress),
                                   Page(PageRole::CoreFinish)};
        rows[1].makePage = [this, name] {
            auto page = std::make_unique<InstallDialogEx>(context, IDD_PROGRESS);
            page->dialogName = name;
            return page;
        };
        rows[1].makeService = [](InstallDialogEx&) { return std::make_unique<FailingService>(); };
        return rows;
    }
    // The closing pages as the wizard has them, after a first one.
    std::vector<ChainRow> ClosingPages() {
        return {Page(PageRole::Ordinary), Page(PageRole::CoreFinish), PageOfRestart(PageRole::CoreReboot),
                Page(PageRole::Finish), PageOfRestart(PageRole::Reboot)};
    }
    // Four pages with services that note what becomes of them.
    std::vector<ChainRow> PagesWithServices() {
        std::vector<ChainRow> rows;
        for (int place = 0; place < 4; ++place) {
            rows.push_back(Page(PageRole::Ordinary));
            rows.back().makeService = [this, place](InstallDialogEx&) {
                return std::make_unique<NotingService>(notes, place);
            };
        }
        return rows;
    }
    void Walk(std::vector<ChainRow> rows, int steps, bool silent = false) {
        WalkEnds walkEnds{.isCoreSoftwareSelected = [this] { return coreSoftwareSelected; },
                          .copyLogToPackage = {},
                          .startPrograms = [this] { ++ends; },
                          .restart = [this] { ++restarts; }};
        EXPECT_TRUE(controller.Start({.rows = std::move(rows), .ends = std::move(walkEnds)}, silent));
        for (int step = 0; step < steps; ++step) EXPECT_TRUE(controller.Next({}));
    }
    // The question that a cancel asks, answered with No.
    std::wstring Question() {
        std::wstring text;
        const DialogUser user(window.GetSafeHwnd(), [&](HWND box) {
            text = TextOf(GetDlgItem(box, messageTextId));
            ClickOn(box, IDNO);
        });
        EXPECT_FALSE(controller.Cancel(false));
        return text;
    }
    bool HasMovedTo(int index) const {
        const std::wstring end = L" to " + std::to_wstring(index);
        return testing::Value(AdvancedMessages(), Contains(testing::EndsWith(end)));
    }

    TestApp app;
    CDialogEx window;
    bool coreSoftwareSelected = false;
    int ends = 0;
    int restarts = 0;
    std::vector<std::string> notes;
};

TEST_F(ControllerTest, ShowsTheFirstPageBeforeItMakesTheOthers) {
    std::vector<std::string> events;
    std::vector<ChainRow> rows{Page(PageRole::Ordinary), Page(PageRole::Ordinary)};
    rows[1].makePage = [this, &events] {
        events.emplace_back("made");
        return std::make_unique<InstallDialogEx>(context, IDD_BYPASS);
    };
    const auto show = [&] {
        const HWND page = controller.CurrentPage()->GetSafeHwnd();
        EXPECT_NE(GetWindowLongPtrW(page, GWL_STYLE) & WS_VISIBLE, 0);
        EXPECT_EQ(IsWindowEnabled(page), FALSE) << "it could be left before there is another";
        events.emplace_back("shown");
    };
    EXPECT_TRUE(controller.Start({.rows = std::move(rows), .ends = {.showWindow = show}}, false));
    EXPECT_THAT(events, ElementsAre("shown", "made"));
    EXPECT_NE(IsWindowEnabled(controller.CurrentPage()->GetSafeHwnd()), FALSE);
}

TEST_F(ControllerTest, LogsTheEndOfASilentRunAlone) {
    const auto end = Contains(L"End of silent mode install");
    Walk({Page(PageRole::Ordinary)}, 1);
    EXPECT_THAT(BasicMessages(), testing::Not(end));
    EXPECT_TRUE(controller.Start({.rows = {Page(PageRole::Ordinary)}, .ends = {}}, true));
    EXPECT_THAT(BasicMessages(), end);
}

TEST_F(ControllerTest, EndsAtOnceWhereThereIsNoPage) {
    EXPECT_FALSE(controller.Start({}, false));
    EXPECT_THAT(BasicMessages(), Contains(L"Controller::Start, Starting Dialog is NULL"));
}

TEST_F(ControllerTest, MakesAllPagesWhereTheFirstIsPassedOver) {
    bool isShown = false;
    std::vector<ChainRow> rows{Page(PageRole::Ordinary, true), Page(PageRole::Ordinary)};
    EXPECT_TRUE(
        controller.Start({.rows = std::move(rows), .ends = {.showWindow = [&] { isShown = true; }}}, false));
    EXPECT_FALSE(isShown);
    EXPECT_TRUE(HasMovedTo(1));
}

TEST_F(ControllerTest, EndsAfterTheLastPageThatIsShown) {
    Settings().SetBool(Tag::OPTIONAL_INSTALL, true);
    Walk(ClosingPages(), 2);
    EXPECT_TRUE(HasMovedTo(3));
    EXPECT_EQ(ends, 0);
    EXPECT_TRUE(controller.Next({}));
    EXPECT_EQ(ends, 1);
    EXPECT_TRUE(HasMovedTo(4));
}

TEST_F(ControllerTest, EndsAfterTheQuestionForARestart) {
    Settings().SetBool(Tag::OPTIONAL_INSTALL, true);
    Settings().SetBool(Tag::REBOOT, true);
    Walk(ClosingPages(), 3);
    EXPECT_TRUE(HasMovedTo(4));
    EXPECT_EQ(ends, 0);
    EXPECT_TRUE(controller.Next({}));
    EXPECT_EQ(ends, 1);
}

TEST_F(ControllerTest, AsksForTheRestartOfTheCoreRunAfterTheOptionalOneOnly) {
    Settings().SetBool(Tag::OPTIONAL_INSTALL, true);
    Settings().SetBool(Tag::REBOOT, true);
    Walk(ClosingPages(), 1);
    EXPECT_TRUE(HasMovedTo(1));
    EXPECT_TRUE(controller.Next({}));
    EXPECT_FALSE(controller.CurrentPage()->hidden);
    EXPECT_TRUE(HasMovedTo(3));
}

TEST_F(ControllerTest, ShowsThePageOfARestartFromTheNextLookAtTheTagsOn) {
    Walk(ClosingPages(), 1);
    Settings().SetBool(Tag::REBOOT, true);
    EXPECT_TRUE(controller.Next({}));
    EXPECT_TRUE(HasMovedTo(3));
    controller.UpdateHideFlags();
    EXPECT_TRUE(controller.Next({}));
    EXPECT_EQ(ends, 0);
}

TEST_F(ControllerTest, GoesOnFromAPageWhoseServiceHasFailed) {
    Walk(PagesAroundAFailure(L"Failing"), 1);
    EXPECT_TRUE(HasMovedTo(2));
    EXPECT_TRUE(IsWindowVisible(controller.CurrentPage()->GetSafeHwnd()));
    EXPECT_EQ(ends, 0);
}

TEST_F(ControllerTest, GoesOnFromAPageByNameWhoseServiceHasFailed) {
    Walk(PagesAroundAFailure(L"Failing"), 0);
    EXPECT_TRUE(controller.GoToSpecifiedDlg(L"Failing", {}));
    EXPECT_TRUE(HasMovedTo(2));
    EXPECT_EQ(ends, 0);
}

TEST_F(ControllerTest, EndsWhereTheServiceOfAHiddenPageFails) {
    std::vector<ChainRow> rows = PagesAroundAFailure(L"Failing");
    rows[1].hiddenAtFirst = true;
    Walk(std::move(rows), 1);
    EXPECT_FALSE(HasMovedTo(2));
    EXPECT_EQ(ends, 1);
}

TEST_F(ControllerTest, EndsASilentRunThatHasFailedWithoutARestart) {
    Walk(PagesAroundAFailure(L"Failing"), 0, true);
    EXPECT_TRUE(HasMovedTo(1));
    EXPECT_FALSE(HasMovedTo(2));
    EXPECT_EQ(restarts, 0);
}

TEST_F(ControllerTest, LeadsBackToAPageThatIsHidden) {
    Walk({Page(PageRole::Ordinary), Page(PageRole::Ordinary, true), Page(PageRole::Ordinary)}, 1);
    EXPECT_TRUE(controller.Back({}));
    EXPECT_TRUE(controller.CurrentPage()->hidden);
    EXPECT_TRUE(IsWindowVisible(controller.CurrentPage()->GetSafeHwnd()));
}

TEST_F(ControllerTest, StaysOnTheFirstPageWhereItLeadsBackFromThere) {
    Walk({Page(PageRole::Ordinary), Page(PageRole::Ordinary)}, 0);
    const InstallDialogEx* const first = controller.CurrentPage();
    EXPECT_TRUE(controller.Back({}));
    EXPECT_EQ(controller.CurrentPage(), first);
    EXPECT_TRUE(IsWindowVisible(first->GetSafeHwnd()));
    EXPECT_EQ(ends, 0);
}

TEST_F(ControllerTest, RunsTheServiceOfAHiddenPageThatItGoesToByName) {
    Walk(PagesWithServices(), 0);
    controller.CurrentPage()->dialogName = L"First";
    controller.CurrentPage()->hidden = true;
    notes.clear();
    EXPECT_TRUE(controller.GoToSpecifiedDlg(L"First", {}));
    EXPECT_THAT(notes, ElementsAre("run 0", "run 1"));
}

TEST_F(ControllerTest, AsksAboutTheOptionalSoftwareWhereCoreSoftwareIsSelectedToo) {
    Walk({Page(PageRole::Ordinary)}, 0);
    EXPECT_EQ(Question(), L"plain");
    Settings().SetBool(Tag::OPTIONAL_INSTALL, true);
    EXPECT_EQ(Question(), L"plain");
    coreSoftwareSelected = true;
    EXPECT_EQ(Question(), L"optional");
}

TEST_F(ControllerTest, PassesAServiceOverThatIsDisabled) {
    std::vector<ChainRow> rows = PagesWithServices();
    rows[1].makeService = [this](InstallDialogEx&) {
        auto service = std::make_unique<NotingService>(notes, 1);
        service->disabled = true;
        return service;
    };
    Walk(std::move(rows), 2);
    EXPECT_THAT(notes, ElementsAre("run 2"));
}

TEST_F(ControllerTest, CancelsTheServicesUpToItsPageFromTheLastOn) {
    Walk(PagesWithServices(), 2);
    notes.clear();
    EXPECT_TRUE(controller.Cancel(true));
    EXPECT_THAT(notes, ElementsAre("cancel 2", "cancel 1", "cancel 0"));
}

TEST_F(ControllerTest, EndsWithoutAQuestionFromAFinishPage) {
    Walk(ClosingPages(), 1);
    EXPECT_FALSE(controller.Cancel(false));
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(restarts, 0);
}

TEST_F(ControllerTest, AsksNothingOnceTheRunIsOverThatThePageShows) {
    Walk({Page(PageRole::Ordinary), Page(PageRole::Progress), Page(PageRole::CoreFinish)}, 1);
    EXPECT_FALSE(controller.Cancel(false));
    EXPECT_EQ(Settings().GetString(Tag::INSTALL_STATUS), L"");
    EXPECT_EQ(ends, 0);
}

TEST_F(ControllerTest, AsksNothingOnAFinishPageWhereTheCancelIsForced) {
    Walk(ClosingPages(), 1);
    EXPECT_TRUE(controller.Cancel(true));
    EXPECT_EQ(Settings().GetString(Tag::INSTALL_STATUS), L"CANCELED");
    EXPECT_THAT(Document(), testing::HasSubstr(L"<SHOW_REGISTRATION>0</SHOW_REGISTRATION>"));
    EXPECT_EQ(ends, 1);
}

TEST_F(ControllerTest, LeavesTheEndToTheThreadOfTheWindows) {
    Walk({Page(PageRole::Ordinary)}, 0);
    std::thread([this] { EXPECT_TRUE(controller.Finish(false)); }).join();
    EXPECT_EQ(ends, 0);
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, window.GetSafeHwnd(), finishForWorker, finishForWorker, PM_REMOVE));
    controller.FinishForWorker(false);
    controller.FinishForWorker(false);
    EXPECT_EQ(ends, 1);
}

TEST_F(ControllerTest, EndsAfterTheLastOfItsThreads) {
    Walk({Page(PageRole::Ordinary)}, 0);
    std::atomic<bool> isOver = false;
    controller.UpdateThreadCount(true);
    std::thread worker([&] {
        EXPECT_TRUE(WaitUntil(
            [&] { return testing::Value(BasicMessages(), Contains(L"Installation is Finished")); }));
        isOver = true;
        controller.UpdateThreadCount(false);
    });
    EXPECT_TRUE(controller.Finish(false));
    EXPECT_TRUE(isOver);
    worker.join();
}

TEST_F(ControllerTest, EndsOnceHoweverOftenItIsTold) {
    Walk({Page(PageRole::Ordinary)}, 0);
    EXPECT_TRUE(controller.Finish(false));
    EXPECT_TRUE(controller.Finish(false));
    EXPECT_EQ(ends, 1);
}

TEST_F(ControllerTest, KeepsTheFocusOutOfPagesThatAreNotShown) {
    Walk(ClosingPages(), 0);
    const HWND first = controller.CurrentPage()->GetSafeHwnd();
    EXPECT_TRUE(IsChild(first, GetFocus()));
    EXPECT_TRUE(controller.Next({}));
    EXPECT_FALSE(IsWindowEnabled(first));
    EXPECT_TRUE(IsChild(controller.CurrentPage()->GetSafeHwnd(), GetFocus()));
    SetFocus(GetDlgItem(first, IDOK));
    EXPECT_FALSE(IsChild(first, GetFocus()));
}

using NoProgramTest = SettingsWorld;

TEST_F(NoProgramTest, IsNotCancelledWithoutAWindow) {
    EXPECT_FALSE(controller.Cancel(true));
    TestApp app;
    EXPECT_FALSE(controller.Cancel(true));
    EXPECT_EQ(Settings().GetString(Tag::INSTALL_STATUS), L"");
}

}  // namespace
