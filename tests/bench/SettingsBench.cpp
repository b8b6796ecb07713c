#include <benchmark/benchmark.h>

#include <cstring>

#include "settings/SettingsMerge.h"
#include "settings/TagDocument.h"

namespace {

constexpr std::size_t megabyte = 1'000'000;

std::int64_t BytesOf(const std::wstring& text) {
    return static_cast<std::int64_t>(text.size() * sizeof(wchar_t));
}

std::wstring NameOf(std::int64_t number) {
    return L"SETTING_NAME_" + std::to_wstring(number);
}

std::wstring Settings(std::int64_t count) {
    std::wstring document;
    for (std::int64_t i = 0; i < count; ++i) {
        document += TagDocument::MakeElement(NameOf(i), L"a value of a few words") + L'\n';
    }
    return document;
}

// Reads the last of the given number of tags.
void FindsAValue(benchmark::State& state) {
    const auto document = Settings(state.range(0));
    const auto name = NameOf(state.range(0) - 1);
    std::wstring value;
    for (auto _ : state) benchmark::DoNotOptimize(TagDocument::FindValue(document, name, value));
    state.SetBytesProcessed(state.iterations() * BytesOf(document));
}
BENCHMARK(FindsAValue)->Arg(10)->Arg(100)->Arg(1000);

void MissesAValue(benchmark::State& state) {
    const auto document = Settings(state.range(0));
    std::wstring value;
    for (auto _ : state) benchmark::DoNotOptimize(TagDocument::FindValue(document, L"SETTING_UNSET", value));
    state.SetBytesProcessed(state.iterations() * BytesOf(document));
}
BENCHMARK(MissesAValue)->Arg(1000);

// The measure for the two above: the C library's search for the same open tag in the same bytes.
void FindsByMemmem(benchmark::State& state) {
    const auto document = Settings(state.range(0));
    const auto tag = L'<' + NameOf(state.range(0) - 1) + L'>';
    for (auto _ : state) {
        benchmark::DoNotOptimize(memmem(document.data(), document.size() * sizeof(wchar_t), tag.data(),
                                        tag.size() * sizeof(wchar_t)));
    }
    state.SetBytesProcessed(state.iterations() * BytesOf(document));
}
BENCHMARK(FindsByMemmem)->Arg(10)->Arg(100)->Arg(1000);

void ListNames(benchmark::State& state, const std::wstring& document) {
    for (auto _ : state) benchmark::DoNotOptimize(TagDocument::ListElementNames(document));
    state.SetBytesProcessed(state.iterations() * BytesOf(document));
}

// Texts of a million bytes, whatever a character takes.
template <typename Piece>
std::wstring MegabyteOf(const Piece& piece) {
    std::wstring document;
    for (std::int64_t i = 0; document.size() * sizeof(wchar_t) < megabyte; ++i) document += piece(i);
    return document;
}

void ListsATypicalMegabyte(benchmark::State& state) {
    ListNames(state, MegabyteOf([](auto i) {
                  return TagDocument::MakeElement(NameOf(i), L"a value of a few words") + L'\n';
              }));
}
BENCHMARK(ListsATypicalMegabyte);

void ListsAMegabyteInOneLine(benchmark::State& state) {
    ListNames(state, MegabyteOf([](auto i) {
                  return TagDocument::MakeElement(NameOf(i), TagDocument::MakeElement(L"INNER", L"a value"));
              }));
}
BENCHMARK(ListsAMegabyteInOneLine);

void ListsAHundredThousandTagsThatNeverClose(benchmark::State& state) {
    std::wstring document;
    for (int i = 0; i < 100'000; ++i) document += L'<' + NameOf(i) + L'>';
    ListNames(state, document + L"</OTHER>");
}
BENCHMARK(ListsAHundredThousandTagsThatNeverClose);

void ListsAMegabyteOfOpenSigns(benchmark::State& state) {
    ListNames(state, MegabyteOf([](auto) { return L"<"; }) + L"a>b</a>");
}
BENCHMARK(ListsAMegabyteOfOpenSigns);

void ListsAMegabyteOfCloseSigns(benchmark::State& state) {
    ListNames(state, MegabyteOf([](auto) { return L"</"; }) + L"a>b</b>");
}
BENCHMARK(ListsAMegabyteOfCloseSigns);

void MergesDevices(benchmark::State& state) {
    const auto defaults = Settings(100);
    std::wstring incoming;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        const auto number = std::to_wstring(i);
        incoming += L"<DEVICE><DRIVER_ID>PS</DRIVER_ID><PRINTER_NAME>Hall " + number +
                    L"</PRINTER_NAME><PORT_NAME>IP_" + number + L"</PORT_NAME></DEVICE>\n";
    }
    for (auto _ : state) {
        auto document = defaults;
        std::wstring record;
        MergeDocument(document, record, incoming);
        benchmark::DoNotOptimize(document);
    }
}
BENCHMARK(MergesDevices)->Arg(10)->Arg(100)->Arg(1000)->Arg(10'000)->Unit(benchmark::kMillisecond);

// A settings file with that many elements of different names.
void MergesManySettings(benchmark::State& state) {
    const auto settings = Settings(state.range(0));
    for (auto _ : state) {
        auto document = settings;
        std::wstring record;
        MergeDocument(document, record, settings);
        benchmark::DoNotOptimize(document);
    }
}
BENCHMARK(MergesManySettings)->Arg(500)->Arg(2'000)->Arg(8'000)->Arg(32'000)->Unit(benchmark::kMillisecond);

}  // namespace
