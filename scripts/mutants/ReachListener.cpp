#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "scripts/mutants/MutantSwitch.h"

namespace {

// Writes a line for each test that passed: its name, its milliseconds and the mutants that it came to. The
// first line, of no test, has those that every run comes to.
class ReachListener : public testing::EmptyTestEventListener {
public:
    explicit ReachListener(const char* path) : lines(path) {}

    void OnTestProgramStart(const testing::UnitTest&) override { Write("", 0); }

    void OnTestEnd(const testing::TestInfo& test) override {
        if (test.result()->Failed()) return;
        Write(std::string(test.test_suite_name()) + '.' + test.name(), test.result()->elapsed_time());
    }

private:
    void Write(const std::string& name, long long milliseconds) {
        lines << name << '\t' << milliseconds << '\t';
        for (int number = 0; number < mostMutants; ++number) {
            if (reachedMutants[number].exchange(false)) lines << number << ' ';
        }
        lines << std::endl;
    }

    std::ofstream lines;
};

const bool listens = [] {
    const char* path = std::getenv("KESTRUNE_REACHED");
    if (path != nullptr) testing::UnitTest::GetInstance()->listeners().Append(new ReachListener(path));
    return path != nullptr;
}();

}  // namespace
