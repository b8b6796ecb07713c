#include "wizard/LocalizedMessage.h"

#include <string>

namespace {

std::wstring TextOf(const Localizer& localizer, std::wstring_view key) {
    return key.empty() ? std::wstring() : localizer.GetString(key);
}

}  // namespace

int ShowLocalizedMessage(const Localizer& localizer, HWND owner, std::wstring_view textKey,
                         std::wstring_view titleKey, UINT style) {
    const UINT direction = IsRightToLeft(localizer) ? MB_RIGHT | MB_RTLREADING : 0;
    return MessageBoxW(owner, TextOf(localizer, textKey).c_str(), TextOf(localizer, titleKey).c_str(),
                       style | direction);
}
