// A folder of a test, gone at its end.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

class TemporaryFolder {
public:
    TemporaryFolder() {
        std::random_device random;
        do {
            root = std::filesystem::temp_directory_path() / ("PackageCheck" + std::to_string(random()));
        } while (!std::filesystem::create_directory(root));
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code lost;
        std::filesystem::remove_all(root, lost);
    }

    std::string Path() const { return root.string(); }

    void Write(const std::string& path, const std::string& bytes) const {
        std::filesystem::create_directories((root / path).parent_path());
        std::ofstream(root / path, std::ios::binary) << bytes;
    }

    std::string Read(const std::string& path) const {
        std::ifstream file(root / path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    std::filesystem::path root;
};
