// Two copies that are started in the same instant: one of them runs, the other one says why it does not.

#include "tests/wizard/endurance/EnduranceTest.h"
#include "tests/wizard/endurance/LogJudge.h"

namespace {

class TwiceEnduranceTest : public EnduranceTest {
protected:
    TwiceEnduranceTest() : EnduranceTest("twice") {}

    void SetUp() override {
        EnduranceTest::SetUp();
        if (IsSkipped()) return;
        // Installs nothing before it is settled who runs, so that no copy comes after the end of the other.
        tree.Add({.path = L"Applications\\!first.msi",
                  .keeps = true,
                  .install = {.steps = {{L"untilFile", Gate(L"go on")}}}});
        if (package.Toss()) package.AddPackages();
        package.SetSettings(Settings::silent);
    }

    std::size_t CountInLog(std::wstring_view text) const { return CountIn(BytesOfLog(LogForm::Basic), text); }
    std::size_t CopiesThatRun() const { return CountInLog(L"  Installing Applications\r\n"); }
    std::size_t CopiesRefused() const { return CountInLog(L"  There is another instance"); }

    void StartBoth() {
        wizard.StartHeld();
        second.StartHeld();
        WizardDriver& first = package.Toss() ? wizard : second;
        first.LetGo();
        (&first == &wizard ? second : wizard).LetGo();
    }

    WizardDriver second{tree.ProgramFolder() / L"Kestrune.exe"};
};

TEST_P(TwiceEnduranceTest, OneOfThemRuns) {
    BeginRun();
    StartBoth();
    EXPECT_TRUE(WaitUntil([this] { return CopiesThatRun() > 0 && CopiesThatRun() + CopiesRefused() == 2; }))
        << CopiesThatRun() << " run and " << CopiesRefused() << " are refused";
    Open(Gate(L"go on"));
    EXPECT_TRUE(WaitUntil([this] {
        AnswerAny(wizard);
        AnswerAny(second);
        return !wizard.IsRunning() && !second.IsRunning();
    })) << "a copy does not end";
    EXPECT_EQ(CopiesThatRun(), 1U);
    ExpectGoodEnd(Traces());
    ExpectWholeLogs();
    ExpectNothingLeft();
}

INSTANTIATE_TEST_SUITE_P(Endurance, TwiceEnduranceTest, testing::Range(1U, 1U + EnduranceCount("TWICE", 2)),
                         testing::PrintToStringParamName());

}  // namespace
