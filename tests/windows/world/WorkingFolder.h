// The working directory of the process, for tests of what reads relative to it.
#pragma once

#include <filesystem>

// Moves the process there until the end of this object's life.
class WorkingFolder {
public:
    explicit WorkingFolder(const std::filesystem::path& folder) { std::filesystem::current_path(folder); }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;
    ~WorkingFolder() { std::filesystem::current_path(former); }

private:
    const std::filesystem::path former = std::filesystem::current_path();
};
