// The language files and the languages that they serve.
#pragma once

#include <string>
#include <string_view>

// Returns the code of the language file for a Windows language: "en" for every language without a file of its
// own. The primary id is the low 10 bits of the language identifier; the identifier is the full 16 bits.
// May run on any thread.
std::wstring MapLanguage(unsigned primaryId, unsigned languageId);

// Returns the name, without a folder, of the language file for a code.
std::wstring LanguageFileName(std::wstring_view code);
