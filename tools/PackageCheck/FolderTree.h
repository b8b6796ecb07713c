// A package in a folder of this machine.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tools/PackageCheck/PackageTree.h"

namespace packagecheck {

// Returns the path that a text in UTF-8 names.
std::filesystem::path PathOf(const std::string& text);

class FolderTree : public PackageTree {
public:
    explicit FolderTree(std::filesystem::path folder) : root(std::move(folder)) {}

    // Follows no links to folders, and leaves out what it cannot look into.
    std::vector<TreeFile> List() const override;
    std::optional<std::string> Read(const std::string& path, std::size_t most) const override;
    MsiReading ReadMsi(const std::string& path) const override;

    // Replaces a file by one of these bytes, as a whole or not at all. Returns false where it cannot be
    // written.
    bool Write(const std::string& path, const std::string& bytes) const;

    // The path on this machine of a file of the package.
    std::filesystem::path PathOf(const std::string& path) const;

private:
    std::filesystem::path root;
};

}  // namespace packagecheck
