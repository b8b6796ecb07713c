#include "tools/PackageCheck/PackageTree.h"

#include <algorithm>
#include <utility>

namespace packagecheck {

std::string Folded(std::string_view text) {
    std::string folded(text);
    std::ranges::transform(folded, folded.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return folded;
}

std::string_view FileNameOf(std::string_view path) {
    return path.substr(path.rfind('/') + 1);
}

FileTable::FileTable(std::vector<TreeFile> files) : table(std::move(files)) {
    std::ranges::sort(table, {},
                      [](const TreeFile& file) { return std::pair(Folded(file.path), file.path); });
    for (std::size_t index = 0; index < table.size(); ++index) {
        const std::string path = Folded(table[index].path);
        const std::size_t slash = path.rfind('/');
        byFolder[slash == std::string::npos ? std::string() : path.substr(0, slash)].push_back(index);
        byPath.emplace(path, index);
    }
}

const TreeFile* FileTable::Find(std::string_view path) const {
    const auto found = byPath.find(Folded(path));
    return found == byPath.end() ? nullptr : &table[found->second];
}

std::vector<const TreeFile*> FileTable::In(std::string_view folder, std::string_view ending) const {
    std::vector<const TreeFile*> files;
    const auto found = byFolder.find(Folded(folder));
    if (found == byFolder.end()) return files;
    for (const std::size_t index : found->second) {
        if (Folded(table[index].path).ends_with(ending)) files.push_back(&table[index]);
    }
    return files;
}

}  // namespace packagecheck
