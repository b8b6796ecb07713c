#include "tests/windows/world/SampleLanguages.h"

#include <algorithm>
#include <filesystem>

#include "CommonLib/Files.h"
#include "tests/windows/world/ScratchFolder.h"

namespace {

constexpr char fileEnd[] = "_strings.xml";

std::filesystem::path TextsFolder() {
    return std::filesystem::path(GetExeDirectory()) / L".." / L".." / L".." / L"strings";
}

}  // namespace

std::vector<std::string> SampleLanguages() {
    std::vector<std::string> languages;
    for (const auto& file : std::filesystem::directory_iterator(TextsFolder())) {
        const std::string name = file.path().filename().string();
        if (name.ends_with(fileEnd)) languages.push_back(name.substr(0, name.size() + 1 - sizeof(fileEnd)));
    }
    std::ranges::sort(languages);
    return languages;
}

std::string SampleTexts(const std::string& language) {
    return ReadBytes(TextsFolder() / (language + fileEnd));
}

std::string SampleLicence(const std::string& language) {
    return ReadBytes(TextsFolder() / ("EULA_" + language + ".txt"));
}
