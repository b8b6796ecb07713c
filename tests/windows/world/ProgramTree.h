// The package tree around the test program.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// What a test puts into the tree goes at the end of this object's life; the folder of the program itself, its
// Setup\x64, stays as it is.
class ProgramTree {
public:
    ProgramTree() { Clear(); }
    ProgramTree(const ProgramTree&) = delete;
    ProgramTree& operator=(const ProgramTree&) = delete;
    ~ProgramTree() { Clear(); }

    // The root of the tree, two levels above the program.
    static std::filesystem::path Root();
    // A path as the program writes it, for one from the root.
    static std::wstring AsWritten(const std::wstring& path);

    // Makes a file of the tree.
    void Add(const std::wstring& path, std::string_view bytes = {}) const;

private:
    static void Clear();
};
