// Walks with keys and mouse and with faults: each ends, each product is what the Finish page says of it, and
// nothing grows on the way.

#include "resources/resource.h"
#include "settings/TagDocument.h"
#include "tests/wizard/RealInput.h"
#include "tests/wizard/ShownPages.h"
#include "tests/wizard/ShownRunTest.h"
#include "tests/wizard/endurance/EnduranceTest.h"
#include "tests/wizard/endurance/ProcessCounts.h"

namespace {

constexpr std::size_t rounds = 8;
constexpr ProcessCounts growthOfAWalk{.handles = 16, .gdiObjects = 200, .bytes = 8U << 20};

class ShownEnduranceTest : public EnduranceTest {
protected:
    ShownEnduranceTest() : EnduranceTest("shown") {}

    void SetUp() override {
        EnduranceTest::SetUp();
        if (IsSkipped()) return;
        ParkMouse();
        AddFourDevices();
        package.AddPackages();
        package.SetSettings(package.PageSettings());
        ShowStatusOnFinishPage(tree);
        deedsLeft = package.Pick(6);
    }

    // Keys and clicks as somebody makes them who does not read. The last pages are left to their buttons: a
    // key there may restart the machine.
    void DoSomething() {
        static constexpr std::array<WORD, 8> keys = {VK_TAB,   VK_TAB,  VK_DOWN, VK_UP,
                                                     VK_SPACE, VK_LEFT, VK_F5,   VK_ESCAPE};
        static constexpr std::array controls = {IDCANCEL, IDOK, IDC_DISCOVERY_LIST, IDC_MANUFACTURER_LIST,
                                                IDC_LICENCE_TEXT};
        if (package.Toss()) {
            Deal("keys");
            PressKeys({keys.at(package.Pick(keys.size()))});
        } else if (const HWND control = wizard.FindControl(controls.at(package.Pick(controls.size())))) {
            Deal("mouse");
            MoveMouse(MiddleOf(control));
            HoldMouse(MiddleOf(control));
            ReleaseMouse();
        }
    }

    // The same again and again leaves no more behind each time. What a page is drawn with is made at first.
    void ExpectNoGrowthOnPage() {
        std::vector<ProcessCounts> counts;
        for (std::size_t round = 0; round < rounds; ++round) {
            wizard.CloseMainWindow();
            wizard.Answer(IDNO);
            wizard.Settle();
            if (round > 1) counts.push_back(CountOf(wizard.Process()));
        }
        EXPECT_EQ(GrowthIn(counts), "");
        atFirst = counts.back();
    }

    // Pages that are shown bring fonts and pictures, and no more than these.
    void ExpectLittleGrowth() const {
        const ProcessCounts atLast = CountOf(wizard.Process());
        for (const std::size_t count : {atLast.handles, atLast.gdiObjects, atLast.bytes})
            EXPECT_GT(count, 0U);
        EXPECT_EQ(GrowthBetween(atFirst, atLast, growthOfAWalk), "");
    }

    void ReadStatuses(RunTraces& run) const {
        const std::wstring header = WizardDriver::TextOf(wizard.FindControl(IDC_OUTCOME_TITLE));
        for (const std::wstring& name : TagDocument::ListElementNames(header)) {
            const std::wstring line = TagDocument::ValueOf(header, name);
            const std::wstring product = TagDocument::ValueOf(line, L"NAME");
            run.statuses[product.substr(product.find(L' ') + 1) + L".msi"] =
                std::stoi(TagDocument::ValueOf(line, L"STATUS"));
        }
        run.showsStatuses = true;
    }

    // Where the page of the progress is hidden, the walk goes on beside the installations. Where it is not,
    // their thread moves the walk.
    bool IsRunOver() const {
        std::wstring installer;
        std::wstring mover;
        for (const LogRecord& record : AdvancedLog()) {
            if (record.message == L"Installing Applications") installer = record.threadId;
            if (record.message.starts_with(L"Controller::Next, Moving from")) mover = record.threadId;
        }
        return installer == mover;
    }

