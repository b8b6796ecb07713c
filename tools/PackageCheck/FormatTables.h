// The names in the data of a package as tables of the documentation.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace packagecheck {

struct FormatTable {
    std::string_view name;
    std::string text;  // in Markdown
};

std::vector<FormatTable> FormatTables();

// Returns the table between comments that name it, by which its place in a page is known.
std::string MarkedTable(const FormatTable& table);

}  // namespace packagecheck
