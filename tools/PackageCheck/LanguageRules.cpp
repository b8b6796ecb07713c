#include "tools/PackageCheck/LanguageRules.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "CommonLib/TextUtilities.h"
#include "CommonLib/Utf8.h"
#include "settings/IndexedDocument.h"
#include "settings/LanguageTable.h"
#include "settings/TagSearch.h"
#include "settings/TextExpansion.h"
#include "settings/TextKeys.h"
#include "tools/PackageCheck/CodePages.h"
#include "tools/PackageCheck/KnownTags.h"
#include "tools/PackageCheck/KnownTexts.h"
#include "tools/PackageCheck/Quoted.h"

namespace packagecheck {

namespace {

constexpr unsigned primaryLanguages = 0x400;

// The codes to which the languages of Windows lead.
const std::set<std::wstring>& LanguageCodes() {
    static const std::set<std::wstring> codes = [] {
        std::set<std::wstring> made;
        for (unsigned primary = 0; primary < primaryLanguages; ++primary) {
            for (unsigned sub = 0; sub < 16; ++sub) made.insert(MapLanguage(primary, primary | (sub << 10U)));
        }
        return made;
    }();
    return codes;
}

bool IsNumber(std::wstring_view text) {
    return !text.empty() && text.size() < 6 && std::ranges::all_of(text, IsDigit);
}

bool IsReadFromRight(std::wstring_view code) {
    return code == L"ar" || code == L"he" || code == L"fa" || code == L"ur";
}

// An access key of a text, as a capital.
std::optional<wchar_t> AccessKeyOf(std::wstring_view text) {
    const std::size_t sign = text.find(L'&');
    if (sign == nowhere || sign + 1 >= text.size() || text[sign + 1] == L'&') return std::nullopt;
    const wchar_t letter = text[sign + 1];
    return letter >= L'a' && letter <= L'z' ? static_cast<wchar_t>(letter - L'a' + L'A') : letter;
}

class LanguageCheck {
public:
    LanguageCheck(const Package& checkedPackage, const LanguageFile& language, Report& target)
        : package(checkedPackage),
          code(language.code),
          file(*language.file),
          texts(file.Text()),
          report(target) {}

    void Run() {
        if (file.Source().IsUtf16()) return;
        CheckHead();
        CheckKeys();
        for (const std::wstring_view key : TextKeys()) CheckText(key);
        for (const PageTexts& page : TextsByPage()) CheckAccessKeys(page);
    }

private:
    void Add(const Rule& rule, std::wstring_view key, const std::string& message) {
        report.Add(rule, file.PlaceOf(key), message);
    }

    // What the file says of its language.
    void CheckHead() {
        if (!LanguageCodes().contains(code)) {
            const std::vector<std::wstring_view> codes(LanguageCodes().begin(), LanguageCodes().end());
            report.Add(
                rules::languageNameUnknown, {.file = file.Path()},
                "No language of Windows leads to the code " + Quoted(code) + "." + NearestHint(code, codes));
        }
        CheckLanguageId();
        const std::wstring order = texts.ValueOf(TextKey::READING_ORDER.Name());
        const bool fits = order == (IsReadFromRight(code) ? L"RTL" : L"LTR");
        if (!order.empty() && !fits) {
            Add(rules::readingOrder, TextKey::READING_ORDER.Name(),
                "READING_ORDER is " + Quoted(order) + " in the file of the language " + Quoted(code) + ".");
        }
        const std::wstring page = texts.ValueOf(TextKey::CODE_PAGE.Name());
        if (!page.empty() && (!IsNumber(page) || !IsCodePage(static_cast<unsigned>(LeadingInteger(page))))) {
            Add(rules::codePage, TextKey::CODE_PAGE.Name(),
                "CODE_PAGE is " + Quoted(page) + ", which is no code page.");
        }
    }

    void CheckLanguageId() {
        const std::wstring id = texts.ValueOf(TextKey::LANGUAGE_ID.Name());
        if (id.empty()) return;
        const auto number = static_cast<unsigned>(LeadingInteger(id));
        const bool leadsHere = IsNumber(id) && MapLanguage(number & (primaryLanguages - 1), number) == code;
        if (leadsHere || (IsNumber(id) && !LanguageCodes().contains(code))) return;
        Add(rules::languageId, TextKey::LANGUAGE_ID.Name(),
            "LANGUAGE_ID is " + Quoted(id) + ", which is not the language " + Quoted(code) + ".");
    }

    void CheckKeys() {
        std::set<std::wstring_view> seen;
        std::set<std::wstring_view> closed;
        for (const FoundTag& tag : file.Tags()) {
            if (tag.kind == TagKind::Close) closed.insert(tag.name);
        }
        for (const Element& element : file.Elements().All()) {
            const std::wstring_view key = element.open->name;
            const Place place = file.PlaceOf(element.open->start);
            const bool isFrame = file.Elements().ValueOf(element).find(L'<') != nowhere && !IsTextKey(key);
            if (isFrame) continue;
            if (!IsTextKey(key)) {
                report.Add(
                    rules::textUnknown, place,
                    ToUtf8(key) + " is no text that the wizard asks for." + NearestHint(key, TextKeys()));
            } else if (!seen.insert(key).second) {
                report.Add(rules::textRepeated, place,
                           ToUtf8(key) + " is here again; only the first one of the file is shown.");
            } else if (element.close == nullptr) {
                report.Add(rules::textUnclosed, place,
                           ToUtf8(key) + (closed.contains(key) ? " is closed in front of here."
                                                               : " has no close tag."));
            }
        }
    }

