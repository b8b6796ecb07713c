// The files of a package.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tools/PackageCheck/MsiContents.h"

namespace packagecheck {

struct TreeFile {
    std::string path;  // from the root, with "/", as it is spelt, in UTF-8
};

// What is read of a package.
struct MsiReading {
    std::optional<MsiContents> contents;
    std::string error;  // why there is nothing
};

// Where the files come from.
class PackageTree {
public:
    PackageTree() = default;
    PackageTree(const PackageTree&) = delete;
    PackageTree& operator=(const PackageTree&) = delete;
    virtual ~PackageTree() = default;

    // All files, in no order.
    virtual std::vector<TreeFile> List() const = 0;

    // Returns at most so many bytes from the start of a listed file, or nothing where it cannot be read.
    virtual std::optional<std::string> Read(const std::string& path, std::size_t most) const = 0;

    virtual MsiReading ReadMsi(const std::string& path) const = 0;
};

// Returns the text with the capitals of ASCII as small letters.
std::string Folded(std::string_view text);

// Returns what follows the last "/".
std::string_view FileNameOf(std::string_view path);

// The files by name and by folder, in any case of letters, as Windows finds them.
class FileTable {
public:
    explicit FileTable(std::vector<TreeFile> files);

    // The file of that path, or null.
    const TreeFile* Find(std::string_view path) const;

    // The files straight in a folder, by name, whose name has that ending (".msi"); all for an empty one.
    std::vector<const TreeFile*> In(std::string_view folder, std::string_view ending = {}) const;

    // By path.
    const std::vector<TreeFile>& All() const { return table; }

private:
    std::vector<TreeFile> table;
    std::unordered_map<std::string, std::size_t> byPath;
    std::unordered_map<std::string, std::vector<std::size_t>> byFolder;
};

}  // namespace packagecheck
