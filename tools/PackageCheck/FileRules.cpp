#include "tools/PackageCheck/FileRules.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "CommonLib/PackageLibraries.h"
#include "CommonLib/TextUtilities.h"
#include "CommonLib/Utf8.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"
#include "settings/TextKeys.h"
#include "standins/discovery/OemTable.h"
#include "tools/PackageCheck/CodePages.h"
#include "tools/PackageCheck/PeExports.h"
#include "tools/PackageCheck/Quoted.h"
#include "tools/PackageCheck/SourceText.h"

namespace packagecheck {

namespace {

constexpr std::size_t longestLibrary = std::size_t{256} << 20U;
constexpr std::size_t longestLicence = std::size_t{16} << 20U;

std::string PathIn(std::string_view folder, std::string_view name) {
    return std::string(folder) + "/" + std::string(name);
}

struct LibraryOfPackage {
    std::string_view name;
    std::span<const std::string_view> exports;
};

constexpr std::array<LibraryOfPackage, 3> libraries = {{
    {"Brevanto.dll", LibraryExports::Brevanto},
    {"Sondrix.dll", LibraryExports::Sondrix},
    {"Quelmar.dll", LibraryExports::Quelmar},
}};

void CheckExports(const Package& package, const TreeFile& file, const LibraryOfPackage& wanted,
                  Report& report) {
    const auto bytes = package.Tree().Read(file.path, longestLibrary);
    const auto library = bytes ? ReadPeLibrary(*bytes) : std::nullopt;
    if (!library || !library->isFor64Bit || !library->isLibrary) {
        report.Add(rules::libraryUnreadable, {.file = file.path},
                   "The file is no library for 64-bit Windows.");
        return;
    }
    for (const std::string_view name : wanted.exports) {
        if (library->exports.contains(std::string(name))) continue;
        report.Add(rules::libraryExports, {.file = file.path},
                   "The library does not export " + std::string(name) + ".");
    }
}

void CheckLibraries(const Package& package, Report& report) {
    const InstallSettings& settings = package.Settings();
    const bool searches = !settings.GetBool(Tag::HIDE_DISCOVERY) && !settings.GetBool(Tag::SILENT_INSTALL);
    for (const LibraryOfPackage& library : libraries) {
        const std::string path = PathIn(TreePath::program, library.name);
        const bool isSearch = library.name != libraries.front().name;
        if (const TreeFile* file = package.Files().Find(path)) {
            CheckExports(package, *file, library, report);
        } else if (!isSearch || searches) {
            report.Add(isSearch ? rules::searchLibraryMissing : rules::libraryMissing, {.file = path},
                       std::string(library.name) + " is missing.");
        }
    }
    const std::string program = PathIn(TreePath::program, "Kestrune.exe");
    if (package.Files().Find(program) == nullptr) {
        report.Add(rules::programMissing, {.file = program}, "The program is missing.");
    }
}

// Libraries of Windows that programs load by their bare names.
constexpr auto librariesOfWindows = std::to_array<std::string_view>(
    {"advapi32.dll", "apphelp.dll",  "bcrypt.dll",   "cabinet.dll",       "clbcatq.dll", "comctl32.dll",
     "comdlg32.dll", "credui.dll",   "crypt32.dll",  "cryptbase.dll",     "cryptsp.dll", "cryptui.dll",
     "d3d11.dll",    "dbghelp.dll",  "devobj.dll",   "dhcpcsvc.dll",      "dnsapi.dll",  "dwmapi.dll",
     "dxgi.dll",     "fltlib.dll",   "gdi32.dll",    "gdiplus.dll",       "hhctrl.ocx",  "hid.dll",
     "imm32.dll",    "iphlpapi.dll", "kernel32.dll", "linkinfo.dll",      "mpr.dll",     "mscoree.dll",
     "msi.dll",      "msimg32.dll",  "mswsock.dll",  "msxml3.dll",        "msxml6.dll",  "netapi32.dll",
     "netutils.dll", "ntdll.dll",    "ntmarta.dll",  "ole32.dll",         "oleacc.dll",  "oleaut32.dll",
     "powrprof.dll", "prntvpt.dll",  "profapi.dll",  "propsys.dll",       "psapi.dll",   "rasapi32.dll",
     "riched20.dll", "riched32.dll", "rpcrt4.dll",   "rsaenh.dll",        "samcli.dll",  "secur32.dll",
     "setupapi.dll", "sfc.dll",      "shell32.dll",  "shfolder.dll",      "shlwapi.dll", "spoolss.dll",
     "srvcli.dll",   "sspicli.dll",  "ucrtbase.dll", "urlmon.dll",        "user32.dll",  "userenv.dll",
     "uxtheme.dll",  "version.dll",  "wbemcomn.dll", "windowscodecs.dll", "winhttp.dll", "wininet.dll",
     "winmm.dll",    "winspool.drv", "winsta.dll",   "wintrust.dll",      "wkscli.dll",  "wldp.dll",
     "ws2_32.dll",   "wsock32.dll",  "wtsapi32.dll", "xmllite.dll"});

void CheckPlantedLibraries(const Package& package, Report& report) {
    for (const TreeFile* file : package.Files().In(TreePath::program)) {
        const std::string name = Folded(FileNameOf(file->path));
        const bool isSet = name.starts_with("api-ms-win-") || name.starts_with("ext-ms-win-");
        if (!isSet && std::ranges::find(librariesOfWindows, name) == librariesOfWindows.end()) continue;
        report.Add(rules::libraryOfWindows, {.file = file->path}, "Windows has a library of this name.");
    }
}

// What the library of the search reads beside it. Nothing for a file that is not there.
std::optional<std::string> BesideSearchLibrary(const Package& package, std::string_view name) {
    constexpr std::size_t longestFile = std::size_t{64} << 10U;
    const TreeFile* const file = package.Files().Find(PathIn(TreePath::program, name));
    return file == nullptr ? std::nullopt : package.Tree().Read(file->path, longestFile);
}

void CheckOemBytes(const Package& package, Report& report) {
    const auto bytes = BesideSearchLibrary(package, "OemBytes.txt");
    if (!bytes) return;
    const std::string path = PathIn(TreePath::program, "OemBytes.txt");
    std::size_t number = 0;
    for (const std::wstring& line : SplitClosed(FromUtf8(*bytes) + L'\n', L'\n')) {
        ++number;
        const std::size_t text = line.find_first_not_of(L" \t\r\uFEFF");
        const bool isRemark = text == std::wstring::npos || line[text] == L'#';
        if (isRemark || !discovery::ReadOemTable(line).empty()) continue;
        report.Add(rules::oemBytesLine, {.file = path, .position = Position{.line = number, .column = 1}},
                   "The line is not number, \"=\" and makers.");
    }
    const std::wstring oemByte = package.Settings().GetString(Tag::OEMBYTE);
    if (oemByte.empty() || !discovery::MakersOf(discovery::ReadOemTable(FromUtf8(*bytes)), oemByte).empty())
        return;
    report.Add(rules::oemBytesNumber, package.PlaceOf(Tag::OEMBYTE),
               "OEMBYTE is " + Quoted(oemByte) + ", for which OemBytes.txt has no line.");
}

void CheckCommunity(const Package& package, Report& report) {
    const auto bytes = BesideSearchLibrary(package, "Community.txt");
    if (!bytes) return;
    const std::string line = bytes->substr(0, bytes->find_first_of("\r\n"));
    const bool isPlain =
        std::ranges::all_of(line, [](char letter) { return letter >= ' ' && letter <= '~'; });
    const bool isNamed = !line.empty() && line.front() != ' ' && line.back() != ' ';
    if (isPlain && isNamed) return;
    report.Add(rules::communityText, {.file = PathIn(TreePath::program, "Community.txt")},
               line.empty() ? "The first line is empty."
                            : "The first line is " + Quoted(std::string_view(line)) + ".");
}

struct PictureSize {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
};

std::uint32_t BigEndian(std::string_view bytes, std::size_t position) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 4; ++i)
        number = (number << 8U) | static_cast<unsigned char>(bytes[position + i]);
    return number;
}

