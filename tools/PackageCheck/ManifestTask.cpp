#include "tools/PackageCheck/ManifestTask.h"

#include <fstream>
#include <string_view>
#include <system_error>

#include "tools/PackageCheck/ManifestData.h"
#include "tools/PackageCheck/Manifests.h"
#include "tools/ShownText.h"

namespace packagecheck {

namespace {

constexpr std::string_view winget = "winget";
constexpr std::string_view chocolatey = "chocolatey";
constexpr std::string_view intune = "intune";

// Makes a file, and never takes one that is there.
bool MakeFile(const std::filesystem::path& path, const std::string& bytes) {
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    if (std::filesystem::exists(std::filesystem::symlink_status(path, error))) return false;
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    return static_cast<bool>(file);
}

void Tell(std::ostream& out, std::string_view heading, const std::vector<std::string>& lines) {
    if (lines.empty()) return;
    out << heading << "\n";
    for (const std::string& line : lines) out << "  " << ShownText(line) << "\n";
}

}  // namespace

bool IsManifestKind(std::string_view kind) {
    return kind == winget || kind == chocolatey || kind == intune;
}

Manifest MakeManifest(std::string_view kind, const ManifestData& data) {
    if (kind == winget) return WingetManifest(data);
    return kind == chocolatey ? ChocolateyManifest(data) : IntuneManifest(data);
}

bool WriteManifest(const std::string& kind, const Package& package, const std::filesystem::path& folder,
                   std::ostream& out, std::string& complaint) {
    const ManifestData data = CollectManifestData(package);
    const Manifest manifest = MakeManifest(kind, data);
    for (const ManifestFile& file : manifest.files) {
        std::error_code error;
        if (!std::filesystem::exists(std::filesystem::symlink_status(folder / file.path, error))) continue;
        complaint = file.path + " is in that folder already, and nothing was written.";
        return false;
    }
    for (const ManifestFile& file : manifest.files) {
        if (!MakeFile(folder / file.path, file.bytes)) {
            complaint = file.path + " cannot be written.";
            return false;
        }
        out << file.path << "\n";
    }
    Tell(out, "To be filled in:", manifest.placeholders);
    Tell(out, "To know:", data.notes);
    return true;
}

}  // namespace packagecheck
