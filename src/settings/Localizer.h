// The texts on the screen, from the language file of the user.
#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>

#include "CommonLib/Singleton.h"
#include "settings/InstallSettings.h"
#include "settings/TextKeys.h"

// Where texts come from.
struct LanguageSource {
    // The identifier of the language of the user's system.
    std::uint16_t languageId = 0;
    // Returns the text of the language file of that name, or of the English one where it is missing.
    std::function<std::wstring(const std::wstring& fileName)> readFile;
};

// The language is settled at the first question for a text. Any thread may ask for texts; the option belongs
// to the start of the program, before that question.
class Localizer {
public:
    // The texts of the package around this program, for its user.
    static Localizer& GetInstance();
    static void DestroyInstance();

    // Texts name tags of these settings, which must outlive the object.
    Localizer(const InstallSettings& store, LanguageSource languageSource)
        : settings(store), source(std::move(languageSource)) {}

    // The code of the language whose texts are wanted; empty for the user's own.
    void SetLanguageOption(std::wstring code) { languageOption = std::move(code); }

    // The text of a key as it reads with the settings of this moment; empty for a key that the file lacks.
    std::wstring GetString(TextId key) const;

    // The name of the language file for a system language, which the option overrules.
    std::wstring GetXmlFileName(std::uint16_t languageId) const;

    // The code of the system's language. The option "lang" plays no part in it.
    std::wstring GetSystemLanguageCode() const;

private:
    friend class Singleton<Localizer>;
    Localizer();

    const InstallSettings& settings;
    LanguageSource source;
    std::wstring languageOption;
    mutable std::once_flag loaded;
    mutable std::wstring text;
};

// The language of this system, and the files of the package around this program.
LanguageSource SystemLanguageSource();

// The code of the language of the user's system.
std::wstring GetLanguageCode();

// Whether the texts read from right to left.
bool IsRightToLeft(const Localizer& localizer);

// Whether the user's own language is Arabic or Hebrew, whatever the texts are.
bool IsRightToLeftLocale();
