// A language that nobody speaks, made from the English texts of the sample: each text is nearly half as long
// again, its letters carry accents, and it stands in brackets, so that a text of no language file shows.
#pragma once

#include <string>
#include <string_view>

// Turns the bytes of a language file into those of the language file of this language. Keys, access keys,
// settings in a text and what the program itself reads stay as they are.
std::string PseudoLanguage(std::string_view english);
