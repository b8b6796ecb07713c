#include "tools/Rollout/RunPlan.h"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <utility>

#include "CommonLib/Files.h"
#include "CommonLib/MsiCodes.h"
#include "CommonLib/Utf8.h"
#include "catalogue/MsiInfoService.h"
#include "settings/TextKeys.h"
#include "tools/PackageCheck/FolderTree.h"
#include "tools/PackageCheck/FormatEntries.h"
#include "tools/PackageCheck/Plan.h"
#include "tools/PackageCheck/PlanText.h"

namespace rollout {
namespace {

using packagecheck::InstalledState;

// As the wizard names it.
std::wstring PathForLibrary(const std::string& path) {
    std::wstring name = FromUtf8(path);
    std::ranges::replace(name, L'/', L'\\');
    return GetExeDirectory() + L"\\..\\..\\" + name;
}

std::filesystem::path PackageFolder() {
    return std::filesystem::path(GetExeDirectory()).parent_path().parent_path();
}

// The files of the package, with what the library says of its packages. Read by one thread.
class LibraryTree : public packagecheck::FolderTree {
public:
    LibraryTree(IMsiInterface& packageLibrary, std::wstring languageId)
        : FolderTree(PackageFolder()), library(packageLibrary), language(std::move(languageId)) {}

    packagecheck::MsiReading ReadMsi(const std::string& path) const override {
        packagecheck::MsiContents contents;
        for (const packagecheck::FormatEntry& entry : packagecheck::PropertyEntries()) {
            const std::wstring name(entry.name);
            std::wstring value;
            if (library.GetPropertyValue(PathForLibrary(path), name, language, value) == MsiCode::Success)
                contents.properties[name] = std::move(value);
        }
        return {.contents = std::move(contents), .error = {}};
    }

private:
    IMsiInterface& library;
    std::wstring language;
};

InstalledState StateByLibrary(IMsiInterface& library, const std::string& path) {
    bool upToDate = false;
    bool upgradable = false;
    bool minorUpgrade = false;
    if (!library.IsAppInstalled(PathForLibrary(path), upToDate, upgradable, minorUpgrade))
        return InstalledState::NotInstalled;
    if (upToDate) return InstalledState::UpToDate;
    if (minorUpgrade) return InstalledState::MinorUpgrade;
    return upgradable ? InstalledState::Upgradable : InstalledState::Newer;
}

std::vector<std::wstring> LinesOf(const packagecheck::Plan& plan) {
    std::stringstream text;
    packagecheck::WritePlanText(text, plan);
    std::vector<std::wstring> lines;
    for (std::string line; std::getline(text, line);) lines.push_back(FromUtf8(line));
    return lines;
}

}  // namespace

std::vector<std::wstring> PlanLines(IMsiInterface& library, const Localizer& localizer,
                                    const Options& options) {
    const LibraryTree tree(library, localizer.GetString(TextKey::LANGUAGE_ID));
    const packagecheck::Package package(tree);
    const std::wstring language = options.SwitchValue(L"lang");
    packagecheck::PlanOptions run{
        .printer = {.address = options.SwitchValue(L"ip"), .portName = options.SwitchValue(L"p")},
        .language = language.empty() ? GetLanguageCode() : language,
        .system = ThisSystem()};
    for (const packagecheck::PackageFile& file : package.Packages())
        run.installed.Set(file.path, StateByLibrary(library, file.path));
    return LinesOf(packagecheck::MakePlan(package, run));
}

}  // namespace rollout
