// Asks the library of the package, by a copy of this program: a library that hangs or crashes then takes no
// other program along than that copy.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

#include "framework/Handles.h"
#include "tools/Rollout/Inquiry.h"
#include "tools/Rollout/Options.h"
#include "tools/Rollout/ProcessTree.h"
#include "tools/Rollout/StopSignal.h"

namespace rollout {

// One thread asks. The copy ends with the object.
class Inquirer {
public:
    // The copy is given the switches of the wizard that the options hold.
    explicit Inquirer(const Options& options);
    Inquirer(const Inquirer&) = delete;
    Inquirer& operator=(const Inquirer&) = delete;
    ~Inquirer();

    void Send(std::string_view question);

    // The next answer that the function reads from a line, if it is there or comes within the limit and
    // before the signal. Lines that it does not read are dropped.
    template <class Read>
    auto Take(Read read, std::chrono::milliseconds limit, const StopSignal* stop = nullptr)
        -> decltype(read(std::string_view())) {
        const auto end = std::chrono::steady_clock::now() + limit;
        while (const std::optional<std::string> line = TakeLine(end, stop)) {
            if (auto answer = read(*line)) return answer;
        }
        return std::nullopt;
    }

    template <class Read>
    auto Ask(std::string_view question, Read read, std::chrono::milliseconds limit,
             const StopSignal* stop = nullptr) {
        Send(question);
        return Take(read, limit, stop);
    }

    // Why an answer did not come, as a sentence: for those who read the console of a run.
    std::wstring WhyNoAnswer() const;

private:
    void Start(const Options& options);
    void ReadLines();
    std::optional<std::string> TakeLine(std::chrono::steady_clock::time_point end, const StopSignal* stop);

    KernelHandle input;
    KernelHandle output;
    std::optional<ProcessTree> copy;
    std::mutex lock;
    std::condition_variable change;
    std::deque<std::string> lines;
    bool ended = false;
    std::thread reader;
};

// How long the library may take to say what is installed.
inline constexpr std::chrono::seconds longestAnswer{60};

}  // namespace rollout
