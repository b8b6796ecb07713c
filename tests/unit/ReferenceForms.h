// The operations as plainly as they can be put, without a thought for speed, and texts to compare them on.
#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// The names of all matches of <(.+?)>(.+?)</\1>, found by std::wregex.
std::vector<std::wstring> ElementNamesByRegex(const std::wstring& document);

// The merge, written with one search of the text per operation.
void MergeBySearch(std::wstring& document, std::wstring& mergedRecord, std::wstring incoming);

// The reduction of access keys; surplus is how many were found after the first.
std::wstring ReduceBySearch(std::wstring value, int& surplus);

// The expansion, written with one search of the text per replacement; gives up after some hundred of them.
bool ExpandBySearch(std::wstring& text, const std::vector<std::pair<std::wstring, std::wstring>>& tags);

// The text with its argument, by std::wregex.
std::wstring FormatByRegex(const std::wstring& text, const std::wstring& argument);

// Makes texts out of pieces that provoke matches, broken matches and overlaps.
class TextMaker {
public:
    TextMaker(std::vector<std::wstring> textPieces, unsigned seed);

    std::wstring Make(std::size_t mostPieces);

private:
    std::vector<std::wstring> pieces;
    std::mt19937 random;
};

// Single characters of a small alphabet.
std::vector<std::wstring> Letters(std::wstring_view alphabet);
