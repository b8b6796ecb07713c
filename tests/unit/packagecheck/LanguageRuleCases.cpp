#include "tests/unit/packagecheck/RuleCases.h"

namespace {

void SetText(MemoryTree& tree, const std::string& key, const std::string& value) {
    std::string& text = tree.files[englishPath];
    const std::size_t start = text.find("<" + key + ">") + key.size() + 2;
    text.replace(start, text.find("</" + key + ">") - start, value);
}

void RemoveText(MemoryTree& tree, const std::string& key) {
    std::string& text = tree.files[englishPath];
    const std::size_t start = text.find("<" + key + ">");
    text.erase(start, text.find("</" + key + ">") + key.size() + 3 - start);
}

void CopyLanguage(MemoryTree& tree, const std::string& code, const std::string& id) {
    tree.files["Setup/res/" + code + "_strings.xml"] = tree.files[englishPath];
    tree.Replace("Setup/res/" + code + "_strings.xml", "1033", id);
}

void CopyFromRight(MemoryTree& tree, const std::string& code, const std::string& id) {
    CopyLanguage(tree, code, id);
    tree.Replace("Setup/res/" + code + "_strings.xml", "LTR", "RTL");
}

}  // namespace

std::vector<RuleCase> LanguageRuleCases() {
    return {
        {"language-english-missing", [](MemoryTree& tree) { tree.files.erase(englishPath); },
         [](MemoryTree& tree) { CopyLanguage(tree, "de", "1031"); }},
        {"language-name-unknown", [](MemoryTree& tree) { CopyLanguage(tree, "pt", "1046"); },
         [](MemoryTree& tree) { CopyLanguage(tree, "pt_br", "1046"); }},
        {"language-name-unknown", [](MemoryTree& tree) { CopyLanguage(tree, "zh", "4"); },
         [](MemoryTree& tree) {
             CopyLanguage(tree, "zh_cn", "2052");
             CopyLanguage(tree, "zh_tw", "1028");
         }},
        {"language-id", [](MemoryTree& tree) { SetText(tree, "LANGUAGE_ID", "en"); },
         [](MemoryTree& tree) { SetText(tree, "LANGUAGE_ID", "2057"); }},
        {"language-id", [](MemoryTree& tree) { CopyLanguage(tree, "de", "1033"); },
         [](MemoryTree& tree) { CopyLanguage(tree, "de", "3079"); }},
        {"reading-order", [](MemoryTree& tree) { SetText(tree, "READING_ORDER", "rtl"); },
         [](MemoryTree& tree) { SetText(tree, "READING_ORDER", "LTR"); }},
        {"reading-order", [](MemoryTree& tree) { CopyLanguage(tree, "ar", "1025"); },
         [](MemoryTree& tree) { CopyFromRight(tree, "ar", "1025"); }},
        {"reading-order", [](MemoryTree& tree) { CopyLanguage(tree, "he", "1037"); },
         [](MemoryTree& tree) { CopyFromRight(tree, "he", "1037"); }},
        {"code-page", [](MemoryTree& tree) { SetText(tree, "CODE_PAGE", "CP1252"); },
         [](MemoryTree& tree) { SetText(tree, "CODE_PAGE", "65001"); }},
        {"code-page", [](MemoryTree& tree) { SetText(tree, "CODE_PAGE", "065001"); },
         [](MemoryTree& tree) { SetText(tree, "CODE_PAGE", "01252"); }},
        {"code-page", [](MemoryTree& tree) { SetText(tree, "CODE_PAGE", "1260"); },
         [](MemoryTree& tree) { SetText(tree, "CODE_PAGE", "1250"); }},
        {"code-page", [](MemoryTree& tree) { SetText(tree, "CODE_PAGE", "1259"); },
         [](MemoryTree& tree) { SetText(tree, "CODE_PAGE", "1258"); }},
        {"text-missing", [](MemoryTree& tree) { RemoveText(tree, "NEXT_BUTTON"); },
         [](MemoryTree& tree) { RemoveText(tree, "AMAZON_WELCOME_TEXT"); }},
        {"text-missing",
         [](MemoryTree& tree) {
             tree.AddSetting("<AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED>");
             RemoveText(tree, "AMAZON_WELCOME_TEXT");
         },
         [](MemoryTree& tree) { RemoveText(tree, "DISCOVERED_LIST_COLUMN_SCANNER"); }},
        {"text-empty", [](MemoryTree& tree) { SetText(tree, "WELCOME_TEXT", ""); },
         [](MemoryTree& tree) { SetText(tree, "WELCOME_TEXT", " "); }},
        {"text-unknown", [](MemoryTree& tree) { tree.AddText("<NEXT_BUTON>Next</NEXT_BUTON>"); },
         [](MemoryTree& tree) { tree.AddText("<!-- NEXT_BUTON -->"); }},
        {"text-repeated", [](MemoryTree& tree) { tree.AddText("<NEXT_BUTTON>Go</NEXT_BUTTON>"); },
         [](MemoryTree& tree) { tree.AddText("<!-- NEXT_BUTTON -->"); }},
        {"text-unclosed",
         [](MemoryTree& tree) { tree.Replace(englishPath, "</NEXT_BUTTON>", "</NEXT_BUTON>"); },
         [](MemoryTree& tree) { SetText(tree, "NEXT_BUTTON", "a\nb"); }},
        {"access-key-twice", [](MemoryTree& tree) { SetText(tree, "NEXT_BUTTON", "&amp;Next &amp;page"); },
         [](MemoryTree& tree) { SetText(tree, "NEXT_BUTTON", "Next &amp;page"); }},
        {"access-key-broken", [](MemoryTree& tree) { SetText(tree, "NEXT_BUTTON", "&ampNext"); },
         [](MemoryTree& tree) { SetText(tree, "NEXT_BUTTON", "&Next"); }},
        {"access-key-shared", [](MemoryTree& tree) { SetText(tree, "NEXT_BUTTON", "Ne&amp;hxt"); },
         [](MemoryTree& tree) { SetText(tree, "AGREE_BUTTON", "&amp;Here"); }},
        {"access-key-shared", [](MemoryTree& tree) { SetText(tree, "NEXT_BUTTON", "Ne&amp;Hxt"); },
         [](MemoryTree& tree) {
             for (const char* const key : {"NEXT_BUTTON", "MANUFACTURER_LABEL"})
                 SetText(tree, key, "Print &amp;&amp; scan");
         }},
        {"access-key-shared", [](MemoryTree& tree) { SetText(tree, "NEXT_BUTTON", "&amp;h"); },
         [](MemoryTree& tree) {
             for (const char* const key : {"NEXT_BUTTON", "MANUFACTURER_LABEL"})
                 SetText(tree, key, "Print &amp;");
         }},
        {"text-entity", [](MemoryTree& tree) { SetText(tree, "WELCOME_TEXT", "a &lt; b"); },
         [](MemoryTree& tree) { SetText(tree, "WELCOME_TEXT", "a lt; b"); }},
        {"text-tag-unknown", [](MemoryTree& tree) { SetText(tree, "WELCOME_TEXT", "^OEN^"); },
         [](MemoryTree& tree) { SetText(tree, "WELCOME_TEXT", "^OEM_NAME^"); }},
        {"text-tag-unknown",
         [](MemoryTree& tree) { SetText(tree, "WELCOME_TEXT", "^" + std::string(64, 'X') + "^"); },
         [](MemoryTree& tree) { SetText(tree, "WELCOME_TEXT", "^" + std::string(65, 'X') + "^"); }},
        {"text-tag-unknown", [](MemoryTree& tree) { SetText(tree, "WELCOME_TEXT", "^X^"); },
         [](MemoryTree& tree) { SetText(tree, "WELCOME_TEXT", "^^"); }},
        {"text-tag-unclosed", [](MemoryTree& tree) { SetText(tree, "WELCOME_TEXT", "a ^OEM b"); },
         [](MemoryTree& tree) { SetText(tree, "WELCOME_TEXT", "a ^OEM^ b"); }},
        {"text-endless",
         [](MemoryTree& tree) {
             tree.AddSetting("<PRODUCT_NAME>x^PRODUCT_NAME^</PRODUCT_NAME>");
             SetText(tree, "WELCOME_TEXT", "a ^PRODUCT_NAME^");
         },
         [](MemoryTree& tree) {
             tree.AddSetting("<PRODUCT_NAME>x^OEM^</PRODUCT_NAME>");
             SetText(tree, "WELCOME_TEXT", "a ^PRODUCT_NAME^");
         }},
        {"text-endless",
         [](MemoryTree& tree) {
             tree.AddSetting("<PRODUCT_NAME>^PRODUCT_NAME^</PRODUCT_NAME>");
             SetText(tree, "WELCOME_TEXT", "^OEM^ ^PRODUCT_NAME^");
         },
         [](MemoryTree& tree) {
             tree.AddSetting("<PRODUCT_NAME>^PRODUCT_NAME^</PRODUCT_NAME>");
             SetText(tree, "WELCOME_TEXT", "^PRODUCT_NAME^ ^");
         }},
        {"text-argument-missing",
         [](MemoryTree& tree) { SetText(tree, "DISCOVERY_INFOCENTER_LINK_LABEL", "Help"); },
         [](MemoryTree& tree) { SetText(tree, "DISCOVERY_INFOCENTER_LINK_LABEL", "{0}"); }},
        {"text-argument-unknown", [](MemoryTree& tree) { SetText(tree, "WELCOME_TEXT", "a {0}"); },
         [](MemoryTree& tree) { SetText(tree, "WELCOME_TEXT", "a {x}"); }},
        {"text-argument-unknown",
         [](MemoryTree& tree) { SetText(tree, "DISCOVERY_INFOCENTER_LINK_LABEL", "{0} {1}"); },
         [](MemoryTree& tree) { SetText(tree, "DISCOVERY_INFOCENTER_LINK_LABEL", "{0} {0}"); }},
    };
}
