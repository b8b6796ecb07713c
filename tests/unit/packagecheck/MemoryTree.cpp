#include "tests/unit/packagecheck/MemoryTree.h"

#include <gtest/gtest.h>

#include "CommonLib/Utf8.h"
#include "tests/unit/packagecheck/BinaryFiles.h"
#include "tools/PackageCheck/Checks.h"
#include "tools/PackageCheck/KnownTexts.h"
#include "tools/PackageCheck/Package.h"

using packagecheck::Finding;
using packagecheck::MsiContents;

namespace {

constexpr const char* settingsText = R"(<?xml version="1.0" encoding="utf-8"?>
<SETTINGS>
  <OEM>Halvenny</OEM>
  <OEM_NAME>Halvenny</OEM_NAME>
  <MODEL_NAME>Halvenny:Halvenny Loom</MODEL_NAME>
  <WIN8_DRVTYPES>HVMONO</WIN8_DRVTYPES>
  <WINXP_DRVTYPES>HVMONO</WINXP_DRVTYPES>
  <MONO_DEFAULT>HVMONO</MONO_DEFAULT>
  <COLOR_DEFAULT>HVMONO</COLOR_DEFAULT>
  <NO_COMM_DEFAULT>HVMONO</NO_COMM_DEFAULT>
  <WIN8_MONO_DEFAULT>HVMONO</WIN8_MONO_DEFAULT>
  <WIN8_COLOR_DEFAULT>HVMONO</WIN8_COLOR_DEFAULT>
  <WIN8_NO_COMM_DEFAULT>HVMONO</WIN8_NO_COMM_DEFAULT>
</SETTINGS>
)";

std::string TextOf(const std::string& key) {
    static const std::map<std::string, std::string> special = {
        {"LANGUAGE_ID", "1033"},      {"READING_ORDER", "LTR"},
        {"CODE_PAGE", "1252"},        {"DISCOVERY_INFOCENTER_LINK_LABEL", "Help for {0}"},
        {"HELP_BUTTON", "&amp;Help"}, {"WELCOME_TEXT", "Welcome to ^OEM^"}};
    const auto found = special.find(key);
    return found == special.end() ? "text" : found->second;
}

std::string LanguageText() {
    std::string text = "<STRINGS>\n";
    for (const std::wstring_view wideKey : packagecheck::TextKeys()) {
        const std::string key = ToUtf8(wideKey);
        text += "  <" + key + ">" + TextOf(key) + "</" + key + ">\n";
    }
    return text + "</STRINGS>\n";
}

void AddLibraries(std::map<std::string, std::string>& files) {
    files["Setup/x64/Kestrune.exe"] = "MZ";
    files["Setup/x64/Brevanto.dll"] =
        MakeLibrary({"MsiInitialize", "MsiUninitialize", "MsiEnableInstallLog", "MsiInstallApp",
                     "MsiUninstallApp", "MsiCancel", "MsiGetProperties", "MsiIsAppInstalledByLang"});
    files["Setup/x64/Sondrix.dll"] = MakeLibrary({"Initialize", "Uninitialize", "DiscoverW", "EnumerateW"});
    files["Setup/x64/Quelmar.dll"] =
        MakeLibrary({"BidiInitialize", "BidiUninitialize", "BidiExchangeNpaAll", "BidiExchangeNpaW"});
}

void AddPictures(std::map<std::string, std::string>& files) {
    for (const std::string name : {"help", "high_contrast_help", "refresh", "high_contrast_refresh",
                                   "bullet_arrow_up", "bullet_arrow_down", "bullet_toggle_plus", "check", "x",
                                   "installsuccess", "installerror", "usbconnect", "network", "usb"}) {
        files["Setup/res/images/" + name + ".png"] = MakePng(32, 32);
    }
    files["Setup/res/images/logo.bmp"] = MakeBitmap(200, 40);
}

