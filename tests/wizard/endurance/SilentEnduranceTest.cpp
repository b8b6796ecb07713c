// Silent runs with faults: each product is installed and reported or removed and reported, and the next run
// works.

#include "tests/wizard/endurance/EnduranceTest.h"

namespace {

class SilentEnduranceTest : public EnduranceTest {
protected:
    SilentEnduranceTest() : EnduranceTest("silent") {}

    void SetUp() override {
        EnduranceTest::SetUp();
        const bool takesAddress = package.Toss();
        package.AddPackages();
        package.SetSettings(Element(L"SILENT_INSTALL", L"true") +
                            (takesAddress ? std::wstring() : Element(L"HIDE_DISCOVERY", L"true")));
        if (takesAddress) {
            package.options.printer = {.address = L"192.0.2.7", .portName = L"Desk"};
            arguments = L"-ip=192.0.2.7 -p=Desk";
        }
        for (const auto& [file, document] : InstallationsOf(package.MakePlan().packages))
            planned.insert(file);
    }

    std::wstring arguments;
};

TEST_P(SilentEnduranceTest, EndsWellAndSoDoesTheNextRun) {
    DealCodes();
    BeginRun();
    wizard.Start(arguments);
    ASSERT_TRUE(WaitForEndAnswering()) << "the run does not end";
    ExpectGoodEnd(Traces());
    ExpectWholeLogs();
    ExpectNothingLeft();
    ExpectNextRunWorks(arguments);
}

INSTANTIATE_TEST_SUITE_P(Endurance, SilentEnduranceTest, testing::Range(1U, 1U + EnduranceCount("SILENT", 4)),
                         testing::PrintToStringParamName());

}  // namespace
