#include "settings/SettingsMerge.h"
#include "tests/fuzz/FuzzInput.h"
#include "tests/unit/ReferenceForms.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t mostForRegex = 160;
    const auto parts = PartsOf(data, size, 3);
    auto document = parts[0];
    auto record = parts[1];
    MergeDocument(document, record, parts[2]);
    if (size > mostForRegex) return 0;
    auto expected = parts[0];
    auto expectedRecord = parts[1];
    MergeBySearch(expected, expectedRecord, parts[2]);
    Require(document == expected && record == expectedRecord);
    return 0;
}
