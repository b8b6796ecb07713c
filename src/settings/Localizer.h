// The texts on the screen, from the language file of the user.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "CommonLib/Singleton.h"

// The language is settled when the instance is made. Any thread may ask for texts.
class Localizer {
public:
    static Localizer& GetInstance();
    static void DestroyInstance();

    // The text of a key as it reads with the settings of this moment; empty for a key that the file lacks.
    std::wstring GetString(std::wstring_view key) const;

    // The name of the language file for a system language, which the option "lang" overrules.
    static std::wstring GetXmlFileName(std::uint16_t languageId);

private:
    friend class Singleton<Localizer>;
    Localizer();

    std::wstring text;
};

// The code of the system's language. The option "lang" plays no part in it.
std::wstring GetLanguageCode();

// Whether the texts read from right to left.
bool IsRightToLeft();

// Whether the user's own language is Arabic or Hebrew, whatever the texts are.
bool IsRightToLeftLocale();
