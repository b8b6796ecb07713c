// Manifests by which management engines know a package. Functions of their arguments, for any thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/PackageCheck/ManifestData.h"

namespace packagecheck {

struct ManifestFile {
    std::string path;  // from the folder of the manifests, with "/"
    std::string bytes;
};

struct Manifest {
    std::vector<ManifestFile> files;
    std::vector<std::string>
        placeholders;  // what is to be filled in, as "field of the file: what belongs there"
};

// Placeholders that have the form of what belongs there.
namespace Placeholder {

inline constexpr std::string_view download = "https://example.invalid/REPLACE-BY-DOWNLOAD-ADDRESS.zip";
inline constexpr std::string_view site = "https://example.invalid/REPLACE-BY-ADDRESS-OF-THE-SOFTWARE";
inline constexpr std::string_view licenceLink = "https://example.invalid/REPLACE-BY-ADDRESS-OF-THE-LICENCE";
inline constexpr std::string_view licence = "REPLACE-BY-NAME-OF-THE-LICENCE";
inline constexpr std::string_view hash = "0000000000000000000000000000000000000000000000000000000000000000";

}  // namespace Placeholder

// A manifest in several files of schema 1.6, for the package as a .zip file.
Manifest WingetManifest(const ManifestData& data);

// A package that downloads and unpacks the .zip file.
Manifest ChocolateyManifest(const ManifestData& data);

// The fields of a Win32 app, in JSON.
Manifest IntuneManifest(const ManifestData& data);

// Returns true for "winget", "chocolatey" and "intune".
bool IsManifestKind(std::string_view kind);

Manifest MakeManifest(std::string_view kind, const ManifestData& data);

}  // namespace packagecheck
