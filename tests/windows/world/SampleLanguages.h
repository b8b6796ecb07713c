// The languages that the sample package speaks, with its own files.
#pragma once

#include <string>
#include <vector>

// The codes of the language files, in the order of the alphabet.
std::vector<std::string> SampleLanguages();

// The bytes of a language's file.
std::string SampleTexts(const std::string& language);

// The licence text of a language, in UTF-8.
std::string SampleLicence(const std::string& language);
