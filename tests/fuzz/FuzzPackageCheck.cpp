#include <algorithm>
#include <map>
#include <optional>
#include <string_view>

#include "CommonLib/Utf8.h"
#include "settings/TagDocument.h"
#include "tests/fuzz/FuzzInput.h"
#include "tools/PackageCheck/Checks.h"
#include "tools/PackageCheck/Fixes.h"
#include "tools/PackageCheck/Package.h"
#include "tools/PackageCheck/PeExports.h"
#include "tools/PackageCheck/TagFile.h"

namespace {

using packagecheck::CheckPackage;
using packagecheck::FindFixes;
using packagecheck::Package;

// A package whose files are parts of the input.
// Cuts the input into files, each ended by two null bytes, so that single ones can stand in a file.
class FuzzTree : public packagecheck::PackageTree {
public:
    explicit FuzzTree(std::string_view input) {
        for (const char* path :
             {"Setup/defaultInstallSettings.xml", "Setup/PackageUserSettings.xml", "Setup/res/en_strings.xml",
              "Setup/x64/Brevanto.dll", "Setup/res/images/check.png", "Notices/EULA/EULA_en.txt",
              "Applications/A.msi", "Dependents/x64/B.msi"}) {
            const std::size_t end = std::min(input.find(std::string_view("\0\0", 2)), input.size());
            files[path] = input.substr(0, end);
            input.remove_prefix(std::min(end + 2, input.size()));
        }
    }

    std::vector<packagecheck::TreeFile> List() const override {
        std::vector<packagecheck::TreeFile> list;
        for (const auto& [path, bytes] : files) list.push_back({.path = path});
        return list;
    }
    std::optional<std::string> Read(const std::string& path, std::size_t most) const override {
        return files.at(path).substr(0, most);
    }
    packagecheck::MsiReading ReadMsi(const std::string& path) const override {
        packagecheck::MsiContents contents;
        for (const wchar_t* name :
             {L"STARTAPP", L"DEPENDENTAPPS", L"SUPPORTEDOS", L"INSTALLSIZE", L"DRIVERID"}) {
            contents.properties[name] = FromUtf8(files.at(path));
        }
        return {.contents = std::move(contents), .error = {}};
    }

private:
    std::map<std::string, std::string> files;
};

// Every element that takes effect has a place, and every place is in the file.
void CheckPlaces(const packagecheck::TagFile& file) {
    const auto taken = TakenElements(file);
    for (const auto& element : taken) {
        const auto position = file.PlaceOf(element.start).position;
        Require(position.line > 0 && position.column > 0);
        Require(file.Text().substr(element.start, 1) == L"<");
    }
    Require(taken.size() <= TagDocument::ListElementNames(file.Text()).size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const FuzzTree tree(input);
    const Package package(tree);
    for (const auto& finding : CheckPackage(package))
        Require(finding.rule != nullptr && !finding.message.empty());
    if (package.User() != nullptr) CheckPlaces(*package.User());
    // What was fixed needs no further fix.
    for (const auto& fix : FindFixes(package)) {
        const bool isUser = fix.path.ends_with("PackageUserSettings.xml");
        const auto kind = isUser ? packagecheck::TextKind::User : packagecheck::TextKind::Defaults;
        if (!fix.path.ends_with("_strings.xml"))
            Require(packagecheck::FixedBytes(fix.after, kind) == fix.after);
    }
    packagecheck::ReadPeLibrary(input);
    return 0;
}