std::uint32_t LittleEndian(std::string_view bytes, std::size_t position) {
    const std::uint32_t number = BigEndian(bytes, position);
    return (number >> 24U) | ((number >> 8U) & 0xFF00U) | ((number << 8U) & 0xFF0000U) | (number << 24U);
}

// What a picture says of its size; nothing for what is no picture of that kind.
std::optional<PictureSize> SizeOf(std::string_view bytes, bool isBitmap) {
    constexpr std::string_view signature = "\x89PNG\r\n\x1A\n";
    constexpr std::string_view end = "IEND";
    if (isBitmap) {
        const bool isWhole =
            bytes.starts_with("BM") && bytes.size() >= 26 && LittleEndian(bytes, 10) <= bytes.size();
        if (!isWhole) return std::nullopt;
        // The height of a bitmap that is stored from its top line down is negative.
        const std::uint32_t height = LittleEndian(bytes, 22);
        return PictureSize{.width = LittleEndian(bytes, 18), .height = height >> 31U ? ~height + 1 : height};
    }
    const bool isWhole =
        bytes.starts_with(signature) && bytes.size() >= 45 && bytes.substr(bytes.size() - 8, 4) == end;
    if (!isWhole) return std::nullopt;
    return PictureSize{.width = BigEndian(bytes, 16), .height = BigEndian(bytes, 20)};
}

