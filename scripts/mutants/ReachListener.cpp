#include <gtest/gtest.h>

#include <ctime>
#include <fstream>
#include <string>

#include "scripts/mutants/MutantSwitch.h"

namespace {

// Writes a line for each test that passed: its name, its milliseconds and the mutants that it came to. The
// first line, of no test, has those that every run comes to. The milliseconds are those of the processor,
// which a machine with other work does not make more; Windows has only those of the clock.
class ReachListener : public testing::EmptyTestEventListener {
public:
    explicit ReachListener(const char* path) : lines(path) {}

    void OnTestProgramStart(const testing::UnitTest&) override { Write("", 0); }

    void OnTestStart(const testing::TestInfo&) override { began = std::clock(); }

    void OnTestEnd(const testing::TestInfo& test) override {
        if (test.result()->Failed()) return;
        const std::clock_t taken = std::clock() - began;
        Write(std::string(test.test_suite_name()) + '.' + test.name(), taken * 1000LL / CLOCKS_PER_SEC);
    }

private:
    void Write(const std::string& name, long long milliseconds) {
        lines << name << '\t' << milliseconds << '\t';
        for (int number = 0; number < mostMutants; ++number) {
            if (ReachedMutants()[number].exchange(false)) lines << number << ' ';
        }
        lines << std::endl;
    }

    std::ofstream lines;
    std::clock_t began = 0;
};

const bool listens = [] {
    const char* path = std::getenv("KESTRUNE_REACHED");
    if (path != nullptr) testing::UnitTest::GetInstance()->listeners().Append(new ReachListener(path));
    return path != nullptr;
}();

}  // namespace
