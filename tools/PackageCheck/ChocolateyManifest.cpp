#include <algorithm>
#include <string>
#include <string_view>

#include "tools/PackageCheck/ManifestText.h"
#include "tools/PackageCheck/Manifests.h"
#include "tools/PackageCheck/SourceText.h"

namespace packagecheck {

namespace {

std::string MetadataElement(std::string_view name, std::string_view value) {
    std::string element = "    <";
    element.append(name).append(">").append(XmlText(value)).append("</").append(name).append(">\n");
    return element;
}

std::string IdOf(const ManifestData& data) {
    std::string id = data.identifier;
    std::ranges::transform(id, id.begin(), [](char letter) {
        if (letter == '.') return '-';
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return id;
}

std::string Nuspec(const ManifestData& data) {
    const std::string& description = data.locales.front().description;
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
           "<package xmlns=\"http://schemas.microsoft.com/packaging/2015/06/nuspec.xsd\">\n"
           "  <metadata>\n" +
           MetadataElement("id", IdOf(data)) + MetadataElement("version", data.version) +
           MetadataElement("title", data.name) + MetadataElement("authors", data.vendor) +
           MetadataElement("projectUrl", Placeholder::site) +
           MetadataElement("licenseUrl", Placeholder::licenceLink) +
           MetadataElement("requireLicenseAcceptance", "false") +
           MetadataElement("description", description.empty() ? data.name : description) +
           MetadataElement("tags", "printer driver admin") +
           "  </metadata>\n"
           "  <files>\n"
           "    <file src=\"tools\\**\" target=\"tools\" />\n"
           "  </files>\n"
           "</package>\n";
}

// What both scripts begin with.
std::string ScriptHead() {
    // Windows PowerShell takes a script without it for one in the code page of the system, in which a letter
    // of UTF-8 may be a quote.
    return std::string(byteOrderMark) +
           "$ErrorActionPreference = 'Stop'\n"
           "$tools = Split-Path -Parent $MyInvocation.MyCommand.Definition\n"
           "$package = Join-Path $tools 'package'\n"
           "$rollout = Join-Path $package 'Setup\\x64\\Rollout.exe'\n";
}

std::string InstallScript(const ManifestData& data) {
    return ScriptHead() + "Install-ChocolateyZipPackage -PackageName " + PowerShellText(data.name) +
           " `\n"
           "  -Url64bit " +
           PowerShellText(Placeholder::download) +
           " `\n"
           "  -Checksum64 " +
           PowerShellText(Placeholder::hash) +
           " -ChecksumType64 'sha256' `\n"
           "  -UnzipLocation $package\n"
           "# The programs of the package are not to be called from the command line.\n"
           "Get-ChildItem $package -Recurse -Filter *.exe | ForEach-Object {\n"
           "  New-Item \"$($_.FullName).ignore\" -ItemType File -Force | Out-Null\n"
           "}\n"
           "Start-ChocolateyProcessAsAdmin -ExeToRun $rollout -Statements '--timeout 2100' `\n"
           "  -ValidExitCodes @(0, 3010)\n";
}

std::string UninstallScript() {
    return ScriptHead() +
           "Start-ChocolateyProcessAsAdmin -ExeToRun $rollout -Statements '--uninstall' `\n"
           "  -ValidExitCodes @(0, 3010)\n";
}

}  // namespace

Manifest ChocolateyManifest(const ManifestData& data) {
    return {
        .files = {{.path = IdOf(data) + ".nuspec", .bytes = Nuspec(data)},
                  {.path = "tools/chocolateyInstall.ps1", .bytes = InstallScript(data)},
                  {.path = "tools/chocolateyUninstall.ps1", .bytes = UninstallScript()}},
        .placeholders = {"projectUrl: the site of the software", "licenseUrl: where the licence can be read",
                         "-Url64bit in chocolateyInstall.ps1: where the package lies as a .zip file",
                         "-Checksum64 in chocolateyInstall.ps1: the SHA-256 of that file"}};
}

}  // namespace packagecheck
