#include "tests/unit/packagecheck/BinaryFiles.h"
#include "tests/unit/packagecheck/RuleCases.h"

namespace {

constexpr const char* brevantoPath = "Setup/x64/Brevanto.dll";
constexpr const char* sondrixPath = "Setup/x64/Sondrix.dll";
constexpr const char* checkPath = "Setup/res/images/check.png";
constexpr const char* networkPath = "Setup/res/images/network.png";
constexpr const char* logoPath = "Setup/res/images/logo.bmp";
constexpr const char* licencePath = "Notices/EULA/EULA_en.txt";
constexpr const char* oemBytesPath = "Setup/x64/OemBytes.txt";
constexpr const char* communityPath = "Setup/x64/Community.txt";

// Takes the mark of a library off a file of Windows.
void MakeProgram(std::string& file) {
    const std::size_t header = file.find(std::string_view("PE\0\0", 4));
    if (header != std::string::npos) file[header + 23] = '\0';
}

// German and French beside English, with an English help.
void AddLanguages(MemoryTree& tree) {
    for (const char* code : {"de", "fr"})
        tree.files["Setup/res/" + std::string(code) + "_strings.xml"] = "<A></A>";
    tree.files["Setup/en/install.chm"] = "ITSF";
}

void UseCodePage(MemoryTree& tree, const std::string& page, const std::string& licence) {
    tree.Replace(englishPath, "<CODE_PAGE>1252", "<CODE_PAGE>" + page);
    tree.files[licencePath] = licence;
}

}  // namespace