bool IsUsableLength(std::uint32_t pixels) {
    return pixels >= 8 && pixels <= 4096;
}

void CheckPicture(const Package& package, const std::string& path, Report& report) {
    constexpr std::size_t longestPicture = std::size_t{64} << 20U;
    const TreeFile* file = package.Files().Find(path);
    if (file == nullptr) {
        report.Add(rules::pictureMissing, {.file = path}, "The picture is missing.");
        return;
    }
    const auto bytes = package.Tree().Read(file->path, longestPicture);
    const auto size = bytes ? SizeOf(*bytes, path.ends_with(".bmp")) : std::nullopt;
    if (!size) {
        report.Add(rules::pictureUnreadable, {.file = file->path},
                   "The file is no whole picture of its kind.");
    } else if (!IsUsableLength(size->width) || !IsUsableLength(size->height)) {
        report.Add(rules::pictureSize, {.file = file->path},
                   "The picture has " + std::to_string(size->width) + " by " + std::to_string(size->height) +
                       " pixels.");
    }
}

void CheckPictures(const Package& package, Report& report) {
    if (package.Settings().GetBool(Tag::SILENT_INSTALL)) return;
    for (const std::string_view name :
         {"logo.bmp", "help.png", "high_contrast_help.png", "refresh.png", "high_contrast_refresh.png",
          "bullet_arrow_up.png", "bullet_arrow_down.png", "bullet_toggle_plus.png", "check.png", "x.png",
          "installsuccess.png", "installerror.png", "usbconnect.png"}) {
        CheckPicture(package, PathIn(TreePath::pictures, name), report);
    }
    if (!package.Settings().IsAmazonSupported()) return;
    for (const std::string_view name : {"network.png", "usb.png"}) {
        CheckPicture(package, PathIn(TreePath::pictures, name), report);
    }
}

void CheckHelp(const Package& package, Report& report) {
    for (const TreeFile& file : package.Files().All()) {
        const std::string path = Folded(file.path);
        if (!path.starts_with("setup/") || !path.ends_with("/install.chm")) continue;
        const auto start = package.Tree().Read(file.path, 4);
        if (start && *start == "ITSF") continue;
        report.Add(rules::helpUnreadable, {.file = file.path}, "The file is no compiled help.");
    }
}

bool HasHelp(const Package& package, std::string_view language) {
    return package.Files().Find("Setup/" + std::string(language) + "/install.chm") != nullptr;
}

void CheckHelpLanguages(const Package& package, Report& report) {
    if (package.Settings().GetBool(Tag::SILENT_INSTALL)) return;
    std::vector<std::string> missing;
    for (const LanguageFile& language : package.Languages()) {
        if (!HasHelp(package, ToUtf8(language.code))) missing.push_back(ToUtf8(language.code));
    }
    if (missing.size() * 2 >= package.Languages().size()) return;
    for (const std::string& language : missing) {
        report.Add(rules::helpMissing, {.file = "Setup/" + language + "/install.chm"},
                   "There is no help in the language " + Quoted(std::string_view(language)) + ".");
    }
}

// What the name of a licence in that language holds after "eula_".
std::string LicenceCodeOf(const LanguageFile& language) {
    const std::string code = Folded(ToUtf8(language.code));
    return code == "id_id" ? "id" : code;
}

// The language of a licence by its name, as far as a language file of the package tells; the longest code
// counts.
std::string CodeOfLicence(const Package& package, std::string_view fileName) {
    const std::string name = Folded(fileName);
    const std::size_t start = name.find("eula_");
    std::string code;
    if (start == std::string::npos) return code;
    for (const LanguageFile& language : package.Languages()) {
        const std::string candidate = LicenceCodeOf(language);
        if (candidate.size() > code.size() && name.substr(start + 5).starts_with(candidate)) code = candidate;
    }
    return code;
}

