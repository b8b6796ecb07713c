// A run over a package that a seed makes up, with faults that the seed deals, and what is expected of every
// such run. Each is numbered within its kind, and so is a test by itself.
#pragma once

#include <optional>
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
    // Lets the library do something else on the way, such as to ask, for one package.
    void DealStep(const std::string& fault, const ScriptStep& step);
    // Takes all faults of the packages back.
    void HealPackages();

    // Where a run begins: what it adds to the logs, and what was installed before it.
    void BeginRun();
    // What the run has left so far.
    RunTraces Traces() const;
    // Expects of a run that came to its end what RunJudge does, and whole logs.
    void ExpectGoodEnd(const RunTraces& run) const;
    // Expects whole logs, but for the places at which runs were broken off.
    void ExpectWholeLogs() const;
    // Expects that nothing of the program is left: no process, no lock, no folder of a tool.
    void ExpectNothingLeft() const;
    // Expects that a run without faults comes to its end and has installed what is planned for it.
    void ExpectNextRunWorks(const std::wstring& arguments);
    // Waits for the end of the program, and answers what it asks on the way. False if it does not end.
    bool WaitForEndAnswering(const std::function<bool()>& stop = {});
    // Answers a box or a question about files, if there is one.
    void AnswerAny(const WizardDriver& driver);

    // Ends the program as a task manager does, and remembers where the logs end.
    void BreakOff();
    // Takes some of the last bytes of a log away, as when the power fails while they are written.
    void CutPower();

    std::set<std::wstring> InstalledProducts() const;
    std::wstring PathOfLog(LogForm form) const;
    std::string BytesOfLog(LogForm form) const;
    std::vector<LibraryCall> CallsOfRun() const;

    GeneratedPackage package;
    std::set<std::wstring> planned;
    bool logsTakeRecords = true;
    bool isCancelled = false;

private:
    void CutLog(LogForm form);

    std::string kind;
    std::set<std::string> dealt;
    std::map<std::wstring, DealtCodes> codes;
    std::size_t callsBefore = 0;
    std::map<LogForm, std::size_t> logsBefore;
    std::map<LogForm, std::vector<std::size_t>> cuts;
    std::set<std::wstring> installedBefore;
};
