#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "tools/PackageCheck/ManifestText.h"
#include "tools/PackageCheck/Manifests.h"

namespace packagecheck {

namespace {

// A document of YAML, line by line.
class YamlDocument {
public:
    YamlDocument& Line(std::string_view line) {
        text.append(line).append("\n");
        return *this;
    }
    // The key may be indented, and part of a list.
    YamlDocument& Add(std::string_view key, std::string_view value) {
        text.append(key).append(": ").append(YamlText(value)).append("\n");
        return *this;
    }
    const std::string& Text() const { return text; }

private:
    std::string text;
};

YamlDocument BeginYaml(const ManifestData& data) {
    YamlDocument document;
    document.Add("PackageIdentifier", data.identifier).Add("PackageVersion", data.version);
    return document;
}

std::string EndYaml(YamlDocument document, std::string_view type) {
    return document.Add("ManifestType", type).Add("ManifestVersion", "1.6.0").Text();
}

// What Rollout's codes mean, in the words that the format knows.
constexpr auto returnCodes = std::to_array<std::pair<int, const char*>>({{87, "invalidParameter"},
                                                                         {1602, "cancelledByUser"},
                                                                         {1618, "installInProgress"},
                                                                         {1638, "downgrade"},
                                                                         {3010, "rebootRequiredToFinish"}});

void AddReturnCodes(YamlDocument& document) {
    document.Line("ExpectedReturnCodes:");
    for (const auto& [code, response] : returnCodes) {
        document.Line("- InstallerReturnCode: " + std::to_string(code))
            .Line(std::string("  ReturnResponse: ") + response);
    }
}

void AddProducts(YamlDocument& document, const ManifestData& data) {
    if (data.products.empty()) return;
    document.Line("AppsAndFeaturesEntries:");
    for (const ManifestProduct& product : data.products) {
        document.Add("- ProductCode", product.productCode);
        if (!product.name.empty()) document.Add("  DisplayName", product.name);
        document.Add("  Publisher", data.vendor);
        if (!product.version.empty()) document.Add("  DisplayVersion", product.version);
        if (!product.upgradeCode.empty()) document.Add("  UpgradeCode", product.upgradeCode);
        document.Line("  InstallerType: msi");
    }
}

std::string InstallerFile(const ManifestData& data) {
    YamlDocument document = BeginYaml(data);
    document.Line("InstallerType: zip")
        .Line("NestedInstallerType: exe")
        .Line("NestedInstallerFiles:")
        .Add("- RelativeFilePath", "Setup\\x64\\Rollout.exe")
        .Line("Scope: machine")
        .Line("InstallModes:")
        .Line("- silent")
        .Line("- silentWithProgress")
        .Line("InstallerSwitches:")
        .Add("  Silent", "--timeout 3000")
        .Add("  SilentWithProgress", "--timeout 3000")
        .Line("ElevationRequirement: elevationRequired")
        .Line("UpgradeBehavior: install");
    AddReturnCodes(document);
    AddProducts(document, data);
    document.Line("Installers:")
        .Line("- Architecture: x64")
        .Add("  InstallerUrl", Placeholder::download)
        .Add("  InstallerSha256", Placeholder::hash);
    return EndYaml(document, "installer");
}

void AddDescription(YamlDocument& document, const ManifestData& data, const ManifestLocale& locale) {
    constexpr std::size_t shortest = 3;
    const bool saysEnough = locale.description.size() >= shortest;
    document.Add("ShortDescription", saysEnough ? locale.description : data.name);
}

std::string LocaleFile(const ManifestData& data, const ManifestLocale& locale, bool isDefault) {
    YamlDocument document = BeginYaml(data);
    document.Add("PackageLocale", locale.tag).Add("Publisher", data.vendor);
    if (!data.link.empty()) document.Add("PublisherSupportUrl", data.link);
    document.Add("PackageName", data.name);
    if (isDefault) {
        document.Add("License", Placeholder::licence).Add("LicenseUrl", Placeholder::licenceLink);
    }
    AddDescription(document, data, locale);
    return EndYaml(document, isDefault ? "defaultLocale" : "locale");
}

}  // namespace

Manifest WingetManifest(const ManifestData& data) {
    Manifest manifest;
    const auto add = [&](const std::string& part, std::string bytes) {
        manifest.files.push_back({.path = data.identifier + part + ".yaml", .bytes = std::move(bytes)});
    };
    const std::string& main = data.locales.front().tag;
    add("", EndYaml(BeginYaml(data).Add("DefaultLocale", main), "version"));
    add(".installer", InstallerFile(data));
    for (const ManifestLocale& locale : data.locales)
        add(".locale." + locale.tag, LocaleFile(data, locale, locale.tag == main));
    manifest.placeholders = {
        "InstallerUrl: where the package lies as a .zip file", "InstallerSha256: the SHA-256 of that file",
        "License: the name of the licence, as in Proprietary", "LicenseUrl: where the licence can be read"};
    return manifest;
}

}  // namespace packagecheck
