// Wide text as UTF-8 and back, as documents and reports hold it. For any thread.
#pragma once

#include <string>
#include <string_view>

namespace rollout {

// Returns the text in UTF-8. Half of a pair of surrogates becomes a replacement character.
std::string ToUtf8(std::wstring_view text);

// Returns the text of UTF-8 bytes. What cannot be decoded becomes replacement characters.
std::wstring FromUtf8(std::string_view bytes);

}  // namespace rollout
