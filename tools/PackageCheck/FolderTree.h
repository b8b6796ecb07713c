// A package in a folder of this machine.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "tools/PackageCheck/PackageTree.h"

namespace packagecheck {

class FolderTree : public PackageTree {
public:
    explicit FolderTree(std::filesystem::path folder) : root(std::move(folder)) {}

    // Follows no links to folders, and leaves out what it cannot look into.
    std::vector<TreeFile> List() const override;
    std::optional<std::string> Read(const std::string& path, std::size_t most) const override;
    MsiReading ReadMsi(const std::string& path) const override;

    // The path on this machine of a file of the package.
    std::filesystem::path PathOf(const std::string& path) const;

private:
    std::filesystem::path root;
};

}  // namespace packagecheck
