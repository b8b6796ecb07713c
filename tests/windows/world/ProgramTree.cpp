#include "tests/windows/world/ProgramTree.h"

#include <vector>

#include "CommonLib/Files.h"
#include "tests/windows/world/ScratchFolder.h"

namespace fs = std::filesystem;

namespace {

void RemoveAllBut(const fs::path& folder, const fs::path& kept) {
    std::vector<fs::path> entries;
    for (const auto& entry : fs::directory_iterator(folder)) entries.push_back(entry.path());
    for (const fs::path& entry : entries) {
        if (entry.filename() != kept) fs::remove_all(entry);
    }
}

}  // namespace

fs::path ProgramTree::Root() {
    return fs::path(GetExeDirectory()).parent_path().parent_path();
}

std::wstring ProgramTree::AsWritten(const std::wstring& path) {
    return GetExeDirectory() + L"\\..\\..\\" + path;
}

void ProgramTree::Add(const std::wstring& path, std::string_view bytes) const {
    WriteBytes(Root() / path, bytes);
}

void ProgramTree::Clear() {
    RemoveAllBut(Root(), L"Setup");
    RemoveAllBut(Root() / L"Setup", L"x64");
}
