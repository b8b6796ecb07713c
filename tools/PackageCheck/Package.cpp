#include "tools/PackageCheck/Package.h"

#include <algorithm>
#include <array>
#include <utility>

#include "CommonLib/TextUtilities.h"
#include "CommonLib/Utf8.h"
#include "app/Preparation.h"
#include "catalogue/PackageProperties.h"
#include "catalogue/PropertyNames.h"
#include "settings/TagNames.h"

namespace packagecheck {

namespace {

// Of a text file so much is read; what is longer is not meant to be one.
constexpr std::size_t longestText = std::size_t{64} << 20U;

struct KindOfFolder {
    std::string_view folder;
    PackageKind kind;
};

// The folders in which the wizard looks, in its order.
constexpr std::array<KindOfFolder, 13> foldersOfPackages = {{
    {"drivers/x64", PackageKind::Driver},
    {"drivers/x86_x64", PackageKind::Driver},
    {"applications", PackageKind::Application},
    {"applications/x86_x64", PackageKind::Application},
    {"applications/x64", PackageKind::Application},
    {"common/x86_x64", PackageKind::Common},
    {"common/x64", PackageKind::Common},
    {"optional/x86_x64", PackageKind::Optional},
    {"optional/x64", PackageKind::Optional},
    {"dependents/x86_x64", PackageKind::Dependent},
    {"dependents/x64", PackageKind::Dependent},
    {"install", PackageKind::Tool},
    {"setup", PackageKind::Beside},
}};

PackageKind KindOf(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    const std::string folder =
        slash == std::string_view::npos ? std::string() : Folded(path.substr(0, slash));
    // The setup program of .NET may be an .msi file as well, and is started without being read.
    const auto found = std::ranges::find(foldersOfPackages, folder, &KindOfFolder::folder);
    return found == foldersOfPackages.end() ? PackageKind::Elsewhere : found->kind;
}

// The fields that the checks look at, as the wizard fills them.
MSI_APP RecordOf(const MsiContents& contents) {
    MSI_APP record;
    record.productName = contents.PropertyOf(Property::ProductName);
    record.productVersion = contents.PropertyOf(Property::ProductVersion);
    record.deviceType = contents.PropertyOf(Property::DEVICETYPE);
    record.appType = contents.PropertyOf(Property::APPTYPE);
    record.startApp = contents.PropertyOf(Property::STARTAPP);
    record.secureCustomProperties = contents.PropertyOf(Property::SecureCustomProperties);
    record.driverId = contents.PropertyOf(Property::DRIVERID);
    record.driverName = contents.PropertyOf(Property::DRIVERNAME);
    record.supportedOs = contents.PropertyOf(Property::SUPPORTEDOS);
    record.installSizeMb = InstallSizeInMb(contents.PropertyOf(Property::INSTALLSIZE));
    ClassifyDriver(record);
    return record;
}

}  // namespace

bool IsPlaceOfPackages(std::string_view path) {
    return KindOf(path) <= PackageKind::Driver;
}

const std::wstring& PackageFile::PropertyOf(std::wstring_view name) const {
    static const MsiContents nothing;
    return (contents ? *contents : nothing).PropertyOf(name);
}

Package::Package(const PackageTree& packageTree, const Progress& progress)
    : tree(packageTree), files(packageTree.List()) {
    ReadSettings();
    ReadLanguages();
    ReadPackages(progress);
}

std::unique_ptr<TagFile> Package::ReadTagFile(std::string_view path, Decoding decoding) {
    const TreeFile* file = files.Find(path);
    if (file == nullptr) return nullptr;
    const auto bytes = tree.Read(file->path, longestText);
    if (!bytes) {
        unreadable.push_back(file->path);
        return nullptr;
    }
    return std::make_unique<TagFile>(file->path, *bytes, decoding);
}

void Package::ReadSettings() {
    defaults = ReadTagFile(TreePath::defaults, Decoding::Pieces);
    user = ReadTagFile(TreePath::user, Decoding::Pieces);
    if (defaults) settings.Append(defaults->Text());
    if (!user) return;
    settings.Merge(user->Text());
    TakePredefinedPrinters(settings);
    userElements = TakenElements(*user);
    for (const TakenElement& element : userElements) {
        if (element.name == Tag::DEVICE)
            devices.push_back({.document = element.value, .start = element.valueStart});
    }
}

void Package::ReadLanguages() {
    constexpr std::string_view ending = "_strings.xml";
    for (const TreeFile* file : files.In(TreePath::texts, ending)) {
        const std::string_view name = FileNameOf(file->path);
        auto text = ReadTagFile(file->path, Decoding::Whole);
        if (!text) continue;
        languages.push_back(
            {.code = FromUtf8(name.substr(0, name.size() - ending.size())), .file = std::move(text)});
    }
}

void Package::ReadPackages(const Progress& progress) {
    std::vector<const TreeFile*> found;
    for (const TreeFile& file : files.All()) {
        if (Folded(file.path).ends_with(".msi") && !Folded(file.path).starts_with("dotnet/"))
            found.push_back(&file);
    }
    for (const TreeFile* file : found) {
        if (progress) progress(packages.size(), found.size());
        MsiReading reading = tree.ReadMsi(file->path);
        PackageFile package{
            .path = file->path, .kind = KindOf(file->path), .contents = std::move(reading.contents)};
        package.error = std::move(reading.error);
        if (package.contents) package.record = RecordOf(*package.contents);
        packages.push_back(std::move(package));
    }
    if (progress) progress(found.size(), found.size());
}

Place Package::PlaceOf(std::wstring_view tag) const {
    const auto taken = std::ranges::find(userElements, tag, &TakenElement::name);
    if (taken != userElements.end()) return user->PlaceOf(taken->start);
    return defaults ? defaults->PlaceOf(tag) : Place{.file = std::string(TreePath::defaults)};
}

}  // namespace packagecheck
