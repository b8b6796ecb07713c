#include <benchmark/benchmark.h>

#include "CommonLib/LogRecord.h"

namespace {

constexpr LogTime moment = {.year = 2026, .month = 3, .day = 1, .hour = 9, .minute = 5, .second = 7};
constexpr std::wstring_view message = L"Controller::Next, Moving from Progress Dialog to Finish Dialog";

void FormatsABasicRecord(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(FormatBasicRecord(L"SUCCESS", moment, message));
}
BENCHMARK(FormatsABasicRecord);

void FormatsAnAdvancedRecord(benchmark::State& state) {
    const LogOrigin origin = {.processId = 0x1A2C, .threadId = 0x2F0};
    for (auto _ : state) {
        benchmark::DoNotOptimize(FormatAdvancedRecord(L"SUCCESS", moment, origin, L"Kestrune", message));
    }
}
BENCHMARK(FormatsAnAdvancedRecord);

}  // namespace
