// Links between folders, as somebody plants them.
#pragma once

#include <filesystem>

// A link that leads to a folder; it goes with this object, and the folder stays.
class FolderLink {
public:
    // Throws std::runtime_error if no link can be made.
    FolderLink(std::filesystem::path path, const std::filesystem::path& folder);
    FolderLink(const FolderLink&) = delete;
    FolderLink& operator=(const FolderLink&) = delete;
    ~FolderLink();

private:
    std::filesystem::path link;
};
