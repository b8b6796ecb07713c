// A run over a package that a seed makes up, with faults that the seed deals, and what is expected of every
// such run. Each is numbered within its kind, and so is a test by itself.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>

#include "tests/wizard/GeneratedPackage.h"
#include "tests/wizard/NetworkPageTest.h"
#include "tests/wizard/endurance/RunJudge.h"

// How many runs of the kind the environment asks for by KESTRUNE_ENDURANCE_ and the kind; so many where it
// does not.
unsigned EnduranceCount(const char* kind, unsigned usual);

class EnduranceTest : public NetworkPageTest, public testing::WithParamInterface<unsigned> {
protected:
    explicit EnduranceTest(const char* runKind);
    void SetUp() override;
    void TearDown() override;

    // Notes a fault for the table at the end.
    void Deal(const std::string& fault);
    bool WasDealt(const std::string& fault) const { return dealt.contains(fault); }
    // Lets the library return other codes than 0 for some packages.
    void DealCodes();
    // Lets the library ask, be slow or hang on the way.
    void DealStepsOfTheLibrary();
    // Once the library hangs, expects the program to answer, and lets the library go on.
    void LetGoOnOnceSeenAlive();
    // Takes all faults of the packages back.
    void HealPackages();

    // Where a run begins: what it adds to the logs, what was installed before it, and the folders of tools.
    void BeginRun();
    // What the run has left so far.
    RunTraces Traces() const;
    // Expects of what a run has done so far what RunJudge does, or of all of it, and that no folder of a tool
    // is left.
    void ExpectGoodRun(const RunTraces& run) const;
    void ExpectGoodEnd(const RunTraces& run) const;
    // Expects whole logs, but for the places at which runs were broken off.
    void ExpectWholeLogs() const;
    // Expects that nothing of the program is left: no process, no lock, no file that somebody holds.
    void ExpectNothingLeft() const;
    // Expects that a run without faults comes to its end and has installed what is planned for it.
    void ExpectNextRunWorks(const std::wstring& arguments);
    // Waits for the end of the program, and answers what it asks on the way. False if it does not end.
    bool WaitForEndAnswering(const std::function<bool()>& stop = {});
    // Answers a box or a question about files, if there is one.
    void AnswerAny(const WizardDriver& driver);
    // Clicks what is there and enabled.
    static void Click(HWND button);

    // Ends the program as a task manager does, and remembers where the logs end.
    void BreakOff();
    // Takes some of the last bytes of a log away, as when the power fails while they are written.
    void CutPower();
    // Leaves room for few bytes more in the logs, and takes that back.
    void FillDisk();
    void MakeRoom();

    std::set<std::wstring> InstalledProducts() const;
    // What a run without faults installs now, by the plan for the package.
    std::set<std::wstring> PlannedProducts();
    std::wstring PathOfLog(LogForm form) const;
    std::size_t SizeOfLog(LogForm form) const;
    std::string BytesOfLog(LogForm form) const;
    // What the run has added so far.
    std::string AddedTo(LogForm form) const;
    std::vector<LibraryCall> CallsOfRun() const;

    GeneratedPackage package;
    bool logsTakeRecords = true;
    bool isCancelled = false;
    bool isOptional = false;

private:
    // Adds a step for one package; returns its file.
    std::wstring DealStep(const std::string& fault, const ScriptStep& step);
    void AnswerBox(const MessageBoxOnScreen& box);
    std::filesystem::path KeptFile(const TestPackage& one) const;
    void CutLog(LogForm form);

    std::string kind;
    std::set<std::string> dealt;
    std::map<std::wstring, DealtCodes> codes;
    std::size_t callsBefore = 0;
    std::map<LogForm, std::size_t> logsBefore;
    std::map<LogForm, std::vector<std::size_t>> cuts;
    std::map<LogForm, std::size_t> fillings;
    std::set<std::wstring> installedBefore;
    std::wstring hanging;
};
