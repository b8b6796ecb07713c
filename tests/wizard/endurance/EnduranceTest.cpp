#include "tests/wizard/endurance/EnduranceTest.h"

#include <tlhelp32.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iostream>

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
// The folders into which tools are unpacked.
constexpr std::array kits = {L"ArdentisKit", L"TolvaneKit"};

std::optional<unsigned long> Wanted(const std::string& name) {
    const char* const text = std::getenv(("KESTRUNE_ENDURANCE_" + name).c_str());
    return text == nullptr ? std::nullopt : std::optional(std::strtoul(text, nullptr, 10));
}

// Each kind and each number has packages and faults of its own.
unsigned SeedOf(const std::string& kind, unsigned number) {
    constexpr unsigned long usualSeed = 11;
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
    if (!IsSkipped() && !Removals().empty()) Deal("roll-back");
    if (Wanted("SEED") && !IsSkipped()) {
        std::cout << "[ DEALT    ] " << kind << ' ' << GetParam() << ':';
        for (const std::string& fault : dealt) std::cout << ' ' << fault;
        std::cout << '\n' << std::flush;
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
    const std::size_t rarity = 1 + package.Pick(4);
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

void EnduranceTest::DealStepsOfTheLibrary() {
    if (package.Pick(4) == 0) {
        DealStep("box", {L"message", package.Toss() ? L"<FILE_IN_USE>true</FILE_IN_USE>"
                                                    : L"<RM_FILE_IN_USE>true</RM_FILE_IN_USE>"});
    }
    if (package.Pick(4) == 0) DealStep("slow-library", {L"pause", std::to_wstring(50 * package.Pick(10))});
    if (package.Pick(4) == 0) hanging = DealStep("hanging-library", {L"untilFile", Gate(L"go on")});
}

// A library that hangs holds nobody but the thread that has called it.
void EnduranceTest::LetGoOnOnceSeenAlive() {
    const auto isCalled = [this](const LibraryCall& call) { return call.Package() == hanging; };
    if (hanging.empty() || !std::ranges::any_of(Calls(L"MsiInstallApp"), isCalled)) return;
    EXPECT_TRUE(wizard.Settle()) << "hangs with its library";
    Open(Gate(L"go on"));
    hanging.clear();
}

std::wstring EnduranceTest::DealStep(const std::string& fault, const ScriptStep& step) {
    Deal(fault);
    const TestPackage one = tree.Packages().at(package.Pick(tree.Packages().size()));
    ScriptedCall install = one.install;
    install.steps.push_back(step);
    tree.SetCalls(FileOf(one), install, one.uninstall);
    return FileOf(one);
}

void EnduranceTest::HealPackages() {
    codes.clear();
    for (const TestPackage& one : std::vector<TestPackage>(tree.Packages()))
        tree.SetCalls(FileOf(one), {}, {});
}

fs::path EnduranceTest::KeptFile(const TestPackage& one) const {
    return tree.ProgramFolder() / (FileOf(one) + L".kept");
}

std::set<std::wstring> EnduranceTest::InstalledProducts() const {
    std::set<std::wstring> products;
    for (const TestPackage& one : tree.Packages()) {
        const auto kept = ReadLines(KeptFile(one).wstring());
        const bool installed =
            kept.empty() ? !one.states.empty() && one.states.front().installed : kept.back().front() == L"1";
        if (installed) products.insert(FileOf(one));
    }
    return products;
}

// Of a package that the run finds as it was made up, its shape says what is installed.
std::set<std::wstring> EnduranceTest::PlannedProducts() {
    for (const TestPackage& one : tree.Packages()) {
        const auto kept = ReadLines(KeptFile(one).wstring());
        if (kept.empty()) continue;
        package.options.installed.Set(ToUtf8(FileOf(one)), kept.back().front() == L"1"
                                                               ? packagecheck::InstalledState::UpToDate
                                                               : packagecheck::InstalledState::NotInstalled);
    }
    std::set<std::wstring> planned;
    for (const auto& [file, document] : InstallationsOf(package.MakePlan().packages)) planned.insert(file);
    return planned;
}

std::wstring EnduranceTest::PathOfLog(LogForm form) const {
    return LogFolder() + (form == LogForm::Basic ? L"Basic.log" : L"Advanced.log");
}

std::size_t EnduranceTest::SizeOfLog(LogForm form) const {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(PathOfLog(form), error);
    return error ? 0 : static_cast<std::size_t>(size);
}

std::string EnduranceTest::BytesOfLog(LogForm form) const {
    std::string bytes(SizeOfLog(form), '\0');
    std::ifstream(fs::path(PathOfLog(form)), std::ios::binary)
        .read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

std::string EnduranceTest::AddedTo(LogForm form) const {
    const std::string bytes = BytesOfLog(form);
    return bytes.substr(std::min(bytes.size(), logsBefore.at(form)));
}

std::vector<LibraryCall> EnduranceTest::CallsOfRun() const {
    std::vector<LibraryCall> calls = Calls();
    calls.erase(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(callsBefore));
    return calls;
}

void EnduranceTest::BeginRun() {
    callsBefore = Calls().size();
    // Of a sign that was cut the program adds the other byte.
    for (const LogForm form : bothLogs) logsBefore[form] = (SizeOfLog(form) + 1) / 2 * 2;
    installedBefore = InstalledProducts();
    isCancelled = false;
    for (const wchar_t* const kit : kits) fs::create_directories(GetTemporaryFolder() + kit);
}

RunTraces EnduranceTest::Traces() const {
    return {.calls = CallsOfRun(),
            .codes = codes,
            .installedBefore = installedBefore,
            .installedAfter = InstalledProducts(),
            .basicLog = AddedTo(LogForm::Basic),
            .advancedLog = AddedTo(LogForm::Advanced),
            .logsTakeRecords = logsTakeRecords,
            .isCancelled = isCancelled,
            .isOptional = isOptional};
}

void EnduranceTest::ExpectGoodRun(const RunTraces& run) const {
    for (const std::string& fault : FaultsOf(run)) ADD_FAILURE() << fault;
}

void EnduranceTest::ExpectGoodEnd(const RunTraces& run) const {
    RunTraces ended = run;
    ended.hasEnded = true;
    ExpectGoodRun(ended);
    for (const wchar_t* const kit : kits)
        EXPECT_FALSE(fs::exists(GetTemporaryFolder() + kit)) << "the folder of a tool is left";
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
        AnswerBox(*box);
    } else if (driver.FindControl(IDC_FILES_IN_USE_APPLICATIONS) != nullptr) {
        Click(driver.FindControl(package.Toss() ? IDC_FILES_IN_USE_RETRY : IDCANCEL));
    } else if (driver.FindControl(IDC_CLOSABLE_FILES_APPLICATIONS) != nullptr) {
        Click(driver.FindControl(package.Toss() ? IDOK : IDCANCEL));
    }
}

void EnduranceTest::AnswerBox(const MessageBoxOnScreen& box) {
    const bool isQuestion = GetDlgItem(box.window, IDYES) != nullptr;
    const bool cancels = isQuestion && package.Pick(3) == 0;
    Click(GetDlgItem(box.window, isQuestion ? (cancels ? IDYES : IDNO) : IDOK));
    isCancelled = isCancelled || cancels;
    WaitUntil([&] { return IsWindow(box.window) == FALSE; });
}

void EnduranceTest::Click(HWND button) {
    if (button != nullptr && IsWindowEnabled(button) != FALSE) PostMessageW(button, BM_CLICK, 0, 0);
}

void EnduranceTest::ExpectNextRunWorks(const std::wstring& arguments) {
    HealPackages();
    const std::set<std::wstring> planned = PlannedProducts();
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
    for (const LogForm form : bothLogs) cuts[form].push_back(SizeOfLog(form));
}

void EnduranceTest::CutPower() {
    for (const LogForm form : bothLogs) {
        if (package.Pick(3) != 0) CutLog(form);
    }
}

void EnduranceTest::CutLog(LogForm form) {
    const std::size_t size = SizeOfLog(form);
    const std::size_t added = AddedTo(form).size();
    if (added == 0) return;
    const std::size_t rest = size - 1 - package.Pick(std::min<std::size_t>(added, 160));
    fs::resize_file(fs::path(PathOfLog(form)), rest);
    cuts[form].push_back(rest);
}

// The filling is not written, so it takes no room of the disk.
void EnduranceTest::FillDisk() {
    const std::size_t limit = Wanted("FILE_LIMIT").value_or(0);
    fs::create_directories(LogFolder());
    for (const LogForm form : bothLogs) {
        const std::size_t filling = limit - 2 * package.Pick(2000);
        std::ofstream(fs::path(PathOfLog(form)), std::ios::app).close();
        fs::resize_file(fs::path(PathOfLog(form)), filling);
        fillings[form] = filling;
    }
}

void EnduranceTest::MakeRoom() {
    for (const auto& [form, filling] : fillings) {
        const std::string written = BytesOfLog(form).substr(filling);
        std::ofstream(fs::path(PathOfLog(form)), std::ios::binary | std::ios::trunc) << written;
        cuts[form].push_back(written.size());
    }
}
