// The order of the rows of the device list.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

// What a column is sorted by: the text of a row's cell, which must outlive this, and whether the system reads
// it as an address.
struct SortedCell {
    std::wstring_view text;
    bool isAddress = false;
};

// Compares two cells: above 0 if the second goes in front. Addresses and port names go by their numbers,
// other texts by code unit. By design: equal texts return -1, never 0.
int CompareCells(const SortedCell& first, const SortedCell& second, bool ascending);

// Sorts the numbers of rows by the cell that each row has; rows of which neither goes in front stay in the
// order in which they come.
void SortRows(std::vector<std::size_t>& rows, const std::vector<SortedCell>& cells, bool ascending);