Position PlaceOfByte(std::string_view bytes, std::size_t offset) {
    const std::string_view before = bytes.substr(0, offset);
    const std::size_t lineStart = before.rfind('\n') + 1;
    return {.line = static_cast<std::size_t>(std::ranges::count(before, '\n')) + 1,
            .column = before.size() - lineStart + 1};
}

void CheckLicenceBytes(const TreeFile& licence, const LanguageFile& language, const std::string& bytes,
                       Report& report) {
    const std::wstring page = TagDocument::ValueOf(language.file->Text(), TextKey::CODE_PAGE.Name());
    const auto number = static_cast<unsigned>(LeadingInteger(page));
    const auto foreign = FirstForeignByte(number, bytes);
    const bool hasMark = bytes.starts_with("\xEF\xBB\xBF") || bytes.starts_with("\xFF\xFE");
    if (foreign || hasMark) {
        report.Add(rules::licenceBytes,
                   {.file = licence.path, .position = PlaceOfByte(bytes, hasMark ? 0 : *foreign)},
                   hasMark ? "The file begins with a byte order mark, which is shown as letters."
                           : "The byte here is no character of the code page " + Quoted(page) + ".");
        return;
    }
    if (const auto split = FirstSplitCharacter(number, bytes, longestPiece)) {
        report.Add(rules::licenceSplit, {.file = licence.path, .position = PlaceOfByte(bytes, *split)},
                   "A piece of the line ends within the character here.");
    }
}

void CheckLicence(const Package& package, const TreeFile& licence, Report& report) {
    const std::string code = CodeOfLicence(package, FileNameOf(licence.path));
    const auto isOfCode = [&](const LanguageFile& language) {
        return !code.empty() && LicenceCodeOf(language) == code;
    };
    const auto language = std::ranges::find_if(package.Languages(), isOfCode);
    if (language == package.Languages().end()) {
        report.Add(rules::licenceWithoutLanguage, {.file = licence.path},
                   "No language file goes with this licence.");
        return;
    }
    const auto bytes = package.Tree().Read(licence.path, longestLicence);
    if (bytes) CheckLicenceBytes(licence, *language, *bytes, report);
}

void CheckLicences(const Package& package, Report& report) {
    const InstallSettings& settings = package.Settings();
    if (settings.GetBool(Tag::HIDE_EULA) || settings.GetBool(Tag::SILENT_INSTALL)) return;
    const auto licences = package.Files().In(TreePath::licences, ".txt");
    if (package.Files().Find(PathIn(TreePath::licences, "EULA_en.txt")) == nullptr) {
        report.Add(rules::licenceMissing, {.file = PathIn(TreePath::licences, "EULA_en.txt")},
                   "The file is missing.");
    }
    for (const TreeFile* licence : licences) CheckLicence(package, *licence, report);
    for (const LanguageFile& language : package.Languages()) {
        const std::string pattern = "eula_" + LicenceCodeOf(language);
        const auto fits = [&](const TreeFile* licence) {
            return Folded(FileNameOf(licence->path)).find(pattern) != std::string::npos;
        };
        if (std::ranges::count_if(licences, fits) < 2) continue;
        const auto last = std::find_if(licences.rbegin(), licences.rend(), fits);
        report.Add(rules::licenceSeveral, {.file = (*last)->path},
                   "More than one file fits the language " + Quoted(language.code) + ".");
    }
}

void CheckNames(const Package& package, Report& report) {
    const std::vector<TreeFile>& files = package.Files().All();
    for (std::size_t i = 1; i < files.size(); ++i) {
        if (Folded(files[i].path) != Folded(files[i - 1].path)) continue;
        report.Add(
            rules::fileNamesClash, {.file = files[i].path},
            "The name differs from " + Quoted(files[i - 1].path) + " in the case of its letters alone.");
    }
}

}  // namespace

void CheckFiles(const Package& package, Report& report) {
    CheckLibraries(package, report);
    CheckPlantedLibraries(package, report);
    CheckOemBytes(package, report);
    CheckCommunity(package, report);
    CheckPictures(package, report);
    CheckHelp(package, report);
    CheckHelpLanguages(package, report);
    CheckLicences(package, report);
    CheckNames(package, report);
}

}  // namespace packagecheck