std::vector<RuleCase> FileRuleCases() {
    return {
        {"library-missing", [](MemoryTree& tree) { tree.files.erase(brevantoPath); },
         [](MemoryTree& tree) { tree.files.erase(sondrixPath); }},
        {"search-library-missing", [](MemoryTree& tree) { tree.files.erase(sondrixPath); },
         [](MemoryTree& tree) {
             tree.files.erase(sondrixPath);
             tree.AddSetting("<HIDE_DISCOVERY>true</HIDE_DISCOVERY>");
         }},
        {"library-unreadable", [](MemoryTree& tree) { tree.files[sondrixPath] = "MZ"; },
         [](MemoryTree& tree) {
             tree.files[sondrixPath] =
                 MakeLibrary({"Initialize", "Uninitialize", "DiscoverW", "EnumerateW", "More"});
         }},
        {"library-unreadable",
         [](MemoryTree& tree) {
             tree.files[sondrixPath] =
                 MakeLibrary({"Initialize", "Uninitialize", "DiscoverW", "EnumerateW"}, 0x14C);
         },
         [](MemoryTree& tree) { tree.files["Setup/x64/Other.dll"] = "MZ"; }},
        {"library-unreadable", [](MemoryTree& tree) { tree.files[sondrixPath].front() = 'X'; },
         [](MemoryTree& tree) { tree.files[sondrixPath] += "more"; }},
        {"library-unreadable", [](MemoryTree& tree) { MakeProgram(tree.files[sondrixPath]); },
         [](MemoryTree& tree) { MakeProgram(tree.files["Setup/x64/Kestrune.exe"]); }},
        {"library-exports",
         [](MemoryTree& tree) {
             tree.files[sondrixPath] = MakeLibrary({"Initialize", "Uninitialize", "DiscoverW"});
         },
         [](MemoryTree& tree) {
             tree.files[sondrixPath] = MakeLibrary({"EnumerateW", "DiscoverW", "Initialize", "Uninitialize"});
         }},
        {"library-of-windows", [](MemoryTree& tree) { tree.files["Setup/x64/Version.DLL"] = "MZ"; },
         [](MemoryTree& tree) { tree.files["Setup/Version.dll"] = "MZ"; }},
        {"library-of-windows",
         [](MemoryTree& tree) { tree.files["Setup/x64/api-ms-win-core-file-l1.dll"] = "MZ"; },
         [](MemoryTree& tree) { tree.files["Setup/x64/versions.dll"] = "MZ"; }},
        {"oem-bytes-line",
         [](MemoryTree& tree) { tree.files[oemBytesPath] = "# makers\r\n256 = Halvenny\r\n"; },
         [](MemoryTree& tree) {
             tree.files[oemBytesPath] = "\xEF\xBB\xBF# makers\r\n\r\n 0xFF = Halvenny\r\n";
         }},
        {"oem-bytes-line", [](MemoryTree& tree) { tree.files[oemBytesPath] = "1 = ,"; },
         [](MemoryTree& tree) { tree.files["Setup/OemBytes.txt"] = "1 = ,"; }},
        {"oem-bytes-number",
         [](MemoryTree& tree) {
             tree.files[oemBytesPath] = "1 = Halvenny";
             tree.AddSetting("<OEMBYTE>2</OEMBYTE>");
         },
         [](MemoryTree& tree) {
             tree.files[oemBytesPath] = "0x02 = Halvenny";
             tree.AddSetting("<OEMBYTE>2</OEMBYTE>");
         }},
        {"community-text", [](MemoryTree& tree) { tree.files[communityPath] = "private \r\n"; },
         [](MemoryTree& tree) { tree.files[communityPath] = "private\r\n of the house \r\n"; }},
        {"community-text", [](MemoryTree& tree) { tree.files[communityPath] = "\r\nprivate"; },
         [](MemoryTree& tree) { tree.files[communityPath] = "private"; }},
        {"community-text", [](MemoryTree& tree) { tree.files[communityPath] = "\xEF\xBB\xBFprivate"; },
         [](MemoryTree& tree) { tree.files[communityPath] = "two words"; }},
        {"community-text", [](MemoryTree& tree) { tree.files[communityPath] = "a\x7F"; },
         [](MemoryTree& tree) { tree.files[communityPath] = "~a~"; }},
        {"program-missing", [](MemoryTree& tree) { tree.files.erase("Setup/x64/Kestrune.exe"); },
         [](MemoryTree& tree) {
             tree.files.erase("Setup/x64/Kestrune.exe");
             tree.files["setup/X64/KESTRUNE.EXE"] = "";
         }},
        {"picture-missing", [](MemoryTree& tree) { tree.files.erase(checkPath); },
         [](MemoryTree& tree) {
             tree.files.erase(checkPath);
             tree.AddSetting("<SILENT_INSTALL>true</SILENT_INSTALL>");
         }},
        {"picture-missing",
         [](MemoryTree& tree) {
             tree.AddSetting("<AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED>");
             tree.files.erase(networkPath);
         },
         [](MemoryTree& tree) { tree.files.erase(networkPath); }},
        {"picture-unreadable", [](MemoryTree& tree) { tree.files[checkPath].pop_back(); },
         [](MemoryTree& tree) { tree.files[checkPath] = MakePng(20, 30); }},
        {"picture-unreadable", [](MemoryTree& tree) { tree.files[checkPath].insert(33, 20, 'x').pop_back(); },
         [](MemoryTree& tree) { tree.files[checkPath].insert(33, 20, 'x'); }},
        {"picture-unreadable", [](MemoryTree& tree) { tree.files[logoPath] = MakePng(20, 30); },
         [](MemoryTree& tree) { tree.files[logoPath] = MakeBitmap(20, 30); }},
        {"picture-unreadable", [](MemoryTree& tree) { tree.files[logoPath].front() = 'X'; },
         [](MemoryTree& tree) { tree.files[logoPath].back() = 'X'; }},
        {"picture-unreadable", [](MemoryTree& tree) { tree.files[logoPath].resize(53); },
         [](MemoryTree& tree) { tree.files[logoPath].resize(54); }},
        {"picture-size", [](MemoryTree& tree) { tree.files[checkPath] = MakePng(7, 8); },
         [](MemoryTree& tree) { tree.files[checkPath] = MakePng(8, 4096); }},
        {"picture-size", [](MemoryTree& tree) { tree.files[logoPath] = MakeBitmap(8, 4097); },
         [](MemoryTree& tree) { tree.files[logoPath] = MakeBitmap(8, 0xFFFFFFF8U); }},
        {"picture-size", [](MemoryTree& tree) { tree.files[logoPath] = MakeBitmap(0x10010, 8); },
         [](MemoryTree& tree) { tree.files[logoPath] = MakeBitmap(0x0F10, 0xFFFFF000U); }},
        {"picture-size", [](MemoryTree& tree) { tree.files[logoPath] = MakeBitmap(8, 0xFFFFFFF9U); },
         [](MemoryTree& tree) { tree.files[logoPath] = MakeBitmap(0x1000, 8); }},
        {"help-unreadable", [](MemoryTree& tree) { tree.files["Setup/en/install.chm"] = "<html>"; },
         [](MemoryTree& tree) { tree.files["Setup/en/install.chm"] = "ITSF\3"; }},
        {"help-missing",
         [](MemoryTree& tree) {
             AddLanguages(tree);
             tree.files["Setup/de/install.chm"] = "ITSF";
         },
         [](MemoryTree& tree) {
             AddLanguages(tree);
             tree.files["Setup/DE/Install.chm"] = "ITSF";
             tree.files["Setup/fr/install.chm"] = "ITSF";
         }},
        {"help-missing",
         [](MemoryTree& tree) {
             AddLanguages(tree);
             tree.files["Setup/fr/install.chm"] = "ITSF";
         },
         [](MemoryTree& tree) { AddLanguages(tree); }},
        {"licence-code-page", [](MemoryTree& tree) { UseCodePage(tree, "932", "\x83\x65\x83"); },
         [](MemoryTree& tree) { UseCodePage(tree, "932", "\x83\x65\xB1"); }},
        {"licence-code-page", [](MemoryTree& tree) { UseCodePage(tree, "949", "\xB0\x30"); },
         [](MemoryTree& tree) { UseCodePage(tree, "936", "\xB0\x40"); }},
        {"licence-code-page", [](MemoryTree& tree) { UseCodePage(tree, "950", "\xA4\x80"); },
         [](MemoryTree& tree) { UseCodePage(tree, "950", "\xA4\xA4"); }},
        {"licence-split",
         [](MemoryTree& tree) { UseCodePage(tree, "932", std::string(2046, 'x') + "\x83\x65"); },
         [](MemoryTree& tree) { UseCodePage(tree, "932", std::string(2045, 'x') + "\x83\x65\x83\x65"); }},
        {"licence-split",
         [](MemoryTree& tree) { UseCodePage(tree, "65001", "x\n" + std::string(4093, 'x') + "\xC3\xBC"); },
         [](MemoryTree& tree) { UseCodePage(tree, "65001", std::string(2040, 'x') + "\nsix \xC3\xBC"); }},
        {"licence-missing", [](MemoryTree& tree) { tree.files.erase(licencePath); },
         [](MemoryTree& tree) {
             tree.files.erase(licencePath);
             tree.AddSetting("<HIDE_EULA>true</HIDE_EULA>");
         }},
        {"licence-several", [](MemoryTree& tree) { tree.files["Notices/EULA/old_eula_en.txt"] = "old"; },
         [](MemoryTree& tree) { tree.files["Notices/EULA/old_eula_en.rtf"] = "old"; }},
        {"licence-code-page", [](MemoryTree& tree) { tree.files[licencePath] = "Terms\x81"; },
         [](MemoryTree& tree) { tree.files[licencePath] = "Terms\x80"; }},
        {"licence-code-page", [](MemoryTree& tree) { tree.files[licencePath] = "\xEF\xBB\xBFTerms"; },
         [](MemoryTree& tree) { tree.files[licencePath] = "Terms\xEF\xBB\xBF"; }},
        {"licence-without-language", [](MemoryTree& tree) { tree.files["Notices/EULA/EULA_de.txt"] = "AGB"; },
         [](MemoryTree& tree) { tree.files["Notices/EULA/EULA_de.rtf"] = "AGB"; }},
        {"licence-without-language", [](MemoryTree& tree) { tree.files["Notices/EULA/EULA_id.txt"] = "a"; },
         [](MemoryTree& tree) {
             tree.files["Notices/EULA/EULA_id.txt"] = "a";
             tree.files["Setup/res/id_ID_strings.xml"] = "<A></A>";
         }},
        {"file-names-clash", [](MemoryTree& tree) { tree.files["Notices/EULA/eula_EN.txt"] = "old"; },
         [](MemoryTree& tree) { tree.files["Notices/eula_EN.txt"] = "old"; }},
    };
}
