#include "tools/PackageCheck/ManifestData.h"

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "CommonLib/TextUtilities.h"
#include "CommonLib/Utf8.h"
#include "catalogue/PackageProperties.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"
#include "settings/TextExpansion.h"
#include "settings/TextKeys.h"
#include "tools/PackageCheck/ManifestText.h"

namespace packagecheck {

namespace {

constexpr std::size_t longestField = 128;
constexpr std::size_t longestDescription = 250;
constexpr std::string_view unknownVersion = "0.0.0";

bool IsNumberedVersion(std::string_view version) {
    constexpr std::string_view signs = "0123456789.";
    return !version.empty() && version.size() <= longestField && version.front() != '.' &&
           version.back() != '.' && version.find("..") == std::string_view::npos &&
           version.find_first_not_of(signs) == std::string_view::npos;
}

// The numbers of a version as texts that compare like them.
std::vector<std::string> FieldsOf(std::string_view version) {
    std::vector<std::string> fields;
    while (!version.empty()) {
        const std::size_t point = std::min(version.find('.'), version.size());
        std::string_view field = version.substr(0, point);
        field.remove_prefix(std::min(field.find_first_not_of('0'), field.size()));
        fields.push_back(std::string(longestField - field.size(), '0').append(field));
        version.remove_prefix(std::min(point + 1, version.size()));
    }
    return fields;
}

// The name by which systems know the language of a file: "pt-BR" for "pt_br".
std::string LocaleTagOf(std::wstring_view code) {
    if (code == L"en") return "en-US";
    std::string tag = ToUtf8(code);
    const std::size_t line = tag.find('_');
    if (line == std::string::npos) return tag;
    tag[line] = '-';
    constexpr std::size_t ofRegion = 2;
    if (tag.size() - line - 1 != ofRegion) return tag;
    for (char& letter : std::span(tag).subspan(line + 1)) {
        if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
    }
    return tag;
}

bool IsLocaleTag(std::string_view tag) {
    const std::size_t hyphen = std::min(tag.find('-'), tag.size());
    const bool isPlain = std::ranges::all_of(tag, [](char letter) {
        return letter == '-' || (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z');
    });
    return isPlain && tag.size() <= 16 && (hyphen == 2 || hyphen == 3) && !tag.ends_with('-');
}

class Collector {
public:
    explicit Collector(const Package& described) : package(described) {}

    ManifestData Collect() {
        CollectNames();
        for (const PackageFile& file : package.Packages()) {
            if (IsAlwaysInstalled(file)) AddProduct(file);
        }
        CollectVersion();
        CollectLocales();
        NoteWhatKeepsItFromRunning();
        return std::move(data);
    }

private:
    std::string Setting(TextTag tag) const {
        return PlainLine(package.Settings().GetString(tag), longestField);
    }

    void CollectNames() {
        data.vendor = Setting(Tag::OEM);
        if (data.vendor.empty()) data.vendor = "Printer";
        const std::string product = Setting(Tag::PRODUCT_NAME);
        data.name = data.vendor + " " + (product.empty() ? "Printer Software" : product);
        if (product.starts_with(data.vendor)) data.name = product;
        const auto partOf = [](const std::string& text, const char* otherwise) {
            const std::string part = IdentifierOf(text);
            return part.empty() ? std::string(otherwise) : part;
        };
        data.identifier = partOf(data.vendor, "Vendor") + "." + partOf(product, "Printer-Software");
        const std::string link = PlainLine(package.Settings().GetString(Tag::INFOCENTER_LINK), 2'000);
        if (link.starts_with("https://") || link.starts_with("http://")) data.link = link;
    }

    bool IsAlwaysInstalled(const PackageFile& file) const {
        if (!file.contents) return false;
        if (file.kind == PackageKind::Application) return true;
        if (file.kind != PackageKind::Driver) return false;
        const auto accepted = AcceptedDriverTypes(package.Settings().GetString(Tag::WIN8_DRVTYPES));
        return !file.record.isPrinterDriver ||
               std::ranges::find(accepted, file.record.driverId) != accepted.end();
    }

    void AddProduct(const PackageFile& file) {
        const std::string code = PlainLine(file.PropertyOf(L"ProductCode"), longestField);
        if (!IsInstallerCode(code)) {
            data.notes.push_back(file.path + " has no product code and is left out.");
            return;
        }
        if (std::ranges::find(data.products, code, &ManifestProduct::productCode) != data.products.end())
            return;
        const std::string family = PlainLine(file.PropertyOf(L"UpgradeCode"), longestField);
        data.products.push_back({.name = PlainLine(file.record.productName, longestField),
                                 .version = PlainLine(file.record.productVersion, longestField),
                                 .productCode = code,
                                 .upgradeCode = IsInstallerCode(family) ? family : std::string()});
    }

    void CollectVersion() {
        for (const ManifestProduct& product : data.products) {
            if (!IsNumberedVersion(product.version)) continue;
            if (data.version.empty() || FieldsOf(data.version) < FieldsOf(product.version))
                data.version = product.version;
        }
        if (!data.version.empty()) return;
        data.version = unknownVersion;
        data.notes.emplace_back("No product has a version; 0.0.0 stands for it.");
    }

    std::string DescriptionIn(const LanguageFile& language) const {
        int surplus = 0;
        const std::wstring text = ReduceAccessKeys(
            TagDocument::ValueOf(language.file->Text(), TextKey::WELCOME_TEXT.Name()), surplus);
        const auto readTag = [&](std::wstring_view tag) {
            return package.Settings().GetString(TextTag(tag));
        };
        return PlainLine(ExpandTags(text, readTag).text, longestDescription);
    }

    void CollectLocales() {
        data.locales.push_back({.tag = LocaleTagOf(L"en"), .description = {}});
        for (const LanguageFile& language : package.Languages()) {
            const std::string tag = LocaleTagOf(language.code);
            const std::string description = DescriptionIn(language);
            const auto known = std::ranges::find(data.locales, tag, &ManifestLocale::tag);
            if (known != data.locales.end()) {
                known->description = description;
            } else if (IsLocaleTag(tag)) {
                data.locales.push_back({.tag = tag, .description = description});
            } else {
                data.notes.push_back(language.file->Path() +
                                     " is of no language that has a tag, and is left out.");
            }
        }
    }

    void NoteWhatKeepsItFromRunning() {
        if (data.products.empty())
            data.notes.emplace_back(
                "No product is surely installed, so nothing tells whether the package is.");
        if (package.Files().Find("Setup/x64/Rollout.exe") == nullptr)
            data.notes.emplace_back("Setup/x64/Rollout.exe is missing, and the commands need it.");
        const InstallSettings& settings = package.Settings();
        if (settings.GetBool(Tag::SILENT_INSTALL) && settings.GetBool(Tag::HIDE_DISCOVERY)) return;
        data.notes.emplace_back(
            "The package does not run silently: set SILENT_INSTALL and HIDE_DISCOVERY, or add -ip to the "
            "commands.");
    }

    const Package& package;
    ManifestData data;
};

}  // namespace

ManifestData CollectManifestData(const Package& package) {
    return Collector(package).Collect();
}

bool IsInstallerCode(std::string_view text) {
    constexpr std::string_view form = "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}";
    constexpr std::string_view digits = "0123456789abcdefABCDEF";
    return std::ranges::equal(text, form, [&](char letter, char place) {
        return place == 'x' ? digits.find(letter) != std::string_view::npos : letter == place;
    });
}

}  // namespace packagecheck
