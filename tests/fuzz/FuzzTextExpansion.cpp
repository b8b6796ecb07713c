#include "settings/TextExpansion.h"
#include "tests/fuzz/FuzzInput.h"
#include "tests/unit/ReferenceForms.h"

namespace {

void CheckAccessKeys(const std::wstring& value) {
    int surplus = 0;
    int expectedSurplus = 0;
    const auto expected = ReduceBySearch(value, expectedSurplus);
    Require(ReduceAccessKeys(value, surplus) == expected);
    Require(surplus == expectedSurplus);
}

void CheckTags(const std::wstring& value, const std::wstring& valueOfA, const std::wstring& valueOfB) {
    const auto expansion = ExpandTags(value, [&](std::wstring_view name) {
        if (name == L"A") return valueOfA;
        return name == L"B" ? valueOfB : std::wstring();
    });
    auto expected = value;
    // The plain form gives up early, so that only what it ends counts.
    if (ExpandBySearch(expected, {{L"A", valueOfA}, {L"B", valueOfB}})) {
        Require(!expansion.endless && expansion.text == expected);
    } else if (expansion.endless) {
        Require(expansion.text == value);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto parts = PartsOf(data, size, 3);
    CheckAccessKeys(parts[0]);
    CheckTags(parts[0], parts[1], parts[2]);
    Require(MarkNumberLeftToRight(parts[0]).size() <= parts[0].size() + 1);
    // Regular expressions are slow, and take a text's length from the stack.
    constexpr std::size_t longest = 200;
    if (parts[0].size() < longest) {
        Require(FormatWithArgument(parts[0], parts[1]) == FormatByRegex(parts[0], parts[1]));
    }
    return 0;
}
