#include "tests/unit/packagecheck/BinaryFiles.h"
#include "tests/unit/packagecheck/RuleCases.h"

namespace {

constexpr const char* brevantoPath = "Setup/x64/Brevanto.dll";
constexpr const char* sondrixPath = "Setup/x64/Sondrix.dll";
constexpr const char* checkPath = "Setup/res/images/check.png";
constexpr const char* logoPath = "Setup/res/images/logo.bmp";
constexpr const char* licencePath = "Notices/EULA/EULA_en.txt";

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
        {"library-exports",
         [](MemoryTree& tree) {
             tree.files[sondrixPath] = MakeLibrary({"Initialize", "Uninitialize", "DiscoverW"});
         },
         [](MemoryTree& tree) {
             tree.files[sondrixPath] = MakeLibrary({"EnumerateW", "DiscoverW", "Initialize", "Uninitialize"});
         }},
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
        {"picture-unreadable", [](MemoryTree& tree) { tree.files[checkPath].pop_back(); },
         [](MemoryTree& tree) { tree.files[checkPath] = MakePng(20, 30); }},
        {"picture-unreadable", [](MemoryTree& tree) { tree.files[logoPath] = MakePng(20, 30); },
         [](MemoryTree& tree) { tree.files[logoPath] = MakeBitmap(20, 30); }},
        {"picture-size", [](MemoryTree& tree) { tree.files[checkPath] = MakePng(7, 8); },
         [](MemoryTree& tree) { tree.files[checkPath] = MakePng(8, 4096); }},
        {"picture-size", [](MemoryTree& tree) { tree.files[logoPath] = MakeBitmap(8, 4097); },
         [](MemoryTree& tree) { tree.files[logoPath] = MakeBitmap(8, 0xFFFFFFF8U); }},
        {"help-unreadable", [](MemoryTree& tree) { tree.files["Setup/en/install.chm"] = "<html>"; },
         [](MemoryTree& tree) { tree.files["Setup/en/install.chm"] = "ITSF\3"; }},
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
        {"file-names-clash", [](MemoryTree& tree) { tree.files["Notices/EULA/eula_EN.txt"] = "old"; },
         [](MemoryTree& tree) { tree.files["Notices/eula_EN.txt"] = "old"; }},
    };
}
