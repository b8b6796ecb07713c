// The texts that the wizard asks the language files for, and the pages that show them.
#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace packagecheck {

// The controls with access keys that one page or dialog shows at a time.
struct PageTexts {
    std::string_view page;
    std::vector<std::wstring_view> keys;
};

const std::vector<PageTexts>& TextsByPage();

// The keys of all texts, those without a page among them.
std::span<const std::wstring_view> TextKeys();

bool IsTextKey(std::wstring_view key);

// True for a text that no page of the package shows: of the variant AMAZON_SUPPORTED, or of any.
bool CanBeMissing(std::wstring_view key, bool isVariant);

}  // namespace packagecheck