    void CheckText(std::wstring_view key) {
        const std::wstring value = texts.ValueOf(key);
        if (file.Elements().Named(key).empty()) {
            if (!CanBeMissing(key, isVariant))
                report.Add(rules::textMissing, {.file = file.Path()}, ToUtf8(key) + " is missing.");
            return;
        }
        if (value.empty()) {
            if (file.Elements().Named(key).front().close != nullptr)
                Add(rules::textEmpty, key, ToUtf8(key) + " is empty.");
            return;
        }
        CheckSigns(key, value);
        CheckEntities(key, value);
        CheckArguments(key, value);
        CheckTagNames(key, value);
    }

    void CheckSigns(std::wstring_view key, const std::wstring& value) {
        int surplus = 0;
        ReduceAccessKeys(value, surplus);
        if (surplus > 0) {
            Add(rules::accessKeyTwice, key,
                ToUtf8(key) + " has more than one access key: " + Quoted(value) + ".");
        }
        for (std::size_t sign = value.find(L"&amp"); sign != nowhere; sign = value.find(L"&amp", sign + 1)) {
            if (value.compare(sign, 5, L"&amp;") == 0) continue;
            Add(rules::accessKeyBroken, key,
                ToUtf8(key) + " has an \"&amp\" without its semicolon: " + Quoted(value) + ".");
            return;
        }
    }

    void CheckEntities(std::wstring_view key, const std::wstring& value) {
        for (const std::wstring_view entity : {L"&lt;", L"&gt;", L"&quot;", L"&apos;", L"&nbsp;", L"&#"}) {
            if (value.find(entity) == nowhere) continue;
            Add(rules::textEntity, key,
                ToUtf8(key) + " holds " + Quoted(entity) + ", which is shown as it stands.");
        }
    }

    void CheckArguments(std::wstring_view key, const std::wstring& value) {
        const bool takesArgument = key == TextKey::DISCOVERY_INFOCENTER_LINK_LABEL.Name();
        if (takesArgument && value.find(L"{0}") == nowhere) {
            Add(rules::textArgumentMissing, key, ToUtf8(key) + " does not say where the product is named.");
        }
        for (wchar_t digit = takesArgument ? L'1' : L'0'; digit <= L'9'; ++digit) {
            const std::wstring sign = {L'{', digit, L'}'};
            if (value.find(sign) == nowhere) continue;
            Add(rules::textArgumentUnknown, key,
                ToUtf8(key) + " holds " + ToUtf8(sign) + ", which nothing is put in for.");
        }
    }

    void CheckTagNames(std::wstring_view key, const std::wstring& value) {
        if (std::ranges::count(value, L'^') % 2 != 0) {
            Add(rules::textTagUnclosed, key,
                ToUtf8(key) + " holds a \"^\" without a second one: " + Quoted(value) + ".");
        }
        const TagExpansion expansion = ExpandTags(value, [&](std::wstring_view name) {
            if (FindSettingsTag(name) == nullptr) AddUnknownTag(key, name);
            return SettingOf(name);
        });
        if (expansion.endless && std::ranges::count(value, L'^') % 2 == 0) {
            Add(rules::textEndless, key,
                ToUtf8(key) + " never ends: the value of a tag in it names that tag again.");
        }
    }

    void AddUnknownTag(std::wstring_view key, std::wstring_view name) {
        if (!name.empty() && name.size() <= 64) {
            Add(rules::textTagUnknown, key,
                ToUtf8(key) + " asks for " + Quoted(name) + ", which is no tag of the settings." +
                    NearestHint(name, SettingsTagNames()));
        }
    }

    // A tag is asked for in many texts, and looked for in the settings once.
    const std::wstring& SettingOf(std::wstring_view name) {
        const auto known = settings.find(name);
        if (known != settings.end()) return known->second;
        return settings.emplace(name, package.Settings().GetString(TextTag(name))).first->second;
    }

    void CheckAccessKeys(const PageTexts& page) {
        std::map<wchar_t, std::wstring_view> owners;
        for (const std::wstring_view key : page.keys) {
            int surplus = 0;
            const auto letter = AccessKeyOf(ReduceAccessKeys(texts.ValueOf(key), surplus));
            if (!letter) continue;
            const auto [owner, isNew] = owners.emplace(*letter, key);
            if (isNew) continue;
            Add(rules::accessKeyShared, key,
                ToUtf8(key) + " and " + ToUtf8(owner->second) + " have the access key " +
                    Quoted(std::wstring_view(&*letter, 1)) + " on one page: " + std::string(page.page) + ".");
        }
    }

    const Package& package;
    const std::wstring& code;
    const TagFile& file;
    IndexedDocument texts;
    bool isVariant = package.Settings().IsAmazonSupported();
    std::map<std::wstring, std::wstring, std::less<>> settings;
    Report& report;
};

}  // namespace

void CheckLanguages(const Package& package, Report& report) {
    const auto isEnglish = [](const LanguageFile& language) { return Folded(ToUtf8(language.code)) == "en"; };
    if (std::ranges::none_of(package.Languages(), isEnglish)) {
        report.Add(rules::languageEnglishMissing, {.file = std::string(TreePath::texts) + "/en_strings.xml"},
                   "The file is missing, and with it the texts of every language without a file of its own.");
    }
    for (const LanguageFile& language : package.Languages()) LanguageCheck(package, language, report).Run();
}

}  // namespace packagecheck