    // What was installed so far is judged here; what comes after it is the optional software.
    void JudgeFinishPage() {
        goesBeside = goesBeside || !IsRunOver();
        if (goesBeside) return;
        RunTraces run = Traces();
        ReadStatuses(run);
        ExpectGoodRun(run);
        if (hasGone) ExpectLittleGrowth();
        BeginRun();
        isOptional = true;
    }

    // One step of the walk. A page that stays although it was left, as one that wants something first, is
    // left again.
    void Step() {
        AnswerAny(wizard);
        // A key may have opened the dialog of the search, which only goes when it is told.
        if (wizard.FindControl(IDC_MODIFY_SEARCH_LOCAL) != nullptr) Click(wizard.FindControl(IDCANCEL));
        const PageOnScreen current = FindSettledPage(wizard);
        if (current.page == nullptr || wizard.FindBox() || current.page->title == L"Progress") return;
        const bool isNew = current.control != seen;
        seen = current.control;
        if (isNew && current.page->title == L"Finish") JudgeFinishPage();
        if (isNew && IsBeforeRun(current.page->title) && !hasGone) {
            hasGone = true;
            ExpectNoGrowthOnPage();
        }
        if (IsBeforeRun(current.page->title) && deedsLeft > 0) {
            --deedsLeft;
            wizard.BringToFront();
            DoSomething();
        } else if (isNew || package.Pick(4) == 0) {
            Leave(*current.page);
        }
    }

    // What is not ready to be clicked now is at the next step.
    void Leave(const KnownPage& page) {
        const HWND choice =
            wizard.FindControl(page.control == IDC_REBOOT_NOW ? IDC_REBOOT_LATER : page.control);
        if (page.control == IDC_REBOOT_NOW || page.control == IDC_BYPASS_REINSTALL) Click(choice);
        Click(wizard.FindControl(page.button));
    }

    bool Walk(const std::function<bool()>& stop = {}) {
        seen = nullptr;
        hasGone = false;
        goesBeside = false;
        isOptional = false;
        wizard.Start();
        return WaitUntil(
            [&] {
                Step();
                return !wizard.IsRunning() || (stop && stop());
            },
            3 * patience);
    }

    std::size_t deedsLeft = 0;
    bool hasGone = false;
    bool goesBeside = false;
    ProcessCounts atFirst;
    HWND seen = nullptr;
};

TEST_P(ShownEnduranceTest, EndsWellAndLeavesNothing) {
    DealCodes();
    DealStepsOfTheLibrary();
    BeginRun();
    const std::size_t end = package.Pick(6) == 0 ? 1 + package.Pick(40) : 0;
    ASSERT_TRUE(Walk([&] {
        LetGoOnOnceSeenAlive();
        return end > 0 && CallsOfRun().size() >= end;
    })) << "the walk does not end";
    if (wizard.IsRunning()) {
        Deal("killed");
        BreakOff();
        if (package.Toss()) {
            Deal("power-cut");
            CutPower();
        }
    } else {
        ExpectGoodEnd(Traces());
    }
    ExpectWholeLogs();
    ExpectNothingLeft();

    const ProcessCounts ofFirstWalk = atFirst;
    HealPackages();
    deedsLeft = 0;
    BeginRun();
    ASSERT_TRUE(Walk()) << "the next walk does not end";
    ExpectGoodEnd(Traces());
    ExpectWholeLogs();
    ExpectNothingLeft();
    if (ofFirstWalk.handles != 0) {
        EXPECT_EQ(GrowthBetween(ofFirstWalk, atFirst, growthOfAWalk), "");
    }
}

INSTANTIATE_TEST_SUITE_P(Endurance, ShownEnduranceTest, testing::Range(1U, 1U + EnduranceCount("SHOWN", 1)),
                         testing::PrintToStringParamName());

}  // namespace
