#include "settings/TagDocument.h"
#include "tests/fuzz/FuzzInput.h"
#include "tests/unit/ReferenceForms.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t mostForRegex = 96;  // The expression takes the cube of this.
    const auto document = PartsOf(data, size, 1).front();
    const auto names = TagDocument::ListElementNames(document);
    if (size <= mostForRegex) Require(names == ElementNamesByRegex(document));
    return 0;
}