void ReplaceIn(std::string& text, const std::string& from, const std::string& to) {
    const std::size_t position = text.find(from);
    ASSERT_NE(position, std::string::npos) << from;
    text.replace(position, from.size(), to);
}

}  // namespace

MsiContents CleanMsi(const std::wstring& name) {
    MsiContents contents;
    contents.summary = {.platform = L"x64;1033", .installerVersion = 200, .packageCode = L"{" + name + L"}"};
    contents.properties = {{L"ProductName", L"Halvenny " + name},
                           {L"ProductVersion", L"1.0.0"},
                           {L"ProductCode", L"{" + name + L"-CODE}"},
                           {L"UpgradeCode", L"{" + name + L"-FAMILY}"},
                           {L"INSTALLSIZE", L"1 MB"},
                           {L"DEVICETYPE", L"PRINTER"},
                           {L"SecureCustomProperties", L"OLDER_FOUND;TARGET_DIR"}};
    contents.upgrades = {
        {.upgradeCode = L"{" + name + L"-FAMILY}", .attributes = 0, .actionProperty = L"OLDER_FOUND"}};
    contents.adminActions = {L"InstallFiles"};
    contents.files = {{.folder = L"Halvenny\\" + name, .name = name + L".exe"}};
    contents.usedProperties = {L"TARGET_DIR", L"TARGETDIR"};
    return contents;
}

MemoryTree::MemoryTree() {
    files[defaultsPath] = settingsText;
    files[englishPath] = LanguageText();
    files["Notices/EULA/EULA_en.txt"] = "Terms";
    AddLibraries(files);
    AddPictures(files);
    packages[applicationPath] = CleanMsi(L"Monitor");
    MsiContents driver = CleanMsi(L"Mono");
    driver.properties[L"DRIVERID"] = L"HVMONO";
    driver.properties[L"DRIVERNAME"] = L"Halvenny Mono";
    packages[driverPath] = driver;
}

std::vector<packagecheck::TreeFile> MemoryTree::List() const {
    std::vector<packagecheck::TreeFile> list;
    for (const auto& [path, bytes] : files) list.push_back({.path = path});
    for (const auto& [path, contents] : packages) list.push_back({.path = path});
    for (const std::string& path : unreadable) {
        if (!files.contains(path) && !packages.contains(path)) list.push_back({.path = path});
    }
    return list;
}

std::optional<std::string> MemoryTree::Read(const std::string& path, std::size_t most) const {
    const auto file = files.find(path);
    if (file == files.end() || unreadable.contains(path)) return std::nullopt;
    return file->second.substr(0, most);
}

packagecheck::MsiReading MemoryTree::ReadMsi(const std::string& path) const {
    const auto package = packages.find(path);
    if (package == packages.end() || unreadable.contains(path)) return {.error = "no package"};
    return {.contents = package->second, .error = {}};
}

void MemoryTree::Replace(const std::string& path, const std::string& from, const std::string& to) {
    ReplaceIn(files[path], from, to);
}

void MemoryTree::AddSetting(const std::string& elements) {
    Replace(defaultsPath, "</SETTINGS>", elements + "\n</SETTINGS>");
}

void MemoryTree::AddUserElement(const std::string& elements) {
    files.try_emplace(userPath, "<SETTINGS>\n</SETTINGS>\n");
    Replace(userPath, "</SETTINGS>", elements + "\n</SETTINGS>");
}

void MemoryTree::AddText(const std::string& elements) {
    Replace(englishPath, "</STRINGS>", elements + "\n</STRINGS>");
}

std::vector<Finding> FindingsOf(const MemoryTree& tree) {
    return packagecheck::CheckPackage(packagecheck::Package(tree));
}

std::vector<std::string> Described(const std::vector<Finding>& findings) {
    std::vector<std::string> lines;
    for (const Finding& finding : findings) {
        lines.push_back(std::string(finding.rule->id) + " " + finding.place.file + ":" +
                        std::to_string(finding.place.position.line) + ":" +
                        std::to_string(finding.place.position.column));
    }
    return lines;
}
