#include "wizard/LocalizedMessage.h"

#include <string>

#include "framework/KeptFocus.h"

namespace {

std::wstring TextOf(const Localizer& localizer, TextId key) {
    return key.empty() ? std::wstring() : localizer.GetString(key);
}

}  // namespace

int ShowLocalizedMessage(const Localizer& localizer, HWND owner, TextId textKey, TextId titleKey,
                         UINT style) {
    const KeptFocus kept;
    const UINT direction = IsRightToLeft(localizer) ? MB_RIGHT | MB_RTLREADING : 0;
    return MessageBoxW(owner, TextOf(localizer, textKey).c_str(), TextOf(localizer, titleKey).c_str(),
                       style | direction);
}
