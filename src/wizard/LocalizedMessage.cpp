#include "wizard/LocalizedMessage.h"

#include <string>

#include "settings/Localizer.h"

namespace {

std::wstring TextOf(std::wstring_view key) {
    return key.empty() ? std::wstring() : Localizer::GetInstance().GetString(key);
}

}  // namespace

int ShowLocalizedMessage(HWND owner, std::wstring_view textKey, std::wstring_view titleKey, UINT style) {
    const UINT direction = IsRightToLeft() ? MB_RIGHT | MB_RTLREADING : 0;
    return MessageBoxW(owner, TextOf(textKey).c_str(), TextOf(titleKey).c_str(), style | direction);
}
