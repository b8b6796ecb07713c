// Silent runs with faults: each product is installed and reported or removed and reported, and the next run
// works.

#include <cstdlib>
#include <fstream>

#include "tests/wizard/endurance/EnduranceTest.h"

namespace {

// What comes from outside the package: files that somebody holds, and an end that nobody expects.
struct Mishap {
    std::string fault;
    // In the tree, of a file that nobody can open meanwhile.
    std::wstring heldFile;
    // The run is broken off after so many calls of the library, or at such a length of its log.
    std::size_t calls = 0;
    std::uintmax_t logSize = 0;
};

class SilentEnduranceTest : public EnduranceTest {
protected:
    SilentEnduranceTest() : EnduranceTest("silent") {}

    void SetUp() override {
        EnduranceTest::SetUp();
        if (IsSkipped()) return;
        const bool takesAddress = package.Toss();
        package.AddPackages();
        package.SetSettings(Element(L"SILENT_INSTALL", L"true") +
                            (takesAddress ? std::wstring() : Element(L"HIDE_DISCOVERY", L"true")));
        if (takesAddress) {
            package.options.printer = {.address = L"192.0.2.7", .portName = L"Desk"};
            arguments = L"-ip=192.0.2.7 -p=Desk";
        }
    }

    Mishap DealMishap() {
        switch (package.Pick(7)) {
            case 0:
                return DealEnd("killed");
            case 1:
                return DealEnd("power-cut");
            case 2:
                return {.fault = "locked-log", .heldFile = PathOfLog(LogForm::Basic)};
            case 3:
                return {.fault = "locked-settings",
                        .heldFile = (tree.Root() / (package.Toss() ? L"Setup\\defaultInstallSettings.xml"
                                                                   : L"Setup\\res\\en_strings.xml"))
                                        .wstring()};
            case 4:
                if (std::getenv("KESTRUNE_ENDURANCE_FILE_LIMIT") != nullptr) return {.fault = "full-disk"};
                return {};
            default:
                return {};
        }
    }

    Mishap DealEnd(const char* fault) {
        if (package.Toss()) return {.fault = fault, .calls = 1 + package.Pick(40)};
        return {.fault = fault, .logSize = 1 + package.Pick(20000)};
    }

    bool HasCome(const Mishap& mishap) const {
        if (mishap.calls > 0) return CallsOfRun().size() >= mishap.calls;
        return mishap.logSize > 0 && SizeOfLog(LogForm::Advanced) >= mishap.logSize;
    }

    // False for a run that was broken off.
    bool RunWith(const Mishap& mishap) {
        const FileHandle held(mishap.heldFile.empty()
                                  ? INVALID_HANDLE_VALUE
                                  : CreateFileW(mishap.heldFile.c_str(), GENERIC_READ, 0, nullptr,
                                                OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        wizard.Start(arguments);
        const bool ended = WaitForEndAnswering([&] {
            LetGoOnOnceSeenAlive();
            return HasCome(mishap);
        });
        EXPECT_TRUE(ended) << "the run does not end";
        return ended && !wizard.IsRunning();
    }

    std::wstring arguments;
};

TEST_P(SilentEnduranceTest, EndsWellAndSoDoesTheNextRun) {
    DealCodes();
    DealStepsOfTheLibrary();
    const Mishap mishap = DealMishap();
    if (!mishap.fault.empty()) Deal(mishap.fault);
    BeginRun();
    if (mishap.fault == "full-disk") FillDisk();
    logsTakeRecords = mishap.fault != "locked-log" && mishap.fault != "full-disk";
    const bool began = mishap.fault != "locked-settings";
    if (!RunWith(mishap)) {
        BreakOff();
        if (mishap.fault == "power-cut") CutPower();
    } else if (began || !Installs().empty()) {
        ExpectGoodEnd(Traces());
    }
    if (mishap.fault == "full-disk") MakeRoom();
    ExpectWholeLogs();
    ExpectNothingLeft();
    ExpectNextRunWorks(arguments);
}

INSTANTIATE_TEST_SUITE_P(Endurance, SilentEnduranceTest, testing::Range(1U, 1U + EnduranceCount("SILENT", 3)),
                         testing::PrintToStringParamName());

}  // namespace
