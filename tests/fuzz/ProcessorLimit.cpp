// Ends a fuzzer at an input that takes too long of the processor. The fuzzer's own bound goes by the clock,
// which goes on while other work has the processor. What the fuzzer calls comes here first (-wrap).

#include <sys/time.h>

#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

// NOLINTBEGIN(readability-identifier-naming, bugprone-reserved-identifier): the linker's names
extern "C" int __real_LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" int __wrap_LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr int mostSeconds = 10;

void Limit(int seconds) {
    const itimerval limit{.it_interval = {}, .it_value = {.tv_sec = seconds, .tv_usec = 0}};
    setitimer(ITIMER_PROF, &limit, nullptr);
}

}  // namespace

int __wrap_LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The fuzzer keeps the input at which it is aborted.
    static const auto former = std::signal(SIGPROF, [](int) { std::abort(); });
    static_cast<void>(former);
    Limit(mostSeconds);
    const int result = __real_LLVMFuzzerTestOneInput(data, size);
    Limit(0);
    return result;
}
// NOLINTEND(readability-identifier-naming, bugprone-reserved-identifier)
