// A package with all that the checks look at, read once.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/MSI_APP.h"
#include "settings/InstallSettings.h"
#include "tools/PackageCheck/Finding.h"
#include "tools/PackageCheck/PackageTree.h"
#include "tools/PackageCheck/TagFile.h"

namespace packagecheck {

// Where the wizard looks for packages.
enum class PackageKind { Application, Common, Optional, Dependent, Driver, Tool, Beside, Elsewhere };

// An .msi file of the tree.
struct PackageFile {
    std::string path;
    PackageKind kind = PackageKind::Elsewhere;
    std::optional<MsiContents> contents;  // nothing where it cannot be read
    std::string error;
    MSI_APP record;  // as far as the file settles it

    const std::wstring& PropertyOf(std::wstring_view name) const;
    Place Whole() const { return {.file = path}; }
    // Of the packages that are installed, or may be.
    bool IsInCatalogue() const { return kind <= PackageKind::Driver; }
};

// A language file.
struct LanguageFile {
    std::wstring code;
    std::unique_ptr<TagFile> file;
};

// A printer that PackageUserSettings.xml describes.
struct Device {
    std::wstring_view document;  // a view into the file's text
    std::size_t start = 0;       // of the document in the file's text
};

// Whether the wizard takes what has this path for a package that is installed, or may be.
bool IsPlaceOfPackages(std::string_view path);

// How far the reading of packages has come.
using Progress = std::function<void(std::size_t done, std::size_t all)>;

// Paths of the tree, from its root.
namespace TreePath {

inline constexpr std::string_view defaults = "Setup/defaultInstallSettings.xml";
inline constexpr std::string_view user = "Setup/PackageUserSettings.xml";
inline constexpr std::string_view texts = "Setup/res";
inline constexpr std::string_view pictures = "Setup/res/images";
inline constexpr std::string_view licences = "Notices/EULA";
inline constexpr std::string_view program = "Setup/x64";
inline constexpr std::string_view dotNet = "DotNet";

}  // namespace TreePath

// Reads everything at construction and never changes afterwards.
class Package {
public:
    explicit Package(const PackageTree& packageTree, const Progress& progress = {});

    const PackageTree& Tree() const { return tree; }
    const FileTable& Files() const { return files; }

    // Null for a file that is not there or cannot be read.
    const TagFile* Defaults() const { return defaults.get(); }
    const TagFile* User() const { return user.get(); }
    // Files that are there and cannot be read.
    const std::vector<std::string>& UnreadableFiles() const { return unreadable; }

    // The settings as the wizard starts with them: the defaults with the user's file laid over, where there
    // is one.
    const InstallSettings& Settings() const { return settings; }
    // What of the user's file takes effect.
    const std::vector<TakenElement>& UserElements() const { return userElements; }
    const std::vector<Device>& Devices() const { return devices; }

    const std::vector<LanguageFile>& Languages() const { return languages; }
    const std::vector<PackageFile>& Packages() const { return packages; }

    // The place of the value of a tag that the wizard reads: in the user's file where that sets it.
    Place PlaceOf(std::wstring_view tag) const;

private:
    std::unique_ptr<TagFile> ReadTagFile(std::string_view path, Decoding decoding);
    void ReadSettings();
    void ReadLanguages();
    void ReadPackages(const Progress& progress);

    const PackageTree& tree;
    FileTable files;
    std::vector<std::string> unreadable;
    std::unique_ptr<TagFile> defaults;
    std::unique_ptr<TagFile> user;
    std::vector<TakenElement> userElements;
    std::vector<Device> devices;
    InstallSettings settings;
    std::vector<LanguageFile> languages;
    std::vector<PackageFile> packages;
};

}  // namespace packagecheck
