#include "tests/unit/packagecheck/RuleCases.h"

using namespace std::string_literals;

std::vector<RuleCase> TextRuleCases() {
    return {
        {"file-unreadable", [](MemoryTree& tree) { tree.unreadable = {defaultsPath}; },
         [](MemoryTree& tree) { tree.unreadable = {"Setup/another.xml"}; }},
        {"file-utf16", [](MemoryTree& tree) { tree.files[defaultsPath] = "\xFF\xFE<\0O\0E\0M\0>\0"s; },
         [](MemoryTree& tree) { tree.files[defaultsPath].insert(0, "\xEF\xBB\xBF"); }},
        {"file-utf16", [](MemoryTree& tree) { tree.files[defaultsPath] = "<\0O\0E\0M\0>\0"s; },
         [](MemoryTree&) {}},
        {"file-not-utf8", [](MemoryTree& tree) { tree.AddSetting("<PRODUCT_NAME>M\xFCll</PRODUCT_NAME>"); },
         [](MemoryTree& tree) { tree.AddSetting("<PRODUCT_NAME>M\xC3\xBCll</PRODUCT_NAME>"); }},
        {"file-null-character", [](MemoryTree& tree) { tree.files[defaultsPath] += "<!-- \0 -->"s; },
         [](MemoryTree& tree) { tree.files[defaultsPath] += "<!-- \x01 -->"; }},
        {"file-end-mark", [](MemoryTree& tree) { tree.files[defaultsPath] += "\x1A"; },
         [](MemoryTree& tree) { tree.files[defaultsPath] += "\x1B"; }},
        {"file-start-marker",
         [](MemoryTree& tree) { tree.files[defaultsPath].insert(0, "\xC3\xAF\xC2\xBB\xC2\xBF"); },
         [](MemoryTree& tree) { tree.files[defaultsPath].insert(0, "\xC3\xAF\xC2\xBB"); }},
        {"line-splits-character",
         [](MemoryTree& tree) { tree.files[defaultsPath] += std::string(2046, 'x') + "\xC3\xBC" + "x"; },
         [](MemoryTree& tree) { tree.files[defaultsPath] += std::string(2045, 'x') + "\xC3\xBC" + "x"; }},
    };
}
