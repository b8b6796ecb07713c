// The order of the rows of the device list.
#pragma once

#include <string>

// What a column is sorted by: the text of a row's cell, and whether the system reads it as an address.
struct SortedCell {
    std::wstring text;
    bool isAddress = false;
};

// Compares two cells for the item sort of a list view: below 0 if the first goes in front. Addresses and
// port names go by their numbers, other texts by code unit.
// By design: equal texts return -1, never 0.
int CompareCells(const SortedCell& first, const SortedCell& second, bool ascending);
