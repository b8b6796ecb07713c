#include "tests/wizard/endurance/EnduranceTest.h"

#include <tlhelp32.h>

#include <array>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iostream>
#include <iterator>

#include "CommonLib/Files.h"
#include "CommonLib/SingleInstance.h"
#include "CommonLib/Utf8.h"
#include "resources/resource.h"
#include "tests/fakes/TextLines.h"
#include "tests/wizard/endurance/LogJudge.h"

namespace {

namespace fs = std::filesystem;

constexpr std::array bothLogs = {LogForm::Basic, LogForm::Advanced};
constexpr wchar_t logLock[] = L"ZVINSTALLLOG";

std::optional<unsigned long> Wanted(const std::string& name) {
    const char* const text = std::getenv(("KESTRUNE_ENDURANCE_" + name).c_str());
    return text == nullptr ? std::nullopt : std::optional(std::strtoul(text, nullptr, 10));
}

// Each kind and each number has packages and faults of its own.
unsigned SeedOf(const std::string& kind, unsigned number) {
    constexpr unsigned long usualSeed = 1;
    std::seed_seq sequence{static_cast<unsigned>(Wanted("SEED").value_or(usualSeed)),
                           static_cast<unsigned>(kind.back()), number};
    std::array<unsigned, 1> seed{};
    sequence.generate(seed.begin(), seed.end());
    return seed.front();
}

bool IsTimeUp() {
    const auto end = Wanted("END");
    return end && static_cast<unsigned long>(std::time(nullptr)) > *end;
}

std::wstring FileOf(const TestPackage& package) {
    return fs::path(package.path).filename().wstring();
}

bool IsProcessLeft(const wchar_t* name) {
    const KernelHandle processes(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry{.dwSize = sizeof(PROCESSENTRY32W)};
    for (BOOL found = Process32FirstW(processes.get(), &entry); found != FALSE;
         found = Process32NextW(processes.get(), &entry)) {
        if (std::wstring_view(entry.szExeFile) == name) return true;
    }
    return false;
}

bool IsMutexLeft(const wchar_t* name) {
    return static_cast<bool>(KernelHandle(OpenMutexW(SYNCHRONIZE, FALSE, name)));
}

// The lock may exist, since this program writes records as well.
bool IsLockHeld(const wchar_t* name) {
    const KernelHandle lock(OpenMutexW(MUTEX_ALL_ACCESS, FALSE, name));
    if (!lock) return false;
    const DWORD result = WaitForSingleObject(lock.get(), 0);
    if (result != WAIT_TIMEOUT) ReleaseMutex(lock.get());
    return result == WAIT_TIMEOUT;
}

bool IsFileHeld(const std::wstring& path) {
    return fs::exists(path) && !FileHandle(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                                       OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

void Click(HWND button) {
    if (button != nullptr) PostMessageW(button, BM_CLICK, 0, 0);
}

}  // namespace

unsigned EnduranceCount(const char* kind, unsigned usual) {
    return static_cast<unsigned>(Wanted(kind).value_or(usual));
}

EnduranceTest::EnduranceTest(const char* runKind)
    : package(tree, SeedOf(runKind, GetParam())), kind(runKind) {}

void EnduranceTest::SetUp() {
    NetworkPageTest::SetUp();
    if (IsTimeUp()) GTEST_SKIP() << "the time is up";
}

void EnduranceTest::TearDown() {
    if (Wanted("SEED") && !IsSkipped()) {
        std::cout << "[ DEALT    ] " << kind << ' ' << GetParam() << ':';
        for (const std::string& fault : dealt) std::cout << ' ' << fault;
        std::cout << std::endl;
    }
    NetworkPageTest::TearDown();
}

void EnduranceTest::Deal(const std::string& fault) {
    dealt.insert(fault);
}

void EnduranceTest::DealCodes() {
    static constexpr std::array<std::uint32_t, 14> installCodes = {3010, 1641, 1602, 1603, 1618, 112,  50,
                                                                   1247, 1622, 1623, 1625, 1640, 3010, 1641};
    static constexpr std::array<std::uint32_t, 4> removalCodes = {1603, 1605, 1618, 3010};
    const std::size_t rarity = 2 + package.Pick(6);
    const bool failsRemovals = package.Pick(4) == 0;
    for (const TestPackage& one : std::vector<TestPackage>(tree.Packages())) {
        DealtCodes& dealtCodes = codes[FileOf(one)];
        if (package.Pick(rarity) == 0)
            dealtCodes.install = installCodes.at(package.Pick(installCodes.size()));
        if (failsRemovals && package.Toss())
            dealtCodes.removal = removalCodes.at(package.Pick(removalCodes.size()));
        if (dealtCodes.install == 3010 || dealtCodes.install == 1641) Deal("restart");
        if (dealtCodes.install != 0) Deal("code");
        if (dealtCodes.removal != 0) Deal("removal-code");
        ScriptedCall install = one.install;
        install.code = dealtCodes.install;
        tree.SetCalls(FileOf(one), install, {.steps = {}, .code = dealtCodes.removal});
    }
}

void EnduranceTest::DealStep(const std::string& fault, const ScriptStep& step) {
    Deal(fault);
    const TestPackage one = tree.Packages().at(package.Pick(tree.Packages().size()));
    ScriptedCall install = one.install;
    install.steps.push_back(step);
    tree.SetCalls(FileOf(one), install, one.uninstall);
}

void EnduranceTest::HealPackages() {
    codes.clear();
    for (const TestPackage& one : std::vector<TestPackage>(tree.Packages()))
        tree.SetCalls(FileOf(one), {}, {});
}

std::set<std::wstring> EnduranceTest::InstalledProducts() const {
    std::set<std::wstring> products;
    for (const TestPackage& one : tree.Packages()) {
        const auto kept = ReadLines((tree.ProgramFolder() / (FileOf(one) + L".kept")).wstring());
        const bool installed =
            kept.empty() ? !one.states.empty() && one.states.front().installed : kept.back().front() == L"1";
        if (installed) products.insert(FileOf(one));
    }
    return products;
}

std::wstring EnduranceTest::PathOfLog(LogForm form) const {
    return LogFolder() + (form == LogForm::Basic ? L"Basic.log" : L"Advanced.log");
}

std::string EnduranceTest::BytesOfLog(LogForm form) const {
    std::ifstream file(fs::path(PathOfLog(form)), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<LibraryCall> EnduranceTest::CallsOfRun() const {
    std::vector<LibraryCall> calls = Calls();
    calls.erase(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(callsBefore));
    return calls;
}

void EnduranceTest::BeginRun() {
    callsBefore = Calls().size();
    for (const LogForm form : bothLogs) logsBefore[form] = BytesOfLog(form).size();
    installedBefore = InstalledProducts();
    isCancelled = false;
}

RunTraces EnduranceTest::Traces() const {
    return {.calls = CallsOfRun(),
            .codes = codes,
            .installedBefore = installedBefore,
            .installedAfter = InstalledProducts(),
            .basicLog = BytesOfLog(LogForm::Basic).substr(logsBefore.at(LogForm::Basic)),
            .advancedLog = BytesOfLog(LogForm::Advanced).substr(logsBefore.at(LogForm::Advanced)),
            .logsTakeRecords = logsTakeRecords,
            .isCancelled = isCancelled};
}

void EnduranceTest::ExpectGoodEnd(const RunTraces& run) const {
    for (const std::string& fault : FaultsOf(run)) ADD_FAILURE() << fault;
    EXPECT_EQ(wizard.ExitCode(), 0U);
}

void EnduranceTest::ExpectWholeLogs() const {
    for (const LogForm form : bothLogs) {
        const auto known = cuts.find(form);
        const std::vector<std::size_t> none;
        for (const std::string& damage :
             DamageIn(BytesOfLog(form), form, known == cuts.end() ? none : known->second)) {
            ADD_FAILURE() << (form == LogForm::Basic ? "Basic.log " : "Advanced.log ") << damage;
        }
    }
}

void EnduranceTest::ExpectNothingLeft() const {
    EXPECT_TRUE(WaitUntil([] { return !IsProcessLeft(L"Kestrune.exe"); })) << "a process is left";
    EXPECT_TRUE(WaitUntil([] { return !IsMutexLeft(singleInstanceName); })) << "a mutex is left";
    EXPECT_TRUE(WaitUntil([] { return !IsLockHeld(logLock); })) << "the lock of the logs is held";
    for (const LogForm form : bothLogs) {
        EXPECT_TRUE(WaitUntil([&] { return !IsFileHeld(PathOfLog(form)); })) << "a log is held";
    }
    for (const wchar_t* const kit : {L"ArdentisKit", L"TolvaneKit"})
        EXPECT_FALSE(fs::exists(GetTemporaryFolder() + kit)) << "the folder of a tool is left";
}

bool EnduranceTest::WaitForEndAnswering(const std::function<bool()>& stop) {
    return WaitUntil(
        [&] {
            if (!wizard.IsRunning() || (stop && stop())) return true;
            AnswerAny(wizard);
            return false;
        },
        2 * patience);
}

void EnduranceTest::AnswerAny(const WizardDriver& driver) {
    if (const auto box = driver.FindBox()) {
        for (const int button : {IDOK, IDYES, IDCANCEL}) Click(GetDlgItem(box->window, button));
    } else if (driver.FindControl(IDC_FILES_IN_USE_APPLICATIONS) != nullptr) {
        Click(driver.FindControl(package.Toss() ? IDC_FILES_IN_USE_RETRY : IDCANCEL));
    } else if (driver.FindControl(IDC_CLOSABLE_FILES_APPLICATIONS) != nullptr) {
        Click(driver.FindControl(package.Toss() ? IDOK : IDCANCEL));
    }
}

void EnduranceTest::ExpectNextRunWorks(const std::wstring& arguments) {
    HealPackages();
    BeginRun();
    logsTakeRecords = true;
    wizard.Start(arguments);
    ASSERT_TRUE(WaitForEndAnswering()) << "the next run does not end";
    const RunTraces run = Traces();
    ExpectGoodEnd(run);
    ExpectWholeLogs();
    ExpectNothingLeft();
    for (const std::wstring& file : planned)
        EXPECT_TRUE(run.installedAfter.contains(file)) << ToUtf8(file) << " is not installed by the next run";
}

void EnduranceTest::BreakOff() {
    wizard.Kill();
    for (const LogForm form : bothLogs) cuts[form].push_back(BytesOfLog(form).size());
}

void EnduranceTest::CutPower() {
    for (const LogForm form : bothLogs) {
        if (package.Pick(3) != 0) CutLog(form);
    }
}

void EnduranceTest::CutLog(LogForm form) {
    const std::size_t size = BytesOfLog(form).size();
    const std::size_t added = size - logsBefore.at(form);
    if (added == 0) return;
    const std::size_t rest = size - 1 - package.Pick(std::min<std::size_t>(added, 160));
    fs::resize_file(fs::path(PathOfLog(form)), rest);
    cuts[form].push_back(rest);
}
