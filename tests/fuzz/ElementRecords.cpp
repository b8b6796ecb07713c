#include <algorithm>

#include "tests/fuzz/Records.h"

// Documents of elements, as many as null bytes divide. An element's head is its name; text is cut behind each
// sign that ends an entry of a list or a line.

namespace {

constexpr int deepest = 8;

std::string OpenTag(const std::string& name) {
    return '<' + name + '>';
}

std::string CloseTag(const std::string& name) {
    return "</" + name + '>';
}

void AppendTexts(std::string_view text, std::vector<Record>& records) {
    while (!text.empty()) {
        const std::size_t size = std::min(text.find_first_of(";\n"), text.size() - 1) + 1;
        records.push_back({.body = std::string(text.substr(0, size))});
        text.remove_prefix(size);
    }
}

std::vector<Record> ReadElements(std::string_view text, int depth) {
    std::vector<Record> records;
    std::size_t read = 0;
    for (std::size_t open = text.find('<'); open < text.size(); open = text.find('<', open)) {
        const std::size_t after = std::min(text.find('>', open), text.size() - 1) + 1;
        const std::string name(text.substr(open + 1, std::max(after, open + 2) - open - 2));
        const std::size_t close = text.find(CloseTag(name), after);
        if (name.empty() || depth == deepest || close == std::string_view::npos) {
            ++open;
            continue;
        }
        AppendTexts(text.substr(read, open - read), records);
        records.push_back(
            {.head = name, .parts = ReadElements(text.substr(after, close - after), depth + 1)});
        read = open = close + CloseTag(name).size();
    }
    AppendTexts(text.substr(read), records);
    return records;
}

std::string WriteElement(const Record& record) {
    std::string bytes = record.body;
    for (const Record& part : record.parts) bytes += WriteElement(part);
    return record.head.empty() ? bytes : OpenTag(record.head) + bytes + CloseTag(record.head);
}

}  // namespace

Record ReadRecords(std::string_view input) {
    Record whole;
    for (std::size_t start = 0; start <= input.size();) {
        const std::size_t end = std::min(input.find('\0', start), input.size());
        whole.parts.push_back({.parts = ReadElements(input.substr(start, end - start), 0)});
        start = end + 1;
    }
    return whole;
}

std::string WriteRecords(const Record& whole) {
    std::string bytes;
    for (const Record& part : whole.parts) {
        if (&part != &whole.parts.front()) bytes += '\0';
        bytes += WriteElement(part);
    }
    return bytes;
}
