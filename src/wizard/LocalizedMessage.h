// Message boxes in the user's language.
#pragma once

#include <windows.h>

#include <string_view>

#include "settings/Localizer.h"
#include "settings/TextKeys.h"

// Shows the texts of the keys; an empty key stands for an empty text. In a language that reads from right to
// left the box does so too. The owner may be null. Returns the box's answer.
int ShowLocalizedMessage(const Localizer& localizer, HWND owner, TextId textKey, TextId titleKey,
                         UINT style = 0);
